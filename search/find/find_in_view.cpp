#include "search/find/find_in_view.h"

#include "edit/documents/child.h"
#include "framework/text_resources.h"
#include "search/find/find_boxes.h"
#include "search/find/find_in_bytes.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <string>

namespace tarrow {
namespace {

constexpr std::uint64_t kLongestPattern = 255;

// A view may show anything; what is no text makes no pattern.
bool IsText(std::string_view bytes) {
  return std::none_of(bytes.begin(), bytes.end(), [](char byte) {
    auto code = static_cast<unsigned char>(byte);
    return code < 0x20 && code != '\t' && code != '\r' && code != '\n';
  });
}

}  // namespace

void FindInView::TakeSelection() {
  if (file_.IsAtMatch()) return;
  FileRange selected = file_.SelectedBytes();
  if (selected.Empty() || selected.end - selected.start > kLongestPattern) return;
  std::string bytes(static_cast<std::size_t>(selected.end - selected.start), '\0');
  std::unique_ptr<ByteSource> source = file_.OpenBytes();
  source->Seek(selected.start);
  bytes.resize(source->Read(bytes));
  TextView text(bytes);
  if (IsText(bytes)) TakeSelectionAsPattern(state_, text, {BytePos(0), text.End()}, file_.SearchCharset());
}

void FindInView::Find() {
  std::unique_ptr<ByteSource> source = file_.OpenBytes();
  CProgressBox box(frame_, FormatTextResource(kTextSearching, {state_.pattern}));
  box.SetWhole(static_cast<std::int64_t>(source->Size()));
  FindBoxes boxes(messages_, waiting_, box, boxOwner_, state_);
  auto found = FindInBytes(state_, *source, file_.SelectedBytes(), file_.SearchCharset(), boxes, &box);
  if (found && IsStillThere()) file_.SelectMatch(*found);
}

bool FindInView::IsStillThere() const {
  return dynamic_cast<SearchableFile*>(documents_.ActiveDocument()) == &file_;
}

}  // namespace tarrow
