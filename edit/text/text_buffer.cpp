#include "edit/text/text_buffer.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace tarrow {
namespace {

// Runs what may exhaust memory by any of its ways of saying so.
template <typename Action>
auto Guarded(Action action) {
  try {
    return action();
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  } catch (const std::length_error&) {
    throw CMemoryException();
  }
}

void CheckSize(std::int64_t size) {
  if (size > kMaxTextSize) throw CMemoryException();
}

}  // namespace

TextView TextBuffer::View() const {
  auto head = bytes_.Head(), tail = bytes_.Tail();
  return {{head.data(), head.size()}, {tail.data(), tail.size()}};
}

std::string_view TextBuffer::WithNul(std::size_t gapAt) noexcept {
  bytes_.MoveGap(gapAt);
  auto piece = gapAt == 0 && bytes_.Size() ? bytes_.Tail() : bytes_.Head();
  // Behind the tail the guard is a NUL; behind the head lies the gap, or that guard.
  if (piece.data() == bytes_.Data()) bytes_.Data()[piece.size()] = '\0';
  return {piece.data(), piece.size()};
}

std::string_view TextBuffer::Contiguous() {
  bytes_.EnsureGap(0);
  return WithNul(bytes_.GapAt() < bytes_.Size() / 2 ? 0 : bytes_.Size());
}

std::string_view TextBuffer::ContiguousAligned() {
  bytes_.EnsureGap(0);
  return WithNul(bytes_.Size());
}

TextRange TextBuffer::LineRange(LineNo line) const {
  BytePos start = LineStart(line);
  return {start, line == LastLine() ? End() : LineStart(line + 1) - 2};
}

void TextBuffer::MakeRoom(TextRange range, std::string_view text) {
  CheckSize(std::int64_t{Size()} - range.Length() + static_cast<std::int64_t>(text.size()));
  TextView view = View();
  lines_.EnsureRoom(LineIndex::CountStarts(view.At(range.start - 1), text, view.At(range.end)));
  // What is removed widens the gap before anything is put into it.
  auto removed = static_cast<std::size_t>(range.Length());
  bytes_.EnsureGap(text.size() > removed ? text.size() - removed : 0);
}

void TextBuffer::ReplaceBytes(TextRange range, std::string_view text) noexcept {
  ++changes_;
  TextView view = View();
  LineChange lines = lines_.Replace(range, view.At(range.start - 1), text, view.At(range.end));
  bytes_.MoveGap(static_cast<std::size_t>(range.start.value));
  bytes_.RemoveAfterGap(static_cast<std::size_t>(range.Length()));
  bytes_.Append(text);
  observer_.Replaced(range, text);
  if (listener_) listener_->OnLinesChanged(lines);
}

void TextBuffer::Replace(TextRange range, std::string_view text, EditKind kind) {
  if (range.Empty() && text.empty()) return;
  Guarded([&] {
    MakeRoom(range, text);
    undo_.Prepare(View(), range, text, kind);
  });
  ReplaceBytes(range, text);
  undo_.Commit();
}

// The sweep goes upwards, so at any moment the gap must hold what the replacements so far have added. An
// upper bound for the line starts is enough: those within the new texts, and one where an LF follows.
void TextBuffer::MakeRoom(const EditList& edits) {
  CheckSize(Size() + edits.Growth());
  TextView view = View();
  std::int64_t growth = 0, most = 0;
  std::size_t starts = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) {
    Edit edit = edits[i];
    growth += static_cast<std::int64_t>(edit.text.size()) - edit.range.Length();
    most = std::max(most, growth);
    starts += LineIndex::CountStarts('\r', edit.text, -1) + (view.At(edit.range.end) == '\n');
  }
  CheckSize(Size() + most);
  lines_.EnsureRoom(starts);
  bytes_.EnsureGap(static_cast<std::size_t>(most));
}

void TextBuffer::ApplyBytes(const EditList& edits) noexcept {
  std::int32_t shift = 0;
  for (std::size_t i = 0; i < edits.Size(); ++i) {
    Edit edit = edits[i];
    ReplaceBytes({edit.range.start + shift, edit.range.end + shift}, edit.text);
    shift += static_cast<std::int32_t>(edit.text.size()) - edit.range.Length();
  }
}

void TextBuffer::Apply(const EditList& edits, std::optional<TextRange> selection) {
  if (edits.Empty()) return;
  Guarded([&] {
    MakeRoom(edits);
    undo_.PrepareList(InverseOf(edits, View()), selection);
  });
  ApplyBytes(edits);
  undo_.Commit();
}

// Makes room for what takes a change back, and says what takes that back in turn.
UndoUnit TextBuffer::PrepareUnit(const UndoUnit& unit, std::optional<TextRange> selection) {
  return Guarded([&] {
    if (const auto* place = std::get_if<UndoPlace>(&unit.change))
      MakeRoom(place->Range(), place->removed);
    else
      MakeRoom(std::get<EditList>(unit.change));
    UndoUnit inverse = InverseOf(unit, View());
    if (unit.selection) inverse.selection = selection;
    return inverse;
  });
}

TextRange TextBuffer::Do(const UndoUnit& unit) noexcept {
  if (const auto* place = std::get_if<UndoPlace>(&unit.change)) {
    ReplaceBytes(place->Range(), place->removed);
    return {place->at, place->at + static_cast<std::int64_t>(place->removed.size())};
  }
  const auto& list = std::get<EditList>(unit.change);
  ApplyBytes(list);
  return {list[0].range.start, list[list.Size() - 1].range.end + list.Growth()};
}

std::optional<TextRange> TextBuffer::UndoLast(std::optional<TextRange> selection) {
  if (!CanUndo()) return {};
  UndoUnit inverse = PrepareUnit(undo_.Last(), selection);
  TextRange changed = Do(undo_.Last());
  undo_.CommitBack(std::move(inverse));
  return changed;
}

std::optional<TextRange> TextBuffer::RedoNext(std::optional<TextRange> selection) {
  if (!CanRedo()) return {};
  UndoUnit inverse = PrepareUnit(undo_.Next(), selection);
  TextRange changed = Do(undo_.Next());
  undo_.CommitForward(std::move(inverse));
  return changed;
}

std::optional<TextRange> TextBuffer::SelectionBeforeLast() const {
  return CanUndo() ? undo_.Last().selection : std::nullopt;
}

std::optional<TextRange> TextBuffer::SelectionBehindNext() const {
  return CanRedo() ? undo_.Next().selection : std::nullopt;
}

std::span<char> TextBuffer::PrepareLoad(std::int64_t size) {
  return ExtendLoad(0, size);
}

std::span<char> TextBuffer::ExtendLoad(std::int64_t kept, std::int64_t size) {
  CheckSize(size);
  return bytes_.PrepareFill(static_cast<std::size_t>(kept), static_cast<std::size_t>(size));
}

std::span<BytePos> TextBuffer::PrepareLineStarts(std::size_t count) {
  return ExtendLineStarts(0, count);
}

std::span<BytePos> TextBuffer::ExtendLineStarts(std::size_t kept, std::size_t count) {
  return lines_.PrepareStarts(kept, count);
}

void TextBuffer::FinishLoad(std::int64_t size) {
  lines_.Scan({bytes_.Data(), static_cast<std::size_t>(size)});
  bytes_.FinishFill(static_cast<std::size_t>(size));
}

void TextBuffer::FinishLoad(std::int64_t size, std::size_t lineStarts) {
  lines_.FinishStarts(lineStarts, static_cast<std::int32_t>(size));
  bytes_.FinishFill(static_cast<std::size_t>(size));
}

}  // namespace tarrow
