#include "search/files/file_search.h"

#include "base/byte_scan.h"
#include "base/text_format.h"
#include "search/pattern/pattern_search.h"
#include "search/pattern/prepared_search.h"

#include <charconv>
#include <cstring>

namespace tarrow {
namespace {

constexpr std::size_t kMaxLine = 255;
constexpr std::size_t kBufferSize = 256 * 1024;
constexpr std::size_t kCounted = 4096;  // bytes of lines at once, which seldom hold one that is too long

}  // namespace

// The lines of one file, as they come through the buffer. Whole stretches that cannot match are passed over
// by the same plan that a search in one text goes by; their lines are only counted, and that only when a
// number is needed. Where the pattern asks for it, lines beyond ASCII are taken one by one.
class FileSearch::Lines {
 public:
  Lines(FileSearch& search, std::string_view shownName)
      : search_(search),
        plain_(search.pattern_.Plain()),
        plan_(PlanOf(plain_)),
        prefix_(std::string(shownName) + "("),
        isListing_(search.listing_ == Listing::kLines),
        ticker_(search.progress_) {}

  // Searches the lines of `block` from `at` on, where one begins. What lies before has been searched when it
  // was the end of a shorter block; from 0 on it is another text. Unless the block is the last, the line at
  // its end that is not complete is left alone. Returns where the lines end that were taken.
  std::size_t Search(std::string_view block, std::size_t at, bool isLast) {
    block_ = block;
    if (at == 0) state_.counted = beyond_ = 0;
    while (at < block.size()) {
      ticker_.Tick();
      FindBeyondAscii(at);
      std::size_t candidate = NextCandidate(at);
      if (candidate == block.size() && isLast) return candidate;
      std::size_t start = LineOf(candidate, at);
      std::size_t end = start + FindByte(block.substr(start), '\n');
      if (end == block.size() && !isLast) {
        at = start;
        break;
      }
      at = SearchLine(start, end);
    }
    return std::min(at, block.size());
  }

  // Brings the line number up to the line that begins at `place` of the block, if numbers are needed.
  void CountTo(std::size_t place) {
    while (isListing_ && state_.counted < place) {
      std::string_view lines = block_.substr(state_.counted, place - state_.counted);
      if (lines.size() > kCounted)
        lines = lines.substr(0, kCounted + FindByte(lines.substr(kCounted), '\n') + 1);
      ByteCount feeds = CountByteAndGaps(lines, '\n');
      state_.lineNumber +=
          static_cast<std::int64_t>(feeds.count) + (feeds.hasLongGap ? ExtraLines(lines) : 0);
      state_.counted += lines.size();
    }
  }

  // Takes as many whole lines of 255 characters as there are in `block`, none of which is a line feed.
  std::size_t SearchPieces(std::string_view block) {
    std::size_t at = 0;
    CompiledPattern& pattern = beyond_ < block.size() ? search_.pattern_.ForPart(block) : plain_;
    for (; block.size() - at > kMaxLine; at += kMaxLine) SearchPiece(pattern, block.substr(at, kMaxLine));
    return at;
  }

  std::int64_t MatchCount() const { return state_.matchCount; }

  // Writes what has been found, and holds to it.
  void Flush() {
    if (!output_.empty()) search_.sink_.Write(output_);
    output_.clear();
    flushed_ = state_;
  }

  // Takes back all since then.
  void Forget() {
    output_.clear();
    state_ = flushed_;
  }

 private:
  struct State {
    std::size_t counted = 0;  // the lines of the block before this place are in lineNumber
    std::int64_t lineNumber = 0;
    std::int64_t matchCount = 0;
  };

  // Moves beyond_ to the first byte from `at` on that is not ASCII; behind the block if none matters.
  void FindBeyondAscii(std::size_t at) {
    if (search_.pattern_.IsPlainForAll())
      beyond_ = block_.size();
    else if (beyond_ <= at)
      beyond_ = at + FindHighByte(block_.substr(at));
  }

  // The first byte from `at` on that could belong to a match: no line before its own matches.
  std::size_t NextCandidate(std::size_t at) {
    std::string_view ascii = block_.substr(at, beyond_ - at);
    bool hasLiteral = plan_.skipBy == SkipBy::kFixedLiteral || plan_.skipBy == SkipBy::kReachedLiteral;
    if (hasLiteral && !plan_.orTextEnd) {
      std::size_t found = plan_.literal.Find(ascii);
      return found == LiteralFinder::kNotFound ? beyond_ : at + found;
    }
    return plan_.needsFirst ? at + plan_.first.FindFirst(ascii) : at;
  }

  // The start of the line that holds the byte at `place`; no line before `from` is looked at.
  std::size_t LineOf(std::size_t place, std::size_t from) const {
    std::string_view before = block_.substr(from, place - from);
    std::size_t feed = FindLastByte(before, '\n');
    return feed == before.size() ? from : from + feed + 1;
  }

