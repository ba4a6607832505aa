#include "shell/commands/document_forms.h"

#include "edit/documents/file_edit.h"
#include "framework/file_system.h"
#include "ui/program/string_ids.h"
#include "viewer/views/hex_file_view.h"
#include "viewer/views/text_file_view.h"

namespace tarrow {
namespace {

bool FitsNoEditWindow(const std::string& path) {
  std::optional<FileStatus> status = GetFileStatus(path);
  return status && status->size > static_cast<std::uint64_t>(kMaxTextSize);
}

bool Ask(const DocumentServices& program, int question, const std::string& path) {
  return program.messages.ShowMessageBox(nullptr, MB_YESNO | MB_ICONQUESTION, question, {path}) == IDYES;
}

CTwChild* OpenTextView(const DocumentServices& program, const std::string& path, std::uint32_t flags) {
  switch (CTextFileView::Open(program, path, flags)) {
    case TextViewOpening::kShown:
      return dynamic_cast<CTwChild*>(program.frame.ActiveChild());
    case TextViewOpening::kTooLarge:
      return Ask(program, kTextViewInHex, path) ? CHexFileView::Open(program, path, flags) : nullptr;
    default:
      return nullptr;
  }
}

CTwChild* OpenEdit(const DocumentServices& program, const std::string& path, std::uint32_t flags) {
  try {
    return CTwFileEdit::Open(program, path, flags);
  } catch (const CMemoryException&) {
  }
  return Ask(program, kTextViewAsText, path) ? OpenTextView(program, path, flags) : nullptr;
}

}  // namespace

bool ServesFor(const CTwChild& shown, std::uint32_t flags) {
  DocumentForm is = FormOf(shown.Flags()), wanted = FormOf(flags);
  if (is == wanted) return true;
  return is == DocumentForm::kTextView && wanted == DocumentForm::kEdit && FitsNoEditWindow(shown.Path());
}

CTwChild* OpenDocument(const DocumentServices& program, const std::string& path, std::uint32_t flags) {
  switch (FormOf(flags)) {
    case DocumentForm::kHexView:
      return CHexFileView::Open(program, path, flags);
    case DocumentForm::kTextView:
      return OpenTextView(program, path, flags);
    default:
      return OpenEdit(program, path, flags);
  }
}

bool GoToPlace(CTwChild& document, const SourcePlace& place) {
  auto fromZero = [](std::uint32_t number) { return std::int64_t{number} - (number > 0); };
  if (auto* hex = dynamic_cast<CHexFileView*>(&document)) {
    if (place.isAddress) hex->GotoAddress(place.position);
    return place.isAddress;
  }
  if (place.isAddress) return false;
  if (auto* text = dynamic_cast<CTextFileView*>(&document))
    text->GotoPosition(LineNo(fromZero(place.position)), ColumnNo(fromZero(place.column)));
  else if (auto* edit = dynamic_cast<CTwFileEdit*>(&document))
    edit->ShowPlace(place.position, place.column);
  return true;
}

}  // namespace tarrow
