#include "search/files/match_lexer.h"

#include "base/exceptions.h"
#include "base/progress.h"
#include "search/pattern/pattern_search.h"

namespace tarrow {
namespace {

// Nobody who draws has the time to be polled.
class NoPatience final : public Progress {
  void Poll() override { throw CYieldException(); }
};

}  // namespace

MatchLexer::MatchLexer(std::string_view text, FindOptions options)
    : isOff_(pattern_.Compile(text, options) != PatternError::kNone) {}

// An empty match is not to be seen.
void MatchLexer::LexFound(LineCursor& line) const {
  if (isOff_) return;
  try {
    std::string_view found = line.Rest();
    std::size_t start = line.At();
    CompiledPattern& pattern = pattern_.ForLine(found);
    TextView text(found);
    NoPatience progress;
    MatchRegisters match;
    for (BytePos at; at < text.End(); at = BytePos(std::max(at.value + 1, match.end[0]))) {
      if (SearchPattern(pattern, text, at, text.End() - at, &match, &progress) < 0) return;
      line.SkipTo(start + static_cast<std::size_t>(match.start[0]));
      line.End(Style::kText);
      line.SkipTo(start + static_cast<std::size_t>(match.end[0]));
      line.End(Style::kMatch);
    }
  } catch (const CYieldException&) {
    isOff_ = true;
  }
}

}  // namespace tarrow
