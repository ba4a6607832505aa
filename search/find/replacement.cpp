#include "search/find/replacement.h"

#include "base/utf16.h"

#include <algorithm>

namespace tarrow {

class Replacement::Builder {
 public:
  Builder(std::string& out, Charset charset) : out_(out), charset_(charset) {}

  void SetMode(Case mode) { mode_ = mode; }

  void Append(TextView text) {
    if (mode_ == Case::kUpperNext || mode_ == Case::kLowerNext) text = AppendFirst(text);
    if (mode_ == Case::kKeep)
      out_.append(text.head).append(text.tail);
    else if (text.Size() > 0)
      AppendConverted(out_, text, mode_ == Case::kUpper ? LetterCase::kUpper : LetterCase::kLower, charset_);
  }

 private:
  // Converts one character, if there is one; returns what is left. The mode waits for the next character
  // where there is none.
  TextView AppendFirst(TextView text) {
    BytePos end(charset_.At(text, BytePos(0)).length);
    if (end == BytePos(0)) return text;
    LetterCase to = mode_ == Case::kUpperNext ? LetterCase::kUpper : LetterCase::kLower;
    AppendConverted(out_, text.Sub({BytePos(0), end}), to, charset_);
    mode_ = Case::kKeep;
    return text.Sub({end, text.End()});
  }

  std::string& out_;
  Charset charset_;
  Case mode_ = Case::kKeep;
};

Replacement::Replacement(std::string_view source, Charset charset) : charset_(charset) {
  while (!source.empty()) {
    bool escaped = source[0] == '\\' && source.size() > 1;
    if (escaped) source.remove_prefix(1);
    std::string_view character = source.substr(0, ReadUtf8(source).length);
    if (escaped)
      AddEscape(character);
    else if (character == "&")
      parts_.push_back({Kind::kRegister});
    else
      AddText(character);
    source.remove_prefix(character.size());
  }
}

void Replacement::AddText(std::string_view character) {
  if (parts_.empty() || parts_.back().kind != Kind::kText) parts_.push_back({Kind::kText});
  if (charset_.IsUtf8())
    parts_.back().text += character;
  else
    parts_.back().text += charset_.Encode(ReadUtf8(character).code);
}

void Replacement::AddEscape(std::string_view character) {
  char c = character[0];
  auto addMode = [&](Case mode) { parts_.push_back({Kind::kCase, {}, 0, mode}); };
  if (c >= '0' && c <= '9') return parts_.push_back({Kind::kRegister, {}, c - '0'});
  switch (c) {
    case 'n':
      return AddText("\r"), AddText("\n");
    case 't':
      return AddText("\t");
    case 'p':
      return parts_.push_back({Kind::kClipboard});
    case 'u':
      return addMode(Case::kUpperNext);
    case 'l':
      return addMode(Case::kLowerNext);
    case 'U':
      return addMode(Case::kUpper);
    case 'L':
      return addMode(Case::kLower);
    case 'E':
    case 'e':
      return addMode(Case::kKeep);
    default:
      return AddText(character);
  }
}

bool Replacement::UsesClipboard() const {
  return std::ranges::find(parts_, Kind::kClipboard, &Part::kind) != parts_.end();
}

void Replacement::Build(TextView text, const MatchRegisters& registers, std::string& out) const {
  Builder builder(out, charset_);
  for (const Part& part : parts_) {
    if (part.kind == Kind::kCase) {
      builder.SetMode(part.mode);
    } else if (part.kind == Kind::kText) {
      builder.Append(TextView(part.text));
    } else if (part.kind == Kind::kClipboard) {
      builder.Append(TextView(clipboard_));
    } else if (auto range = registers.Range(part.number)) {
      BytePos end = std::min(range->end, text.End());
      builder.Append(text.Sub({std::min(range->start, end), end}));
    }
  }
}

}  // namespace tarrow
