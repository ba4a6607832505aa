#include "shell/commands/recovery_dialog.h"

#include "base/path_text.h"
#include "framework/text_resources.h"
#include "framework/unicode.h"
#include "resources/resource.h"
#include "tools/file_manager/regional_text.h"
#include "ui/program/string_ids.h"

#include <commctrl.h>

#include <array>

namespace tarrow {
namespace {

constexpr std::array kColumnWidths{58, 29, 13};  // percent

void AddRow(HWND list, int row, const std::array<std::string, 3>& cells) {
  for (int column = 0; column < 3; ++column) {
    std::wstring text = ToWide(cells[static_cast<std::size_t>(column)]);
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = text.data();
    ::SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  }
}

// The name in front, for a long path is cut at its end.
std::string ShownName(const JournalDescription& description) {
  if (description.isUntitled) return description.name;
  std::string name(FileNamePart(description.name));
  return name.append("   ").append(WithoutTrailingSeparators(DirectoryPart(description.name)));
}

// For row -1: of all rows.
void SetState(HWND list, int row, UINT state) {
  LVITEMW item{};
  item.stateMask = item.state = state;
  ::SendMessageW(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

}  // namespace

constinit const MessageMap CRecoveryDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap, OnCommand<IDC_DISCARD, &CRecoveryDialog::OnDiscard>>();

CRecoveryDialog::CRecoveryDialog(Messages& messages, std::vector<LeftText>& texts)
    : CDialog(IDD_RECOVERY), messages_(messages), texts_(texts) {}

bool CRecoveryDialog::OnInitDialog() {
  MakeColumns();
  ShowTexts();
  ::SetFocus(Item(IDC_LEFT_TEXTS));
  return false;
}

void CRecoveryDialog::MakeColumns() const {
  HWND list = Item(IDC_LEFT_TEXTS);
  constexpr DWORD kStyle = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP;
  ::SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, kStyle, kStyle);
  RECT client{};
  ::GetClientRect(list, &client);
  std::wstring heads = ToWide(LoadText(kTextRecoveryColumns));
  for (std::size_t i = 0; i < kColumnWidths.size(); ++i) {
    std::wstring head = heads.substr(0, heads.find(L'|'));
    heads.erase(0, head.size() + 1);
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.fmt = i + 1 == kColumnWidths.size() ? LVCFMT_RIGHT : LVCFMT_LEFT;
    column.cx = static_cast<int>(client.right) * kColumnWidths[i] / 100;
    column.pszText = head.data();
    column.iSubItem = static_cast<int>(i);
    ::SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
  }
}

void CRecoveryDialog::ShowTexts() const {
  HWND list = Item(IDC_LEFT_TEXTS);
  ::SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
  int row = 0;
  for (const LeftText& text : texts_)
    AddRow(list, row++,
           {ShownName(text.state.description), TimeText(text.state.time),
            CountText(static_cast<std::uint64_t>(text.state.size))});
  SetState(list, -1, LVIS_SELECTED);
  SetState(list, 0, LVIS_FOCUSED);
}

std::vector<std::size_t> CRecoveryDialog::ChosenRows() const {
  std::vector<std::size_t> rows;
  for (LRESULT row = -1;;) {
    row = ::SendMessageW(Item(IDC_LEFT_TEXTS), LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED);
    if (row < 0 || static_cast<std::size_t>(row) >= texts_.size()) return rows;
    rows.push_back(static_cast<std::size_t>(row));
  }
}

void CRecoveryDialog::OnOk() {
  chosen_ = ChosenRows();
  if (chosen_.empty())
    messages_.Alert(MB_ICONEXCLAMATION);
  else
    Close(IDOK);
}

// A text that cannot be removed stays, and is offered again.
bool CRecoveryDialog::Discard(LeftText& text) {
  try {
    DiscardText(text);
    return true;
  } catch (const CFileException& error) {
    messages_.ShowFileError(Handle(), error);
    return false;
  }
}

void CRecoveryDialog::OnDiscard() {
  std::vector<std::size_t> rows = ChosenRows();
  if (rows.empty()) return messages_.Alert(MB_ICONEXCLAMATION);
  bool isOne = rows.size() == 1;
  FormatArg which = isOne ? FormatArg(texts_[rows[0]].state.description.name) : FormatArg(rows.size());
  constexpr UINT kStyle = MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2;
  if (messages_.ShowMessageBox(Handle(), kStyle, isOne ? kTextDiscardOne : kTextDiscardMany, {which}) !=
      IDYES)
    return;
  for (std::size_t i = rows.size(); i-- > 0;)
    if (Discard(texts_[rows[i]])) texts_.erase(texts_.begin() + static_cast<std::ptrdiff_t>(rows[i]));
  if (texts_.empty()) return Close(IDCANCEL);
  ShowTexts();
  ::SetFocus(Item(IDC_LEFT_TEXTS));
}

}  // namespace tarrow
