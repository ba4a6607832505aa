#include "edit/text/undo_unit.h"

#include <utility>

namespace tarrow {

std::size_t UndoUnit::Bytes() const {
  const auto* place = std::get_if<UndoPlace>(&change);
  return sizeof(UndoUnit) + (place ? place->removed.size() : std::get<EditList>(change).Bytes());
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

UndoUnit InverseOf(const UndoUnit& unit, const TextView& text) {
  if (const auto* list = std::get_if<EditList>(&unit.change)) return {InverseOf(*list, text), {}};
  const auto& place = std::get<UndoPlace>(unit.change);
  auto size = static_cast<std::int32_t>(place.removed.size());
  return {UndoPlace{place.at, size, text.Copy(place.Range()), EditKind::kCommand}, {}};
}

}  // namespace tarrow
