// The colours of the styles: readable on any window, and what the user says.
#include "edit/lexers/palette.h"

#include <gtest/gtest.h>

#include <set>

namespace tarrow {
namespace {

constexpr Colour kWhite{255, 255, 255}, kBlack{0, 0, 0};

const Look& LookOf(const Palette& palette, Style style) {
  return palette[static_cast<std::size_t>(style)];
}

TEST(Palette, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(21.0, ContrastOf(kWhite, kBlack), 0.001);
  EXPECT_NEAR(1.0, ContrastOf(kWhite, kWhite), 0.001);
  EXPECT_NEAR(4.54, ContrastOf({0x76, 0x76, 0x76}, kWhite), 0.01);
  EXPECT_NEAR(5.25, ContrastOf({0xFF, 0, 0}, kBlack), 0.01);
}

TEST(Palette, IsReadableOnAnyWindow) {
  for (int red = 0; red < 256; red += 15) {
    for (int green = 0; green < 256; green += 15) {
      for (int blue = 0; blue < 256; blue += 51) {
        Colour window{static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                      static_cast<std::uint8_t>(blue)};
        for (const Look& look : PaletteFor(window, {}))
          if (look.colour) {
            ASSERT_GE(ContrastOf(*look.colour, window), kLeastContrast) << red << ' ' << green << ' ' << blue;
          }
      }
    }
  }
}

TEST(Palette, IsAnotherOnADarkWindow) {
  Palette light = PaletteFor(kWhite, {}), dark = PaletteFor(kBlack, {});
  EXPECT_NE(LookOf(light, Style::kComment), LookOf(dark, Style::kComment));
  EXPECT_EQ(Look(), LookOf(light, Style::kText));
}

TEST(Palette, AChoiceIsTakenAsItIs) {
  StyleChoices choices{};
  choices[static_cast<std::size_t>(Style::kComment)] = Look{Colour{254, 254, 254}, true, false};
  choices[static_cast<std::size_t>(Style::kString)] = Look{{}, false, true};
  Palette palette = PaletteFor(kWhite, choices);
  EXPECT_EQ((Look{Colour{254, 254, 254}, true, false}), LookOf(palette, Style::kComment));
  EXPECT_EQ((Look{LookOf(PaletteFor(kWhite, {}), Style::kString).colour, false, true}),
            LookOf(palette, Style::kString));
}

TEST(Palette, ALookIsRead) {
  struct Case {
    const char* value;
    std::optional<Look> look;
  };
  const Case cases[] = {
      {"#008000", Look{Colour{0, 0x80, 0}, false, false}},
      {"  Bold\t#FFa0b1 ITALIC ", Look{Colour{0xFF, 0xA0, 0xB1}, true, true}},
      {"italic", Look{{}, false, true}},
      {"", {}},
      {" ", {}},
      {"#00800", {}},
      {"#00800g", {}},
      {"#-08000", {}},
      {"#0080000", {}},
      {"green", {}},
      {"#008000,bold", {}},
  };
  for (const Case& c : cases) EXPECT_EQ(c.look, ParseLook(c.value)) << c.value;
}

TEST(Palette, EveryStyleButPlainTextHasAKey) {
  std::set<std::string_view> keys;
  for (std::size_t i = 1; i < kStyleCount; ++i) keys.insert(KeyOf(static_cast<Style>(i)));
  EXPECT_EQ(kStyleCount - 1, keys.size());
  EXPECT_FALSE(keys.contains(""));
  EXPECT_EQ("", KeyOf(Style::kText));
}

}  // namespace
}  // namespace tarrow
