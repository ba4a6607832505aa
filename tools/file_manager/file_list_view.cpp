#include "tools/file_manager/file_list_view.h"

#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "tools/file_manager/regional_text.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace tarrow {
namespace {

// Widths in hundredths of the control's.
constexpr int kColumnWidths[kFileColumnCount] = {42, 16, 27, 15};

constexpr auto kEveryRow = static_cast<std::size_t>(-1);

bool IsNumber(FileColumn column) {
  return column == FileColumn::kSize;
}

}  // namespace

void FileListView::Attach(HWND control) {
  control_ = control;
  constexpr DWORD kStyle = LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP;
  ::SendMessageW(control_, LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, kStyle);
  RECT client{};
  ::GetClientRect(control_, &client);
  int width = static_cast<int>(client.right) - ::GetSystemMetrics(SM_CXVSCROLL);
  std::wstring heads = ToWide(LoadText(kTextManagedColumns));
  for (int i = 0; i < kFileColumnCount; ++i) {
    std::wstring head = heads.substr(0, heads.find(L'|'));
    heads.erase(0, head.size() + 1);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = IsNumber(static_cast<FileColumn>(i)) ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.cx = width * kColumnWidths[i] / 100;
    column.pszText = head.data();
    column.iSubItem = i;
    ::SendMessageW(control_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
  ShowSortArrow();
}

void FileListView::Show(std::vector<ListedFile> files, std::string_view directory) {
  Choice choice = TakeChoice();
  HoldDrawing();
  table_.Assign(std::move(files), directory);
  ::SendMessageW(control_, LVM_SETITEMCOUNT, table_.Size(), 0);
  Restore(choice);
  DrawAgain();
}

// The control is asked row by row only where it has to be.
std::vector<std::size_t> FileListView::ChosenRows() const {
  std::size_t count = ChosenCount();
  if (count == table_.Size()) return EveryRow();
  std::vector<std::size_t> rows;
  LRESULT row = -1;
  while (rows.size() < count) {
    row = ::SendMessageW(control_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
    if (row < 0 || static_cast<std::size_t>(row) >= table_.Size()) break;
    rows.push_back(static_cast<std::size_t>(row));
  }
  return rows;
}

std::vector<std::size_t> FileListView::EveryRow() const {
  std::vector<std::size_t> rows(table_.Size());
  std::iota(rows.begin(), rows.end(), std::size_t{0});
  return rows;
}

std::vector<std::string> FileListView::ChosenPaths() const {
  std::vector<std::string> paths;
  for (std::size_t row : ChosenRows()) paths.push_back(table_.Path(row));
  return paths;
}

std::size_t FileListView::ChosenCount() const {
  return static_cast<std::size_t>(::SendMessageW(control_, LVM_GETSELECTEDCOUNT, 0, 0));
}

std::uint64_t FileListView::ChosenBytes() const {
  if (ChosenCount() == table_.Size()) return table_.TotalSize();
  std::uint64_t bytes = 0;
  for (std::size_t row : ChosenRows()) bytes += table_[row].entry.size;
  return bytes;
}

// Wine has each row drawn by itself, where the list is drawn.
void FileListView::ChooseAll() const {
  HoldDrawing();
  SetState(kEveryRow, LVIS_SELECTED, LVIS_SELECTED);
  DrawAgain();
}

void FileListView::HoldDrawing() const {
  ::SendMessageW(control_, WM_SETREDRAW, FALSE, 0);
}

void FileListView::DrawAgain() const {
  ::SendMessageW(control_, WM_SETREDRAW, TRUE, 0);
  ::InvalidateRect(control_, nullptr, TRUE);
}

void FileListView::SetState(std::size_t row, UINT state, UINT mask) const {
  LVITEMW item{};
  item.state = state;
  item.stateMask = mask;
  ::SendMessageW(control_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

FileListView::Choice FileListView::TakeChoice() const {
  Choice choice;
  for (std::size_t row : ChosenRows()) choice.paths.push_back(table_[row].path);
  std::ranges::sort(choice.paths);
  choice.focused = Focused();
  return choice;
}

// The path of the file that has the focus.
std::string FileListView::Focused() const {
  LRESULT row = ::SendMessageW(control_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  return row >= 0 && static_cast<std::size_t>(row) < table_.Size()
             ? table_[static_cast<std::size_t>(row)].path
             : std::string();
}

// Row by row the lesser part of the list, which may have a hundred thousand.
void FileListView::Restore(const Choice& choice) const {
  std::vector<std::size_t> rows = table_.RowsOf(choice.paths);
  bool areMost = rows.size() > table_.Size() / 2;
  SetState(kEveryRow, areMost ? LVIS_SELECTED : 0, LVIS_SELECTED);
  ChangeChoice(areMost ? EveryRow() : std::vector<std::size_t>(), rows);
  Focus(choice.focused);
}

void FileListView::ChangeChoice(const std::vector<std::size_t>& from,
                                const std::vector<std::size_t>& to) const {
  std::vector<std::size_t> left, added;
  std::ranges::set_difference(from, to, std::back_inserter(left));
  std::ranges::set_difference(to, from, std::back_inserter(added));
  for (std::size_t row : left) SetState(row, 0, LVIS_SELECTED);
  for (std::size_t row : added) SetState(row, LVIS_SELECTED, LVIS_SELECTED);
}

// Puts the focus on a file; on the first when there is no such file any more.
void FileListView::Focus(const std::string& path) const {
  if (table_.Size() == 0) return;
  std::vector<std::size_t> rows = table_.RowsOf({path});
  std::size_t row = rows.empty() ? 0 : rows[0];
  SetState(row, LVIS_FOCUSED, LVIS_FOCUSED);
  ::SendMessageW(control_, LVM_ENSUREVISIBLE, row, FALSE);
}

std::string FileListView::CellText(std::size_t row, FileColumn column) const {
  const DirectoryEntry& file = table_[row].entry;
  switch (column) {
    case FileColumn::kName:
      return table_.Name(row);
    case FileColumn::kSize:
      return CountText(file.size);
    case FileColumn::kModified:
      return TimeText(file.modified);
    default:
      return AttributeLetters(file.attributes);
  }
}

void FileListView::FillIn(LVITEMW& item) {
  auto row = static_cast<std::size_t>(item.iItem);
  if (!(item.mask & LVIF_TEXT) || item.iItem < 0 || row >= table_.Size()) return;
  cell_ = ToWide(CellText(row, static_cast<FileColumn>(item.iSubItem)));
  item.pszText = cell_.data();
}

// The user types the beginning of a name.
int FileListView::Find(const NMLVFINDITEMW& wanted) const {
  if (!(wanted.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || table_.Size() == 0) return -1;
  auto start = static_cast<std::size_t>(std::max(wanted.iStart, 0)) % table_.Size();
  auto row = table_.FindName(ToUtf8(wanted.lvfi.psz), start);
  return row ? static_cast<int>(*row) : -1;
}

void FileListView::SortBy(FileColumn column) {
  std::string focused = Focused();
  std::vector<std::size_t> before = ChosenRows();
  bool descending = column == table_.SortColumn() && !table_.IsDescending();
  std::vector<std::size_t> after = table_.SortBy(column, descending, before);
  ShowSortArrow();
  HoldDrawing();
  ChangeChoice(before, after);
  Focus(focused);
  DrawAgain();
}

void FileListView::ShowSortArrow() const {
  auto head = reinterpret_cast<HWND>(::SendMessageW(control_, LVM_GETHEADER, 0, 0));
  for (int i = 0; i < kFileColumnCount; ++i) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    ::SendMessageW(head, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (static_cast<FileColumn>(i) == table_.SortColumn())
      item.fmt |= table_.IsDescending() ? HDF_SORTDOWN : HDF_SORTUP;
    ::SendMessageW(head, HDM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
}

bool FileListView::OnNotify(const NMHDR& header, LPARAM l, LRESULT& result) {
  if (header.hwndFrom != control_) return false;
  result = 0;
  switch (header.code) {
    case LVN_GETDISPINFOW:
      FillIn(reinterpret_cast<NMLVDISPINFOW*>(l)->item);
      return true;
    case LVN_ODFINDITEMW:
      result = Find(*reinterpret_cast<const NMLVFINDITEMW*>(l));
      return true;
    case LVN_COLUMNCLICK:
      SortBy(static_cast<FileColumn>(reinterpret_cast<const NMLISTVIEW*>(l)->iSubItem));
      return true;
    default:
      return false;
  }
}

}  // namespace tarrow
