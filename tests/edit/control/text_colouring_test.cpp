#include "edit/control/text_colouring.h"

#include "edit/lexers/lexers.h"
#include "edit/text/text_buffer.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

// A system in high contrast has one pair of colours, which its user can read; nobody mixes others in.
TEST(TextColouring, NeedsALexerTheUsersConsentAndASystemThatHasColours) {
  struct {
    const Lexer* lexer;
    std::optional<StyleChoices> choices;
    bool isHighContrast, isOn;
  } const kRows[] = {
      {&CSourceLexer(), StyleChoices{}, false, true},
      {&CSourceLexer(), StyleChoices{}, true, false},
      {&CSourceLexer(), std::nullopt, false, false},
      {nullptr, StyleChoices{}, false, false},
  };
  TextBuffer text;
  TextColouring colouring;
  for (auto& row : kRows) {
    colouring.SetLexer(row.lexer);
    colouring.SetChoices(row.choices);
    colouring.Start(text, row.isHighContrast);
    EXPECT_EQ(colouring.IsOn(), row.isOn) << &row - kRows;
  }
}

}  // namespace
}  // namespace tarrow
