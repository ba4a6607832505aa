#include "tools/extraction/extract_strings.h"

#include "base/text_batch.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <memory>

namespace tarrow {
namespace {

// The window moves on by a step when no more than the overlap is left of it. Where it stands decides how far
// a match can see, so these are part of what is found.
constexpr std::size_t kOverlap = 1024;
constexpr std::size_t kStep = 32 * 1024;
constexpr std::size_t kWindow = kStep + kOverlap;
constexpr std::size_t kPiece = 128;

class Extraction {
 public:
  Extraction(ByteSource& source, std::string_view name, AnchoredPattern& pattern, TextSink& out,
             std::string_view lineEnd, Progress* progress)
      : source_(source),
        pattern_(pattern),
        prefix_(std::string(name) + "(0x"),
        suffix_(lineEnd),
        out_(out),
        progress_(progress),
        ticker_(progress, 64) {}

  void Run() {
    try {
      Scan();
    } catch (...) {
      out_.Flush();
      throw;
    }
    out_.Flush();
  }

 private:
  void Scan();
  void Refill(std::size_t keepFrom);
  void WriteMatch(std::string_view match, std::uint64_t offset);
  std::string_view Window() const { return {window_.get(), size_}; }

  ByteSource& source_;
  AnchoredPattern& pattern_;
  std::string prefix_;
  std::string_view suffix_;
  TextBatch out_;
  Progress* progress_;
  ProgressTicker ticker_;
  std::unique_ptr<char[]> window_ = std::make_unique_for_overwrite<char[]>(kWindow);
  std::size_t size_ = 0;
  std::uint64_t start_ = 0;  // of the window in the file
  bool ended_ = false;
};

void Extraction::Scan() {
  Refill(0);
  for (std::size_t at = 0;;) {
    std::size_t limit = ended_ ? size_ : size_ - kOverlap;
    if (at < limit) {
      AnchoredPattern::Match match = pattern_.FindFirst(Window(), at, limit, progress_);
      WriteMatch(Window().substr(match.start, match.length), start_ + match.start);
      at = match.start + match.length;
    } else if (ended_) {
      return;
    } else {
      Refill(kStep);
      at -= kStep;
    }
    ticker_.Tick();
  }
}

// Moves the window to what begins at `keepFrom`.
void Extraction::Refill(std::size_t keepFrom) {
  size_ -= keepFrom;
  start_ += keepFrom;
  std::memmove(window_.get(), window_.get() + keepFrom, size_);
  std::size_t wanted = kWindow - size_, got = source_.Read({window_.get() + size_, wanted});
  size_ += got;
  ended_ = got < wanted;
}

void Extraction::WriteMatch(std::string_view match, std::uint64_t offset) {
  std::string& text = out_.Text();
  for (; !match.empty(); match = match.substr(std::min(match.size(), kPiece)), offset += kPiece) {
    char digits[16];
    char* end = std::to_chars(digits, digits + sizeof digits, offset, 16).ptr;
    text.append(prefix_).append(end - digits < 4 ? 4 - (end - digits) : 0, '0').append(digits, end);
    text.append("): ").append(match.substr(0, kPiece)).append(suffix_);
  }
  out_.FlushIfLarge();
}

}  // namespace

void ExtractStrings(ByteSource& source, std::string_view shownName, AnchoredPattern& pattern, TextSink& out,
                    std::string_view lineEnd, Progress* progress) {
  Extraction(source, shownName, pattern, out, lineEnd, progress).Run();
}

}  // namespace tarrow
