// The lines of a file that is read once, front to back, kept readable from the oldest one still needed.
//
// Text stays in blocks as it was read: handing out a line copies nothing. A line is named by a 32-bit
// position, so what is held at one time must stay below 4 GiB. Memory is what lies between the oldest kept
// line and the newest, rounded up to blocks.
#pragma once

#include "base/byte_source.h"
#include "base/exceptions.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string_view>

namespace tarrow {

enum class LineForm {
  // CR LF counts as LF. A line is at most 127 characters, its LF among them: a longer one arrives as several,
  // and one of just 127 is followed by an empty one.
  kText,
  // Every byte but LF is a character of its line. A line above LineWindow::kLongestLine is refused.
  kExact,
};

// A line of `Source()` cannot be taken whole.
class LongLineException : public CException {
 public:
  explicit LongLineException(const ByteSource& source) : source_(&source) {}
  const ByteSource& Source() const { return *source_; }
  const char* what() const noexcept override { return "a line is longer than 65535 characters"; }

 private:
  const ByteSource* source_;
};

// A line in a LineWindow, without its line end.
struct LineSpan {
  std::uint32_t position = 0;
  std::uint16_t length = 0;
  bool terminated = false;
};

class LineWindow {
 public:
  static constexpr std::uint32_t kLongestLine = 65'535;

  LineWindow(ByteSource& source, LineForm form) : source_(source), form_(form) {}

  // Takes the next line; false at the end of the file. Throws CFileException, LongLineException and
  // std::bad_alloc.
  [[nodiscard]] bool Next(LineSpan& line);

  // The characters of a line that has not been released.
  std::string_view Text(const LineSpan& line) const {
    const Block& block = blocks_[((line.position >> kBlockBits) - firstBlock_) & kBlockNumberMask];
    return {block.get() + (line.position & kBlockMask), line.length};
  }

  // Gives up all lines before `position`: that of a line, or Position().
  void ReleaseBefore(std::uint32_t position);

  // Where the next line begins.
  std::uint32_t Position() const { return (newestBlock_ << kBlockBits) + offset_; }

 private:
  static constexpr unsigned kBlockBits = 17;
  static constexpr std::uint32_t kBlockSize = 1u << kBlockBits;
  static constexpr std::uint32_t kBlockMask = kBlockSize - 1;
  static constexpr std::uint32_t kBlockNumberMask = (1u << (32 - kBlockBits)) - 1;
  using Block = std::unique_ptr<char[]>;

  std::string_view Unread() const {
    return blocks_.empty() ? std::string_view()
                           : std::string_view(blocks_.back().get() + offset_, filled_ - offset_);
  }
  void Take(LineSpan& line, std::size_t length, std::size_t bytes, bool terminated);
  [[nodiscard]] bool TakeLong(LineSpan& line, std::string_view rest);
  void Refill();

  ByteSource& source_;
  LineForm form_;
  std::deque<Block> blocks_;
  Block spare_;
  std::uint32_t firstBlock_ = 0;
  std::uint32_t newestBlock_ = 0;
  std::uint32_t offset_ = 0;  // of the next line in the newest block
  std::uint32_t filled_ = 0;  // bytes in the newest block
  bool ended_ = false;
};

}  // namespace tarrow
