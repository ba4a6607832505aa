// A surface that keeps what is drawn on it as text: a page is the lines that one would read on it.
#pragma once

#include "base/utf16.h"
#include "print/print_surface.h"

#include <algorithm>
#include <string>
#include <vector>

namespace tarrow {

// Every character is one cell wide, but for CJK ideographs, which take two.
class CellWidths final : public CharWidths {
 public:
  static constexpr int kCell = 10;
  int WidthOf(char32_t code) const override { return code >= 0x4E00 && code < 0xA000 ? 2 * kCell : kCell; }
  int CommonWidth() const override { return kCell; }
  bool ReachesBack(char32_t) const override { return false; }
};

class RecordingSurface final : public PrintSurface {
 public:
  static constexpr int kCell = CellWidths::kCell;
  static constexpr int kLine = 20;

  struct Page {
    int number = 0;
    bool isEnded = false;
    std::size_t first = 0;  // of its pieces
  };
  std::vector<Page> pages;
  std::u16string units;  // of all pieces

  const CharWidths& Widths() const override { return widths_; }
  void BeginPage(int number) override { pages.push_back({number, false, pieces_.size()}); }
  void EndPage() override { pages.back().isEnded = true; }

  void Draw(int x, int y, std::u16string_view text, std::span<const int> advances) override {
    pieces_.push_back({x / kCell, y / kLine, units.size(), std::min(text.size(), advances.size())});
    units += text;
  }

  // A page as UTF-8, a line for each line height from its top, without blanks at the ends of lines.
  std::string Text(std::size_t page) const {
    std::vector<std::u16string> rows;
    std::size_t end = page + 1 < pages.size() ? pages[page + 1].first : pieces_.size();
    for (std::size_t i = pages[page].first; i < end; ++i) Place(pieces_[i], rows);
    std::string text;
    for (const std::u16string& row : rows) {
      text += Utf16ToUtf8(std::u16string_view(row).substr(0, row.find_last_not_of(u' ') + 1));
      text += '\n';
    }
    return text;
  }

  // All pages, each below a line with its number.
  std::string Text() const {
    std::string text;
    for (std::size_t i = 0; i < pages.size(); ++i)
      text += "-- " + std::to_string(pages[i].number) + (pages[i].isEnded ? "\n" : " unended\n") + Text(i);
    return text;
  }

 private:
  struct Piece {
    int column, row;
    std::size_t from, size;
  };

  void Place(const Piece& piece, std::vector<std::u16string>& rows) const {
    auto row = static_cast<std::size_t>(piece.row), column = static_cast<std::size_t>(piece.column);
    if (rows.size() <= row) rows.resize(row + 1);
    if (rows[row].size() < column) rows[row].resize(column, u' ');
    rows[row].append(units, piece.from, piece.size);
  }

  CellWidths widths_;
  std::vector<Piece> pieces_;
};

}  // namespace tarrow
