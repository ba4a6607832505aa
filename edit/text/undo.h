// The one level of undo: how to take the last unit of changes back.
//
// What undoes a change is itself a change, so a record holds replacements of the text as it is now.
// Consecutive typing is one unit, and so is consecutive deleting; any other change is a unit of its own,
// however many places it touches. Recording is prepared before the text changes and committed after it:
// preparing may throw std::bad_alloc and then neither text nor record has changed; committing cannot fail.
#pragma once

#include "base/text_view.h"
#include "edit/text/edit_list.h"

#include <optional>
#include <string>

namespace tarrow {

// What a change is to undo: kTyping and kDeleting join the unit before them when they continue it at the same
// place; kCommand stands alone; kForgotten cannot be undone, and nothing before it can.
enum class EditKind { kTyping, kDeleting, kCommand, kForgotten };

class Undo {
 public:
  // A single place: `inserted` bytes at `at` stand where `removed` stood.
  struct Place {
    BytePos at;
    std::int32_t inserted = 0;
    std::string removed;
    EditKind kind = EditKind::kCommand;

    TextRange Range() const { return {at, at + inserted}; }
  };

  bool CanUndo() const { return place_ || list_; }
  void Clear() noexcept {
    place_.reset();
    list_.reset();
  }

  // What takes the last unit back: one place, or else a list.
  const std::optional<Place>& LastPlace() const { return place_; }
  const std::optional<EditList>& LastList() const { return list_; }

  // `range` of `text` is going to be replaced by `inserted` bytes.
  void Prepare(const TextView& text, TextRange range, std::int32_t inserted, EditKind kind);
  void Commit() noexcept;

  // Makes `inverse`, which takes a list of replacements back, the last unit.
  void CommitList(EditList&& inverse) noexcept;

 private:
  enum class Join { kNone, kBehind, kBefore };

  Join JoinOf(TextRange range, std::int32_t inserted, EditKind kind) const;

  std::optional<Place> place_;
  std::optional<EditList> list_;

  Join join_ = Join::kNone;  // the prepared change: whether it joins place_
  Place prepared_;           // what it is by itself
};

// The list that takes `edits`, once done to `text`, back.
[[nodiscard]] EditList InverseOf(const EditList& edits, const TextView& text);

}  // namespace tarrow
