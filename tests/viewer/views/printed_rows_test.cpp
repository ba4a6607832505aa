#include "viewer/views/printed_rows.h"

#include "grid_rows.h"

#include <gtest/gtest.h>

namespace tarrow {
namespace {

std::vector<std::string> Printed(ViewRows* rows, std::optional<CellSelection> part) {
  PrintedRows printed([rows] { return rows; }, part);
  std::vector<std::string> lines;
  while (auto line = printed.Next()) lines.push_back(line->Copy());
  return lines;
}

CellSelection Select(int row, int column, int toRow, int toColumn) {
  return {{LineNo(row), ColumnNo(column)}, {LineNo(toRow), ColumnNo(toColumn)}};
}

using Lines = std::vector<std::string>;

TEST(PrintedRows, AreThoseThatAreSeen) {
  GridRows rows({"one", "", "three"}), none({});
  EXPECT_EQ(Printed(&rows, {}), (Lines{"one", "", "three"}));
  EXPECT_EQ(Printed(&rows, Select(0, 1, 2, 2)), (Lines{"ne", "", "th"}));
  EXPECT_EQ(Printed(&rows, Select(2, 0, 0, 2)), (Lines{"e", ""})) << "no line behind the last line end";
  EXPECT_EQ(Printed(&rows, Select(1, 0, 1, 0)), (Lines{""}));
  EXPECT_EQ(Printed(&none, {}), Lines());
  EXPECT_EQ(Printed(nullptr, {}), Lines()) << "the file was closed";
}

}  // namespace
}  // namespace tarrow
