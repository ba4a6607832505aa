#include "edit/text/undo.h"

#include <utility>

namespace tarrow {

Undo::Join Undo::JoinOf(TextRange range, std::int32_t inserted, EditKind kind) const {
  if (!place_ || place_->kind != kind) return Join::kNone;
  if (kind == EditKind::kTyping) return range.start == place_->Range().end ? Join::kBehind : Join::kNone;
  if (kind != EditKind::kDeleting || inserted != 0 || place_->inserted != 0) return Join::kNone;
  if (range.start == place_->at) return Join::kBehind;
  return range.end == place_->at ? Join::kBefore : Join::kNone;
}

void Undo::Prepare(const TextView& text, TextRange range, std::int32_t inserted, EditKind kind) {
  if (kind == EditKind::kForgotten) {
    prepared_ = {range.start, inserted, {}, kind};
    return;
  }
  Place place{range.start, inserted, text.Copy(range), kind};
  join_ = JoinOf(range, inserted, kind);
  if (join_ != Join::kNone) place_->removed.reserve(place_->removed.size() + place.removed.size());
  prepared_ = std::move(place);
}

void Undo::Commit() noexcept {
  if (prepared_.kind == EditKind::kForgotten) {
    Clear();
  } else if (join_ == Join::kNone) {
    Clear();
    place_ = std::move(prepared_);
  } else {
    // Room was reserved: neither of these allocates.
    place_->removed.insert(join_ == Join::kBehind ? place_->removed.size() : 0, prepared_.removed);
    place_->inserted += prepared_.inserted;
    if (join_ == Join::kBefore) place_->at = prepared_.at;
  }
  prepared_ = {};
}

void Undo::CommitList(EditList&& inverse) noexcept {
  Clear();
  list_ = std::move(inverse);
}

EditList InverseOf(const EditList& edits, const TextView& text) {
  std::size_t removed = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) removed += static_cast<std::size_t>(edits[i].range.Length());
  EditList inverse;
  inverse.Reserve(removed);
  std::int32_t shift = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) {
    Edit edit = edits[i];
    TextView old = text.Sub(edit.range);
    inverse.Append(old.head);
    inverse.Append(old.tail);
    auto inserted = static_cast<std::int32_t>(edit.text.size());
    BytePos start = edit.range.start + shift;
    inverse.Finish({start, start + inserted});
    shift += inserted - edit.range.Length();
  }
  return inverse;
}

}  // namespace tarrow
