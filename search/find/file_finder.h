// Finds a pattern in the bytes of a file of any size, through a window that moves over the file.
//
// What is found is what a search of the whole file in memory would find, wherever the borders of the windows
// lie, as long as the matcher decides about a place without looking further than `ahead` bytes. A longer
// match is followed as far as a window reaches and ends there; what stands before a place is known to the
// anchors.
#pragma once

#include "base/byte_source.h"
#include "base/file_range.h"
#include "base/progress.h"
#include "search/pattern/compiled_pattern.h"

#include <memory>
#include <optional>

namespace tarrow {

class FileFinder {
 public:
  // In bytes. A window has room for more than the other two together; anchors need two bytes before a place.
  struct Sizes {
    std::size_t window = 4u << 20, ahead = 256u << 10, before = 64;
  };

  // All must outlive the object. Throws CFileException, and std::bad_alloc.
  FileFinder(CompiledPattern& pattern, ByteSource& file, Progress* progress)
      : FileFinder(pattern, file, progress, Sizes()) {}
  FileFinder(CompiledPattern& pattern, ByteSource& file, Progress* progress, Sizes sizes);

  // The size of the file when the object was made.
  std::uint64_t Size() const { return size_; }

  // The byte at a place, or -1 outside the file. Throws CFileException.
  int ByteAt(std::uint64_t place);

  // The first match that begins at `from` or behind it; the last one that begins at `from` or before it.
  // Throw CFileException and what the progress throws.
  std::optional<FileRange> Forward(std::uint64_t from);
  std::optional<FileRange> Backward(std::uint64_t from);

 private:
  // Reads the window that begins at `start`.
  void Load(std::uint64_t start);
  bool ReachesEnd() const { return start_ + filled_ >= size_ || filled_ < sizes_.window; }
  std::string_view Window() const { return {buffer_.get(), filled_}; }

  // Tries places of the window, named by their distance from its start.
  std::optional<FileRange> Try(std::size_t place, std::int32_t range);
  FileRange Follow(FileRange match);

  CompiledPattern& pattern_;
  ByteSource& file_;
  Progress* progress_;
  Sizes sizes_;
  std::uint64_t size_;
  std::unique_ptr<char[]> buffer_;
  ProgressTicker ticker_;
  std::uint64_t start_ = 0;  // of the window in the file
  std::size_t filled_ = 0;
};

}  // namespace tarrow
