// Reading and writing that stay interruptible: a source and a sink that poll a Progress between pieces.
#pragma once

#include "base/byte_sink.h"
#include "base/byte_source.h"
#include "base/progress.h"

#include <algorithm>

namespace tarrow {

// Large enough that polling costs nothing beside the reading, small enough to be read in a few hundredths of
// a second from a slow disk.
inline constexpr std::size_t kProgressPiece = 1 << 20;

// All outlive these objects. What is done is counted in bytes.
class ProgressSource final : public ByteSource {
 public:
  ProgressSource(ByteSource& source, Progress& progress) : source_(source), progress_(progress) {}

  std::size_t Read(std::span<char> into) override {
    std::size_t done = 0;
    while (done < into.size()) {
      progress_.SetDone(static_cast<std::int64_t>(position_));
      progress_.Poll();
      std::span<char> piece = into.subspan(done, std::min(kProgressPiece, into.size() - done));
      std::size_t size = source_.Read(piece);
      done += size;
      position_ += size;
      if (size < piece.size()) break;
    }
    return done;
  }
  void Seek(std::uint64_t position) override {
    source_.Seek(position);
    position_ = position;
  }
  std::uint64_t Size() override { return source_.Size(); }

 private:
  ByteSource& source_;
  Progress& progress_;
  std::uint64_t position_ = 0;
};

class ProgressSink final : public ByteSink {
 public:
  ProgressSink(ByteSink& sink, Progress& progress) : sink_(sink), progress_(progress) {}

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      progress_.SetDone(done_);
      progress_.Poll();
      std::string_view piece = bytes.substr(0, kProgressPiece);
      sink_.Write(piece);
      done_ += static_cast<std::int64_t>(piece.size());
      bytes.remove_prefix(piece.size());
    }
  }

 private:
  ByteSink& sink_;
  Progress& progress_;
  std::int64_t done_ = 0;
};

}  // namespace tarrow
