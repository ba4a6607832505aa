// A row of a view: characters in cells of one width.
//
// A column is a cell, counted from 0. Most characters take one cell, those of East Asian scripts two, marks
// upon the character before them none. A caret stands before a character, never within one; the column behind
// the last character belongs to the row as well.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// How many cells a character takes: 0, 1 or 2.
int CellsOf(char32_t code);

// Columns of a row: [from, to).
struct ColumnSpan {
  int from = 0, to = 0;

  bool Empty() const { return from >= to; }
  friend bool operator==(const ColumnSpan&, const ColumnSpan&) = default;
};

// Characters of a row that follow one another, and where the first one stands.
struct CellPiece {
  int column = 0;
  int columns = 0;
  std::u16string_view text;
  std::span<const std::uint8_t> cells;  // of each unit of the text; none: each takes one
  bool mayTurn = false;                 // whether some of it may be written from right to left

  int CellsOf(std::size_t unit) const { return cells.empty() ? 1 : cells[unit]; }
};

class ViewRow {
 public:
  void Clear();

  // Appends one cell for each byte of ASCII, or for each unit, none of which is part of a pair.
  void AppendAscii(std::string_view text);
  void AppendPlain(std::u16string_view text);
  void Append(char32_t code, int cells);
  void AppendBlanks(int count);

  int Columns() const { return columns_; }
  const std::u16string& Text() const { return text_; }

  // The column nearest to `column` before which a character begins: at or before it, or at or behind it. The
  // ends of the row are the farthest.
  int SnapBack(int column) const;
  int SnapForward(int column) const;

  // The word that stands at `column`: letters, digits and "_", or a single character of any other kind; empty
  // behind the last.
  ColumnSpan WordAt(int column) const;

  // The characters that lie within `span` with all their cells.
  CellPiece Piece(ColumnSpan span) const;

 private:
  // The unit with which the first character at or behind `column` begins, and its column.
  struct Place {
    std::size_t unit;
    int column;
  };
  Place PlaceAt(int column) const;
  bool IsPlain() const { return cells_.empty(); }

  std::u16string text_;
  std::vector<std::uint8_t> cells_;  // of each unit, once there is one that does not take one
  int columns_ = 0;
  bool mayTurn_ = false;
};

}  // namespace tarrow
