#include "viewer/views/text_file_view.h"

#include "edit/commands/goto_line.h"
#include "edit/documents/goto_line_dialog.h"
#include "framework/file.h"
#include "framework/text_resources.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <new>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;

// The lines of so much are found while a user blinks.
constexpr std::uint64_t kQuickSize = 64u << 20;

}  // namespace

CTextFileView::CTextFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags)
    : CFileView(program, path, WithForm(flags, DocumentForm::kTextView)) {}

TextViewOpening CTextFileView::Open(const DocumentServices& program, const std::string& path,
                                    std::uint32_t flags) {
  std::unique_ptr<CTextFileView> opened(new CTextFileView(program, path, flags));
  try {
    RecordFileOutcome outcome = opened->OpenFile(true);
    if (outcome == RecordFileOutcome::kDeclined) return TextViewOpening::kNotShown;
    if (outcome != RecordFileOutcome::kOpened) return TextViewOpening::kTooLarge;
  } catch (const CFileException& error) {
    program.messages.ShowFileError(nullptr, error);
    return TextViewOpening::kNotShown;
  } catch (const CYieldException&) {
    program.messages.Alert(MB_ICONEXCLAMATION);
    program.status.ShowStatusId(kTextCancelled, kStatusSeconds);
    return TextViewOpening::kNotShown;
  }
  CTextFileView* window = opened.release();  // belongs to its window
  if (!window->CreateView()) return TextViewOpening::kNotShown;
  window->ShowFileStats();
  return TextViewOpening::kShown;
}

// Without questions control characters are accepted.
RecordFileOutcome CTextFileView::OpenFile(bool asks) {
  auto file = std::make_unique<CFile>(Path(), CFile::Mode::kRead, CFile::Share::kReadWrite);
  CProgressBox box(Program().frame.Handle(), FormatTextResource(kTextLoading, {Path()}));
  box.SetWhole(static_cast<std::int64_t>(file->Size()));
  int tabWidth = Program().settings.tabSize;
  auto content = std::make_unique<Content>(tabWidth);
  auto question = [&](unsigned char control) {
    UINT style = MB_YESNO | MB_ICONQUESTION;
    return !asks ||
           Program().messages.ShowMessageBox(box.Handle(), style, kTextNonAnsi, {control, Path()}) == IDYES;
  };
  RecordFileOutcome outcome = content->file.Open(std::move(file), question, &box);
  if (outcome != RecordFileOutcome::kOpened) return outcome;
  content->rows.emplace(content->file, tabWidth);
  content_ = std::move(content);
  return outcome;
}

// The lines stay those that were found; what is read of them is what is there now.
bool CTextFileView::Refresh() {
  content_->file.Discard();
  return false;
}

// Whoever let a file be shown with control characters in it has been asked; a file that has gone, is locked
// or has become too large stays open as it was.
bool CTextFileView::Reopen(bool mayTakeLong) {
  if (!mayTakeLong && content_->file.FileSize() > kQuickSize) return false;
  try {
    if (OpenFile(false) != RecordFileOutcome::kOpened) return true;
  } catch (const CFileException&) {
    return true;
  } catch (const CYieldException&) {
    return true;
  }
  AdaptToFile();
  return true;
}

void CTextFileView::ApplySettings(const LOGFONTW* font) {
  CFileView::ApplySettings(font);
  if (!content_) return;
  content_->rows.emplace(content_->file, Program().settings.tabSize);
  AdaptToFile();
}

void CTextFileView::GotoPosition(LineNo row, ColumnNo column) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return ShowingSelection(state, {{row, column}, {row, column}}, page, rows);
  });
}

void CTextFileView::OnGoto() {
  if (!content_) return;
  CGotoLineDialog dialog(State().Caret().row.value + 1);
  if (dialog.DoModal(Frame().Handle()) != IDOK || !content_) return;
  std::int32_t count = std::max(content_->rows->Count(), 1);
  GotoPosition(GotoLineTarget(static_cast<std::uint64_t>(dialog.Number()), count), ColumnNo(0));
}

void CTextFileView::ShowFileStats() {
  if (!content_) return;
  try {
    std::string text = FormatTextResource(
        kTextFileStats,
        {Path(), static_cast<std::int64_t>(content_->file.FileSize()), content_->rows->Count()});
    Program().status.ShowStatus(text, kStatusSeconds);
  } catch (const std::bad_alloc&) {
    Program().messages.ReportOutOfMemory();
  }
}

}  // namespace tarrow
