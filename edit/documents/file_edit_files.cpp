// The files of an edit window: loading, saving, merging in another.
#include "base/path_text.h"
#include "base/progress_bytes.h"
#include "edit/documents/file_dialogs.h"
#include "edit/documents/file_edit.h"
#include "edit/files/file_save.h"
#include "edit/files/look_at_file.h"
#include "edit/files/safe_save.h"
#include "edit/files/save_disk.h"
#include "framework/directories.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"

#include <new>

namespace tarrow {
namespace {

constexpr UINT kYesNo = MB_YESNO | MB_ICONQUESTION;
constexpr int kStatusSeconds = 5;

void ReportCancelled(const DocumentServices& program) {
  program.messages.Alert(MB_ICONEXCLAMATION);
  program.status.ShowStatusId(kTextCancelled, kStatusSeconds);
}

// Asks the user about the contents of a file that is being loaded; above the box that shows it, if there is
// one.
class AskUser final : public LoadQuestions {
 public:
  AskUser(Messages& messages, const CWnd& box, const std::string& path)
      : messages_(messages), box_(box), path_(path) {}

  bool AcceptControlByte(unsigned char byte) override {
    return messages_.ShowMessageBox(box_.Handle(), kYesNo, kTextNonAnsi, {byte, path_}) == IDYES;
  }
  bool AcceptLineEnds() override {
    return messages_.ShowMessageBox(box_.Handle(), kYesNo, kTextBadTerminators, {path_}) == IDYES;
  }

 private:
  Messages& messages_;
  const CWnd& box_;
  const std::string& path_;
};

// Loads a file and tells the user why when that fails, except for a file that does not fit: then it throws
// CMemoryException. `look`: what the file was that was loaded, nobody writing to it meanwhile.
std::optional<LoadedText> LoadFile(const DocumentServices& program, const std::string& path,
                                   std::int64_t maxSize, FileLook* look = nullptr) {
  try {
    CFile file(path, CFile::Mode::kRead, CFile::Share::kRead);
    if (look) *look = LookAtFile(path);
    CProgressBox box(program.frame.Handle(), FormatTextResource(kTextLoading, {path}));
    box.SetWhole(static_cast<std::int64_t>(file.Size()));
    ProgressSource source(file, box);
    AskUser ask(program.messages, box, path);
    return LoadText(source, maxSize, ask);
  } catch (const CFileException& error) {
    program.messages.ShowFileError(nullptr, error);
  } catch (const CYieldException&) {
    ReportCancelled(program);
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
  return {};
}

}  // namespace

CTwFileEdit* CTwFileEdit::Open(const DocumentServices& program, const std::string& path,
                               std::uint32_t flags) {
  FileLook look;
  std::optional<LoadedText> loaded = LoadFile(program, path, kMaxTextSize, &look);
  if (!loaded) return nullptr;
  auto* window = new CTwFileEdit(program, flags);  // belongs to its window
  window->SetPath(path);
  if (!window->CreateEdit()) return nullptr;
  window->control_.Adopt(std::move(loaded->text));
  window->format_ = loaded->format;
  window->file_.Take(look);
  window->OnCaretMoved();
  window->ShowOpened();
  return window;
}

// The caret and the view stay, where the new text allows. What there was to undo was of another text.
void CTwFileEdit::Reload() {
  try {
    FileLook look;
    std::optional<LoadedText> loaded = LoadFile(Program(), Path(), kMaxTextSize, &look);
    if (!loaded) return;
    control_.AdoptInPlace(std::move(loaded->text));
    format_ = loaded->format;
    file_.Take(look);
    ShowModified(false);
    OnCaretMoved();
    ShowOpened();
  } catch (const CMemoryException&) {
    Program().messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextNoMemoryForFile, {Path()});
  }
}

std::string CTwFileEdit::FileStats() const {
  const TextBuffer& text = control_.Buffer();
  return FormatTextResource(kTextFileStats, {Path(), text.Size(), text.LineCount().value});
}

void CTwFileEdit::OnFileStats() {
  Program().status.ShowStatus(FileStats(), kStatusSeconds);
}

// Who opens a file that cannot be saved had better know it before he changes its text.
void CTwFileEdit::ShowOpened() {
  auto status = GetFileStatus(Path());
  bool isReadOnly = status && (status->attributes & kAttributeReadOnly);
  Program().status.ShowStatus(isReadOnly ? FormatTextResource(kTextReadOnlyFile, {FileStats()}) : FileStats(),
                              kStatusSeconds);
}

void CTwFileEdit::OnSave() {
  if (!Has(kModified))
    Alert(MB_ICONEXCLAMATION);
  else
    Has(kUntitled) ? SaveAs() : Save();
}

void CTwFileEdit::OnSaveAs() {
  SaveAs();
}

bool CTwFileEdit::SaveAs() {
  std::string name(FileNamePart(Path()));
  std::optional<SaveChoice> choice = RunSaveAsDialog(Frame().Handle(), name, format_);
  if (!choice) {
    return false;
  }
  try {
    std::string path = FullPathLower(choice->path);
    if (CTwChild* other = FindChildShowing(Frame(), path); other && other != this) {
      Program().messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextOpenElsewhere, {path});
      return false;
    }
    return SaveUnder(path, choice->path, choice->format);
  } catch (const CFileException& error) {
    Program().messages.ShowFileError(nullptr, error);
    return false;
  }
}

