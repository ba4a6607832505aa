#include "edit/lexers/palette.h"

#include "base/path_text.h"

#include <charconv>
#include <cmath>

namespace tarrow {
namespace {

struct StyleRow {
  Style style;
  std::string_view key;
  std::optional<Colour> onLight, onDark;
  bool bold = false;
  bool italic = false;
};

constexpr Colour Rgb(unsigned value) {
  return {static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
          static_cast<std::uint8_t>(value)};
}

constexpr StyleRow kStyles[] = {
    {Style::kText, "", {}, {}},
    {Style::kComment, "Comment", Rgb(0x007000), Rgb(0x6FB36F)},
    {Style::kString, "String", Rgb(0xA31515), Rgb(0xE0967A)},
    {Style::kNumber, "Number", Rgb(0x9A4A00), Rgb(0xD8B56A)},
    {Style::kKeyword, "Keyword", Rgb(0x0000E0), Rgb(0x7AB0FF)},
    {Style::kDirective, "Directive", Rgb(0x7B2D9E), Rgb(0xCE9CE8)},
    {Style::kPredefined, "Predefined", Rgb(0x006B80), Rgb(0x63C7D6)},
    {Style::kSection, "Section", Rgb(0x0B4F9E), Rgb(0x8FBCFF), true},
    {Style::kKey, "Key", Rgb(0x006B80), Rgb(0x63C7D6)},
    {Style::kVariable, "Variable", Rgb(0x9A4A00), Rgb(0xD8B56A)},
    {Style::kCode, "Code", Rgb(0xA31515), Rgb(0xE0967A)},
    {Style::kEmphasis, "Emphasis", {}, {}, false, true},
    {Style::kStrong, "Strong", {}, {}, true},
    {Style::kLink, "Link", Rgb(0x0B4F9E), Rgb(0x8FBCFF)},
    {Style::kPlace, "Place", Rgb(0x0B4F9E), Rgb(0x8FBCFF)},
    {Style::kMatch, "Match", Rgb(0xB00020), Rgb(0xFF9A8A), true},
    {Style::kHeader, "Header", Rgb(0x7B2D9E), Rgb(0xCE9CE8), true},
    {Style::kOld, "Old", Rgb(0xB00020), Rgb(0xFF9A8A)},
    {Style::kNew, "New", Rgb(0x007000), Rgb(0x6FB36F)},
    {Style::kError, "Error", Rgb(0xB00020), Rgb(0xFF9A8A), true},
    {Style::kWarning, "Warning", Rgb(0x8A5200), Rgb(0xE3B341), true},
};

constexpr bool StandsInOrder() {
  for (std::size_t i = 0; i < std::size(kStyles); ++i)
    if (kStyles[i].style != static_cast<Style>(i)) return false;
  return std::size(kStyles) == kStyleCount;
}
static_assert(StandsInOrder());

double Linear(std::uint8_t part) {
  double share = part / 255.0;
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(Colour colour) {
  return 0.2126 * Linear(colour.red) + 0.7152 * Linear(colour.green) + 0.0722 * Linear(colour.blue);
}

constexpr Colour kBlack{0, 0, 0}, kWhite{255, 255, 255};

bool IsDark(Colour window) {
  return ContrastOf(window, kWhite) > ContrastOf(window, kBlack);
}

// `share` sixteenths of the way to black or white.
Colour Mixed(Colour colour, Colour extreme, int share) {
  constexpr int kWhole = 16;
  auto mix = [&](int a, int b) { return static_cast<std::uint8_t>(a + (b - a) * share / kWhole); };
  return {mix(colour.red, extreme.red), mix(colour.green, extreme.green), mix(colour.blue, extreme.blue)};
}

// One of the extremes always has contrast enough.
Colour Readable(Colour colour, Colour window) {
  Colour extreme = IsDark(window) ? kWhite : kBlack;
  int share = 0;
  while (ContrastOf(Mixed(colour, extreme, share), window) < kLeastContrast && share < 16) ++share;
  return Mixed(colour, extreme, share);
}

std::optional<Colour> ParseColour(std::string_view word) {
  unsigned value = 0;
  if (word.size() != 7 || word[0] != '#') return {};
  auto [end, error] = std::from_chars(word.data() + 1, word.data() + word.size(), value, 16);
  if (error != std::errc() || end != word.data() + word.size()) return {};
  return Rgb(value);
}

}  // namespace

double ContrastOf(Colour a, Colour b) {
  double first = Luminance(a) + 0.05, second = Luminance(b) + 0.05;
  return first > second ? first / second : second / first;
}

std::string_view KeyOf(Style style) {
  return kStyles[static_cast<std::size_t>(style)].key;
}

std::optional<Look> ParseLook(std::string_view value) {
  Look look;
  bool isAny = false;
  for (std::size_t at = 0; (at = value.find_first_not_of(" \t", at)) != value.npos;) {
    std::string_view word = value.substr(at, value.find_first_of(" \t", at) - at);
    at += word.size();
    isAny = true;
    if (EqualIgnoringCase(word, "bold"))
      look.bold = true;
    else if (EqualIgnoringCase(word, "italic"))
      look.italic = true;
    else if (std::optional<Colour> colour = ParseColour(word))
      look.colour = colour;
    else
      return {};
  }
  return isAny ? std::optional(look) : std::nullopt;
}

Palette PaletteFor(Colour window, const StyleChoices& choices) {
  Palette palette;
  for (const StyleRow& row : kStyles) {
    Look& look = palette[static_cast<std::size_t>(row.style)];
    look = {IsDark(window) ? row.onDark : row.onLight, row.bold, row.italic};
    if (look.colour) look.colour = Readable(*look.colour, window);
    if (const std::optional<Look>& choice = choices[static_cast<std::size_t>(row.style)]) {
      look.bold = choice->bold;
      look.italic = choice->italic;
      if (choice->colour) look.colour = choice->colour;
    }
  }
  return palette;
}

}  // namespace tarrow
