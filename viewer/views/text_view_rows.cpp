#include "viewer/views/text_view_rows.h"

#include "edit/control/line_layout.h"

#include <algorithm>

namespace tarrow {
namespace {

// More than 255 columns take, unless marks without end stand upon the characters; and room for a character
// that this would cut.
constexpr std::size_t kMostBytes = 2048, kLongestCharacter = 4;

// A character as it stands in a line.
struct Placed {
  Character character;
  std::int32_t byte;
  int column, cells;
};

// Calls `visit` for the characters of a line that are shown, until it returns false. Returns where the walk
// ended, as a place without a character.
template <typename Visit>
Placed ForEachShown(std::string_view line, const Charset& charset, int tabWidth, Visit visit) {
  TextView text(line);
  BytePos at(0);
  int column = 0;
  while (at < text.End()) {
    Character c = charset.At(text, at);
    int cells = c.code == U'\t' ? std::min(tabWidth - column % tabWidth, TextViewRows::kMostColumns - column)
                                : CellsOf(DisplayedCode(c.code));
    bool fits = column + cells <= TextViewRows::kMostColumns && column < TextViewRows::kMostColumns;
    if (!fits || !visit(Placed{c, at.value, column, cells})) break;
    at += c.length;
    column += cells;
  }
  return {{}, at.value, column, 0};
}

}  // namespace

TextViewRows::TextViewRows(CLineFile& file, int tabWidth)
    : file_(file),
      tabWidth_(std::max(tabWidth, 1)),
      charset_(file.IsUtf8() ? Charset() : Charset(SystemCodePage())),
      longest_(static_cast<int>(std::min<std::uint32_t>(file.RecordLength(), kMostColumns))) {}

std::string_view TextViewRows::BytesOfLine(LineNo row) {
  if (row.value >= Count() || file_.SeekRecord(row.value) < 0) return {};
  bytes_.resize(kMostBytes);
  bytes_.resize(file_.ReadRecord(bytes_));
  if (bytes_.size() == kMostBytes) {
    BytePos last(static_cast<std::int64_t>(kMostBytes - kLongestCharacter));
    bytes_.resize(static_cast<std::size_t>(charset_.Snap(TextView(bytes_), last).value));
  }
  return bytes_;
}

const ViewRow& TextViewRows::Read(LineNo row) {
  row_.Clear();
  ForEachShown(BytesOfLine(row), charset_, tabWidth_, [&](const Placed& placed) {
    if (placed.character.code == U'\t')
      row_.AppendBlanks(placed.cells);
    else
      row_.Append(DisplayedCode(placed.character.code), placed.cells);
    return true;
  });
  longest_ = std::max(longest_, row_.Columns());
  return row_;
}

// The end of a row that is selected stands out as a cell of its own.
RowMarks TextViewRows::MarksOf(LineNo row, const CellSelection& selection) {
  CellPos start = selection.Start(), end = selection.End();
  if (selection.Empty() || row < start.row || row > end.row) return {};
  int from = row == start.row ? start.column.value : 0;
  return {ColumnSpan{from, row == end.row ? end.column.value : Read(row).Columns() + 1}};
}

ColumnSpan TextViewRows::CopiedOf(LineNo row, const CellSelection& selection) {
  ColumnSpan marked = MarksOf(row, selection)[0];
  return {marked.from, std::min(marked.to, Read(row).Columns())};
}

std::uint64_t TextViewRows::ByteOf(CellPos cell) {
  if (Count() == 0) return 0;
  std::uint64_t start = file_.StartOf(cell.row.value);
  auto reached = [&](const Placed& placed) { return placed.column + placed.cells <= cell.column.value; };
  return start +
         static_cast<std::uint64_t>(ForEachShown(BytesOfLine(cell.row), charset_, tabWidth_, reached).byte);
}

CellPos TextViewRows::CellOf(std::uint64_t byte) {
  if (Count() == 0) return {};
  LineNo row(file_.RecordAt(byte));
  std::uint64_t start = file_.StartOf(row.value);
  auto within = static_cast<std::int64_t>(byte - std::min(byte, start));
  auto before = [&](const Placed& placed) { return placed.byte + placed.character.length <= within; };
  return {row, ColumnNo(ForEachShown(BytesOfLine(row), charset_, tabWidth_, before).column)};
}

FileRange TextViewRows::BytesOf(const CellSelection& selection) {
  return {ByteOf(selection.Start()), ByteOf(selection.End())};
}

// A character that the bytes end in is selected as a whole.
CellSelection TextViewRows::CellsOf(const FileRange& bytes) {
  CellPos start = CellOf(bytes.start);
  if (bytes.end <= bytes.start) return {start, start};
  CellPos end = CellOf(bytes.end);
  if (ByteOf(end) < bytes.end) {
    ColumnNo next(Read(end.row).SnapForward(end.column.value + 1));
    end.column = next;
  }
  return {start, end};
}

CellSelection TextViewRows::WordAt(CellPos cell) {
  ColumnSpan word = Read(cell.row).WordAt(cell.column.value);
  return {{cell.row, ColumnNo(word.from)}, {cell.row, ColumnNo(word.to)}};
}

}  // namespace tarrow
