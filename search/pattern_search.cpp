#include "search/pattern_search.h"

#include "search/first_char_map.h"

#include <algorithm>

namespace tarrow {
namespace {

class Search {
 public:
  Search(CompiledPattern& pattern, const TextView& text, MatchRegisters* registers, Progress* progress)
      : pattern_(pattern),
        text_(text),
        size_(text.Size()),
        registers_(registers),
        progress_(progress),
        ticker_(progress) {}

  std::int32_t Forward(std::int32_t start, std::int32_t range) {
    while (range > 0) {
      std::int32_t skipped = SkipLength(start, std::min(range, size_ - start));
      start += skipped;
      range -= skipped;
      bool isHopeless = start == size_ && pattern_.canBeEmpty == CanBeEmpty::kNever;
      if (isHopeless) return kNoMatch;
      if (std::int32_t length = Try(start); length != kNoMatch) return length < 0 ? length : start;
      if (start == size_) return kNoMatch;
      ++start;
      --range;
    }
    return kNoMatch;
  }

  std::int32_t Backward(std::int32_t start, std::int32_t range) {
    std::int32_t last = start + range == 0 ? 0 : std::max(start + range + 1, 0);
    for (; start >= last; --start) {
      ticker_.Tick();
      if (start < size_ && UsesMap() && !IsInMap(start)) continue;
      if (std::int32_t length = Try(start); length != kNoMatch) return length < 0 ? length : start;
    }
    return kNoMatch;
  }

 private:
  bool UsesMap() const { return pattern_.canBeEmpty != CanBeEmpty::kAnywhere; }
  bool IsInMap(std::int32_t i) const {
    return pattern_.firstCharMap[pattern_.Fold()[static_cast<std::uint8_t>(text_[BytePos(i)])]];
  }

  std::int32_t SkipLength(std::int32_t start, std::int32_t most) {
    std::int32_t skipped = 0;
    for (; UsesMap() && skipped < most && !IsInMap(start + skipped); ++skipped) ticker_.Tick();
    return skipped;
  }

  std::int32_t Try(std::int32_t position) {
    ticker_.Tick();
    return MatchAt(pattern_, text_, BytePos(position), text_.End(), registers_, progress_);
  }

  CompiledPattern& pattern_;
  const TextView& text_;
  std::int32_t size_;
  MatchRegisters* registers_;
  Progress* progress_;
  ProgressTicker ticker_;
};

}  // namespace

std::int32_t SearchPattern(CompiledPattern& pattern, const TextView& text, BytePos start, std::int32_t range,
                           MatchRegisters* registers, Progress* progress) {
  if (!pattern.mapValid) ComputeFirstCharMap(pattern);
  if (range == 0 || start.value < 0 || start > text.End()) return kNoMatch;
  Search search(pattern, text, registers, progress);
  return range > 0 ? search.Forward(start.value, range) : search.Backward(start.value, range);
}

}  // namespace tarrow
