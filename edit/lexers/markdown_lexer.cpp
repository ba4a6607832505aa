// Markdown: headings, lists, quotes, code in fences and between backticks, emphasis, links, comments.
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_cursor.h"

#include <algorithm>

namespace tarrow {
namespace {

// The state: within a comment, or within a fence of so many backticks or tildes.
constexpr LexState kComment = 1;
constexpr LexState kFence = 0x80, kTildes = 0x40, kLengthMask = 0x3F;
constexpr std::size_t kLongestFence = kLengthMask;

std::size_t CountFront(std::string_view text, char sign) {
  return std::min(text.find_first_not_of(sign), text.size());
}

// What begins a line of code behind `text`'s first three blanks at most; the same closes it.
struct Fence {
  char sign = '\0';
  std::size_t length = 0;  // 0: no fence
  std::string_view behind;
};

Fence FenceOf(std::string_view text) {
  std::size_t indent = CountFront(text, ' ');
  text.remove_prefix(indent);
  if (indent > 3 || text.empty() || (text[0] != '`' && text[0] != '~')) return {};
  std::size_t length = CountFront(text, text[0]);
  if (length < 3) return {};
  return {text[0], std::min(length, kLongestFence), text.substr(length)};
}

// Whether the line is nothing but `sign` and blanks, three signs at least: a rule, or the line under a
// heading.
bool IsRule(std::string_view text, char sign) {
  auto isPart = [=](char c) { return c == sign || IsBlankByte(c); };
  return std::ranges::all_of(text, isPart) && std::ranges::count(text, sign) >= 3;
}

// The inner parts of a line. What is opened and not closed on the line is plain text; for what has not been
// found once it is not looked again, so that a line of nothing but signs costs what any other does.
class Inline {
 public:
  explicit Inline(LineCursor& line) : line_(line) {}

  // Returns whether a comment stays open.
  bool Run() {
    while (!line_.AtEnd()) {
      line_.SkipWhile([](char c) { return !IsSign(c); });
      line_.End(Style::kText);
      if (line_.Rest().starts_with("<!--")) {
        if (!EndComment()) return true;
      } else if (!line_.AtEnd()) {
        Sign();
      }
    }
    return false;
  }

  // Passes a comment; false when it goes on behind the line.
  bool EndComment() {
    std::size_t close = line_.Line().find("-->", line_.At());
    line_.SkipTo(close == std::string_view::npos ? close : close + 3);
    line_.End(Style::kComment);
    return close != std::string_view::npos;
  }

 private:
  static constexpr std::size_t kLongestCode = 8;  // backticks

  static bool IsSign(char c) {
    return c == '`' || c == '*' || c == '_' || c == '[' || c == ']' || c == '<' || c == '\\';
  }

  void Sign() {
    char sign = line_.Peek();
    bool isFound = false;
    if (sign == '\\' && line_.Peek(1) > ' ') line_.Skip();
    if (sign == '`') isFound = Code();
    if (sign == '*' || sign == '_') isFound = Emphasis(sign);
    if (sign == ']' && line_.Peek(1) == '(') isFound = Span(1, ')', Style::kLink);
    if (sign == '<' && line_.Rest().substr(0, 5).starts_with("<http")) isFound = Span(0, '>', Style::kLink);
    if (isFound) return;
    line_.Skip();
    line_.End(Style::kText);
  }

  bool Code() {
    std::size_t length = CountFront(line_.Rest(), '`');
    line_.Skip(length);
    if (length > kLongestCode || noCode_[length]) return line_.End(Style::kText), true;
    for (std::size_t at = line_.At(); (at = line_.Line().find('`', at)) != std::string_view::npos;) {
      std::size_t closing = CountFront(line_.Line().substr(at), '`');
      at += closing;
      if (closing != length) continue;
      line_.SkipTo(at);
      line_.End(Style::kCode);
      return true;
    }
    noCode_[length] = true;
    line_.End(Style::kText);
    return true;
  }

