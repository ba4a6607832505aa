#include "shell/commands/open_files.h"

#include "base/path_text.h"
#include "edit/documents/file_dialogs.h"
#include "edit/documents/file_edit.h"
#include "edit/documents/log.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "shell/commands/document_forms.h"
#include "tools/file_lists/file_dir.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <shellapi.h>

#include <optional>
#include <utility>
#include <vector>

namespace tarrow {
namespace {

// The files of a drop, released with it.
std::vector<std::string> DroppedFiles(HDROP drop) {
  std::vector<std::string> paths;
  UINT count = ::DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(::DragQueryFileW(drop, i, nullptr, 0), L'\0');
    ::DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size()) + 1);
    paths.push_back(ToUtf8(path));
  }
  ::DragFinish(drop);
  return paths;
}

}  // namespace

constinit const MessageMap OpenFiles::kMessageMap =
    MessageMap::Make<nullptr, OnCommand<kFileNew, &OpenFiles::OnNew>,
                     OnCommand<kFileOpen, &OpenFiles::OnOpen>,
                     OnCommand<kFileSaveAll, &OpenFiles::OnSaveAll, &OpenFiles::CanSaveAll>,
                     OnCommandRange<kRecentFileFirst, kRecentFileLast, &OpenFiles::OnRecentFile>,
                     On<WM_DROPFILES, &OpenFiles::OnDropFiles>>();

OpenFiles::OpenFiles(const DocumentServices& services, RecentList& recent, MenuBars& menus)
    : services_(services), frame_(services.frame), recent_(recent), menus_(menus) {}

void OpenFiles::OnNew() {
  WaitState wait(services_.waiting);
  CTwFileEdit::New(services_, NewWindowFlags(services_.settings));
}

void OpenFiles::OnOpen() {
  std::optional<OpenChoice> choice = RunOpenDialog(frame_.Handle(), FileFilter(services_.options));
  if (!choice) return;
  WaitState wait(services_.waiting);
  DiskLookup disk;
  CFileDir list(disk);
  list.BuildFromNames(choice->paths);
  DocumentForm form = choice->viewInHex    ? DocumentForm::kHexView
                      : choice->viewAsText ? DocumentForm::kTextView
                                           : DocumentForm::kEdit;
  while (const std::string* path = list.Next()) OpenWithFlags(*path, NewFlags(choice->readOnly, form));
}

bool OpenFiles::OpenFile(std::string_view path, bool readOnly, bool hexView) {
  return OpenWithFlags(path, NewFlags(readOnly, hexView ? DocumentForm::kHexView : DocumentForm::kEdit));
}

std::uint32_t OpenFiles::NewFlags(bool readOnly, DocumentForm form) const {
  std::uint32_t flags = NewWindowFlags(services_.settings);
  if (readOnly) flags |= kReadOnly;
  return WithForm(flags, form);
}

bool OpenFiles::OpenWithFlags(std::string_view name, std::uint32_t flags) {
  try {
    std::string path = FullPathLower(name);
    if (CTwChild* shown = FindChildShowing(frame_, path)) {
      frame_.ActivateChild(*shown);
      if (ServesFor(*shown, flags)) return true;
      if (!LeavesRoom(*shown)) return false;
    }
    if (path.find_first_of("*?") != std::string::npos) throw CFileException(FileCause::kFileNotFound, path);
    if (!FileExists(path) && !CreateNewFile(FullPath(name), (flags & kReadOnly) != 0)) return false;
    CTwChild* opened = OpenDocument(services_, path, flags);
    if (opened && FormOf(opened->Flags()) == DocumentForm::kEdit) AddRecent(path);
    return opened != nullptr;
  } catch (const CFileException& error) {
    services_.messages.ShowFileError(nullptr, error);
    return false;
  }
}

// One window a file: the one that shows it in another form is closed, after its question.
bool OpenFiles::LeavesRoom(CTwChild& shown) {
  if (!shown.QuerySave(kTextSaveBeforeClosing)) return false;
  ::SendMessageW(frame_.Client(), WM_MDIDESTROY, reinterpret_cast<WPARAM>(shown.Handle()), 0);
  return true;
}

