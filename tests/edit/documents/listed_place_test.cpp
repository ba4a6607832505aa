#include "edit/documents/listed_place.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

struct Case {
  const char* line;
  const char* name;  // null: the line names no place
  std::uint32_t position = 0;
  bool isAddress = false;
};

constexpr Case kCases[] = {
    {"main.c(12): int x;", "main.c", 12},
    {"main.c(12): ", "main.c", 12},
    {"lib.dll(0x00ff): text", "lib.dll", 0xff, true},
    {"lib.dll(0x12345): (7): text", "lib.dll", 0x12345, true},
    {"my notes (old).txt(3): f(4): g", "my notes (old).txt", 3},
    {"a(1).c(2): x", "a(1).c", 2},
    {"a(0x10).c(4294967295): x", "a(0x10).c", 4294967295u},
    {"main.c(4294967296): beyond", nullptr},
    {"main.c(0): no line", nullptr},
    {"lib.dll(0x0000): at the start", "lib.dll", 0, true},
    {"(12): no name", nullptr},
    {"main.c: 3", nullptr},
    {"main.c(12) no colon", nullptr},
    {"main.c(12", nullptr},
    {"main.c(0x): x", nullptr},
    {"", nullptr},
};

TEST(ListedPlace, IsWhatTheToolWrote) {
  for (const Case& c : kCases) {
    auto place = ParseListedPlace(c.line);
    ASSERT_EQ(place.has_value(), c.name != nullptr) << c.line;
    if (!place) continue;
    EXPECT_EQ(place->name, c.name) << c.line;
    EXPECT_EQ(place->position, c.position) << c.line;
    EXPECT_EQ(place->isAddress, c.isAddress) << c.line;
    EXPECT_EQ(place->column, 0u) << c.line;
  }
}

TEST(ListedPlace, TheFinderLooksAtTheLineItself) {
  PlaceFinder find = ListedPlaces();
  LineReader lines = [](std::int64_t line) { return line == 7 ? "seven.c(7): x" : "other.c(1): y"; };
  EXPECT_EQ(find(lines, 7)->name, "seven.c");
}

}  // namespace
}  // namespace tarrow
