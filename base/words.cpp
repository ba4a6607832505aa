#include "base/words.h"

#include <algorithm>

namespace tarrow {

std::string TakeWord(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
  std::string word;
  bool quoted = false;
  std::size_t at = 0;
  for (; at < text.size() && (quoted || text[at] != ' '); ++at) {
    if (text[at] == '"')
      quoted = !quoted;
    else
      word += text[at];
  }
  text.remove_prefix(at);
  return word;
}

std::vector<std::string> SplitWords(std::string_view text) {
  std::vector<std::string> words;
  while (text.find_first_not_of(' ') != std::string_view::npos)
    if (std::string word = TakeWord(text); !word.empty()) words.push_back(std::move(word));
  return words;
}

std::string JoinWords(const std::vector<std::string>& words) {
  std::string text;
  for (const std::string& word : words) {
    if (!text.empty()) text += ' ';
    bool hasBlank = word.find(' ') != std::string::npos;
    text += hasBlank ? '"' + word + '"' : word;
  }
  return text;
}

}  // namespace tarrow
