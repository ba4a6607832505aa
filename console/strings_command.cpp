#include "base/text_format.h"
#include "console/commands.h"
#include "console/system.h"
#include "search/pattern/anchored_scan.h"
#include "search/pattern/first_char_map.h"
#include "search/pattern/regex_compiler.h"
#include "tools/extraction/extract_strings.h"
#include "ui/program/string_table.h"

namespace tarrow {
namespace {

// The regular expressions in the form in which the extraction asks for them.
class FilterPattern final : public AnchoredPattern {
 public:
  FilterPattern(std::string_view text, Progress& progress) : progress_(progress) {
    PatternError error = CompilePattern(text, pattern_);
    if (error != PatternError::kNone)
      throw UsageError(FormatText("'%s': %s", {text, FindText(PatternErrorMessage(error))}));
    ComputeFirstCharMap(pattern_);
  }

  Match FindFirst(std::string_view text, std::size_t from, std::size_t limit) override {
    std::optional<AnchoredMatch> match = FindAnchoredMatch(pattern_, text, from, limit, &progress_);
    return match ? Match{match->at, match->length} : Match{limit, 0};
  }

 private:
  CompiledPattern pattern_;
  Progress& progress_;
};

}  // namespace

int RunStrings(const Arguments& arguments, Console& console) {
  FilterPattern pattern(arguments.Value('e', kDefaultStringPattern), console.GetProgress());
  console.ForEachFile(arguments.Operands(), [&](ByteSource& source, const std::string& name) {
    ExtractStrings(source, console.ShownName(name), pattern, console.Out(), kNewLine, &console.GetProgress());
  });
  return 0;
}

}  // namespace tarrow
