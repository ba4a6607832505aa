// TextColouring: the colours and fonts in which a text control draws the parts of its text.
//
// There are colours where the text has a lexer, the user has not switched them off, and the system is not in
// its high-contrast mode. Otherwise nothing is lexed, and nothing kept.
#pragma once

#include "edit/control/font_widths.h"
#include "edit/lexers/line_states.h"
#include "edit/lexers/palette.h"
#include "framework/handle.h"

#include <windows.h>

#include <array>
#include <optional>
#include <utility>

namespace tarrow {

class TextColouring {
 public:
  // What follows is put into effect by Start(). Whether the lexer is another one than before.
  bool SetLexer(const Lexer* lexer) { return std::exchange(lexer_, lexer) != lexer; }
  void SetChoices(const std::optional<StyleChoices>& choices) { choices_ = choices; }

  // Begins anew: with another text, lexer or choice, or with other colours of the system. The text outlives
  // the object, or another takes its place.
  void Start(TextBuffer& text, bool isHighContrast);

  // The font of plain text; it outlives the object, or another takes its place.
  void SetFont(const FontWidths& font);

  LineStates& States() { return states_; }
  const LineStates& States() const { return states_; }
  bool IsOn() const { return states_.HasLexer(); }

  // Selects the font of a style, and its colour unless the part is drawn as selected.
  void Select(HDC dc, Style style, bool isSelected);

 private:
  // A bold or italic form of the font.
  struct Variant {
    bool isMade = false;
    FontHandle font;  // none: the form does not fit where the plain one fits
  };

  HFONT FontOf(const Look& look);

  const Lexer* lexer_ = nullptr;
  std::optional<StyleChoices> choices_;
  Palette palette_{};
  const FontWidths* plain_ = nullptr;
  std::array<Variant, 4> variants_;
  LineStates states_;
};

}  // namespace tarrow
