#include "edit/text/undo.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarrow {

void Undo::Stack::DropOldest() noexcept {
  bytes -= units.front().Bytes();
  units.pop_front();
}

void Undo::Stack::Clear() noexcept {
  units.clear();
  bytes = 0;
}

void Undo::SetLevels(int levels, std::size_t mostBytes) {
  Clear();
  levels_ = std::max(levels, 1);
  mostBytes_ = mostBytes;
  saved_.reset();
}

void Undo::Clear() noexcept {
  back_.Clear();
  forward_.Clear();
  isOpen_ = false;
  KeepInBounds();
}

void Undo::EndUnit() noexcept {
  if (HasLevels()) isOpen_ = false;
}

void Undo::MarkSaved() noexcept {
  if (!HasLevels()) return;
  isOpen_ = false;
  saved_ = 0;
}

Undo::Join Undo::JoinOf(TextRange range, std::int32_t inserted, EditKind kind) {
  if (!isOpen_ || OpenPlace().kind != kind) return Join::kNone;
  const Place& last = OpenPlace();
  if (kind == EditKind::kTyping) return range.start == last.Range().end ? Join::kBehind : Join::kNone;
  if (kind != EditKind::kDeleting || inserted != 0 || last.inserted != 0) return Join::kNone;
  if (range.start == last.at) return Join::kBehind;
  return range.end == last.at ? Join::kBefore : Join::kNone;
}

// Where the oldest unit has to go anyway, its node will do.
void Undo::PrepareNode() {
  if (back_.Size() < levels_ && spare_.empty()) spare_.emplace_back();
}

void Undo::Prepare(const TextView& text, TextRange range, std::string_view inserted, EditKind kind) {
  auto size = static_cast<std::int32_t>(inserted.size());
  if (kind == EditKind::kForgotten) {
    prepared_ = {Place{range.start, size, {}, kind}, {}};
    return;
  }
  Place place{range.start, size, text.Copy(range), kind};
  join_ = JoinOf(range, size, kind);
  endsUnit_ = HasLevels() && inserted.find('\n') != std::string_view::npos;
  if (join_ == Join::kNone)
    PrepareNode();
  else
    OpenPlace().removed.reserve(OpenPlace().removed.size() + place.removed.size());
  prepared_ = {std::move(place), {}};
}

void Undo::PrepareList(EditList&& inverse, std::optional<TextRange> selection) {
  PrepareNode();
  join_ = Join::kNone;
  prepared_ = {std::move(inverse), selection};
}

void Undo::Commit() noexcept {
  const auto* place = std::get_if<Place>(&prepared_.change);
  bool isForgotten = place && place->kind == EditKind::kForgotten, isPlace = place != nullptr;
  if (isForgotten) {
    Clear();
    saved_.reset();
  } else {
    join_ == Join::kNone ? PushPrepared() : JoinPrepared();
    isOpen_ = isPlace && !endsUnit_;
    KeepInBounds();
  }
  prepared_ = {};
}

// Room was reserved: neither of these allocates.
void Undo::JoinPrepared() noexcept {
  Place &last = OpenPlace(), &more = std::get<Place>(prepared_.change);
  last.removed.insert(join_ == Join::kBehind ? last.removed.size() : 0, more.removed);
  last.inserted += more.inserted;
  if (join_ == Join::kBefore) last.at = more.at;
  back_.bytes += more.removed.size();
}

void Undo::PushPrepared() noexcept {
  forward_.Clear();
  if (saved_) saved_ = *saved_ < 0 ? std::nullopt : std::optional(*saved_ + 1);
  if (back_.Size() >= levels_) {
    back_.bytes -= back_.units.front().Bytes();
    spare_.splice(spare_.begin(), back_.units, back_.units.begin());
  }
  back_.units.splice(back_.units.end(), spare_, spare_.begin());
  back_.Top() = std::move(prepared_);
  back_.bytes += back_.Top().Bytes();
}

void Undo::CommitBack(Unit&& inverse) noexcept {
  Turn(back_, HasLevels() ? forward_ : back_, std::move(inverse));
  if (saved_) --*saved_;
  KeepInBounds();
}

void Undo::CommitForward(Unit&& inverse) noexcept {
  Turn(forward_, back_, std::move(inverse));
  if (saved_) ++*saved_;
  KeepInBounds();
}

// The top unit of one stack, once done, becomes what takes it back, on top of the other.
void Undo::Turn(Stack& from, Stack& to, Unit&& inverse) noexcept {
  isOpen_ = false;
  from.bytes -= from.Top().Bytes();
  from.Top() = std::move(inverse);
  to.units.splice(to.units.end(), from.units, std::prev(from.units.end()));
  to.bytes += to.Top().Bytes();
}

void Undo::KeepInBounds() noexcept {
  for (Stack* stack : {&back_, &forward_})
    while (stack->Size() > 1 && stack->bytes > mostBytes_) stack->DropOldest();
  if (saved_ && (*saved_ > back_.Size() || -*saved_ > forward_.Size())) saved_.reset();
}

}  // namespace tarrow
