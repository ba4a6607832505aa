#include "tools/file_manager/file_prompts.h"

#include "base/file_lookup.h"
#include "edit/documents/file_dialogs.h"
#include "resources/resource.h"

#include <commctrl.h>

#include <utility>

namespace tarrow {
namespace {

// 100 nanoseconds since 1601, UTC, as local time and back.
SYSTEMTIME LocalTimeOf(std::uint64_t time) {
  FILETIME file{static_cast<DWORD>(time), static_cast<DWORD>(time >> 32)};
  SYSTEMTIME universal{}, local{};
  ::FileTimeToSystemTime(&file, &universal);
  ::SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
  return local;
}

std::uint64_t TimeOf(const SYSTEMTIME& local) {
  SYSTEMTIME universal{};
  FILETIME file{};
  ::TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal);
  ::SystemTimeToFileTime(&universal, &file);
  return static_cast<std::uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
}

std::uint64_t Now() {
  FILETIME file{};
  ::GetSystemTimeAsFileTime(&file);
  return static_cast<std::uint64_t>(file.dwHighDateTime) << 32 | file.dwLowDateTime;
}

struct AttributeBox {
  int id;
  std::uint32_t attribute;
};
constexpr AttributeBox kAttributeBoxes[] = {{IDC_READ_ONLY, kAttributeReadOnly},
                                            {IDC_ARCHIVE, kAttributeArchive}};

}  // namespace

constinit const MessageMap CTargetDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDC_TARGET_BROWSE, &CTargetDialog::OnBrowse>,
                     OnNotify<IDC_TARGET_PATH, EN_CHANGE, &CTargetDialog::OnTargetChanged>>();

CTargetDialog::CTargetDialog(std::string title, std::string subject, std::string directory)
    : CDialog(IDD_FILE_TARGET),
      title_(std::move(title)),
      subject_(std::move(subject)),
      directory_(std::move(directory)) {}

std::span<const DialogField> CTargetDialog::Fields() const {
  static constexpr DialogField kFields[] = {TextField<&CTargetDialog::target>(IDC_TARGET_PATH)};
  return kFields;
}

bool CTargetDialog::OnInitDialog() {
  SetText(title_);
  SetItemText(IDC_TARGET_LABEL, subject_);
  OnTargetChanged();
  return true;
}

void CTargetDialog::OnTargetChanged() {
  EnableItem(IDOK, !ItemText(IDC_TARGET_PATH).empty());
}

void CTargetDialog::OnBrowse() {
  if (auto path = RunPickDirectoryDialog(Handle(), title_, directory_)) SetItemText(IDC_TARGET_PATH, *path);
  FocusItem(IDC_TARGET_PATH);
}

CRenameDialog::CRenameDialog(std::string subject) : CDialog(IDD_FILE_RENAME), subject_(std::move(subject)) {}

std::span<const DialogField> CRenameDialog::Fields() const {
  static constexpr DialogField kFields[] = {TextField<&CRenameDialog::from>(IDC_RENAME_FROM),
                                            TextField<&CRenameDialog::to>(IDC_RENAME_TO)};
  return kFields;
}

// The new name is what is to be typed, and of that mostly what stands before the dot.
bool CRenameDialog::OnInitDialog() {
  SetItemText(IDC_RENAME_LABEL, subject_);
  FocusItem(IDC_RENAME_TO);
  std::wstring name(to.size() + 1, L'\0');
  int length = ::GetDlgItemTextW(Handle(), IDC_RENAME_TO, name.data(), static_cast<int>(name.size()));
  std::size_t dot = name.rfind(L'.');
  WPARAM stem = dot == std::wstring::npos || dot == 0 ? static_cast<WPARAM>(length) : dot;
  ::SendMessageW(Item(IDC_RENAME_TO), EM_SETSEL, 0, static_cast<LPARAM>(stem));
  return false;
}

constinit const MessageMap CTouchDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDC_TOUCH_NOW, &CTouchDialog::OnWhen>,
                     OnCommand<IDC_TOUCH_TIME, &CTouchDialog::OnWhen>>();

CTouchDialog::CTouchDialog(std::string subject, std::uint64_t time)
    : CDialog(IDD_FILE_TOUCH), subject_(std::move(subject)), time_(time) {}

bool CTouchDialog::OnInitDialog() {
  SetItemText(IDC_TOUCH_LABEL, subject_);
  CheckItem(IDC_TOUCH_NOW, true);
  SYSTEMTIME local = LocalTimeOf(time_);
  for (int picker : {IDC_TOUCH_DATE_PICKER, IDC_TOUCH_TIME_PICKER})
    ::SendMessageW(Item(picker), DTM_SETSYSTEMTIME, GDT_VALID, reinterpret_cast<LPARAM>(&local));
  OnWhen();
  return true;
}

void CTouchDialog::OnWhen() {
  for (int picker : {IDC_TOUCH_DATE_PICKER, IDC_TOUCH_TIME_PICKER})
    EnableItem(picker, ItemChecked(IDC_TOUCH_TIME));
}

void CTouchDialog::OnOk() {
  SYSTEMTIME date{}, clock{};
  ::SendMessageW(Item(IDC_TOUCH_DATE_PICKER), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&date));
  ::SendMessageW(Item(IDC_TOUCH_TIME_PICKER), DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&clock));
  SYSTEMTIME local{date.wYear, date.wMonth, 0, date.wDay, clock.wHour, clock.wMinute, clock.wSecond, 0};
  time_ = ItemChecked(IDC_TOUCH_NOW) ? Now() : TimeOf(local);
  Close(IDOK);
}

CAttributesDialog::CAttributesDialog(std::string subject, std::uint32_t all, std::uint32_t any)
    : CDialog(IDD_FILE_ATTRIBUTES), subject_(std::move(subject)), all_(all), any_(any) {}

bool CAttributesDialog::OnInitDialog() {
  SetItemText(IDC_ATTRIBUTES_LABEL, subject_);
  for (auto [id, attribute] : kAttributeBoxes)
    ::CheckDlgButton(Handle(), id,
                     all_ & attribute   ? BST_CHECKED
                     : any_ & attribute ? BST_INDETERMINATE
                                        : BST_UNCHECKED);
  return true;
}

void CAttributesDialog::OnOk() {
  for (auto [id, attribute] : kAttributeBoxes) {
    UINT state = ::IsDlgButtonChecked(Handle(), id);
    if (state == BST_CHECKED) set_ |= attribute;
    if (state == BST_UNCHECKED) clear_ |= attribute;
  }
  Close(IDOK);
}

}  // namespace tarrow
