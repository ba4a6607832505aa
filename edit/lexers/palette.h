// How each style looks: a palette that suits the colour of the window, and what the user wants instead.
//
// The colours of the palette are kept readable: each differs from the window's colour by a contrast of at
// least kLeastContrast, whatever that colour is; where one would not, it is made darker or lighter. What the
// user has chosen is taken as it is.
#pragma once

#include "edit/lexers/style.h"

#include <array>
#include <optional>
#include <string_view>

namespace tarrow {

struct Colour {
  std::uint8_t red = 0, green = 0, blue = 0;

  friend bool operator==(const Colour&, const Colour&) = default;
};

// The ratio of the brightness of two colours, 1 to 21, as the guidelines for readable pages define it.
[[nodiscard]] double ContrastOf(Colour a, Colour b);

// What a text needs to be read with ease.
inline constexpr double kLeastContrast = 4.5;

struct Look {
  std::optional<Colour> colour;  // none: that of the text
  bool bold = false;
  bool italic = false;

  friend bool operator==(const Look&, const Look&) = default;
};

template <typename T>
using PerStyle = std::array<T, kStyleCount>;

using Palette = PerStyle<Look>;

// What the user wants for some of the styles.
using StyleChoices = PerStyle<std::optional<Look>>;

// The name of a style's key in the settings; empty for plain text, which has none.
[[nodiscard]] std::string_view KeyOf(Style style);

// What a value says: "#rrggbb", "bold", "italic", any of them, in any order, between blanks. Nothing when it
// says anything else, or nothing at all.
[[nodiscard]] std::optional<Look> ParseLook(std::string_view value);

// The looks on a window of this colour. A choice without a colour has that of the palette.
[[nodiscard]] Palette PaletteFor(Colour window, const StyleChoices& choices);

}  // namespace tarrow