// The window takes the new name first; a write that fails gives everything back.
bool CTwFileEdit::SaveUnder(const std::string& path, const std::string& nameOnDisk, FileFormat format) {
  std::uint32_t oldFlags = Flags();
  std::string oldPath = Path();
  FileFormat oldFormat = std::exchange(format_, format);
  ShowModified(true);  // so that the text is written in any case
  SetPath(path);
  if (WriteFile(nameOnDisk)) {
    ChangeWorkingDirectory(Directory());
    return true;
  }
  format_ = oldFormat;
  if (oldFlags & kUntitled)
    SetUntitled(oldPath);
  else
    SetPath(oldPath);
  ShowModified((oldFlags & kModified) != 0);
  return false;
}

bool CTwFileEdit::WriteFile(const std::string& path) {
  if (!Has(kModified)) return true;
  if (!WriteText(path, format_)) return false;
  TakeFileAsKnown();
  SetModified(false);
  OnFileStats();
  return true;
}

bool CTwFileEdit::WriteText(const std::string& path, FileFormat format) {
  WaitState wait(Program().waiting);
  SaveOptions options;
  options.backup = Program().settings.Has(kCreateBackups);
  options.backupFailed = [this](const CFileException& error) {
    Program().messages.ShowFileError(nullptr, error);
  };
  CProgressBox box(Frame().Handle(), FormatTextResource(kTextSaving, {path}));
  box.SetWhole(control_.Buffer().Size());
  try {
    WindowsSaveDisk disk;
    SafeSave(disk, path, options, [&](ByteSink& out) {
      ProgressSink shown(out, box);
      SaveText(control_.View(), format, shown);
    });
    return true;
  } catch (const CFileException& error) {
    Program().messages.ShowFileError(nullptr, CFileException(error.Cause(), LowerCase(path)));
  } catch (const CYieldException&) {
    ReportCancelled(Program());
  }
  return false;
}

// Paste File: as loading, into the text at the caret.
void CTwFileEdit::OnMerge() {
  if (Has(kReadOnly)) return Alert(MB_ICONEXCLAMATION);
  std::optional<std::string> path =
      RunPickFileDialog(Frame().Handle(), "Paste File", FileFilter(Program().options));
  if (!path) return;
  WaitState wait(Program().waiting);
  try {
    std::optional<LoadedText> loaded = LoadFile(Program(), *path, kMaxTextSize - control_.Buffer().Size());
    if (loaded) control_.Insert(loaded->text.Contiguous(), Charset::Of(loaded->text.View()));
  } catch (const CMemoryException&) {
    Program().messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextNoMemoryForFile, {*path});
  }
}

}  // namespace tarrow
