#include "viewer/records/line_scan.h"

#include "naive_lines.h"

#include <gtest/gtest.h>

#include <random>

namespace tarrow {
namespace {

// Scans `text` in pieces of random sizes up to `largest`.
NaiveLines ScanInPieces(std::string_view text, bool accept, std::size_t largest, std::mt19937& random) {
  NaiveLines lines;
  LineOffsets offsets;
  NonAnsiQuestion question = [&](unsigned char control) {
    lines.questions.push_back(control);
    return accept;
  };
  LineScan scan(offsets, question);
  while (!text.empty()) {
    std::string_view piece = text.substr(0, 1 + random() % largest);
    text.remove_prefix(piece.size());
    if (!scan.Scan(piece)) {
      lines.declined = true;
      return lines;
    }
  }
  scan.Finish();
  for (std::size_t i = 0; i < offsets.Size(); ++i) lines.offsets.push_back(offsets[i]);
  lines.terminator = scan.Terminator();
  lines.longest = offsets.GreatestStep();
  return lines;
}

TEST(LineScan, AgreesWithTheNaiveScanHoweverTheFileIsCut) {
  std::mt19937 random(1);
  for (int round = 0; round < 30'000; ++round) {
    std::string text(random() % 300, 'x');
    // Few kinds of line ends, or many; few control bytes, or none.
    const std::string_view kinds[] = {"\r\n", "\n", "\r", "\r\r\n", "\n\r", "\t\v\f\x80\xFF", "\x01", ""};
    std::string_view some = kinds[random() % 8], other = kinds[random() % 8];
    for (std::size_t i = 0; i < text.size(); ++i) {
      std::string_view kind = random() % 8 ? some : other;
      if (random() % 12 == 0) text.replace(i, kind.size(), kind);
    }
    bool accept = random() % 4 != 0;
    NaiveLines expected = ScanNaively(text, accept);
    NaiveLines actual = ScanInPieces(text, accept, random() % 2 ? 8 : 400, random);
    ASSERT_EQ(actual.questions, expected.questions);
    ASSERT_EQ(actual.declined, expected.declined);
    if (expected.declined) continue;
    ASSERT_EQ(actual.offsets, expected.offsets) << testing::PrintToString(text);
    ASSERT_EQ(actual.terminator, expected.terminator) << testing::PrintToString(text);
    ASSERT_EQ(actual.longest, expected.longest) << testing::PrintToString(text);
  }
}

TEST(LineScan, FindsTheLinesOfSmallFiles) {
  struct Case {
    std::string_view text;
    std::vector<std::uint32_t> offsets;
    LineTerminator terminator;
  };
  for (const Case& c : std::initializer_list<Case>{
           {"", {0}, LineTerminator::kCrLf},
           {"abc", {0, 5}, LineTerminator::kCrLf},
           {"a\r\nb\r\n", {0, 3, 6}, LineTerminator::kCrLf},
           {"a\nbb\n", {0, 2, 5}, LineTerminator::kLf},
           {"a\rb", {0, 2, 4}, LineTerminator::kCr},
           {"a\n\r\nb\r", {0, 2, 4, 6}, LineTerminator::kCr},
           // The questioned byte counts twice.
           {"a\x01\r\nb\r\n", {0, 5, 8}, LineTerminator::kCrLf},
       }) {
    std::mt19937 random(1);
    NaiveLines lines = ScanInPieces(c.text, true, 100, random);
    EXPECT_EQ(lines.offsets, c.offsets) << c.text;
    EXPECT_EQ(lines.terminator, c.terminator) << c.text;
  }
}

}  // namespace
}  // namespace tarrow
