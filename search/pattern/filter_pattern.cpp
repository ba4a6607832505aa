#include "search/pattern/filter_pattern.h"

#include "search/pattern/anchored_scan.h"
#include "search/pattern/first_char_map.h"
#include "search/pattern/regex_compiler.h"

namespace tarrow {
namespace {

class FilterPattern final : public AnchoredPattern {
 public:
  PatternError Compile(std::string_view text) {
    PatternError error = CompilePattern(text, pattern_);
    if (error == PatternError::kNone) ComputeFirstCharMap(pattern_);
    return error;
  }

  Match FindFirst(std::string_view text, std::size_t from, std::size_t limit, Progress* progress) override {
    std::optional<AnchoredMatch> match = FindAnchoredMatch(pattern_, text, from, limit, progress);
    return match ? Match{match->at, match->length} : Match{limit, 0};
  }

 private:
  CompiledPattern pattern_;
};

}  // namespace

std::unique_ptr<AnchoredPattern> MakeFilterPattern(std::string_view text, int& message) {
  auto pattern = std::make_unique<FilterPattern>();
  PatternError error = pattern->Compile(text);
  if (error == PatternError::kNone) return pattern;
  message = PatternErrorMessage(error);
  return nullptr;
}

}  // namespace tarrow
