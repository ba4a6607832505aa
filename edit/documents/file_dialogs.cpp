#include "edit/documents/file_dialogs.h"

#include "framework/com_ptr.h"
#include "framework/directories.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "ui/program/string_ids.h"

#include <shobjidl.h>

namespace tarrow {
namespace {

constexpr DWORD kHexBox = 1, kReadOnlyBox = 2, kFormatGroup = 3, kFormatList = 4, kTextBox = 5;

constexpr int kFormatNames[] = {kTextFormatDos, kTextFormatUnix, kTextFormatMac};

std::string PathOf(IShellItem& item) {
  wchar_t* name = nullptr;
  if (FAILED(item.GetDisplayName(SIGDN_FILESYSPATH, &name))) return {};
  std::string path = ToUtf8(name);
  ::CoTaskMemFree(name);
  return path;
}

void SetFilter(IFileDialog& dialog, std::string_view filter) {
  std::vector<std::wstring> fields;
  for (std::size_t bar; (bar = filter.find('|')) != std::string_view::npos; filter.remove_prefix(bar + 1))
    fields.push_back(ToWide(filter.substr(0, bar)));
  std::vector<COMDLG_FILTERSPEC> types;
  for (std::size_t i = 0; i + 1 < fields.size(); i += 2)
    types.push_back({fields[i].c_str(), fields[i + 1].c_str()});
  if (!types.empty()) dialog.SetFileTypes(static_cast<UINT>(types.size()), types.data());
}

// What stands under a path, or null.
ComPtr<IShellItem> ItemOf(std::string_view path) {
  IShellItem* item = nullptr;
  ::SHCreateItemFromParsingName(ToWide(path).c_str(), nullptr, IID_IShellItem,
                                reinterpret_cast<void**>(&item));
  return ComPtr<IShellItem>(item);
}

// What the dialogs share: the current directory, the file types, and names on a disk only.
void Prepare(IFileDialog& dialog, std::string_view filter, FILEOPENDIALOGOPTIONS set,
             FILEOPENDIALOGOPTIONS clear) {
  FILEOPENDIALOGOPTIONS options = 0;
  dialog.GetOptions(&options);
  dialog.SetOptions((options & ~clear) | set | FOS_FORCEFILESYSTEM | FOS_NOCHANGEDIR);
  SetFilter(dialog, filter);
  if (ComPtr<IShellItem> folder = ItemOf(WorkingDirectory())) dialog.SetFolder(folder.get());
}

std::vector<std::string> Results(IFileOpenDialog& dialog) {
  std::vector<std::string> paths;
  IShellItemArray* array = nullptr;
  if (FAILED(dialog.GetResults(&array))) return paths;
  ComPtr<IShellItemArray> items(array);
  DWORD count = 0;
  items->GetCount(&count);
  for (DWORD i = 0; i < count; ++i) {
    IShellItem* item = nullptr;
    if (FAILED(items->GetItemAt(i, &item))) continue;
    ComPtr<IShellItem> owned(item);
    if (std::string path = PathOf(*item); !path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

bool IsChecked(IFileDialogCustomize& controls, DWORD id) {
  BOOL checked = FALSE;
  controls.GetCheckButtonState(id, &checked);
  return checked != FALSE;
}

// Existing files, in a dialog of that title.
std::vector<std::string> PickFiles(HWND owner, std::string_view title, std::string_view filter,
                                   FILEOPENDIALOGOPTIONS set) {
  auto dialog = CreateComObject<IFileOpenDialog>(CLSID_FileOpenDialog);
  if (!dialog) return {};
  Prepare(*dialog, filter, FOS_FILEMUSTEXIST | set, FOS_ALLOWMULTISELECT & ~set);
  dialog->SetTitle(ToWide(title).c_str());
  return SUCCEEDED(dialog->Show(owner)) ? Results(*dialog) : std::vector<std::string>();
}

}  // namespace

std::string FileFilter(const ProjectOptions& options) {
  std::string filter = options.Option(kOptionFileFilter);
  return filter.empty() ? LoadText(kTextAllFilesFilter) : filter;
}

std::optional<OpenChoice> RunOpenDialog(HWND owner, std::string_view filter) {
  auto dialog = CreateComObject<IFileOpenDialog>(CLSID_FileOpenDialog);
  if (!dialog) return {};
  Prepare(*dialog, filter, FOS_ALLOWMULTISELECT, FOS_FILEMUSTEXIST);
  auto controls = QueryInterfaceOf<IFileDialogCustomize>(*dialog);
  if (controls) {
    controls->AddCheckButton(kHexBox, L"View in He&x", FALSE);
    controls->AddCheckButton(kTextBox, L"View as &Text", FALSE);
    controls->AddCheckButton(kReadOnlyBox, L"&Read Only", FALSE);
  }
  if (FAILED(dialog->Show(owner))) return {};
  OpenChoice choice{Results(*dialog)};
  if (controls) {
    choice.viewInHex = IsChecked(*controls, kHexBox);
    choice.viewAsText = !choice.viewInHex && IsChecked(*controls, kTextBox);
    choice.readOnly = IsChecked(*controls, kReadOnlyBox);
  }
  return choice;
}

std::vector<std::string> RunPickFilesDialog(HWND owner, std::string_view title, std::string_view filter) {
  return PickFiles(owner, title, filter, FOS_ALLOWMULTISELECT);
}

std::optional<std::string> RunPickFileDialog(HWND owner, std::string_view title, std::string_view filter) {
  std::vector<std::string> paths = PickFiles(owner, title, filter, 0);
  if (paths.empty()) return {};
  return paths.front();
}

std::optional<std::string> RunPickDirectoryDialog(HWND owner, std::string_view title,
                                                  std::string_view start) {
  auto dialog = CreateComObject<IFileOpenDialog>(CLSID_FileOpenDialog);
  if (!dialog) return {};
  Prepare(*dialog, {}, FOS_PICKFOLDERS | FOS_PATHMUSTEXIST, FOS_ALLOWMULTISELECT);
  if (ComPtr<IShellItem> folder = ItemOf(start)) dialog->SetFolder(folder.get());
  dialog->SetTitle(ToWide(title).c_str());
  if (FAILED(dialog->Show(owner))) return {};
  std::vector<std::string> paths = Results(*dialog);
  if (paths.empty()) return {};
  return paths.front();
}

std::optional<SaveChoice> RunSaveAsDialog(HWND owner, std::string_view name, FileFormat format) {
  auto dialog = CreateComObject<IFileSaveDialog>(CLSID_FileSaveDialog);
  if (!dialog) return {};
  // With any other file type the dialog would add the type's extension to a name that is meant to have none.
  Prepare(*dialog, LoadText(kTextAllFilesFilter), FOS_OVERWRITEPROMPT | FOS_PATHMUSTEXIST,
          FOS_NOREADONLYRETURN);
  dialog->SetFileName(ToWide(name).c_str());
  auto controls = QueryInterfaceOf<IFileDialogCustomize>(*dialog);
  if (controls) {
    controls->StartVisualGroup(kFormatGroup, L"File Format");
    controls->AddComboBox(kFormatList);
    for (DWORD i = 0; i < std::size(kFormatNames); ++i)
      controls->AddControlItem(kFormatList, i, ToWide(LoadText(kFormatNames[i])).c_str());
    controls->SetSelectedControlItem(kFormatList, static_cast<DWORD>(format));
    controls->EndVisualGroup();
  }
  if (FAILED(dialog->Show(owner))) return {};
  IShellItem* item = nullptr;
  if (FAILED(dialog->GetResult(&item))) return {};
  ComPtr<IShellItem> owned(item);
  SaveChoice choice{PathOf(*item), format};
  if (DWORD selected = 0; controls && SUCCEEDED(controls->GetSelectedControlItem(kFormatList, &selected)))
    choice.format = static_cast<FileFormat>(selected);
  if (choice.path.empty()) return {};
  return choice;
}

}  // namespace tarrow
