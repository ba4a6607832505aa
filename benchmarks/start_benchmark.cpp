// From the start of a program until it has painted its windows: Tarrow with a file of 1 MB beside the
// platform's notepad with the same file, and with a small file beside a bare MDI program.
//
// A program is there when it shows a window, answers messages and has nothing left to paint.
#include "benchmarks/report.h"
#include "benchmarks/window_process.h"

#include "framework/unicode.h"

#include <windows.h>

#include <psapi.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <vector>

namespace tarrow::bench {
namespace {

struct Start {
  double seconds = std::numeric_limits<double>::infinity();
  double megabytes = 0;  // of memory that the program holds then
};

Start StartOnce(const std::wstring& command) {
  std::optional<WindowProcess> process;
  bool isReady = false;
  Start start;
  start.seconds = Seconds([&] {
    process.emplace(command);
    isReady = process->IsRunning() && process->WaitUntil([] { return true; }, 30000);
  });
  PROCESS_MEMORY_COUNTERS memory = {};
  GetProcessMemoryInfo(process->Handle(), &memory, sizeof memory);
  start.megabytes = static_cast<double>(memory.WorkingSetSize) / (1 << 20);
  Check(isReady, "the program shows its window");
  Check(start.megabytes > 0, "the memory of a program can be told");
  return start;
}

// The best of several starts of each program, in turns, so that both meet the same machine.
std::vector<Start> StartAll(const std::vector<std::wstring>& commands, int runs) {
  std::vector<Start> best(commands.size());
  for (int run = 0; run < runs; ++run) {
    for (std::size_t i = 0; i < commands.size(); ++i) {
      const Start start = StartOnce(commands[i]);
      if (start.seconds < best[i].seconds) best[i] = start;
    }
  }
  return best;
}

std::filesystem::path OwnFolder() {
  wchar_t name[MAX_PATH] = {};
  GetModuleFileNameW(nullptr, name, MAX_PATH);
  return std::filesystem::path(name).parent_path();
}

// A text of at least this many bytes, in lines.
void WriteText(const std::filesystem::path& path, std::size_t size) {
  std::ofstream out(path, std::ios::binary);
  const std::string line =
      "  if (count > limit) return Refuse(count, limit);  // more than there is room for\r\n";
  for (std::size_t written = 0; written < size; written += line.size()) out << line;
}

std::wstring Quoted(const std::filesystem::path& path) {
  return L"\"" + path.wstring() + L"\"";
}

void Compare(const std::string& work, const std::vector<std::wstring>& commands, const std::string& rival,
             int runs, double goal) {
  const std::vector<Start> best = StartAll(commands, runs);
  Row({work, best[0].seconds, rival, best[1].seconds, "s", goal});
  Row({work + ": memory", best[0].megabytes, rival, best[1].megabytes, "MB", 0});
}

void Run(int runs) {
  const std::filesystem::path folder = OwnFolder();
  const std::filesystem::path large = folder / "start_large.txt", small = folder / "start_small.txt";
  WriteText(large, 1 << 20);
  WriteText(small, 1 << 10);
  const std::wstring tarrow =
      Quoted(folder / L".." / L"tarrow.exe") + L" -i " + Quoted(folder / L"start.ini") + L" ";
  Compare("start with 1 MB of text", {tarrow + Quoted(large), L"notepad.exe " + Quoted(large)}, "notepad",
          runs, 1);
  Compare("start with 1 KB of text", {tarrow + Quoted(small), Quoted(folder / L"samples" / L"bare_mdi.exe")},
          "bare MDI sample", runs, 0.5);
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  tarrow::bench::Run(tarrow::bench::IsQuick(argc, argv) ? 2 : 15);
  return 0;
}
