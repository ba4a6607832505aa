#include "tools/comparison/comparison_places.h"

#include "base/byte_source.h"
#include "tools/comparison/compare_files.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarrow {
namespace {

std::vector<std::string> SplitLines(std::string_view text) {
  std::vector<std::string> lines;
  for (std::size_t end; (end = text.find("\r\n")) != std::string_view::npos; text.remove_prefix(end + 2))
    lines.emplace_back(text.substr(0, end));
  return lines;
}

class ComparisonPlacesTest : public testing::Test {
 protected:
  std::string At(std::int64_t line) {
    LineReader reader = [&](std::int64_t n) {
      return n >= 0 && n < static_cast<std::int64_t>(lines.size()) ? lines[static_cast<std::size_t>(n)]
                                                                   : std::string();
    };
    auto place = ComparisonPlaces("old.c", "new.c")(reader, line);
    if (!place) return "none";
    EXPECT_FALSE(place->isAddress);
    return place->name + ":" + std::to_string(place->position);
  }

  std::vector<std::string> lines;
};

TEST_F(ComparisonPlacesTest, EveryKindOfLine) {
  lines = {"2,3c2",    "< b", "< 7c7", "---", "> x", "9d8", "< i",
           "12a12,13", "> y", "> z",   "0a1", "> a", "",    "junk"};
  const char* expected[] = {"old.c:2",  "old.c:2",  "old.c:3",  "new.c:2", "new.c:2", "old.c:9", "old.c:9",
                            "new.c:12", "new.c:12", "new.c:13", "new.c:1", "new.c:1", "none",    "none"};
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_EQ(At(static_cast<std::int64_t>(i)), expected[i]) << lines[i];
}

TEST_F(ComparisonPlacesTest, WhatIsCutOffNamesNothing) {
  lines = {"< b", "> x", "---", "7c", "c7", "1,c7", "1x2", "1c2 "};
  for (std::size_t i = 0; i < lines.size(); ++i)
    EXPECT_EQ(At(static_cast<std::int64_t>(i)), "none") << lines[i];
}

// Each line of a real comparison leads to a line of that text.
TEST_F(ComparisonPlacesTest, ARealComparisonLeadsToTheLinesThatItShows) {
  std::vector<std::string> files[2];
  std::string texts[2];
  for (int f : {0, 1})
    for (int i = 0; i < 60; ++i) {
      if (i % 13 == 5 * f) continue;
      bool differs = i % 17 == 0;
      files[f].push_back(std::to_string(i) + (differs ? f == 0 ? " old" : " new" : " same"));
      texts[f] += files[f].back() + "\n";
    }
  StringSource first(texts[0]), second(texts[1]);
  StringSink out;
  ASSERT_TRUE(CompareFiles(first, second, out, {}, nullptr));
  lines = SplitLines(out.text);
  int checked = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    bool isOld = lines[i].starts_with("< ");
    if (!isOld && !lines[i].starts_with("> ")) continue;
    std::string place = At(static_cast<std::int64_t>(i));
    ASSERT_EQ(place.substr(0, 6), isOld ? "old.c:" : "new.c:");
    EXPECT_EQ(files[isOld ? 0 : 1].at(std::stoul(place.substr(6)) - 1), lines[i].substr(2));
    ++checked;
  }
  EXPECT_GT(checked, 10);
}

}  // namespace
}  // namespace tarrow
