#include "ui/settings/key_bindings_dialog.h"

#include "framework/unicode.h"
#include "resources/resource.h"
#include "ui/commands/key_names.h"
#include "ui/program/help_topics.h"

#include <algorithm>
#include <new>

namespace tarrow {

namespace {

bool AddToList(HWND list, UINT message, std::string_view text) {
  return ::SendMessageW(list, message, 0, reinterpret_cast<LPARAM>(ToWide(text).c_str())) >= 0;
}

}  // namespace

constinit const MessageMap CKeyBindingsDialog::kMessageMap =
    MessageMap::Make<&CDialog::kMessageMap,
                     OnNotify<IDC_COMMANDS, LBN_SELCHANGE, &CKeyBindingsDialog::OnCommandSelected>,
                     OnNotify<IDC_KEYS, CBN_SELCHANGE, &CKeyBindingsDialog::OnKeySelected>,
                     OnCommandRange<IDC_CONTROL, IDC_ALT, &CKeyBindingsDialog::OnModifierClicked>,
                     OnCommand<IDC_SET_KEY, &CKeyBindingsDialog::OnSet>,
                     OnCommand<IDC_HELP_BUTTON, &CKeyBindingsDialog::OnHelp>>();

CKeyBindingsDialog::CKeyBindingsDialog(Messages& messages, Help& help, KeyBindingTable& table,
                                       std::span<const KeyBinding> live)
    : CDialog(IDD_KEY_BINDINGS), messages_(messages), help_(help), table_(table), live_(live) {}

bool CKeyBindingsDialog::OnInitDialog() try {
  table_.Load(live_);
  if (!FillLists()) throw std::bad_alloc();
  ::SendMessageW(Item(IDC_COMMANDS), LB_SETCURSEL, 0, 0);
  ShowBinding();
  return true;
} catch (const std::bad_alloc&) {
  messages_.ReportOutOfMemory();
  Close(IDCANCEL);
  return true;
}

bool CKeyBindingsDialog::FillLists() const {
  HWND commands = Item(IDC_COMMANDS);
  HWND keys = Item(IDC_KEYS);
  return std::ranges::all_of(
             CommandNames(),
             [&](const CommandName& row) { return AddToList(commands, LB_ADDSTRING, row.name); }) &&
         std::ranges::all_of(KeyNames(),
                             [&](const KeyName& row) { return AddToList(keys, CB_ADDSTRING, row.name); });
}

void CKeyBindingsDialog::ShowBinding() {
  KeyStroke stroke = table_.Find(SelectedCommand()).value_or(KeyStroke{});
  auto row = std::ranges::find(KeyNames(), stroke.key, &KeyName::key);
  if (row == KeyNames().end()) row = KeyNames().begin();
  ::SendMessageW(Item(IDC_KEYS), CB_SETCURSEL, static_cast<WPARAM>(row - KeyNames().begin()), 0);
  CheckItem(IDC_CONTROL, (stroke.flags & kControlKey) != 0);
  CheckItem(IDC_SHIFT, (stroke.flags & kShiftKey) != 0);
  CheckItem(IDC_ALT, (stroke.flags & kAltKey) != 0);
  EnableModifiers();
  EnableItem(IDC_SET_KEY, false);
}

CommandId CKeyBindingsDialog::SelectedCommand() const {
  auto row = static_cast<std::size_t>(::SendMessageW(Item(IDC_COMMANDS), LB_GETCURSEL, 0, 0));
  return row < CommandNames().size() ? CommandNames()[row].id : kNoCommand;
}

std::uint16_t CKeyBindingsDialog::SelectedKey() const {
  auto row = static_cast<std::size_t>(::SendMessageW(Item(IDC_KEYS), CB_GETCURSEL, 0, 0));
  return row < KeyNames().size() ? KeyNames()[row].key : std::uint16_t{0};
}

void CKeyBindingsDialog::EnableModifiers() {
  bool assigned = SelectedKey() != 0;
  for (int id : {IDC_CONTROL, IDC_SHIFT, IDC_ALT}) EnableItem(id, assigned);
}

void CKeyBindingsDialog::OnCommandSelected() {
  ShowBinding();
}

void CKeyBindingsDialog::OnKeySelected() {
  EnableModifiers();
  EnableItem(IDC_SET_KEY, true);
}

void CKeyBindingsDialog::OnModifierClicked() {
  if (SelectedKey() != 0) EnableItem(IDC_SET_KEY, true);
}

// A disabled button must not keep the focus, or the keyboard is lost.
void CKeyBindingsDialog::OnSet() {
  KeyStroke stroke =
      MakeKeyStroke(SelectedKey(), ItemChecked(IDC_CONTROL), ItemChecked(IDC_SHIFT), ItemChecked(IDC_ALT));
  bool assigned = table_.Assign(stroke, SelectedCommand());
  if (!assigned && stroke.key != 0) messages_.ReportOutOfMemory();
  if (::GetFocus() == Item(IDC_SET_KEY)) FocusItem(IDC_COMMANDS);
  EnableItem(IDC_SET_KEY, false);
}

void CKeyBindingsDialog::OnHelp() {
  help_.ShowHelp(Handle(), kKeyBindingsTopic);
}

}  // namespace tarrow
