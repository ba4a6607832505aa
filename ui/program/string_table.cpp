#include "ui/program/string_table.h"

#include <algorithm>
#include <array>

namespace tarrow {

namespace {

struct TextRow {
  int id;
  std::string_view text;
};

constexpr TextRow kUnsortedRows[] = {
#define TARROW_STRING(number, constant, text) {number, text},
#define TARROW_UNNAMED_STRING(number, text) {number, text},
#include "resources/strings.inc"

#define TARROW_COMMAND(number, constant, name, menu, prompt) {number, prompt},
#define TARROW_UNNAMED_COMMAND(number, constant, menu, prompt) {number, prompt},
#include "ui/commands/commands.inc"
};

constexpr auto kRows = [] {
  auto rows = std::to_array(kUnsortedRows);
  std::ranges::sort(rows, {}, &TextRow::id);
  return rows;
}();

static_assert(std::ranges::adjacent_find(kRows, {}, &TextRow::id) == kRows.end(), "a number used twice");

}  // namespace

std::string_view FindText(int id) {
  auto row = std::ranges::lower_bound(kRows, id, {}, &TextRow::id);
  return row != kRows.end() && row->id == id ? row->text : std::string_view();
}

}  // namespace tarrow
