#include "search/find/file_finder.h"

#include "search/pattern/pattern_search.h"

#include <algorithm>

namespace tarrow {

FileFinder::FileFinder(CompiledPattern& pattern, ByteSource& file, Progress* progress, Sizes sizes)
    : pattern_(pattern),
      file_(file),
      progress_(progress),
      sizes_(sizes),
      size_(file.Size()),
      buffer_(std::make_unique_for_overwrite<char[]>(sizes.window)),
      ticker_(progress, 1) {}

int FileFinder::ByteAt(std::uint64_t place) {
  if (place >= size_) return -1;
  bool isLoaded = place >= start_ && place - start_ < filled_;
  if (!isLoaded) Load(place - std::min<std::uint64_t>(place, sizes_.before));
  std::string_view window = Window();
  auto at = static_cast<std::size_t>(place - start_);
  return at < window.size() ? static_cast<unsigned char>(window[at]) : -1;
}

void FileFinder::Load(std::uint64_t start) {
  if (progress_) progress_->SetDone(static_cast<std::int64_t>(start));
  ticker_.Tick();
  filled_ = 0;
  file_.Seek(start);
  start_ = start;
  filled_ = file_.Read({buffer_.get(), sizes_.window});
}

// A place where the matcher runs out of room ends the search of its window, as it ends that of a text.
std::optional<FileRange> FileFinder::Try(std::size_t place, std::int32_t range) {
  MatchRegisters registers;
  BytePos start(static_cast<std::int64_t>(place));
  if (SearchPattern(pattern_, TextView(Window()), start, range, &registers, progress_) < 0)
    return std::nullopt;
  return FileRange{start_ + static_cast<std::uint64_t>(registers.start[0]),
                   start_ + static_cast<std::uint64_t>(registers.end[0])};
}

// A match that has come to the end of the window may be longer: it gets a window of its own.
FileRange FileFinder::Follow(FileRange match) {
  if (ReachesEnd() || match.end < start_ + filled_) return match;
  std::uint64_t start = match.start - std::min<std::uint64_t>(match.start, sizes_.before);
  if (start == start_) return match;
  Load(start);
  return Try(static_cast<std::size_t>(match.start - start_), 1).value_or(match);
}

std::optional<FileRange> FileFinder::Forward(std::uint64_t from) {
  while (from <= size_) {
    Load(from - std::min<std::uint64_t>(from, sizes_.before));
    std::size_t place = static_cast<std::size_t>(from - start_);
    if (place > filled_) break;
    std::size_t end = ReachesEnd() ? filled_ : filled_ - sizes_.ahead;
    if (auto match = Try(place, static_cast<std::int32_t>(end - place))) return Follow(*match);
    if (ReachesEnd()) break;
    from = start_ + end;
  }
  return std::nullopt;
}

std::optional<FileRange> FileFinder::Backward(std::uint64_t from) {
  if (size_ == 0) return std::nullopt;
  from = std::min(from, size_);
  for (;;) {
    std::uint64_t room = sizes_.window - sizes_.ahead;
    Load(from - std::min(from, room));
    auto place = static_cast<std::size_t>(std::min<std::uint64_t>(from - start_, filled_));
    // A negative range ends one before the last place that is tried; place 0 has a range of its own.
    std::size_t last = start_ == 0 ? 0 : sizes_.before;
    auto range = static_cast<std::int32_t>(place - std::min(place, last)) + (last > 0);
    if (auto match = Try(place, -std::max(range, 1))) return Follow(*match);
    if (start_ == 0) return std::nullopt;
    from = start_ + last - 1;
  }
}

}  // namespace tarrow
