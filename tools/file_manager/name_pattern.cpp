#include "tools/file_manager/name_pattern.h"

#include "base/path_text.h"
#include "base/utf16.h"

#include <algorithm>
#include <vector>

namespace tarrow {
namespace {

constexpr std::string_view kWildcards = "*?";

// Matches the rest of a name with the rest of a pattern; `taken` holds what the wildcards so far stood for.
// Names are short, so trying every length of a "*" costs nothing worth avoiding.
bool Match(std::string_view name, std::string_view pattern, std::vector<std::string_view>& taken) {
  if (pattern.empty()) return name.empty();
  char sign = pattern[0];
  std::string_view rest = pattern.substr(1);
  if (sign == '*') {
    for (std::size_t length = name.size();; --length) {
      taken.push_back(name.substr(0, length));
      if (Match(name.substr(length), rest, taken)) return true;
      taken.pop_back();
      if (length == 0) return false;
    }
  }
  if (name.empty()) return false;
  if (sign != '?')
    return EqualIgnoringCase(name.substr(0, 1), pattern.substr(0, 1)) && Match(name.substr(1), rest, taken);
  unsigned length = ReadUtf8(name).length;
  taken.push_back(name.substr(0, length));
  if (Match(name.substr(length), rest, taken)) return true;
  taken.pop_back();
  return false;
}

std::ptrdiff_t CountWildcards(std::string_view pattern) {
  return std::ranges::count_if(pattern, [](char c) { return kWildcards.find(c) != std::string_view::npos; });
}

}  // namespace

std::optional<std::string> MapName(std::string_view name, std::string_view from, std::string_view to) {
  std::vector<std::string_view> taken;
  if (!Match(name, from, taken)) {
    taken.clear();
    bool maySkipDot = from.ends_with(".*") && name.find('.') == std::string_view::npos;
    if (!maySkipDot || !Match(name, from.substr(0, from.size() - 2), taken)) return {};
  }
  std::string mapped;
  auto next = taken.begin();
  for (char c : to) {
    if (kWildcards.find(c) == std::string_view::npos)
      mapped += c;
    else if (next != taken.end())
      mapped += *next++;
  }
  mapped.erase(mapped.find_last_not_of(". ") + 1);
  return mapped;
}

std::string_view PatternFor(std::string_view to) {
  return to.find('.') == std::string_view::npos ? "*" : "*.*";
}

bool HasWildcard(std::string_view name) {
  return name.find_first_of(kWildcards) != std::string_view::npos;
}

bool HasWildcardsFor(std::string_view from, std::string_view to) {
  return CountWildcards(to) <= CountWildcards(from);
}

bool IsFileName(std::string_view name) {
  if (name.empty() || name.back() == '.' || name.back() == ' ') return false;
  return std::ranges::none_of(name, [](char c) {
    return static_cast<unsigned char>(c) < ' ' ||
           std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
  });
}

}  // namespace tarrow
