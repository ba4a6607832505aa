#include "edit/recovery/change_stream.h"

#include <algorithm>
#include <utility>

namespace tarrow {

void ChangeStream::Replaced(TextRange range, std::string_view text) {
  if (!isWhole_) {
    if (range.start >= border_) return;
    if (range.end > border_) {
      // What is left of the place in front of the border is nothing: the new text is copied later.
      range.end = border_;
      text = {};
    }
  }
  if (!Join(range, text)) {
    CloseLast();
    hasLast_ = true;
    at_ = range.start;
    removed_ = range.Length();
    last_ = text;
  }
  border_ += static_cast<std::int64_t>(text.size()) - range.Length();
}

// Typing goes on behind the last change, deleting backwards takes its end away or goes on in front of it.
bool ChangeStream::Join(TextRange range, std::string_view text) {
  if (!hasLast_) return false;
  BytePos end = at_ + static_cast<std::int64_t>(last_.size());
  auto count = static_cast<std::size_t>(range.Length());
  if (range.start == end) {
    last_.append(text);
    removed_ += range.Length();
  } else if (range.end == end && count <= last_.size()) {
    last_.replace(last_.size() - count, count, text);
  } else if (range.end == at_ && last_.empty()) {
    at_ = range.start;
    removed_ += range.Length();
    last_ = text;
  } else {
    return false;
  }
  return true;
}

void ChangeStream::CloseLast() {
  if (!std::exchange(hasLast_, false)) return;
  AppendChange(pending_, {at_, removed_, last_});
  last_.clear();
}

void ChangeStream::Copy(const TextView& text, std::int32_t most) {
  CloseLast();
  std::int32_t count = std::min(text.End() - border_, most);
  TextView piece = text.Sub({border_, border_ + count});
  pending_.reserve(pending_.size() + static_cast<std::size_t>(count) + 16);
  if (!piece.head.empty()) AppendChange(pending_, {border_, 0, piece.head});
  auto headSize = static_cast<std::int64_t>(piece.head.size());
  if (!piece.tail.empty()) AppendChange(pending_, {border_ + headSize, 0, piece.tail});
  border_ += count;
  isWhole_ = border_ == text.End();
}

std::string ChangeStream::Take() {
  CloseLast();
  return std::exchange(pending_, {});
}

}  // namespace tarrow
