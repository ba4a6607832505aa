#include "edit/commands/match_brace.h"

#include <optional>
#include <string_view>

namespace tarrow {

namespace {

struct Bracket {
  char self = 0;
  char partner = 0;
  bool opens = false;
};

std::optional<Bracket> BracketAt(TextView text, BytePos p) {
  constexpr std::string_view kOpening = "([{", kClosing = ")]}";
  int byte = text.At(p);
  if (byte < 0) return std::nullopt;
  char c = static_cast<char>(byte);
  if (auto i = kOpening.find(c); i != kOpening.npos) return Bracket{c, kClosing[i], true};
  if (auto i = kClosing.find(c); i != kClosing.npos) return Bracket{c, kOpening[i], false};
  return std::nullopt;
}

// Looks for the end of the nesting in one piece of the text, carrying the depth on to the next piece.
class Nesting {
 public:
  Nesting(Bracket bracket, Progress* progress) : bracket_(bracket), ticker_(progress) {}

  // The offset in `piece` where the depth reaches 0.
  std::optional<std::size_t> Forward(std::string_view piece) {
    for (std::size_t i = 0; i < piece.size(); ++i)
      if (Closes(piece[i])) return i;
    return std::nullopt;
  }
  std::optional<std::size_t> Backward(std::string_view piece) {
    for (std::size_t i = piece.size(); i-- > 0;)
      if (Closes(piece[i])) return i;
    return std::nullopt;
  }

 private:
  bool Closes(char c) {
    ticker_.Tick();
    if (c == bracket_.self) ++depth_;
    return c == bracket_.partner && --depth_ == 0;
  }

  Bracket bracket_;
  ProgressTicker ticker_;
  std::int64_t depth_ = 1;
};

std::optional<BytePos> FindPartner(TextView text, BytePos p, Bracket bracket, Progress* progress) {
  Nesting nesting(bracket, progress);
  if (bracket.opens) {
    TextView after = text.Sub({p + 1, text.End()});
    if (auto at = nesting.Forward(after.head)) return p + 1 + static_cast<std::int64_t>(*at);
    auto at = nesting.Forward(after.tail);
    if (!at) return std::nullopt;
    return p + 1 + static_cast<std::int64_t>(after.head.size() + *at);
  }
  TextView before = text.Sub({BytePos(0), p});
  if (auto at = nesting.Backward(before.tail))
    return BytePos(static_cast<std::int64_t>(before.head.size() + *at));
  auto at = nesting.Backward(before.head);
  if (!at) return std::nullopt;
  return BytePos(static_cast<std::int64_t>(*at));
}

}  // namespace

EditOutcome MatchBrace(TextView text, TextRange selection, Progress* progress) {
  BytePos at = selection.start;
  std::optional<Bracket> bracket = BracketAt(text, at);
  if (!bracket) bracket = BracketAt(text, --at);
  if (!bracket) return EditOutcome::Refuse(selection, Beep::kInformation);
  std::optional<BytePos> partner = FindPartner(text, at, *bracket, progress);
  if (!partner) return EditOutcome::Refuse(selection, Beep::kInformation);
  return EditOutcome::Select({*partner, *partner + 1});
}

}  // namespace tarrow
