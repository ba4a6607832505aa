#include "project/help/keywords.h"

#include "edit/lexers/c_words.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

constexpr std::string_view kDirectives[] = {
    "#define", "#elif", "#else", "#endif", "#if", "#ifdef", "#ifndef", "#include", "#pragma", "#undef",
};

constexpr auto MakeKeywords() {
  std::array<std::string_view, 107> words;
  auto end = words.begin();
  auto add = [&](std::span<const std::string_view> list) { end = std::ranges::copy(list, end).out; };
  add(kDirectives);
  add(kPredefinedNames);
  add(kCompilerKeywords);
  add(kClassicKeywords);
  std::ranges::sort(words);
  return words;
}
constexpr auto kKeywords = MakeKeywords();

static_assert(!kKeywords.front().empty());  // the lists fill the table

}  // namespace

std::span<const std::string_view> Keywords() {
  return kKeywords;
}

bool IsKeyword(std::string_view word) {
  return std::ranges::binary_search(kKeywords, word);
}

}  // namespace tarrow
