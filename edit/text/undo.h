// What can be taken back, and forward again: as many units of changes as there are levels.
//
// Consecutive typing is one unit, and so is consecutive deleting; any other change is a unit of its own,
// however many places it touches. With one level, what takes a unit back becomes the unit: undoing twice does
// it again. With more, units wait on two stacks, and typing ends its unit at a line end and where EndUnit()
// says so.
//
// Recording is prepared before the text changes and committed after it: preparing may throw std::bad_alloc
// and then neither text nor record has changed; committing cannot fail. What is kept costs what the changes
// changed, and beyond a bound the oldest units go, whatever the levels: a user who has changed a large text
// all over a dozen times must not run out of memory for it.
#pragma once

#include "base/text_view.h"
#include "edit/text/undo_unit.h"

#include <cstdint>
#include <list>
#include <optional>
#include <string_view>

namespace tarrow {

class Undo {
 public:
  using Place = UndoPlace;
  using Unit = UndoUnit;

  static constexpr std::size_t kMostBytes = std::size_t{128} << 20;

  // How many units to keep (at least 1), and how many bytes the older ones of them may hold. Forgets all.
  void SetLevels(int levels, std::size_t mostBytes = kMostBytes);
  bool HasLevels() const { return levels_ > 1; }

  bool CanUndo() const { return !back_.units.empty(); }
  bool CanRedo() const { return !forward_.units.empty(); }
  void Clear() noexcept;

  // The unit that is taken back next, and the one that is done again next; only while there is one.
  const Unit& Last() const { return back_.units.back(); }
  const Unit& Next() const { return forward_.units.back(); }

  // The caret has moved: what is typed from now on is a unit of its own.
  void EndUnit() noexcept;

  // The text is the saved one now, or is so nowhere; and whether it is again. With one level nobody knows.
  void MarkSaved() noexcept;
  void ForgetSaved() noexcept { saved_.reset(); }
  bool IsSaved() const { return saved_ == 0; }

  // `range` of `text` is going to be replaced by `inserted`.
  void Prepare(const TextView& text, TextRange range, std::string_view inserted, EditKind kind);

  // A list of replacements is going to be made, which `inverse` takes back.
  void PrepareList(EditList&& inverse, std::optional<TextRange> selection);

  void Commit() noexcept;

  // The last unit, or the next one, has been done; `inverse` takes it back.
  void CommitBack(Unit&& inverse) noexcept;
  void CommitForward(Unit&& inverse) noexcept;

 private:
  enum class Join { kNone, kBehind, kBefore };

  // Units one upon another, and the bytes that they hold.
  struct Stack {
    std::list<Unit> units;
    std::size_t bytes = 0;

    std::int64_t Size() const { return static_cast<std::int64_t>(units.size()); }
    Unit& Top() { return units.back(); }
    void DropOldest() noexcept;
    void Clear() noexcept;
  };

  Place& OpenPlace() { return std::get<Place>(back_.Top().change); }
  Join JoinOf(TextRange range, std::int32_t inserted, EditKind kind);
  void PrepareNode();
  void JoinPrepared() noexcept;
  void PushPrepared() noexcept;
  void Turn(Stack& from, Stack& to, Unit&& inverse) noexcept;
  void KeepInBounds() noexcept;

  std::int64_t levels_ = 1;
  std::size_t mostBytes_ = kMostBytes;
  Stack back_, forward_;
  bool isOpen_ = false;                // the last unit is a place, and may be joined
  std::optional<std::int64_t> saved_;  // how many units back the saved text is; negative: forward

  // The prepared change, how it joins the last unit, and the node in which it will be a unit of its own,
  // unless that is the oldest unit's.
  Unit prepared_;
  Join join_ = Join::kNone;
  bool endsUnit_ = false;
  std::list<Unit> spare_;
};

}  // namespace tarrow
