#include "viewer/views/hex_file_view.h"

#include "framework/file.h"
#include "framework/text_resources.h"
#include "ui/program/string_ids.h"
#include "viewer/records/first_bytes.h"
#include "viewer/views/goto_address_dialog.h"

#include <algorithm>
#include <new>

namespace tarrow {
namespace {

constexpr std::uint64_t kMostShown = std::uint64_t{1} << 32;
constexpr int kStatusSeconds = 5;

}  // namespace

CHexFileView::CHexFileView(const DocumentServices& program, const std::string& path, std::uint32_t flags)
    : CFileView(program, path, WithForm(flags, DocumentForm::kHexView)) {}

CHexFileView* CHexFileView::Open(const DocumentServices& program, const std::string& path,
                                 std::uint32_t flags) {
  std::unique_ptr<CHexFileView> opened(new CHexFileView(program, path, flags));
  try {
    opened->OpenFile();
  } catch (const CFileException& error) {
    program.messages.ShowFileError(nullptr, error);
    return nullptr;
  }
  CHexFileView* window = opened.release();  // belongs to its window
  if (!window->CreateView()) return nullptr;
  window->ShowFileStats();
  if (window->size_ > kMostShown)
    program.messages.ShowMessageBox(nullptr, MB_ICONINFORMATION, kTextOnlyFirstBytes, {path});
  return window;
}

void CHexFileView::OpenFile() {
  auto file = std::make_unique<CFile>(Path(), CFile::Mode::kRead, CFile::Share::kReadWrite);
  std::uint64_t size = file->Size();
  auto content = std::make_unique<Content>();
  auto outcome = content->file.Open(std::make_unique<FirstBytes>(std::move(file), kMostShown));
  if (outcome != RecordFileOutcome::kOpened) throw CFileException(FileCause::kGeneric, Path());
  content_ = std::move(content);
  size_ = size;
}

// A file that has gone or is locked stays open as it was.
bool CHexFileView::Reopen(bool) {
  try {
    OpenFile();
  } catch (const CFileException&) {
    return true;
  }
  AdaptToFile();
  return true;
}

void CHexFileView::GotoPosition(LineNo row, ColumnNo byte) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    LineNo last(std::max(rows.Count() - 1, 0));
    CellPos cell{std::clamp(row, LineNo(0), last), HexCellOf(static_cast<std::uint64_t>(byte.value)).column};
    return ShowingSelection(state, {cell, cell}, page, rows);
  });
}

void CHexFileView::GotoAddress(std::uint32_t address) {
  GotoPosition(LineNo(static_cast<std::int64_t>(address / kHexRowBytes)),
               ColumnNo(static_cast<std::int64_t>(address % kHexRowBytes)));
}

void CHexFileView::OnGoto() {
  auto row = static_cast<std::uint32_t>(State().Caret().row.value);
  CGotoAddressDialog dialog(Program().messages, row * static_cast<std::uint32_t>(kHexRowBytes));
  if (dialog.DoModal(Frame().Handle()) == IDOK) GotoAddress(dialog.Address());
}

void CHexFileView::ShowFileStats() {
  try {
    std::uint64_t size = size_ > kMostShown || !content_ ? size_ : content_->file.FileSize();
    std::string text = FormatTextResource(kTextHexStats, {Path(), static_cast<std::int64_t>(size)});
    Program().status.ShowStatus(text, kStatusSeconds);
  } catch (const std::bad_alloc&) {
    Program().messages.ReportOutOfMemory();
  }
}

}  // namespace tarrow
