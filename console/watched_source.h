// A file as the commands of tarrowc read it: the progress knows how much of it is read, small reads are
// served from a buffer, and a file that ends before its size is noticed.
#pragma once

#include "base/byte_source.h"
#include "console/progress_display.h"

#include <memory>
#include <string_view>

namespace tarrow {

class WatchedSource final : public ByteSource {
 public:
  // The progress outlives the source.
  WatchedSource(std::unique_ptr<ByteSource> source, ProgressDisplay& progress);

  std::size_t Read(std::span<char> into) override;
  void Seek(std::uint64_t position) override;
  std::uint64_t Size() override { return source_->Size(); }
  std::string_view Map() override { return source_->Map(); }
  bool PassMapped(std::size_t count) override;

  // Whether it has ended before the size that it had at first.
  bool HasShrunk() const { return hasShrunk_; }

 private:
  void FillBuffer();
  std::size_t ReadThrough(std::span<char> into);

  std::unique_ptr<ByteSource> source_;
  ProgressDisplay& progress_;
  std::uint64_t size_ = 0;      // at first; 0 for what has none
  std::uint64_t position_ = 0;  // of the source
  std::unique_ptr<char[]> buffer_;
  std::string_view ahead_;  // what of the buffer is not yet asked for
  bool ended_ = false;
  bool hasShrunk_ = false;
};

}  // namespace tarrow
