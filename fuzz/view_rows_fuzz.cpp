// Any bytes are a file to view, in hex and as text: rows keep to their width, every byte that is shown has a
// cell and comes back from it, and a painted page covers each pixel once.
#include "viewer/views/hex_view_rows.h"
#include "viewer/views/text_view_rows.h"
#include "viewer/views/view_paint.h"

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

void Require(bool holds) {
  if (!holds) std::abort();
}

// Adds up the pixels drawn; overlapping areas would make it too many.
class Area final : public tarrow::ViewSurface {
 public:
  void Draw(const tarrow::PixelRect& area, std::u16string_view text, std::span<const int> advances,
            bool) override {
    Require(area.left < area.right && area.top < area.bottom && text.size() == advances.size());
    pixels += (area.right - area.left) * (area.bottom - area.top);
  }

  long pixels = 0;
};

void View(tarrow::ViewRows& rows, std::uint64_t size, int most, int left) {
  using tarrow::ColumnNo, tarrow::LineNo;
  for (std::int32_t row = 0; row < rows.Count(); ++row) Require(rows.Read(LineNo(row)).Columns() <= most);
  for (std::uint64_t at = 0; at < size; at += 1 + size / 64) {
    tarrow::CellSelection cells = rows.CellsOf({at, at + 1});
    Require(cells.Start().row.value < rows.Count());
    tarrow::FileRange bytes = rows.BytesOf(cells);
    Require(cells.Empty() || (bytes.start <= at && at < bytes.end));
  }
  tarrow::ViewState state;
  state.left = ColumnNo(left);
  state.selection = rows.CellsOf({size / 3, size / 2});
  constexpr tarrow::PixelRect kClient{0, 0, 203, 95};
  Area area;
  PaintView(area, rows, state, {8, 12}, kClient, 0, kClient.bottom);
  Require(area.pixels == long{kClient.right} * kClient.bottom);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2 || size > 4000) return 0;
  int tabWidth = 1 + data[0] % 16, left = data[1];
  std::string_view bytes(reinterpret_cast<const char*>(data) + 2, size - 2);
  tarrow::CFixedRecordFile hex(tarrow::kHexRowBytes);
  Require(hex.Open(std::make_unique<tarrow::StringSource>(bytes)) == tarrow::RecordFileOutcome::kOpened);
  tarrow::HexViewRows hexRows(hex);
  View(hexRows, bytes.size(), 63, left);
  tarrow::CLineFile text(tabWidth);
  Require(text.Open(std::make_unique<tarrow::StringSource>(bytes)) == tarrow::RecordFileOutcome::kOpened);
  tarrow::TextViewRows textRows(text, tabWidth);
  View(textRows, bytes.size(), tarrow::TextViewRows::kMostColumns, left);
  return 0;
}
