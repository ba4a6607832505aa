// A unit of undo: what takes a change back.
//
// It is a change itself: replacements of the text as it is now.
#pragma once

#include "base/text_view.h"
#include "edit/text/edit_list.h"

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

namespace tarrow {

// What a change is to undo: kTyping and kDeleting join the unit before them when they continue it at the same
// place; kCommand stands alone; kForgotten cannot be undone, and nothing before it can.
enum class EditKind { kTyping, kDeleting, kCommand, kForgotten };

// A single place: `inserted` bytes at `at` stand where `removed` stood.
struct UndoPlace {
  BytePos at;
  std::int32_t inserted = 0;
  std::string removed;
  EditKind kind = EditKind::kCommand;

  TextRange Range() const { return {at, at + inserted}; }
};

// A place, or a list with what was selected before it was done.
struct UndoUnit {
  std::variant<UndoPlace, EditList> change;
  std::optional<TextRange> selection;

  // What it takes in memory.
  std::size_t Bytes() const;
};

// The list that takes `edits`, once done to `text`, back.
[[nodiscard]] EditList InverseOf(const EditList& edits, const TextView& text);

// What takes a unit, once done to `text`, back.
[[nodiscard]] UndoUnit InverseOf(const UndoUnit& unit, const TextView& text);

}  // namespace tarrow
