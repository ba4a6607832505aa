// Many windows at once: opening them, closing them all, and leaving the program with them, maximised or not,
// beside a bare MDI program with as many. Tarrow opens as many files.
#include "benchmarks/report.h"
#include "benchmarks/window_process.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace tarrow::bench {
namespace {

constexpr DWORD kLimit = 300'000;  // milliseconds
constexpr WPARAM kCloseAll = 7004;

struct Figures {
  double open = 0, close = 0, leave = 0;
};

double SecondsUntil(const WindowProcess& process, int children) {
  bool isThere = false;
  const double seconds =
      Seconds([&] { isThere = process.WaitUntil([&] { return process.Children() == children; }, kLimit); });
  Check(isThere, "the windows come and go");
  return seconds;
}

// Opens all, closes all; then opens all again, and leaves.
Figures Measure(const std::wstring& command, int count) {
  Figures figures;
  {
    WindowProcess process(command);
    Check(process.IsRunning(), "the program starts");
    figures.open = SecondsUntil(process, count);
    PostMessageW(process.MainWindow(), WM_COMMAND, kCloseAll, 0);
    figures.close = SecondsUntil(process, 0);
  }
  WindowProcess process(command);
  SecondsUntil(process, count);
  PostMessageW(process.MainWindow(), WM_CLOSE, 0, 0);
  DWORD ended = WAIT_TIMEOUT;
  figures.leave = Seconds([&] { ended = WaitForSingleObject(process.Handle(), kLimit); });
  Check(ended == WAIT_OBJECT_0, "the program ends");
  return figures;
}

std::filesystem::path OwnFolder() {
  wchar_t name[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, name, MAX_PATH);
  return std::filesystem::path(name).parent_path();
}

// A folder of its own with that many small files.
std::filesystem::path MakeFiles(int count) {
  const std::filesystem::path folder = OwnFolder() / "many";
  std::filesystem::remove_all(folder);
  std::filesystem::create_directory(folder);
  for (int i = 0; i < count; ++i)
    std::ofstream(folder / ("file" + std::to_string(i) + ".txt"), std::ios::binary) << "some text\r\n";
  return folder;
}

void Compare(int count, bool isMaximised) {
  const std::filesystem::path folder = MakeFiles(count), settings = folder / "many.ini";
  std::ofstream(settings, std::ios::binary)
      << "[Settings]\r\nFlags=10000001000\r\nSaveWindows=0\r\nArrange=" << (isMaximised ? 2 : 1) << "\r\n";
  const std::wstring tarrow = L"\"" + (OwnFolder() / L".." / L"tarrow.exe").wstring() + L"\" -i \"" +
                              settings.wstring() + L"\" \"" + (folder / "*.txt").wstring() + L"\"";
  const std::wstring bare = L"\"" + (OwnFolder() / L"samples" / L"bare_mdi.exe").wstring() + L"\" " +
                            std::to_wstring(count) + (isMaximised ? L" m" : L"");
  const Figures own = Measure(tarrow, count), rival = Measure(bare, count);
  const std::string windows = std::to_string(count) + (isMaximised ? " maximised windows" : " windows");
  Row({"open " + windows, own.open, "bare MDI sample", rival.open, "s", 0.5});
  Row({"close " + windows, own.close, "bare MDI sample", rival.close, "s", 0.5});
  Row({"leave with " + windows, own.leave, "bare MDI sample", rival.leave, "s", 0.5});
  std::filesystem::remove_all(folder);
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  const int count = tarrow::bench::IsQuick(argc, argv) ? 20 : 200;
  tarrow::bench::Compare(count, false);
  tarrow::bench::Compare(count, true);
  return 0;
}