  // Searches the line of the block in [start, end), with a line feed at `end` or the end of the file. Returns
  // where the next line begins.
  std::size_t SearchLine(std::size_t start, std::size_t end) {
    bool hasFeed = end < block_.size();
    std::string_view line = block_.substr(start, end - start);
    if (hasFeed && !line.empty() && line.back() == '\r') line.remove_suffix(1);
    CountTo(start);
    CompiledPattern& pattern = beyond_ < end ? search_.pattern_.ForLine(line) : plain_;
    while (line.size() + hasFeed > kMaxLine) {
      SearchPiece(pattern, line.substr(0, kMaxLine));
      line.remove_prefix(kMaxLine);
    }
    if (!line.empty() || hasFeed) SearchPiece(pattern, line);
    state_.counted = end + hasFeed;
    return state_.counted;
  }

  // Searches one line by itself, and numbers it.
  void SearchPiece(CompiledPattern& pattern, std::string_view line) {
    ++state_.lineNumber;
    if (line.empty()) return;
    auto size = static_cast<std::int32_t>(line.size());
    if (SearchPattern(pattern, TextView(line), BytePos(0), size, nullptr, search_.progress_) < 0) return;
    ++state_.matchCount;
    if (isListing_) Append(line);
  }

  // How many lines more than line feeds there are, because of lines that are too long.
  static std::int64_t ExtraLines(std::string_view lines) {
    std::int64_t extra = 0;
    while (lines.size() > kMaxLine) {
      std::size_t feed = FindLastByte(lines.substr(0, kMaxLine), '\n');
      if (feed < kMaxLine) {
        lines.remove_prefix(feed + 1);
        continue;
      }
      feed = FindByte(lines, '\n');
      std::size_t length = feed - (feed > 0 && lines[feed - 1] == '\r');
      extra += static_cast<std::int64_t>(length / kMaxLine);
      lines.remove_prefix(feed + 1);
    }
    return extra;
  }

  void Append(std::string_view line) {
    char digits[24];
    char* end = std::to_chars(digits, digits + sizeof digits, state_.lineNumber).ptr;
    output_.append(prefix_).append(digits, end).append("): ").append(line).append(search_.lineEnd_);
  }

  FileSearch& search_;
  CompiledPattern& plain_;
  const SearchPlan& plan_;
  std::string prefix_;
  bool isListing_;
  ProgressTicker ticker_;
  std::string_view block_;
  std::size_t beyond_ = 0;  // the next byte of the block for which the plain pattern may not do
  State state_, flushed_;
  std::string output_;
};

FileSearch::FileSearch(LinePattern& pattern, Listing listing, TextSink& sink, Progress* progress,
                       std::string_view lineEnd)
    : pattern_(pattern),
      listing_(listing),
      sink_(sink),
      progress_(progress),
      lineEnd_(lineEnd),
      buffer_(kBufferSize) {}

FileSearch::~FileSearch() = default;

std::int64_t FileSearch::Run(ByteSource& file, std::string_view shownName, std::string_view fullName) {
  Lines lines(*this, shownName);
  try {
    SearchMapped(lines, file);
    SearchRead(lines, file);
  } catch (...) {
    lines.Flush();
    throw;
  }
  lines.Flush();
  if (listing_ == Listing::kCounts && lines.MatchCount() > 0)
    sink_.Write(FormatText("%s: %d%s", {fullName, lines.MatchCount(), lineEnd_}));
  return lines.MatchCount();
}

// Nothing is written that the file did not hold; where it has been cut, reading tells how it goes on.
void FileSearch::SearchMapped(Lines& lines, ByteSource& file) {
  std::string_view text = file.Map();
  std::size_t taken = 0;
  while (taken < text.size()) {
    std::size_t end = std::min(taken + kBufferSize, text.size());
    end = std::min(end + FindByte(text.substr(end), '\n') + 1, text.size());
    lines.Search(text.substr(0, end), taken, true);
    if (!file.PassMapped(end - taken)) {
      lines.Forget();
      break;
    }
    lines.Flush();
    taken = end;
  }
  if (taken < text.size()) lines.CountTo(taken);
}

void FileSearch::SearchRead(Lines& lines, ByteSource& file) {
  std::size_t held = 0;
  for (bool isLast = false; !isLast;) {
    std::size_t wanted = buffer_.size() - held;
    std::size_t got = file.Read({buffer_.data() + held, wanted});
    isLast = got < wanted;
    held += got;
    std::string_view block(buffer_.data(), held);
    std::size_t taken = lines.Search(block, 0, isLast);
    if (taken > 0 && !isLast)
      lines.CountTo(taken);  // what has been searched leaves the buffer
    else if (!isLast)
      taken = lines.SearchPieces(block);
    lines.Flush();  // whoever watches a long search sees what it has found
    held -= taken;
    std::memmove(buffer_.data(), buffer_.data() + taken, held);
  }
}

}  // namespace tarrow
