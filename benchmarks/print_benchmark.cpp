// Laying out 10,000 pages beside pr, which does as much for a line printer, and beside 100 MB of text a
// second.
#include "benchmarks/report.h"
#include "edit/documents/buffer_lines.h"
#include "print/page_layout.h"
#include "tests/print/recording_surface.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

using tarrow::RecordingSurface;
using tarrow::bench::BestSeconds;
using tarrow::bench::Check;
using tarrow::bench::Row;

constexpr int kColumns = 80, kRows = 56;  // of the text on a page; header and footer have four more lines

// Lines as programs have them, of which one in a hundred is longer than a row, every page full.
std::string PagesOfText(int pages) {
  std::string text;
  for (unsigned n = 1, rows = 0; rows < static_cast<unsigned>(pages * kRows); n = n * 1103515245 + 12345) {
    std::size_t length = n >> 16 & 63;
    if ((n >> 8) % 100 == 0 && rows + 2 <= static_cast<unsigned>(pages * kRows)) length += kColumns, ++rows;
    text.append(n >> 24 & 1, '\t').append(length, static_cast<char>('a' + (n >> 8) % 26)).append("x\r\n");
    ++rows;
  }
  return text;
}

tarrow::PageFormat Format() {
  tarrow::PageFormat format;
  format.area = {0, 0, kColumns * RecordingSurface::kCell, (kRows + 4) * RecordingSurface::kLine};
  format.cellWidth = RecordingSurface::kCell;
  format.lineHeight = RecordingSurface::kLine;
  format.header = "&l&f&r&d";
  format.footer = "Page &p";
  format.fields = {"source.c", "C:\\source.c", "1/2/26", "January 2, 2026", "9:05"};
  return format;
}

int LayOut(const tarrow::TextBuffer& buffer, RecordingSurface& surface) {
  surface.Clear();
  tarrow::Charset charset;
  tarrow::BufferLines lines(buffer, charset, {tarrow::BytePos(0), buffer.End()});
  tarrow::PageFormat format = Format();
  return tarrow::PageLayout(format, surface, nullptr).Print(lines);
}

}  // namespace

int main(int argc, char** argv) {
  bool quick = tarrow::bench::IsQuick(argc, argv);
  int wanted = quick ? 1000 : 10000, runs = quick ? 2 : 5;
  std::string text = PagesOfText(wanted);
  tarrow::TextBuffer buffer;
  buffer.Replace({}, text);

  RecordingSurface surface;
  Check(LayOut(buffer, surface) == wanted, "the number of pages");
  Check(surface.Text(0).substr(0, 8) == "source.c", "the header of the first page");
  auto file = std::filesystem::temp_directory_path() / ("print_benchmark." + std::to_string(::getpid()));
  std::ofstream(file, std::ios::binary) << text;
  std::string pr = "pr -e -l 60 " + file.string() + " >/dev/null";

  double own = BestSeconds(runs, [&] { LayOut(buffer, surface); });
  double rival = BestSeconds(runs, [&] { Check(std::system(pr.c_str()) == 0, "pr"); });
  std::filesystem::remove(file);
  std::string work = "lay out " + std::to_string(wanted) + " pages";
  Row({work, own, "pr", rival, "s", 1});
  Row({work, own, "100 MB a second", static_cast<double>(text.size()) / 1e8, "s", 1});
}
