// The text of an edit window: its bytes in a gap buffer, its lines, what can be undone.
//
// Bytes are kept as they are, NULs and invalid sequences too. Reading goes through View(), two contiguous
// pieces, or by line; only Contiguous() moves bytes for a reader's sake. What a change costs depends on its
// size and its distance from the last one, not on the size of the text. Every function that changes the text
// either does the whole of it or throws CMemoryException and leaves text, lines and undo as they were.
// Positions and sizes are bytes; a line ends at CR LF only, and the last line has no terminator.
#pragma once

#include "base/text_view.h"
#include "edit/text/edit_list.h"
#include "edit/text/gap_vector.h"
#include "edit/text/line_index.h"
#include "edit/text/text_observer.h"
#include "edit/text/undo.h"

#include <optional>
#include <span>
#include <string_view>

namespace tarrow {

class TextBuffer {
 public:
  TextBuffer() = default;
  TextBuffer(TextBuffer&&) noexcept = default;
  TextBuffer& operator=(TextBuffer&&) noexcept = default;

  // The whole text, valid until it changes or is made contiguous.
  TextView View() const;
  std::int32_t Size() const { return static_cast<std::int32_t>(bytes_.Size()); }
  BytePos End() const { return BytePos(Size()); }

  // The whole text in one piece with a NUL behind it; views taken before are no longer valid.
  std::string_view Contiguous();

  // As Contiguous(), at an address that is a multiple of 64 KiB.
  std::string_view ContiguousAligned();

  LineNo LineCount() const { return lines_.Count(); }
  LineNo LastLine() const { return lines_.Last(); }
  LineNo LineOf(BytePos at) const { return lines_.LineOf(at); }
  BytePos LineStart(LineNo line) const { return lines_.Start(line); }

  // From the first byte of a line to its terminator; `line` must not lie beyond the last one.
  TextRange LineRange(LineNo line) const;

  // Replaces `range` by `text`, which must not point into this buffer.
  void Replace(TextRange range, std::string_view text, EditKind kind = EditKind::kCommand);

  // Makes all replacements of a list in one sweep, as one unit of undo. `selection`: what was selected
  // before.
  void Apply(const EditList& edits, std::optional<TextRange> selection = {});

  // Takes the last unit back; with one level of undo, a second time does it again, with more RedoNext does.
  // Return where the text has changed, from the first replacement to the last, or nothing when there was
  // nothing to undo. `selection`: what is selected now; what was selected before a list is known as long as
  // that can be undone.
  std::optional<TextRange> UndoLast(std::optional<TextRange> selection = {});
  std::optional<TextRange> RedoNext(std::optional<TextRange> selection = {});
  bool CanUndo() const { return undo_.CanUndo(); }
  bool CanRedo() const { return undo_.CanRedo(); }
  std::optional<TextRange> SelectionBeforeLast() const;
  std::optional<TextRange> SelectionBehindNext() const;
  void EmptyUndo() { undo_.Clear(); }

  // The rest of undo: see there.
  void SetUndoLevels(int levels, std::size_t mostBytes = Undo::kMostBytes) {
    undo_.SetLevels(levels, mostBytes);
  }
  bool HasUndoLevels() const { return undo_.HasLevels(); }
  void EndUndoUnit() { undo_.EndUnit(); }
  void MarkSaved() { undo_.MarkSaved(); }
  void ForgetSaved() { undo_.ForgetSaved(); }
  bool IsSaved() const { return undo_.IsSaved(); }

  // Filling an empty buffer without a copy, as a loader does: write into what PrepareLoad returns; ExtendLoad
  // widens it, its first `kept` bytes unchanged; where line ends are written anyway, write the starts of all
  // lines but the first, in ascending order, into what PrepareLineStarts returns (ExtendLineStarts widens
  // that) and say so to FinishLoad, which otherwise looks for them itself. The room given includes no
  // terminating NUL; slack for the first keys is seen to. All of them throw CMemoryException; drop the buffer
  // then.
  std::span<char> PrepareLoad(std::int64_t size);
  std::span<char> ExtendLoad(std::int64_t kept, std::int64_t size);
  std::span<BytePos> PrepareLineStarts(std::size_t count);
  std::span<BytePos> ExtendLineStarts(std::size_t kept, std::size_t count);
  void FinishLoad(std::int64_t size);
  void FinishLoad(std::int64_t size, std::size_t lineStarts);

  // Who is told of every change of the lines from now on; null: nobody. A text that is moved loses him.
  void SetListener(LineListener* listener) { listener_ = listener; }

  // How often the text has been changed: as long as this stays, so does the text.
  std::uint64_t Changes() const { return changes_; }

  // Who follows the changes of what this buffer holds, whatever is moved into it; null: nobody.
  void SetObserver(TextObserver* observer) { observer_.Set(observer); }

  // How many bytes were moved since the beginning: what changing costs, for tests without a clock.
  std::uint64_t MovedBytes() const { return bytes_.MovedBytes() + lines_.MovedBytes(); }

 private:
  void MakeRoom(TextRange range, std::string_view text);
  void MakeRoom(const EditList& edits);
  void ReplaceBytes(TextRange range, std::string_view text) noexcept;
  void ApplyBytes(const EditList& edits) noexcept;
  UndoUnit PrepareUnit(const UndoUnit& unit, std::optional<TextRange> selection);
  TextRange Do(const UndoUnit& unit) noexcept;
  std::string_view WithNul(std::size_t gapAt) noexcept;

  GapVector<char, 1> bytes_;
  LineIndex lines_;
  Undo undo_;
  std::uint64_t changes_ = 0;
  LineListener* listener_ = nullptr;
  ObserverLink observer_;  // the last, so that another text has arrived when it is told
};

}  // namespace tarrow
