// Views of a large file: paging through all of it in hex beside xxd, pages anywhere in it, finding its lines
// beside wc -l, and finding a word at its end beside grep.
#include "benchmarks/posix_files.h"
#include "benchmarks/report.h"
#include "benchmarks/source_text.h"
#include "search/find/file_finder.h"
#include "search/pattern/find_pattern.h"
#include "viewer/views/hex_view_rows.h"
#include "viewer/views/text_view_rows.h"
#include "viewer/views/view_paint.h"

#include <filesystem>
#include <fstream>

namespace {

using tarrow::LineNo;
using tarrow::bench::BestSeconds;
using tarrow::bench::Check;
using tarrow::bench::PosixFile;
using tarrow::bench::Row;

constexpr int kRows = 50;  // of a page
constexpr tarrow::CellSize kCell{8, 16};
constexpr tarrow::PixelRect kClient{0, 0, 80 * kCell.width, kRows* kCell.height};

// Draws nothing, but looks at all that is drawn.
class Eye final : public tarrow::ViewSurface {
 public:
  void Draw(const tarrow::PixelRect&, std::u16string_view text, std::span<const int> advances,
            bool) override {
    for (std::size_t i = 0; i < text.size(); ++i) seen += text[i] * static_cast<unsigned>(advances[i]);
  }

  std::uint64_t seen = 0;
};

std::unique_ptr<PosixFile> OpenFile(const std::string& path) {
  return std::make_unique<PosixFile>(path, O_RDONLY);
}

void PaintPage(tarrow::ViewSurface& surface, tarrow::ViewRows& rows, std::int64_t top) {
  tarrow::ViewState state;
  state.top = LineNo(top);
  PaintView(surface, rows, state, kCell, kClient, 0, kClient.bottom);
}

struct HexFile {
  explicit HexFile(const std::string& path) {
    Check(file.Open(OpenFile(path)) == tarrow::RecordFileOutcome::kOpened, "opened in hex");
  }

  tarrow::CFixedRecordFile file{tarrow::kHexRowBytes};
  tarrow::HexViewRows rows{file};
};

std::uint64_t PageThrough(const std::string& path) {
  HexFile hex(path);
  Eye eye;
  for (std::int64_t top = 0; top < hex.rows.Count(); top += kRows) PaintPage(eye, hex.rows, top);
  return eye.seen;
}

constexpr int kPlaces = 100;

std::int64_t PlaceOf(int number, std::int64_t rows) {
  return rows / kPlaces * ((number * 37) % kPlaces);
}

std::uint64_t PageAnywhere(HexFile& hex) {
  Eye eye;
  for (int i = 0; i < kPlaces; ++i) {
    hex.file.Refresh();
    PaintPage(eye, hex.rows, PlaceOf(i, hex.rows.Count()));
  }
  return eye.seen;
}

void Shell(const std::string& command) {
  Check(std::system(command.c_str()) == 0, command.c_str());
}

void MeasureHex(const std::string& path, const std::string& size, int runs) {
  HexFile hex(path);
  std::uint64_t all = PageThrough(path);
  Check(all > hex.file.FileSize() * ' ' && all == PageThrough(path), "every row is seen");
  double paging = BestSeconds(runs, [&] { PageThrough(path); });
  double dumping = BestSeconds(1, [&] { Shell("xxd " + path + " > /dev/null"); });
  Row({"page through " + size + " in hex", paging, "xxd", dumping, "s", 1});
  double anywhere = BestSeconds(runs, [&] { PageAnywhere(hex); });
  double seeking = BestSeconds(1, [&] {
    for (int i = 0; i < kPlaces; ++i)
      Shell("xxd -s " + std::to_string(PlaceOf(i, hex.rows.Count()) * 16) + " -l " +
            std::to_string(kRows * 16) + " " + path + " > /dev/null");
  });
  Row({"100 pages anywhere in " + size, anywhere, "xxd -s", seeking, "s", 10});
}

void MeasureText(const std::string& path, const std::string& size, int runs, std::uint32_t lines) {
  auto openAtEnd = [&] {
    tarrow::CLineFile file(8);
    Check(file.Open(OpenFile(path)) == tarrow::RecordFileOutcome::kOpened, "opened as text");
    Check(file.RecordCount() == lines && file.IsUtf8(), "the lines are found");
    tarrow::TextViewRows rows(file, 8);
    Eye eye;
    PaintPage(eye, rows, rows.Count() - kRows);
    Check(eye.seen > 0, "the last page is seen");
  };
  double opening = BestSeconds(runs, openAtEnd);
  double counting = BestSeconds(runs, [&] { Shell("wc -l " + path + " > /dev/null"); });
  Row({"open " + size + " as text at its end", opening, "wc -l", counting, "s", 1.0 / 3});
}

void MeasureFinding(const std::string& path, const std::string& size, int runs) {
  auto file = OpenFile(path);
  double finding = BestSeconds(runs, [&] {
    tarrow::CompiledPattern pattern;
    Check(CompileFindPattern("ne[e]dle_at_end", {}, pattern) == tarrow::PatternError::kNone, "compiled");
    auto found = tarrow::FileFinder(pattern, *file, nullptr).Forward(0);
    Check(found && found->end + 1 == file->Size(), "found at the end");
  });
  double grepping =
      BestSeconds(runs, [&] { Shell("LC_ALL=C grep -abo 'ne[e]dle_at_end' " + path + " > /dev/null"); });
  Row({"find a word at the end of " + size, finding, "grep -abo", grepping, "s", 1});
}

}  // namespace

int main(int argc, char** argv) {
  bool quick = tarrow::bench::IsQuick(argc, argv);
  int pieces = quick ? 1 : 64, runs = quick ? 2 : 3;
  auto directory = std::filesystem::temp_directory_path() / ("view_benchmark." + std::to_string(::getpid()));
  std::filesystem::create_directory(directory);
  std::string path = directory / "large.c";
  std::string piece = tarrow::bench::SourceText(16u << 20);
  piece.resize(piece.rfind('\n') + 1);
  {
    std::ofstream file(path, std::ios::binary);
    for (int i = 0; i < pieces; ++i) file << piece;
    file << "needle_at_end\n";
  }
  auto lines = static_cast<std::uint32_t>(std::count(piece.begin(), piece.end(), '\n')) *
                   static_cast<unsigned>(pieces) +
               1;
  std::string size = quick ? "16 MB" : "1 GB";
  MeasureHex(path, size, runs);
  MeasureText(path, size, runs, lines);
  MeasureFinding(path, size, runs);
  std::filesystem::remove_all(directory);
}
