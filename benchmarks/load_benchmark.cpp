// Loading a large file with conversion and line index beside unix2dos, and saving it back beside cp.
#include "benchmarks/posix_files.h"
#include "benchmarks/report.h"
#include "benchmarks/source_text.h"
#include "edit/files/file_load.h"
#include "edit/files/file_save.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using tarrow::FileFormat;
using tarrow::bench::BestSeconds;
using tarrow::bench::Check;
using tarrow::bench::PosixFile;
using tarrow::bench::Row;

struct Never final : tarrow::LoadQuestions {
  bool AcceptControlByte(unsigned char) override { return false; }
  bool AcceptLineEnds() override { return false; }
};

tarrow::LoadedText Load(const std::string& path) {
  PosixFile file(path, O_RDONLY);
  Never ask;
  auto loaded = tarrow::LoadText(file, tarrow::kMaxTextSize, ask);
  Check(loaded && loaded->format == FileFormat::kUnix, "format");
  return std::move(*loaded);
}

void Save(const std::string& path, const tarrow::LoadedText& loaded) {
  tarrow::bench::PosixSaveDisk disk;
  tarrow::SafeSave(disk, path, {},
                   [&](tarrow::ByteSink& out) { SaveText(loaded.text.View(), loaded.format, out); });
}

void Shell(const std::string& command) {
  Check(std::system(command.c_str()) == 0, command.c_str());
}

std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

int main(int argc, char** argv) {
  bool quick = tarrow::bench::IsQuick(argc, argv);
  int megabytes = quick ? 10 : 100, runs = quick ? 2 : 5;
  auto directory = std::filesystem::temp_directory_path() / ("load_benchmark." + std::to_string(::getpid()));
  std::filesystem::create_directory(directory);
  std::string source = directory / "source.c", dos = directory / "dos.c", saved = directory / "saved.c";
  std::string text = tarrow::bench::SourceText(static_cast<std::size_t>(megabytes) << 20);
  std::ofstream(source, std::ios::binary) << text;
  std::string size = std::to_string(megabytes) + " MB";

  tarrow::bench::RequireProgram("unix2dos", "dos2unix");
  std::string convert = "unix2dos -q -n " + source + " " + dos, copy = "cp " + source + " " + dos;
  Shell(convert);
  tarrow::LoadedText loaded = Load(source);
  Check(loaded.text.View().Copy() == BytesOf(dos), "the text is what unix2dos makes");
  Save(saved, loaded);
  Check(BytesOf(saved) == text, "saving gives the file back");

  double loading = BestSeconds(runs, [&] { Load(source); });
  double converting = BestSeconds(runs, [&] { Shell(convert); });
  double saving = BestSeconds(runs, [&] { Save(saved, loaded); });
  double copying = BestSeconds(runs, [&] { Shell(copy); });
  Row({"load " + size + " of Unix text", loading, "unix2dos", converting, "s", 10});
  Row({"save " + size + " of Unix text", saving, "cp", copying, "s", 1.0 / 3});
  std::filesystem::remove_all(directory);
}
