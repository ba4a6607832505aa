// The frame's files: opened by command, drop, recent list and session, and saved all at once.
#include "edit/documents/file_dialogs.h"
#include "edit/documents/file_edit.h"
#include "framework/file.h"
#include "framework/file_system.h"
#include "framework/unicode.h"
#include "shell/frame.h"
#include "tools/file_dir.h"
#include "ui/commands/commands.h"
#include "ui/program/string_ids.h"

#include <shellapi.h>

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

void CTwFrame::OnNew() {
  WaitState wait(*this);
  CTwFileEdit::New(*this, NewWindowFlags(Settings()));
}

void CTwFrame::OnOpen() {
  std::optional<OpenChoice> choice = RunOpenDialog(Handle(), FileFilter());
  if (!choice) return DirectoryChanged();
  WaitState wait(*this);
  DiskLookup disk;
  CFileDir list(disk);
  list.BuildFromNames(choice->paths);
  while (const std::string* path = list.Next()) OpenFile(*path, choice->readOnly, choice->viewInHex);
}

bool CTwFrame::OpenFile(std::string_view path, bool readOnly, bool hexView) {
  std::uint32_t flags = NewWindowFlags(Settings());
  if (readOnly) flags |= kReadOnly;
  if (hexView) flags |= kViewInHex;
  return OpenFileWithFlags(path, flags);
}

bool CTwFrame::OpenFileWithFlags(std::string_view name, std::uint32_t flags) {
  if (flags & kViewInHex) {
    ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextUnimplemented, {});
    return false;
  }
  try {
    std::string path = FullPathLower(name);
    if (CTwChild* shown = FindChildShowing(*this, path)) {
      ActivateChild(*shown);
      return true;
    }
    if (!FileExists(path) && !CreateNewFile(FullPath(name), (flags & kReadOnly) != 0)) return false;
    if (!CTwFileEdit::Open(*this, path, flags)) return false;
    AddRecentFile(path);
    return true;
  } catch (const CFileException& error) {
    ShowFileError(nullptr, error);
    return false;
  }
}

// Makes an empty file under a name that does not exist yet, if the user wants that.
bool CTwFrame::CreateNewFile(const std::string& path, bool readOnly) {
  if (readOnly) throw CFileException(FileCause::kFileNotFound, path);
  if (ShowMessageBox(nullptr, MB_YESNO | MB_ICONQUESTION, kTextCreateFile, {path}) != IDYES) return false;
  CFile(path, CFile::Mode::kCreateNew, CFile::Share::kNothing).Close();
  return true;
}

void CTwFrame::AddRecentFile(std::string_view path) {
  program_.settings.recentFiles.Add(path);
  menus_.SetRecentFiles(program_.settings.recentFiles.Names());
}

void CTwFrame::OnRecentFile(UINT id) {
  std::vector<std::string> paths = program_.settings.recentFiles.Names();
  if (std::size_t place = id - kRecentFileFirst; place < paths.size()) OpenFile(paths[place], false, false);
}

void CTwFrame::OnDropFiles(HANDLE drop) {
  std::vector<std::string> paths = DroppedFiles(static_cast<HDROP>(drop));
  if (paths.empty()) return;
  {
    WaitState wait(*this);
    for (const std::string& path : paths) OpenFile(path, false, false);
  }
  if (::IsIconic(Handle())) ::ShowWindow(Handle(), SW_RESTORE);
}

void CTwFrame::OnSaveAll() {
  ForEachChild([](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    return !child || child->QuerySave(0);
  });
}

bool CTwFrame::CanSaveAll() const {
  return !ForEachChild([](CMDIChildWnd& window) {
    auto* child = dynamic_cast<CTwChild*>(&window);
    return !child || !child->Has(kModified);
  });
}

}  // namespace tarrow
