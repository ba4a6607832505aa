#include "ui/commands/key_text.h"

#include "base/text_format.h"
#include "ui/commands/key_names.h"

#include <algorithm>
#include <limits>

namespace tarrow {

namespace {

// Cuts a decimal number, with white space and a sign before it, off the front of `text`; nothing, and `text`
// as it was, when there is none. A number too large stays as large as it can be.
std::optional<int> CutNumber(std::string_view& text) {
  std::size_t at = std::min(text.find_first_not_of(" \t\r\n\v\f"), text.size());
  bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  std::size_t end = std::min(text.find_first_not_of("0123456789", at), text.size());
  if (at == end) return {};
  int number = 0;
  for (; at < end; ++at) number = std::min(number * 10 + (text[at] - '0'), 1'000'000);
  text.remove_prefix(end);
  return negative ? -number : number;
}

}  // namespace

std::optional<std::string> KeyText(KeyStroke stroke) {
  if (stroke.key == 0) return std::string();
  std::string_view name = NameOfKey(stroke.key);
  if (name.empty() || stroke.flags == 0) return {};
  std::string text = "\t";
  if (stroke.flags & kControlKey) text += "Ctrl+";
  if (stroke.flags & kAltKey) text += "Alt+";
  if (stroke.flags & kShiftKey) text += "Shift+";
  return text.append(name);
}

std::string FormatKeyValue(KeyStroke stroke) {
  return FormatText("%d,%d", {stroke.key, stroke.flags});
}

std::optional<KeyStroke> ParseKeyValue(std::string_view value) {
  std::optional<int> key = CutNumber(value);
  value.remove_prefix(std::min(value.find_first_not_of(" ,"), value.size()));
  int flags = CutNumber(value).value_or(0);
  if (!key || *key < 0 || *key > std::numeric_limits<std::uint16_t>::max()) return {};
  if (flags < 0 || flags > std::numeric_limits<std::uint8_t>::max()) return {};
  return KeyStroke{static_cast<std::uint8_t>(flags), static_cast<std::uint16_t>(*key)};
}

}  // namespace tarrow
