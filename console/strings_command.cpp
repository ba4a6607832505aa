#include "base/text_format.h"
#include "console/commands.h"
#include "console/system.h"
#include "search/pattern/filter_pattern.h"
#include "tools/extraction/extract_strings.h"
#include "ui/program/string_table.h"

namespace tarrow {

int RunStrings(const Arguments& arguments, Console& console) {
  std::string text = arguments.Value('e', kDefaultStringPattern);
  int message = 0;
  std::unique_ptr<AnchoredPattern> pattern = MakeFilterPattern(text, message);
  if (!pattern) throw UsageError(FormatText("'%s': %s", {text, FindText(message)}));
  console.ForEachFile(arguments.Operands(), [&](ByteSource& source, const std::string& name) {
    ExtractStrings(source, console.ShownName(name), *pattern, console.Out(), kNewLine,
                   &console.GetProgress());
  });
  return 0;
}

}  // namespace tarrow