// Makes an empty file under a name that does not exist yet, if the user wants that.
bool OpenFiles::CreateNewFile(const std::string& path, bool readOnly) {
  if (readOnly) throw CFileException(FileCause::kFileNotFound, path);
  int answer =
      services_.messages.ShowMessageBox(nullptr, MB_YESNO | MB_ICONQUESTION, kTextCreateFile, {path});
  if (answer != IDYES) return false;
  CFile(path, CFile::Mode::kCreateNew, CFile::Share::kNothing).Close();
  return true;
}

void OpenFiles::AddRecent(const std::string& path) {
  recent_.Add(path);
  ShowRecentFiles();
}

void OpenFiles::OnRecentFile(UINT id) {
  std::vector<std::string> paths = recent_.Names();
  if (std::size_t place = id - kRecentFileFirst; place < paths.size()) OpenFile(paths[place], false, false);
}

void OpenFiles::OnDropFiles(HANDLE drop) {
  std::vector<std::string> paths = DroppedFiles(static_cast<HDROP>(drop));
  if (paths.empty()) return;
  {
    WaitState wait(services_.waiting);
    for (const std::string& path : paths) OpenFile(path, false, false);
  }
  if (::IsIconic(frame_.Handle())) ::ShowWindow(frame_.Handle(), SW_RESTORE);
}

void OpenFiles::OnSaveAll() {
  frame_.ForEachChild([](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    return !child || child->QuerySave(0);
  });
}

bool OpenFiles::CanSaveAll() const {
  return !frame_.ForEachChild([](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    return !child || !child->Has(kModified);
  });
}

bool OpenFiles::OfferToSave(int message) {
  return frame_.ForEachChild([message](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    return !child || child->Has(kUntitled) || child->QuerySave(message);
  });
}

bool OpenFiles::OfferToSaveFile(std::string_view path, int message) {
  CTwChild* child = FindChildShowing(frame_, LowerCase(path));
  return !child || child->QuerySave(message);
}

void OpenFiles::FollowFile(std::string_view from, std::string_view to) {
  CTwChild* child = FindChildShowing(frame_, LowerCase(from));
  if (!child) return;
  child->FollowFile(LowerCase(to));
  if (FormOf(child->Flags()) == DocumentForm::kEdit) AddRecent(child->Path());
}

void OpenFiles::FileIsOurs(std::string_view path) {
  if (auto* edit = dynamic_cast<CTwFileEdit*>(FindChildShowing(frame_, LowerCase(path))))
    edit->TakeFileAsKnown();
}

CTwChild* OpenFiles::ActiveDocument() const {
  return dynamic_cast<CTwChild*>(frame_.ActiveChild());
}

TextControl* OpenFiles::ActiveText() const {
  auto* edit = dynamic_cast<CTwFileEdit*>(frame_.ActiveChild());
  return edit ? &edit->Control() : nullptr;
}

CTwLog* OpenFiles::NewResultWindow(std::string_view title, PlaceFinder finder) {
  return CTwLog::New(services_, std::string(title), std::move(finder));
}

// A view of the text in which the line can be shown is good enough; an address calls for a view of the bytes.
bool OpenFiles::OpenAt(const SourcePlace& place, std::string_view directory) {
  try {
    std::string path = FullPathLower(PathFrom(directory, place.name));
    const CTwChild* shown = FindChildShowing(frame_, path);
    if (!shown && !FileExists(path)) throw CFileException(FileCause::kFileNotFound, path);
    bool isShownAsText = shown && FormOf(shown->Flags()) == DocumentForm::kTextView;
    DocumentForm form = place.isAddress ? DocumentForm::kHexView
                        : isShownAsText ? DocumentForm::kTextView
                                        : DocumentForm::kEdit;
    if (!OpenWithFlags(path, NewFlags(false, form))) return false;
  } catch (const CFileException& error) {
    services_.messages.ShowFileError(nullptr, error);
    return false;
  }
  CTwChild* document = ActiveDocument();
  return document && GoToPlace(*document, place);
}

}  // namespace tarrow
