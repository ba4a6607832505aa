#include "viewer/views/hex_view_rows.h"

#include "edit/text/charset.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

constexpr int kRowBytes = static_cast<int>(kHexRowBytes);
constexpr int kTextColumn = static_cast<int>(kHexTextColumn);

int DigitsColumn(int byte) {
  return static_cast<int>(HexColumn(static_cast<std::size_t>(byte)));
}

// The three parts of a row.
enum class Part { kOffset, kDigits, kText };

Part PartOf(ColumnNo column) {
  if (column.value < DigitsColumn(0)) return Part::kOffset;
  return column.value < kTextColumn ? Part::kDigits : Part::kText;
}

// How many bytes of a row have begun before `column`, or have ended at or before it. A cell within the digits
// of a byte belongs to the byte, whichever digit it is.
int BytesBegunBefore(Part part, ColumnNo column) {
  if (part == Part::kOffset) return 0;
  if (part == Part::kText) return std::clamp(column.value - kTextColumn, 0, kRowBytes);
  int n = 0;
  while (n < kRowBytes && DigitsColumn(n) < column.value) ++n;
  return n;
}
int BytesEndedBefore(Part part, ColumnNo column) {
  if (part != Part::kDigits) return BytesBegunBefore(part, column);
  int n = 0;
  while (n < kRowBytes && DigitsColumn(n) + 2 <= column.value) ++n;
  return n;
}

std::uint64_t RowStart(LineNo row) {
  return static_cast<std::uint64_t>(row.value) * kHexRowBytes;
}

// What of a row's bytes lies in `range`.
ColumnSpan BytesIn(LineNo row, const FileRange& range) {
  std::uint64_t start = RowStart(row), end = start + kHexRowBytes;
  std::uint64_t from = std::clamp(range.start, start, end), to = std::clamp(range.end, start, end);
  return {static_cast<int>(from - start), static_cast<int>(to - start)};
}

ColumnSpan DigitsOf(ColumnSpan bytes) {
  if (bytes.Empty()) return {};
  return {DigitsColumn(bytes.from), DigitsColumn(bytes.to - 1) + 2};
}

ColumnSpan TextOf(ColumnSpan bytes) {
  if (bytes.Empty()) return {};
  return {kTextColumn + bytes.from, kTextColumn + bytes.to};
}

// What stands for each byte in the system's code page, where the first byte of a pair is no character.
const std::array<char16_t, 256>& CharacterTable() {
  static const std::array<char16_t, 256> table = [] {
    std::array<char16_t, 256> made = SystemCodePage().single;
    for (char16_t& code : made)
      if (code == 0) code = u'.';
    return made;
  }();
  return table;
}

// Whether whole rows are selected, and this is one of them.
bool IsWholeRow(LineNo row, const CellSelection& selection) {
  bool isLast = row == selection.End().row;
  return row >= selection.Start().row && row <= selection.End().row &&
         !(isLast && selection.End().column == ColumnNo(0) && row > selection.Start().row);
}

}  // namespace

CellPos HexCellOf(std::uint64_t byte) {
  return {LineNo(static_cast<std::int64_t>(byte / kHexRowBytes)),
          ColumnNo(DigitsColumn(static_cast<int>(byte % kHexRowBytes)))};
}

int HexViewRows::Longest() const {
  return Count() == 0
             ? 0
             : kTextColumn + static_cast<int>(std::min<std::uint64_t>(file_.FileSize(), kHexRowBytes));
}

const ViewRow& HexViewRows::Read(LineNo row) {
  row_.Clear();
  std::array<char, kHexRowBytes> bytes;
  if (row.value >= Count() || file_.SeekRecord(row.value) < 0) return row_;
  std::size_t count = file_.ReadRecord(bytes);
  if (count == 0) return row_;
  std::array<char, kHexRowWidth> text;
  FormatHexRow(static_cast<std::uint32_t>(RowStart(row)), {bytes.data(), count}, text);
  row_.AppendAscii({text.data(), kHexTextColumn});
  std::array<char16_t, kHexRowBytes> characters;
  const auto& table = CharacterTable();
  for (std::size_t i = 0; i < count; ++i)
    characters[i] = table[static_cast<unsigned char>(text[kHexTextColumn + i])];
  row_.AppendPlain({characters.data(), count});
  return row_;
}

FileRange HexViewRows::BytesOf(const CellSelection& selection) {
  Part part = PartOf(selection.anchor.column);
  CellPos start = selection.Start(), end = selection.End();
  std::uint64_t size = file_.FileSize();
  std::uint64_t from = RowStart(start.row), to = RowStart(end.row);
  if (part == Part::kOffset) {
    if (!selection.Empty()) to = RowStart(IsWholeRow(end.row, selection) ? end.row + 1 : end.row);
  } else {
    from += static_cast<std::uint64_t>(BytesEndedBefore(part, start.column));
    to += static_cast<std::uint64_t>(BytesBegunBefore(part, end.column));
  }
  from = std::min(from, size);
  if (selection.Empty()) return {from, from};
  return {from, std::clamp(to, from, size)};
}

RowMarks HexViewRows::MarksOf(LineNo row, const CellSelection& selection) {
  if (selection.Empty()) return {};
  if (PartOf(selection.anchor.column) == Part::kOffset)
    return {IsWholeRow(row, selection) ? ColumnSpan{0, Read(row).Columns()} : ColumnSpan{}};
  ColumnSpan bytes = BytesIn(row, BytesOf(selection));
  return {DigitsOf(bytes), TextOf(bytes)};
}

ColumnSpan HexViewRows::CopiedOf(LineNo row, const CellSelection& selection) {
  RowMarks marks = MarksOf(row, selection);
  return PartOf(selection.anchor.column) == Part::kText ? marks[1] : marks[0];
}

CellSelection HexViewRows::CellsOf(const FileRange& bytes) {
  CellPos start = HexCellOf(bytes.start);
  if (bytes.start >= bytes.end) return {start, start};
  CellPos last = HexCellOf(bytes.end - 1);
  return {start, {last.row, last.column + 2}};
}

// A byte, where it was clicked; among the offsets, all of the row.
CellSelection HexViewRows::WordAt(CellPos cell) {
  Part part = PartOf(cell.column);
  int columns = Read(cell.row).Columns();
  if (part == Part::kOffset) return {{cell.row, ColumnNo(0)}, {cell.row, ColumnNo(columns)}};
  int byte = std::min(BytesEndedBefore(part, cell.column), std::max(columns - kTextColumn - 1, 0));
  ColumnSpan one{byte, byte + 1}, cells = part == Part::kText ? TextOf(one) : DigitsOf(one);
  return {{cell.row, ColumnNo(cells.from)}, {cell.row, ColumnNo(std::min(cells.to, columns))}};
}

}  // namespace tarrow
