#include "tools/file_manager/file_manager_dialog.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/words.h"
#include "edit/documents/file_dialogs.h"
#include "framework/dialog_placement.h"
#include "framework/directories.h"
#include "framework/file_system.h"
#include "framework/text_resources.h"
#include "resources/resource.h"
#include "tools/file_manager/operation_desk.h"
#include "tools/file_manager/regional_text.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"

#include <utility>

namespace tarrow {
namespace {

// Posted by the dialog to itself: other files may be chosen. Choosing many may send a notification for each.
constexpr UINT kChoiceChanged = WM_APP + 1;

constexpr UINT_PTR kSumTimer = 1;
constexpr UINT kSumDelay = 200;           // milliseconds
constexpr std::size_t kManyToSum = 2000;  // the list is asked for each of them

constexpr DialogAnchor kAnchors[] = {
    {.id = IDC_MANAGED_DIRECTORY, .growsWide = true},
    {.id = IDC_MANAGED_FILES, .growsWide = true},
    {.id = IDC_MANAGED_BROWSE, .movesRight = true},
    {.id = IDC_MANAGED_REFRESH, .movesRight = true},
    {.id = IDC_MANAGED_LIST, .growsWide = true, .growsHigh = true},
    {.id = IDC_MANAGED_OPEN, .movesRight = true},
    {.id = IDC_MANAGED_COPY, .movesRight = true},
    {.id = IDC_MANAGED_MOVE, .movesRight = true},
    {.id = IDC_MANAGED_RENAME, .movesRight = true},
    {.id = IDC_MANAGED_DELETE, .movesRight = true},
    {.id = IDC_MANAGED_TOUCH, .movesRight = true},
    {.id = IDC_MANAGED_ATTRIBUTES, .movesRight = true},
    {.id = IDCANCEL, .movesRight = true, .movesDown = true},
    {.id = IDC_MANAGED_COUNTS, .movesDown = true, .growsWide = true},
};

constexpr int kFileButtons[] = {IDC_MANAGED_OPEN,      IDC_MANAGED_COPY,   IDC_MANAGED_MOVE,
                                IDC_MANAGED_RENAME,    IDC_MANAGED_DELETE, IDC_MANAGED_TOUCH,
                                IDC_MANAGED_ATTRIBUTES};

}  // namespace

constinit const MessageMap CFileManagerDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, On<WM_SIZE, &CFileManagerDialog::OnSize>,
                     On<WM_GETMINMAXINFO, &CFileManagerDialog::OnGetMinMaxInfo>,
                     On<WM_NOTIFY, &CFileManagerDialog::OnNotifyMessage>,
                     On<kChoiceChanged, &CFileManagerDialog::OnChoiceChanged>,
                     On<WM_TIMER, &CFileManagerDialog::OnTimer>,
                     On<WM_DESTROY, &CFileManagerDialog::OnDestroy>,
                     OnCommand<IDC_MANAGED_REFRESH, &CFileManagerDialog::OnRefresh>,
                     OnCommand<IDC_MANAGED_BROWSE, &CFileManagerDialog::OnBrowse>,
                     OnCommand<IDC_MANAGED_OPEN, &CFileManagerDialog::OnOpenFiles>,
                     OnCommand<IDC_MANAGED_COPY, &CFileManagerDialog::OnCopy>,
                     OnCommand<IDC_MANAGED_MOVE, &CFileManagerDialog::OnMove>,
                     OnCommand<IDC_MANAGED_RENAME, &CFileManagerDialog::OnRename>,
                     OnCommand<IDC_MANAGED_DELETE, &CFileManagerDialog::OnDelete>,
                     OnCommand<IDC_MANAGED_TOUCH, &CFileManagerDialog::OnTouch>,
                     OnCommand<IDC_MANAGED_ATTRIBUTES, &CFileManagerDialog::OnAttributes>>();

CFileManagerDialog::CFileManagerDialog(const FileManagerServices& program, FileManagerState& state,
                                       std::function<void()> closed)
    : CDialog(IDD_FILE_MANAGER), program_(program), state_(state), closed_(std::move(closed)) {}

bool CFileManagerDialog::OnInitDialog() {
  Send(WM_SETICON, ICON_SMALL,
       reinterpret_cast<LPARAM>(::LoadIconW(ModuleInstance(), MAKEINTRESOURCEW(IDI_TARROW))));
  list_.Attach(Item(IDC_MANAGED_LIST));
  layout_.Begin(Handle(), kAnchors);
  if (const auto& place = state_.place) {
    ::SetWindowPos(Handle(), nullptr, static_cast<int>(place->left), static_cast<int>(place->top),
                   static_cast<int>(place->right - place->left), static_cast<int>(place->bottom - place->top),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    KeepPlace(Handle());
  }
  if (state_.directory.empty() || !IsDirectory(state_.directory)) state_.directory = WorkingDirectory();
  SetItemText(IDC_MANAGED_DIRECTORY, state_.directory);
  SetItemText(IDC_MANAGED_FILES, state_.patterns);
  ListAgain();
  FocusItem(IDC_MANAGED_LIST);
  return false;
}

void CFileManagerDialog::OnSize(UINT kind, int width, int height) {
  if (kind != SIZE_MINIMIZED) layout_.Arrange(width, height);
}

LRESULT CFileManagerDialog::OnGetMinMaxInfo(WPARAM, LPARAM l) {
  layout_.Limit(*reinterpret_cast<MINMAXINFO*>(l));
  return 0;
}

void CFileManagerDialog::OnDestroy() {
  RECT place{};
  if (::GetWindowRect(Handle(), &place) && !::IsZoomed(Handle())) state_.place = place;
  if (closed_) std::exchange(closed_, nullptr)();
  Default();
}

LRESULT CFileManagerDialog::OnNotifyMessage(WPARAM, LPARAM l) {
  const auto& header = *reinterpret_cast<const NMHDR*>(l);
  LRESULT result = 0;
  if (list_.OnNotify(header, l, result) || header.hwndFrom != list_.Handle()) return result;
  switch (header.code) {
    case LVN_ITEMCHANGED:
    case LVN_ODSTATECHANGED:
    case NM_CLICK:
    case NM_RELEASEDCAPTURE:
      ChoiceChanges();
      break;
    case LVN_KEYDOWN:
      OnListKey(reinterpret_cast<const NMLVKEYDOWN*>(l)->wVKey);
      break;
    case NM_DBLCLK:
      OnOpenFiles();
      break;
    case NM_SETFOCUS:
      SetDefaultButton(IDC_MANAGED_OPEN);
      break;
    case NM_KILLFOCUS:
      SetDefaultButton(IDC_MANAGED_REFRESH);
      break;
    default:
      break;
  }
  return result;
}

// What may be a hundred thousand changes begins, or is about to: they are waited for, then counts and list
// are shown. Wine's list has each row drawn by itself that is no longer chosen, and tells of all of them when
// that is over; of the key or the button that is the cause it tells before.
void CFileManagerDialog::ChoiceChanges() {
  if (std::exchange(countsAreOld_, true)) return;
  list_.HoldDrawing();
  Post(kChoiceChanged);
}

void CFileManagerDialog::OnListKey(UINT key) {
  if (key == VK_DELETE) return Delete(::GetKeyState(VK_SHIFT) < 0 ? Removal::kForGood : Removal::kRecycle);
  if (key == VK_F2) return OnRename();
  if (key == VK_F5) return OnRefresh();
  if (key == 'A' && ::GetKeyState(VK_CONTROL) < 0) return list_.ChooseAll();
  ChoiceChanges();
}

// What Enter presses: it goes with the focus.
void CFileManagerDialog::SetDefaultButton(int id) {
  int other = id == IDC_MANAGED_OPEN ? IDC_MANAGED_REFRESH : IDC_MANAGED_OPEN;
  Send(DM_SETDEFID, static_cast<WPARAM>(id));
  ::SendMessageW(Item(other), BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
  ::SendMessageW(Item(id), BM_SETSTYLE, BS_DEFPUSHBUTTON, TRUE);
}

// The fields hold after a failure what the user typed.
void CFileManagerDialog::OnRefresh() {
  std::string directory = ItemText(IDC_MANAGED_DIRECTORY), patterns = ItemText(IDC_MANAGED_FILES);
  if (directory.empty()) directory = WorkingDirectory();
  if (SplitWords(patterns).empty()) patterns = "*.*";
  if (!List(directory, patterns)) return;
  SetItemText(IDC_MANAGED_DIRECTORY, state_.directory);
  SetItemText(IDC_MANAGED_FILES, state_.patterns);
}

bool CFileManagerDialog::List(const std::string& directory, const std::string& patterns) {
  try {
    std::string full = FullPath(directory);
    if (!IsDirectory(WithoutTrailingSeparators(full))) throw CFileException(FileCause::kBadPath, full);
    return Show(std::string(WithoutTrailingSeparators(full)), patterns);
  } catch (const CFileException&) {
    program_.messages.ShowMessageBox(Handle(), MB_ICONSTOP, kTextBadPath);
    FocusItem(IDC_MANAGED_DIRECTORY);
    return false;
  }
}

// Shows the files of the directory and patterns last listed as they are now.
void CFileManagerDialog::ListAgain() {
  Show(state_.directory, state_.patterns);
}

// Lists the files of a directory. False when the user cancels it: the list stays as it was.
bool CFileManagerDialog::Show(const std::string& directory, const std::string& patterns) {
  try {
    std::vector<ListedFile> files = Find(directory, patterns);
    state_.directory = directory;
    state_.patterns = patterns;
    list_.Show(std::move(files), directory);
    ShowCounts();
    return true;
  } catch (const CYieldException&) {
    TellCancelled(program_.messages, program_.status);
    return false;
  }
}

std::vector<ListedFile> CFileManagerDialog::Find(const std::string& directory, const std::string& patterns) {
  std::vector<std::string> names = SplitWords(patterns);
  names.insert(names.begin(), directory);
  WaitState wait(program_.waiting);
  HWND owner = ::IsWindowVisible(Handle()) ? Handle() : program_.frame.Handle();
  CProgressBox box(owner, FormatTextResource(kTextListing, {directory}));
  DiskLookup disk;
  CFileDir files(disk, &box);
  box.SetCounts([&] { return FormatTextResource(kTextManyFiles, {files.Files().size()}); });
  files.BuildFromNames(names);
  return files.TakeFiles();
}

void CFileManagerDialog::OnBrowse() {
  auto directory = RunPickDirectoryDialog(Handle(), LoadText(kTextBrowse), ItemText(IDC_MANAGED_DIRECTORY));
  if (directory) {
    SetItemText(IDC_MANAGED_DIRECTORY, *directory);
    OnRefresh();
  }
  FocusItem(IDC_MANAGED_DIRECTORY);
}

LRESULT CFileManagerDialog::OnChoiceChanged(WPARAM, LPARAM) {
  list_.DrawAgain();
  ShowCounts();
  return 0;
}

// The sizes of very many files are summed once the user pauses: not at each key that chooses one more.
void CFileManagerDialog::OnTimer(UINT_PTR id) {
  ::KillTimer(Handle(), id);
  ShowChosen(true);
}

void CFileManagerDialog::ShowCounts() {
  std::size_t chosen = list_.ChosenCount();
  bool isQuick = chosen < kManyToSum || chosen == list_.Table().Size();
  if (!isQuick) ::SetTimer(Handle(), kSumTimer, kSumDelay, nullptr);
  ShowChosen(isQuick);
}

void CFileManagerDialog::ShowChosen(bool withBytes) {
  countsAreOld_ = false;
  const FileTable& table = list_.Table();
  std::size_t chosen = list_.ChosenCount();
  std::string text;
  if (chosen == 0)
    text = FormatTextResource(kTextListedFiles, {table.Size(), CountText(table.TotalSize())});
  else if (withBytes)
    text = FormatTextResource(kTextChosenFiles, {chosen, table.Size(), CountText(list_.ChosenBytes())});
  else
    text = FormatTextResource(kTextChosenManyFiles, {chosen, table.Size()});
  SetItemText(IDC_MANAGED_COUNTS, text);
  for (int button : kFileButtons) EnableItem(button, chosen > 0);
}

}  // namespace tarrow
