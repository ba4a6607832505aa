// The global search in its window beside `tarrowc search` on the same files: the whole of it, the time to the
// first result on the screen, and the longest time for which the program answers to nobody.
//
// The text of the window is compared with what tarrowc prints before the time is believed.
#include "base/path_text.h"
#include "benchmarks/answer_watch.h"
#include "benchmarks/report.h"
#include "benchmarks/source_text.h"
#include "edit/documents/log.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "shell/program.h"
#include "tests/fakes/no_settings_files.h"
#include "ui/commands/commands.h"

namespace tarrow::bench {
namespace {

constexpr double kGoal = 1 / 1.3;
constexpr double kFirstResult = 0.2, kAnswer = 0.1;  // seconds
const std::string kPattern(40, 'm');

// A directory of C files that goes when its owner does. Their names are in lower case, as the window has
// them.
class SourceTree {
 public:
  SourceTree(std::size_t files, std::size_t fileSize) : path_(LowerCase(MakeTempName())) {
    RemoveFile(path_);
    MakeDirectory(path_);
    std::string text = SourceText(fileSize * 2);
    for (std::size_t i = 0; i < files; ++i) {
      std::string name = "f" + std::to_string(100'000 + i) + ".c";
      names_.push_back(path_ + "\\" + name);
      CFile file(names_.back(), CFile::Mode::kCreateNew, CFile::Share::kNothing);
      file.Write(std::string_view(text).substr(i % fileSize, fileSize));
    }
  }
  ~SourceTree() {
    for (const std::string& name : names_) RemoveFile(name);
    ::RemoveDirectoryW(ToWide(path_).c_str());
  }
  SourceTree(const SourceTree&) = delete;
  SourceTree& operator=(const SourceTree&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
  std::vector<std::string> names_;
};

// Asks the program from another thread whether there is a result.
class Watcher {
 public:
  explicit Watcher(const Program& program)
      : client_(program.frame.Client()), watch_([this](double seconds) { Ask(seconds); }) {}

  void Stop() { watch_.Stop(); }
  double LongestSilence() const { return watch_.LongestSilence(); }
  double FirstResult() const { return first_; }

 private:
  void Ask(double seconds) {
    HWND log = ::FindWindowExW(client_, nullptr, L"TarrowLog", nullptr);
    HWND text = log ? ::GetDlgItem(log, CTwFileEdit::kControlId) : client_;
    LRESULT length = ::SendMessageW(text, WM_GETTEXTLENGTH, 0, 0);
    if (log && length > 0 && first_ == 0) first_ = seconds;
  }

  HWND client_;
  double first_ = 0;
  AnswerWatch watch_;
};

// What tarrowc prints, by way of the command interpreter.
std::string RunConsole(const SourceTree& tree, double& seconds) {
  std::string output = MakeTempName();
  std::string console = FullPath(std::string(DirectoryPart(ProgramPath())) + "..\\console\\tarrowc.exe");
  std::string line = "cmd /c \"cd /d " + tree.Path() + " && \"" + console + "\" search " + kPattern +
                     " *.c > " + output + "\"";
  seconds = Seconds([&] {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    std::wstring wide = ToWide(line);
    Check(::CreateProcessW(nullptr, wide.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                           &process),
          "start of tarrowc");
    ::WaitForSingleObject(process.hProcess, INFINITE);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
  });
  std::string text = ReadWholeFile(output);
  RemoveFile(output);
  return text;
}

// Searches in the window; the text that it shows.
std::string RunWindow(Program& program, const SourceTree& tree, double& seconds) {
  CGrepDialog& dialog = *program.rooms.globalSearch.Dialog();
  dialog.SetItemText(IDC_SEARCH_FOR, kPattern);
  dialog.SetItemText(IDC_IN_FILES, "*.c");
  dialog.SetItemText(IDC_IN_DIRECTORY, tree.Path());
  seconds = Seconds([&] { ::SendMessageW(dialog.Handle(), WM_COMMAND, IDOK, 0); });
  auto* log = dynamic_cast<CTwLog*>(program.frame.ActiveChild());
  Check(log, "result window");
  std::string text = log->Control().View().Copy();
  log->Send(WM_CLOSE);
  return text;
}

void Run(std::size_t files, std::size_t fileSize, int runs) {
  NoSettingsFiles noFiles;
  Program program(noFiles);
  Check(program.frame.CreateMain({0, 0, 800, 600}), "frame");
  ::ShowWindow(program.frame.Handle(), SW_SHOW);
  SourceTree tree(files, fileSize);
  ChangeWorkingDirectory(tree.Path());
  program.frame.Send(WM_COMMAND, kSearchGrep);
  double console = 1e9, window = 1e9, first = 1e9, silence = 1e9;
  for (int run = 0; run < runs; ++run) {
    double seconds = 0;
    std::string printed = RunConsole(tree, seconds);
    console = std::min(console, seconds);
    Watcher watcher(program);
    std::string shown = RunWindow(program, tree, seconds);
    watcher.Stop();
    Check(!printed.empty() && printed == shown, "the window and tarrowc find the same");
    window = std::min(window, seconds);
    // A search that was over before anybody looked has shown its first result by its end.
    first = std::min(first, watcher.FirstResult() > 0 ? watcher.FirstResult() : seconds);
    silence = std::min(silence, watcher.LongestSilence());
  }
  std::string work = "global search, " + std::to_string(files) + " files";
  Row({work, window, "tarrowc search", console, "s", kGoal});
  Row({work + ": first result", first, "limit", kFirstResult, "s", 1});
  Row({work + ": longest silence", silence, "limit", kAnswer, "s", 1});
  ChangeWorkingDirectory(TemporaryDirectory());
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  bool isQuick = tarrow::bench::IsQuick(argc, argv);
  tarrow::bench::Run(isQuick ? 500 : 20'000, 20'000, isQuick ? 1 : 3);
}
