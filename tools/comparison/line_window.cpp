#include "tools/comparison/line_window.h"

#include "base/byte_scan.h"

#include <algorithm>
#include <cstring>

namespace tarrow {
namespace {

constexpr std::size_t kLongestTextLine = 127;

}  // namespace

bool LineWindow::Next(LineSpan& line) {
  const std::size_t longest = form_ == LineForm::kText ? kLongestTextLine : kLongestLine;
  for (;;) {
    std::string_view rest = Unread();
    std::string_view reach = rest.substr(0, longest + 1);
    std::size_t n = FindByte(reach, '\n');
    bool foldCr = form_ == LineForm::kText && n > 0 && n < reach.size() && reach[n - 1] == '\r';
    // In text the LF is one of the characters, so that an LF behind a full line is a line of its own.
    std::size_t counted = n - foldCr + (form_ == LineForm::kText);
    if (n < reach.size() && counted <= longest) {
      Take(line, n - foldCr, n + 1, true);
      return true;
    }
    if (rest.size() > longest || ended_) return TakeLong(line, rest);
    Refill();
  }
}

// Takes what has no line end within reach: a piece of a long line, or the last line of the file.
bool LineWindow::TakeLong(LineSpan& line, std::string_view rest) {
  if (rest.empty()) return false;
  if (form_ == LineForm::kExact && rest.size() > kLongestLine) throw LongLineException(source_);
  std::size_t n = form_ == LineForm::kExact ? rest.size() : std::min(rest.size(), kLongestTextLine);
  Take(line, n, n, false);
  return true;
}

void LineWindow::Take(LineSpan& line, std::size_t length, std::size_t bytes, bool terminated) {
  line = {Position(), static_cast<std::uint16_t>(length), terminated};
  offset_ += static_cast<std::uint32_t>(bytes);
}

// Opens a new block with what is left of the newest, so that no line is ever split between two.
void LineWindow::Refill() {
  Block block = spare_ ? std::move(spare_) : std::make_unique_for_overwrite<char[]>(kBlockSize);
  std::string_view rest = Unread();
  if (!rest.empty()) std::memcpy(block.get(), rest.data(), rest.size());
  std::size_t wanted = kBlockSize - rest.size();
  std::size_t got = source_.Read({block.get() + rest.size(), wanted});
  ended_ = got < wanted;
  newestBlock_ = (newestBlock_ + !blocks_.empty()) & kBlockNumberMask;
  filled_ = static_cast<std::uint32_t>(rest.size() + got);
  offset_ = 0;
  blocks_.push_back(std::move(block));
}

void LineWindow::ReleaseBefore(std::uint32_t position) {
  while (blocks_.size() > 1 && firstBlock_ != position >> kBlockBits) {
    spare_ = std::move(blocks_.front());
    blocks_.pop_front();
    firstBlock_ = (firstBlock_ + 1) & kBlockNumberMask;
  }
}

}  // namespace tarrow
