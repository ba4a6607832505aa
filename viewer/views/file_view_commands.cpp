// The commands of a view, and what a search asks of it.
#include "viewer/views/file_view.h"

#include "edit/control/clipboard_text.h"
#include "framework/file.h"
#include "framework/text_resources.h"
#include "ui/program/progress_box.h"
#include "ui/program/string_ids.h"
#include "viewer/views/view_copy.h"

#include <memory>
#include <new>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;

// More than this no clipboard takes without bringing down those who paste from it.
constexpr std::size_t kMostCopied = 512u << 20;

}  // namespace

void CFileView::OnCopy() {
  PutSelection({});
}

void CFileView::OnCopyAppend() {
  PutSelection(TextFromClipboard(Handle(), Charset()).value_or(std::string()));
}

// What is copied is the text that is seen, so it is Unicode whatever the file is.
void CFileView::PutSelection(const std::string& before) {
  if (!HasSelection()) return Alert(MB_OK);
  Reading([&] {
    CProgressBox box(Frame().Handle(), LoadText(kTextCopyingSelection));
    box.SetWhole(std::int64_t{state_.selection.End().row - state_.selection.Start().row} + 1);
    try {
      std::string text = before + SelectedText(*Rows(), state_.selection, kMostCopied, &box);
      if (!PutOnClipboard(Handle(), TextView(text), Charset())) Alert(MB_ICONEXCLAMATION);
    } catch (const CYieldException&) {
      Alert(MB_ICONEXCLAMATION);
      Program().status.ShowStatusId(kTextCancelled, kStatusSeconds);
    } catch (const CMemoryException&) {
      Program().messages.ReportOutOfMemory();
    } catch (const std::bad_alloc&) {
      Program().messages.ReportOutOfMemory();
    }
  });
}

std::unique_ptr<ByteSource> CFileView::OpenBytes() const {
  return std::make_unique<CFile>(Path(), CFile::Mode::kRead, CFile::Share::kReadWrite);
}

FileRange CFileView::SelectedBytes() {
  if (found_ && found_->selection == state_.selection) return found_->bytes;
  FileRange bytes;
  Reading([&] { bytes = Rows()->BytesOf(state_.selection); });
  return bytes;
}

void CFileView::SelectBytes(const FileRange& bytes) {
  Change([&](const ViewState& state, ViewPage page, ViewRows& rows) {
    return ShowingSelection(state, rows.CellsOf(bytes), page, rows);
  });
  found_ = Found{state_.selection, bytes};
}

}  // namespace tarrow
