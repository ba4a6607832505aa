// The file manager with a hundred thousand files: how long it is silent while it lists them, and the time
// from a key to the list that shows what the key has done.
#include "benchmarks/answer_watch.h"
#include "benchmarks/report.h"
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

constexpr double kDelay = 0.1;  // seconds: what is felt as a delay

// Directories of empty files that go when their owner does: one with all of them would take minutes to make
// under Wine, which reads a directory for each new name.
class ManyFiles {
 public:
  explicit ManyFiles(int count) : path_(MakeTempName()), count_(count) {
    RemoveFile(path_);
    MakeDirectory(path_);
    for (int i = 0; i < count_; i += kInOne) MakeDirectory(path_ + "\\" + Directory(i));
    for (int i = 0; i < count_; ++i) CFile(Name(i), CFile::Mode::kCreateNew, CFile::Share::kNothing).Close();
  }
  ~ManyFiles() {
    for (int i = 0; i < count_; ++i) RemoveFile(Name(i));
    for (int i = 0; i < count_; i += kInOne) ::RemoveDirectoryW(ToWide(path_ + "\\" + Directory(i)).c_str());
    ::RemoveDirectoryW(ToWide(path_).c_str());
  }
  ManyFiles(const ManyFiles&) = delete;
  ManyFiles& operator=(const ManyFiles&) = delete;

  const std::string& Path() const { return path_; }
  std::string Patterns() const {
    std::string patterns;
    for (int i = 0; i < count_; i += kInOne) patterns += Directory(i) + "\\*.c ";
    return patterns;
  }

 private:
  static constexpr int kInOne = 500;

  static std::string Directory(int i) { return "d" + std::to_string(i / kInOne); }
  std::string Name(int i) const { return path_ + "\\" + Directory(i) + "\\File" + std::to_string(i) + ".c"; }

  std::string path_;
  int count_;
};

// All that has been posted and is to be painted.
void Settle() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageW(&message);
}

class Managing {
 public:
  explicit Managing(Program& program) : dialog_(*program.rooms.fileManager.Dialog()) {}

  void Fill(const ManyFiles& files) {
    dialog_.SetItemText(IDC_MANAGED_DIRECTORY, files.Path());
    dialog_.SetItemText(IDC_MANAGED_FILES, files.Patterns());
  }
  HWND List() const { return dialog_.Item(IDC_MANAGED_LIST); }
  std::size_t Rows() const { return dialog_.List().Table().Size(); }
  std::size_t Chosen() const { return dialog_.List().ChosenCount(); }

  void PressList() {
    ::SendMessageW(dialog_.Handle(), WM_COMMAND, IDC_MANAGED_REFRESH, 0);
    Settle();
  }
  void Sort(FileColumn column) {
    NMLISTVIEW click{};
    click.hdr = {List(), IDC_MANAGED_LIST, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iSubItem = static_cast<int>(column);
    ::SendMessageW(dialog_.Handle(), WM_NOTIFY, IDC_MANAGED_LIST, reinterpret_cast<LPARAM>(&click));
    Settle();
  }
  void ChooseAll() {
    dialog_.List().ChooseAll();
    Settle();
  }
  void Leave(LPARAM row) {
    LVITEMW item{};
    item.stateMask = LVIS_SELECTED;
    ::SendMessageW(List(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    Settle();
  }
  // The arrow leaves only the row that it goes to.
  void PressDown() {
    ::SendMessageW(List(), WM_KEYDOWN, VK_DOWN, 0);
    Settle();
  }

 private:
  CFileManagerDialog& dialog_;
};

void Show(const std::string& work, double seconds) {
  Row({work, seconds, "limit", kDelay, "s", 1});
}

void Run(int count) {
  NoSettingsFiles noFiles;
  Program program(noFiles);
  Check(program.frame.CreateMain({0, 0, 800, 600}), "frame");
  ::ShowWindow(program.frame.Handle(), SW_SHOW);
  ManyFiles files(count);
  program.frame.Send(WM_COMMAND, kFileManage);
  Check(program.rooms.fileManager.Dialog(), "dialog");
  Managing managing(program);
  managing.Fill(files);
  AnswerWatch watch([&](double) { ::SendMessageW(program.frame.Handle(), WM_NULL, 0, 0); });
  double listing = Seconds([&] { managing.PressList(); });
  watch.Stop();
  auto rows = static_cast<std::size_t>(count);
  Check(managing.Rows() == rows, "list");
  std::string what = "file manager, " + std::to_string(count) + " files: ";
  Row({what + "list", listing, "none", 0, "s", 0});
  Show(what + "longest silence", watch.LongestSilence());
  Show(what + "choose all", Seconds([&] { managing.ChooseAll(); }));
  Check(managing.Chosen() == rows, "all");
  Show(what + "leave one out", Seconds([&] { managing.Leave(count / 2); }));
  Show(what + "sort the chosen", Seconds([&] { managing.Sort(FileColumn::kName); }));
  Check(managing.Chosen() == rows - 1, "choice after sorting");
  managing.ChooseAll();
  Show(what + "sort all", Seconds([&] { managing.Sort(FileColumn::kSize); }));
  Check(managing.Chosen() == rows, "all are still chosen");
  Show(what + "choose one instead", Seconds([&] { managing.PressDown(); }));
  Check(managing.Chosen() == 1, "one");
  Show(what + "sort", Seconds([&] { managing.Sort(FileColumn::kModified); }));
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  tarrow::bench::Run(tarrow::bench::IsQuick(argc, argv) ? 1'000 : 100'000);
}
