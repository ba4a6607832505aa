#include "edit/documents/log.h"

#include "edit/documents/file_dialogs.h"
#include "framework/file_system.h"
#include "resources/resource.h"
#include "ui/commands/commands.h"
#include "ui/program/help.h"
#include "ui/program/help_topics.h"
#include "ui/program/private_messages.h"
#include "ui/program/string_ids.h"

#include <utility>

namespace tarrow {
namespace {

// What is worth a change of the text: so many bytes, or less once so much time has passed.
constexpr std::size_t kBatch = 1 << 20;
constexpr std::size_t kLook = 1 << 12;  // bytes between two looks at the clock
constexpr std::chrono::milliseconds kPeriod{50};

const WindowClass kLogClass{L"TarrowLog", CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW, 32512,
                            reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1), IDI_LOG};

}  // namespace

constinit const MessageMap CTwLog::kMessageMap =
    MessageMap::Make<&CTwFileEdit::kMessageMap, On<WM_RBUTTONDOWN, &CTwLog::OnRButtonDown>,
                     On<kOpenPlaceMessage, &CTwLog::OnOpenPlace>,
                     OnNotify<CTwFileEdit::kControlId, EN_CHANGE, &CTwLog::OnChange>,
                     OnCommand<kFileSaveAs, &CTwLog::OnSaveAs>,
                     OnCommand<kEditUndo, &CTwLog::OnRefused, &CTwLog::CanEdit>,
                     OnCommand<kEditCut, &CTwLog::OnRefused, &CTwLog::CanEdit>,
                     OnCommand<kEditPaste, &CTwLog::OnRefused, &CTwLog::CanEdit>,
                     OnCommand<kEditShiftLeft, &CTwLog::OnRefused, &CTwLog::CanEdit>,
                     OnCommand<kEditShiftRight, &CTwLog::OnRefused, &CTwLog::CanEdit>,
                     OnCommand<kHelpOnWord, &CTwLog::OnHelp>>();

CTwLog::CTwLog(const DocumentServices& program, PlaceFinder finder)
    : CTwFileEdit(program, NewWindowFlags(program.settings) | kReadOnly), finder_(std::move(finder)) {}

CTwLog* CTwLog::New(const DocumentServices& program, std::string title, PlaceFinder finder) {
  auto* window = new CTwLog(program, std::move(finder));  // belongs to its window
  window->SetUntitled(std::move(title));
  return window->CreateEdit(kLogClass) ? window : nullptr;
}

void CTwLog::ReadBy(const Lexer& lexer) {
  lexer_ = &lexer;
  OnPathChanged();
}

void CTwLog::ReadBy(std::unique_ptr<const Lexer> lexer) {
  ReadBy(*lexer);
  ownLexer_ = std::move(lexer);
}

void CTwLog::Output::Write(std::string_view bytes) {
  std::size_t before = held_.size();
  held_.append(bytes);
  if (held_.size() / kLook == before / kLook) return;
  auto now = std::chrono::steady_clock::now();
  if (held_.size() >= kBatch || now - flushed_ >= kPeriod) Flush();
}

void CTwLog::Output::Flush() {
  shown_.clear();
  std::swap(held_, shown_);
  if (!shown_.empty()) control_.Append(shown_);
  flushed_ = std::chrono::steady_clock::now();
}

void CTwLog::Finish() {
  output_.Flush();
  BytePos end = Control().Buffer().End();
  if (Control().Selection() == TextRange{end, end}) Control().Select(BytePos(0), BytePos(0));
  PublishState();
}

std::string CTwLog::Line(std::int64_t line) const {
  const TextBuffer& text = Control().Buffer();
  if (line < 0 || line > text.LastLine().value) return {};
  return text.View().Sub(text.LineRange(LineNo(line))).Copy();
}

bool CTwLog::QueryCommand(UINT id, CommandState& state) const {
  if (!CTwFileEdit::QueryCommand(id, state)) return false;
  if (id == kSearchGotoLine) state.enabled = IsNavigable();
  return true;
}

bool CTwLog::RunCommand(UINT id, UINT code, HWND control, LRESULT& result) {
  if (id != kSearchGotoLine || control || !IsNavigable())
    return CTwFileEdit::RunCommand(id, code, control, result);
  GoToPlace();
  return true;
}

void CTwLog::OnHelp() {
  Program().help.ShowHelp(nullptr, kResultLogTopic);
}

// Writes the text; the window stays a result window.
void CTwLog::OnSaveAs() {
  std::optional<SaveChoice> choice = RunSaveAsDialog(Frame().Handle(), {}, FileFormat::kDos);
  if (!choice) return;
  std::string path = FullPathLower(choice->path);
  if (FindChildShowing(Frame(), path))
    Program().messages.ShowMessageBox(nullptr, MB_ICONEXCLAMATION, kTextOpenElsewhere, {path});
  else
    WriteText(choice->path, choice->format);
}

bool CTwLog::OnTextDoubleClick(BytePos at) {
  if (!IsNavigable()) return false;
  Control().Select(at, at);
  GoToPlace();
  return true;
}

// As a left click there would, the press puts the caret.
void CTwLog::OnRButtonDown(UINT keys, POINT client) {
  if (!IsNavigable()) return CTwFileEdit::OnRButtonDown(keys, client);
  ::SendMessageW(Frame().Client(), WM_MDIACTIVATE, reinterpret_cast<WPARAM>(Handle()), 0);
  ::MapWindowPoints(Handle(), Control().Handle(), &client, 1);
  BytePos at = Control().PositionAt(client);
  Control().Select(at, at);
  GoToPlace();
}

// The place is opened once the click or key that asked for it is over.
void CTwLog::GoToPlace() {
  const TextBuffer& text = Control().Buffer();
  LineNo line = Control().CaretLine();
  wanted_ = finder_([this](std::int64_t number) { return Line(number); }, line.value);
  if (!wanted_) return Alert(MB_ICONEXCLAMATION);
  Control().Select(text.LineStart(line), line == text.LastLine() ? text.End() : text.LineStart(line + 1));
  Post(kOpenPlaceMessage);
}

LRESULT CTwLog::OnOpenPlace(WPARAM, LPARAM) {
  if (std::optional<SourcePlace> place = std::exchange(wanted_, {}))
    Program().documents.OpenAt(*place, Directory());
  return 0;
}

}  // namespace tarrow
