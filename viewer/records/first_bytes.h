// The first bytes of a source, for a reader that cannot number what lies behind them.
#pragma once

#include "base/byte_source.h"

#include <memory>
#include <utility>

namespace tarrow {

class FirstBytes final : public ByteSource {
 public:
  FirstBytes(std::unique_ptr<ByteSource> source, std::uint64_t limit)
      : source_(std::move(source)), limit_(limit) {}

  std::size_t Read(std::span<char> into) override {
    std::uint64_t left = limit_ - std::min(limit_, position_);
    std::size_t n =
        source_->Read(into.first(static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), left))));
    position_ += n;
    return n;
  }
  void Seek(std::uint64_t position) override {
    source_->Seek(position);
    position_ = position;
  }
  std::uint64_t Size() override { return std::min(source_->Size(), limit_); }

 private:
  std::unique_ptr<ByteSource> source_;
  std::uint64_t limit_;
  std::uint64_t position_ = 0;
};

}  // namespace tarrow
