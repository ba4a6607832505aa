#include "base/text_format.h"
#include "console/commands.h"
#include "console/system.h"
#include "search/files/file_search.h"
#include "search/pattern/regex_compiler.h"
#include "ui/program/string_table.h"

namespace tarrow {

int RunSearch(const Arguments& arguments, Console& console) {
  std::vector<std::string> names = arguments.Operands();
  std::string text = names.front();
  names.erase(names.begin());
  LinePattern pattern;
  FindOptions options{.matchCase = !arguments.Has('i'), .wholeWord = arguments.Has('w')};
  PatternError error = pattern.Compile(text, options);
  if (error != PatternError::kNone)
    throw UsageError(FormatText("'%s': %s", {text, FindText(PatternErrorMessage(error))}));
  auto listing = arguments.Has('c') ? FileSearch::Listing::kCounts : FileSearch::Listing::kLines;
  FileSearch search(pattern, listing, console.Out(), &console.GetProgress(), kNewLine);
  bool found = false;
  console.ForEachFile(names, [&](ByteSource& source, const std::string& name) {
    std::string fullName = listing == FileSearch::Listing::kCounts ? FullName(name) : std::string();
    found |= search.Run(source, console.ShownName(name), fullName) > 0;
  });
  return found ? 0 : 1;
}

}  // namespace tarrow