  // One sign or two of the same around words that touch them; an underscore within a word is part of it.
  bool Emphasis(char sign) {
    std::size_t length = std::min<std::size_t>(CountFront(line_.Rest(), sign), 2);
    char inner = line_.Peek(length);
    bool isWithin = sign == '_' && line_.At() > 0 && IsWordByte(line_.Before());
    bool& isMissing = noEmphasis_[(sign == '_' ? 2 : 0) + length - 1];
    if (isMissing || isWithin || inner == '\0' || IsBlankByte(inner)) return false;
    std::string_view signs = line_.Line().substr(line_.At(), length);
    for (std::size_t at = line_.At() + length + 1;; at += length) {
      at = line_.Line().find(signs, at);
      if (at == std::string_view::npos) break;
      std::size_t behind = at + length;
      bool joins = sign == '_' && behind < line_.Line().size() && IsWordByte(line_.Line()[behind]);
      if (IsBlankByte(line_.Line()[at - 1]) || joins) continue;
      line_.SkipTo(behind);
      line_.End(length == 2 ? Style::kStrong : Style::kEmphasis);
      return true;
    }
    isMissing = true;
    return false;
  }

  // From so many bytes further on to the next `close`.
  bool Span(std::size_t ahead, char close, Style style) {
    bool& isMissing = close == ')' ? noLink_ : noAddress_;
    std::size_t end = isMissing ? std::string_view::npos : line_.Line().find(close, line_.At());
    if (end == std::string_view::npos) {
      isMissing = true;
      return false;
    }
    line_.Skip(ahead);
    line_.End(Style::kText);
    line_.SkipTo(end + 1);
    line_.End(style);
    return true;
  }

  LineCursor& line_;
  bool noCode_[kLongestCode + 1]{};
  bool noEmphasis_[4]{};
  bool noLink_ = false;
  bool noAddress_ = false;
};

// Quote signs, and the bullet or number of a list.
void LexMarks(LineCursor& line) {
  line.SkipBlanks();
  while (line.Peek() == '>') {
    line.Skip();
    line.End(Style::kDirective);
    line.SkipBlanks();
  }
  line.End(Style::kText);
  std::size_t from = line.At();
  if (char c = line.Peek(); c == '-' || c == '+' || c == '*')
    line.Skip();
  else if (!line.SkipWhile(IsDigitByte).empty() && (line.Peek() == '.' || line.Peek() == ')'))
    line.Skip();
  if (line.At() > from && IsBlankByte(line.Peek()))
    line.End(Style::kKeyword);
  else
    line.SkipTo(from);
}

bool IsHeading(std::string_view text) {
  std::size_t signs = CountFront(text, '#');
  return signs >= 1 && signs <= 6 && (signs == text.size() || IsBlankByte(text[signs]));
}

class MarkdownTextLexer final : public Lexer {
  LexState Scan(std::string_view text, LexState state, StyleRuns* runs) const override {
    LineCursor line(text, runs);
    Fence fence = FenceOf(line.Rest());
    if (state & kFence) {
      bool closes = fence.length >= (state & kLengthMask) &&
                    (fence.sign == '~') == ((state & kTildes) != 0) &&
                    std::ranges::all_of(fence.behind, IsBlankByte);
      line.EndLine(Style::kCode);
      return closes ? kTextStart : state;
    }
    Inline parts(line);
    if (state == kComment) {
      if (!parts.EndComment()) return kComment;
    } else if (fence.length > 0 && (fence.sign == '~' || fence.behind.find('`') == std::string_view::npos)) {
      line.EndLine(Style::kCode);
      return static_cast<LexState>(kFence | (fence.sign == '~' ? kTildes : 0) | fence.length);
    } else if (IsHeading(line.Rest()) || IsRule(line.Rest(), '=')) {
      line.EndLine(Style::kSection);
    } else if (IsRule(line.Rest(), '-') || IsRule(line.Rest(), '*') || IsRule(line.Rest(), '_')) {
      line.EndLine(Style::kDirective);
    } else {
      LexMarks(line);
    }
    return parts.Run() ? kComment : kTextStart;
  }
};

}  // namespace

const Lexer& MarkdownLexer() {
  static const MarkdownTextLexer lexer;
  return lexer;
}

}  // namespace tarrow
