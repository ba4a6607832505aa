// The ranges of lines behave as a set of numbers does, but that they may hold too much.
#include "edit/lexers/line_ranges.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace tarrow {
namespace {

constexpr std::int64_t kLines = 60;

// A flag for each line.
using Model = std::vector<bool>;

bool Has(const LineRanges& ranges, std::int64_t line) {
  return !ranges.FirstWithin({line, line + 1}).Empty();
}

void ExpectHolds(const LineRanges& ranges, const Model& model, bool mayHoldMore) {
  for (std::size_t line = 0; line < model.size(); ++line) {
    bool has = Has(ranges, static_cast<std::int64_t>(line));
    ASSERT_TRUE(mayHoldMore ? has || !model[line] : has == model[line]) << line;
  }
  for (std::size_t i = 0; i < ranges.All().size(); ++i) {
    EXPECT_LT(ranges.All()[i].first, ranges.All()[i].end);
    if (i > 0) {
      EXPECT_LE(ranges.All()[i - 1].end, ranges.All()[i].first);
    }
  }
}

class Changes {
 public:
  explicit Changes(unsigned seed) : random_(seed) {}

  void Make(LineRanges& ranges, Model& model) {
    std::int64_t first = Below(kLines), end = first + Below(5);
    auto fill = [&](bool value) {
      for (std::int64_t i = first; i < std::min<std::int64_t>(end, kLines); ++i)
        model[static_cast<std::size_t>(i)] = value;
    };
    switch (Below(3)) {
      case 0:
        ranges.Add({first, std::min(end, kLines)});
        return fill(true);
      case 1:
        ranges.Remove({first, end});
        return fill(false);
      default:
        return Shift(ranges, model, first);
    }
  }

 private:
  std::int64_t Below(std::int64_t n) {
    return static_cast<std::int64_t>(random_() % static_cast<unsigned>(n));
  }

  void Shift(LineRanges& ranges, Model& model, std::int64_t line) {
    std::int64_t removed = Below(std::min<std::int64_t>(4, kLines - line)), added = Below(4);
    ranges.Shift(line, removed, added);
    auto behind = model.begin() + line + 1;
    behind = model.erase(behind, behind + removed);
    model.insert(behind, static_cast<std::size_t>(added), false);
    model.resize(kLines);
    ranges.Remove({kLines, 2 * kLines});
  }

  std::mt19937 random_;
};

TEST(LineRanges, HoldWhatASetOfLinesHolds) {
  for (unsigned seed = 0; seed < 200; ++seed) {
    LineRanges ranges;
    Model model(kLines);
    Changes changes(seed);
    bool hasBeenFull = false;
    for (int i = 0; i < 60; ++i) {
      changes.Make(ranges, model);
      hasBeenFull |= ranges.All().size() == LineRanges::kMost;
      ExpectHolds(ranges, model, hasBeenFull);
    }
  }
}

TEST(LineRanges, JoinTheNearestWhenThereAreTooMany) {
  LineRanges ranges;
  for (std::int64_t i = 0; i < static_cast<std::int64_t>(LineRanges::kMost); ++i)
    ranges.Add({i * 10, i * 10 + 1 + (i == 4 ? 7 : 0)});
  ranges.Add({1000, 1001});
  EXPECT_EQ(LineRanges::kMost, ranges.All().size());
  EXPECT_EQ((LineRange{40, 51}), ranges.FirstWithin({40, 60}));
}

}  // namespace
}  // namespace tarrow
