#include "console/watched_source.h"

#include "base/exceptions.h"

#include <algorithm>

namespace tarrow {

namespace {

constexpr std::size_t kReadAhead = 64 << 10;

}  // namespace

WatchedSource::WatchedSource(std::unique_ptr<ByteSource> source, ProgressDisplay& progress)
    : source_(std::move(source)), progress_(progress) {
  try {
    size_ = source_->Size();
    progress_.AddTotal(size_);
  } catch (const CFileException&) {
    // A pipe or a device has no size; a directory fails when it is read.
  }
}

std::size_t WatchedSource::Read(std::span<char> into) {
  if (ahead_.empty() && into.size() < kReadAhead) FillBuffer();
  std::size_t n = std::min(into.size(), ahead_.size());
  std::copy_n(ahead_.data(), n, into.data());
  ahead_.remove_prefix(n);
  return n < into.size() && !ended_ ? n + ReadThrough(into.subspan(n)) : n;
}

void WatchedSource::Seek(std::uint64_t position) {
  source_->Seek(position);
  position_ = position;
  ahead_ = {};
  ended_ = false;
}

bool WatchedSource::PassMapped(std::size_t count) {
  if (!source_->PassMapped(count)) return false;
  position_ += count;
  progress_.AddRead(count);
  return true;
}

void WatchedSource::FillBuffer() {
  if (!buffer_) buffer_ = std::make_unique_for_overwrite<char[]>(kReadAhead);
  ahead_ = {buffer_.get(), ReadThrough({buffer_.get(), kReadAhead})};
}

std::size_t WatchedSource::ReadThrough(std::span<char> into) {
  std::size_t n = source_->Read(into);
  position_ += n;
  ended_ = n < into.size();
  hasShrunk_ |= ended_ && position_ < size_;
  progress_.AddRead(n);
  return n;
}

}  // namespace tarrow
