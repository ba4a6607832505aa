// Loading and saving a large file by the system's own calls, beside the system's copying of it.
#include "benchmarks/report.h"
#include "benchmarks/source_text.h"
#include "edit/files/file_load.h"
#include "edit/files/file_save.h"
#include "edit/files/save_disk.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"

namespace tarrow {
namespace {

using bench::BestSeconds;
using bench::Check;

struct Never final : LoadQuestions {
  bool AcceptControlByte(unsigned char) override { return false; }
  bool AcceptLineEnds() override { return false; }
};

LoadedText Load(const std::string& path) {
  CFile file(path, CFile::Mode::kRead, CFile::Share::kRead);
  Never ask;
  auto loaded = LoadText(file, kMaxTextSize, ask);
  Check(loaded && loaded->format == FileFormat::kUnix, "format");
  return std::move(*loaded);
}

void Save(const std::string& path, const LoadedText& loaded) {
  WindowsSaveDisk disk;
  SafeSave(disk, path, {}, [&](ByteSink& out) { SaveText(loaded.text.View(), loaded.format, out); });
}

void Measure(bool quick) {
  int megabytes = quick ? 10 : 100, runs = quick ? 2 : 5;
  std::string source = MakeTempName(), saved = MakeTempName(), copied = MakeTempName();
  std::string text = bench::SourceText(static_cast<std::size_t>(megabytes) << 20);
  CFile(source, CFile::Mode::kUpdate, CFile::Share::kNothing).Write(text);

  LoadedText loaded = Load(source);
  Save(saved, loaded);
  Check(ReadWholeFile(saved) == text, "saving gives the file back");

  double loading = BestSeconds(runs, [&] { Load(source); });
  double saving = BestSeconds(runs, [&] { Save(saved, loaded); });
  double copying = BestSeconds(runs, [&] { DuplicateFile(source, copied, true); });
  std::string work = std::to_string(megabytes) + " MB by the system's calls";
  bench::Row({"load " + work, loading, "CopyFile", copying, "s", 0});
  bench::Row({"save " + work, saving, "CopyFile", copying, "s", 1.0 / 3});
  for (const std::string& path : {source, saved, copied}) RemoveFile(path);
}

}  // namespace
}  // namespace tarrow

int main(int argc, char** argv) {
  tarrow::Measure(tarrow::bench::IsQuick(argc, argv));
}
