#include "project/help/help_request.h"

#include "base/utf16.h"
#include "edit/commands/word_movement.h"
#include "edit/text/letters.h"
#include "project/help/keywords.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr int kLongestWord = 63;               // characters that are looked up
constexpr std::size_t kLongestParameter = 48;  // characters of a word that goes into parameters

// Where a word stands that the caret touches: under it, just before it, or behind the "#" under it.
BytePos TouchedWord(TextView text, BytePos caret, Charset charset) {
  if (IsWordCharacter(text, caret, charset)) return caret;
  if (caret > BytePos(0)) {
    BytePos before = charset.Previous(text, caret);
    if (IsWordCharacter(text, before, charset)) return before;
  }
  return text.At(caret) == '#' ? caret + 1 : caret;
}

// The word without the formats of printf: the one %s is the word, %% a percent sign, and whatever else has
// one stands as it is written.
std::string FillFormat(std::string_view format, std::string_view word) {
  std::string out;
  bool isFilled = false;
  for (std::size_t i = 0; i < format.size(); ++i) {
    std::string_view two = format.substr(i, 2);
    bool takesWord = two == "%s" && !isFilled;
    if (takesWord || two == "%%") {
      out += takesWord ? word : "%";
      isFilled |= takesWord;
      ++i;
    } else {
      out += format[i];
    }
  }
  return out;
}

std::size_t CountCharacters(std::string_view word) {
  return Utf8ToUtf16<char16_t>(word).size();
}

}  // namespace

std::string WordForHelp(TextView text, BytePos caret, Charset charset) {
  BytePos at = TouchedWord(text, caret, charset);
  if (!IsWordCharacter(text, at, charset)) return {};
  BytePos start = WordStart(text, at, charset);
  if (text.At(start - 1) == '#') start = start - 1;
  BytePos end = start, last = WordEnd(text, at, charset);
  for (int length = 0; length < kLongestWord && end < last; ++length) end = charset.Next(text, end);
  return Utf16ToUtf8(std::u16string_view(charset.ToWide(text.Sub({start, end}))));
}

HelpMode HelpModeFor(HelpMode mode, std::string_view word) {
  if (mode != HelpMode::kChoose) return mode;
  return IsKeyword(word) ? HelpMode::kEnvironment : HelpMode::kSdk;
}

WordHelpRequest MakeWordHelpRequest(std::string_view value, std::string_view word) {
  if (value.starts_with('$')) return {true, std::string(value.substr(1)), {}};
  value.remove_prefix(std::min(value.find_first_not_of(' '), value.size()));
  bool quoted = value.starts_with('"');
  if (quoted) value.remove_prefix(1);
  std::size_t end = std::min(value.find(quoted ? '"' : ' '), value.size());
  WordHelpRequest request{false, std::string(value.substr(0, end)), {}};
  value.remove_prefix(std::min(end + 1, value.size()));
  if (quoted && value.starts_with(' ')) value.remove_prefix(1);
  if (CountCharacters(word) <= kLongestParameter) request.parameters = FillFormat(value, word);
  return request;
}

}  // namespace tarrow
