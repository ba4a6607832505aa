#include "base/text_format.h"

#include <algorithm>
#include <charconv>

namespace tarrow {
namespace {

struct Field {
  bool leftAlign = false;
  bool zeroFill = false;
  std::size_t width = 0;
  std::size_t precision = std::string_view::npos;
  char kind = 0;
};

std::size_t ReadCount(std::string_view pattern, std::size_t& at) {
  std::size_t n = 0;
  while (at < pattern.size() && pattern[at] >= '0' && pattern[at] <= '9')
    n = std::min<std::size_t>(n * 10 + static_cast<std::size_t>(pattern[at++] - '0'), 4096);
  return n;
}

// Reads the field that follows a '%' at `at` and moves `at` past it; a kind of 0 says that it is none.
Field ReadField(std::string_view pattern, std::size_t& at) {
  Field field;
  for (; at < pattern.size() && (pattern[at] == '-' || pattern[at] == '0'); ++at)
    (pattern[at] == '-' ? field.leftAlign : field.zeroFill) = true;
  field.width = ReadCount(pattern, at);
  if (at < pattern.size() && pattern[at] == '.') field.precision = ReadCount(pattern, ++at);
  while (at < pattern.size() && pattern[at] == 'l') ++at;
  if (at < pattern.size() && std::string_view("duxXcs").find(pattern[at]) != std::string_view::npos)
    field.kind = pattern[at++];
  return field;
}

std::string NumberText(const Field& field, std::int64_t number) {
  if (field.kind == 'c') return std::string(1, static_cast<char>(number));
  bool hex = field.kind == 'x' || field.kind == 'X';
  bool negative = number < 0 && !hex && field.kind != 'u';
  char digits[24];
  auto magnitude = static_cast<std::uint64_t>(negative ? -number : number);
  if (hex || field.kind == 'u') magnitude = number < 0 ? static_cast<std::uint32_t>(number) : magnitude;
  auto end = std::to_chars(digits, digits + sizeof digits, magnitude, hex ? 16 : 10).ptr;
  std::string text(digits, end);
  if (field.kind == 'X')
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
  std::size_t least = field.precision != std::string_view::npos ? field.precision
                      : field.zeroFill && !field.leftAlign
                          ? field.width - std::min<std::size_t>(field.width, negative)
                          : 0;
  if (text.size() < least) text.insert(0, least - text.size(), '0');
  return negative ? "-" + text : text;
}

void AppendField(std::string& out, const Field& field, const FormatArg& arg) {
  std::string text =
      arg.IsText() ? std::string(arg.Text().substr(0, field.precision)) : NumberText(field, arg.Number());
  std::size_t pad = field.width > text.size() ? field.width - text.size() : 0;
  out.append(field.leftAlign ? 0 : pad, ' ').append(text).append(field.leftAlign ? pad : 0, ' ');
}

}  // namespace

std::string FormatText(std::string_view pattern, std::initializer_list<FormatArg> args) {
  std::string out;
  auto arg = args.begin();
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern[at] != '%') {
      out += pattern[at++];
      continue;
    }
    std::size_t start = at++;
    if (at < pattern.size() && pattern[at] == '%') {
      out += pattern[at++];
      continue;
    }
    Field field = ReadField(pattern, at);
    if (field.kind && arg != args.end())
      AppendField(out, field, *arg++);
    else
      out.append(pattern.substr(start, at - start));
  }
  return out;
}

}  // namespace tarrow
