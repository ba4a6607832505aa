#include "search/pattern/pattern_search.h"

#include "search/pattern/backtracker.h"
#include "search/pattern/first_char_map.h"
#include "search/pattern/prepared_search.h"
#include "search/pattern/utf8_text.h"

#include <new>

namespace tarrow {
namespace {

template <typename Text>
class Search {
 public:
  Search(CompiledPattern& pattern, const Text& text, std::int32_t stop, MatchRegisters* registers,
         Progress* progress)
      : pattern_(pattern),
        plan_(PlanOf(pattern)),
        program_(pattern.prepared.search->program),
        words_(program_.alphabet->words),
        text_(text),
        size_(text.Size()),
        stop_(stop),
        registers_(registers),
        ticker_(progress),
        matcher_(pattern, program_, text_, 0, stop, ticker_) {}

  std::int32_t Forward(std::int32_t start, std::int32_t range) {
    bool reachesEnd = range > size_ - start;
    std::int32_t end = reachesEnd ? size_ : start + range;
    if (std::int32_t found = FindIn(start, end); found != kNoMatch) return found;
    return TriesLast(end, reachesEnd) ? Try(end) : kNoMatch;
  }

  std::int32_t Backward(std::int32_t start, std::int32_t range) {
    std::int32_t last = start + range == 0 ? 0 : std::max(start + range + 1, 0);
    for (; start >= last; --start) {
      ticker_.Tick();
      if (start < size_ && plan_.hasFirst && !plan_.first.Has(text_[start])) continue;
      if (std::int32_t found = Try(start); found != kNoMatch) return found;
    }
    return kNoMatch;
  }

 private:
  // How far a scan goes before it polls.
  static constexpr std::int32_t kChunk = 32768;
  static constexpr int kChunkWeight = 1000;

  // Is the place behind the others tried too? The end of the text is, if something could match there; the end
  // of the range is when the search arrived there by passing over bytes rather than by failing.
  bool TriesLast(std::int32_t end, bool reachesEnd) const {
    if (end == size_ && pattern_.canBeEmpty == CanBeEmpty::kNever) return false;
    if (reachesEnd) return true;
    bool usesMap = pattern_.canBeEmpty != CanBeEmpty::kAnywhere;
    return usesMap && !pattern_.firstCharMap[pattern_.Fold()[static_cast<std::uint8_t>(text_[end - 1])]];
  }

  // The first place in [from, end) at which the pattern matches, or what else came out there.
  std::int32_t FindIn(std::int32_t from, std::int32_t end) {
    switch (plan_.skipBy) {
      case SkipBy::kFirstByte:
        return FindByFirst(from, end);
      case SkipBy::kLineStarts:
        return FindByLineStarts(from, end);
      case SkipBy::kFixedLiteral:
        return FindByFixedLiteral(from, end);
      case SkipBy::kReachedLiteral:
        return FindByReachedLiteral(from, end);
    }
    return kNoMatch;
  }

  std::int32_t FindByFirst(std::int32_t from, std::int32_t end) {
    for (std::int32_t place = NextFirst(from, end); place < end; place = NextFirst(After(place), end))
      if (std::int32_t found = Try(place); found != kNoMatch) return found;
    return kNoMatch;
  }

  std::int32_t FindByLineStarts(std::int32_t from, std::int32_t end) {
    bool isAtStart = from == 0 || text_[from - 1] == '\n';
    for (std::int32_t place = isAtStart ? from : NextLine(from, end); place < end;
         place = NextLine(place, end)) {
      if (plan_.hasFirst && !plan_.first.Has(text_[place])) continue;
      if (std::int32_t found = Try(place); found != kNoMatch) return found;
    }
    return kNoMatch;
  }

  std::int32_t FindByFixedLiteral(std::int32_t from, std::int32_t end) {
    auto length = static_cast<std::int32_t>(plan_.literal.Length());
    std::int32_t offset = plan_.literalOffset;
    std::int32_t stop = end > size_ - offset - length ? size_ : end - 1 + offset + length;
    for (std::int32_t at = from + offset; (at = NextLiteral(at, stop)) < stop; ++at) {
      if (plan_.hasFirst && !plan_.first.Has(text_[at - offset])) continue;
      if (std::int32_t found = Try(at - offset); found != kNoMatch) return found;
    }
    return kNoMatch;
  }

  // From each literal back over the bytes that may stand before it, then forwards through the places so
  // gained.
  std::int32_t FindByReachedLiteral(std::int32_t from, std::int32_t end) {
    while (from < end) {
      std::int32_t literal = NextLiteral(from, size_);
      bool isThere = literal < size_ || plan_.orTextEnd;
      std::int32_t start = isThere ? text_.RunStart(plan_.reach, from, literal) : Beyond(end);
      if (plan_.mayOverflow && HasLongRun(from, start)) return FindByFirst(from, end);
      if (!isThere) return kNoMatch;
      std::int32_t stop = std::min(std::min(literal, size_ - 1) + 1, end);
      for (from = NextFirst(start, stop); from < stop; from = NextFirst(After(from), stop))
        if (std::int32_t found = Try(from); found != kNoMatch) return found;
      from = std::max(from, literal + 1);
    }
    return kNoMatch;
  }

  // Far enough behind `end` to see any long run that begins before it.
  std::int32_t Beyond(std::int32_t end) const { return std::min(size_ - end, SearchPlan::kLongRun) + end; }

  // Is there a run of more than kLongRun bytes of `reach` within [from, to)?
  bool HasLongRun(std::int32_t from, std::int32_t to) const {
    while (to - from > SearchPlan::kLongRun) {
      std::int32_t start = text_.RunStart(plan_.reach, from, from + SearchPlan::kLongRun);
      if (start == from) return true;
      from = start;
    }
    return false;
  }

  // Calls `find` for one chunk of [from, to) after another until it finds something before the chunk's end.
  template <typename Find>
  std::int32_t InChunks(std::int32_t from, std::int32_t to, Find find) {
    while (to - from > kChunk) {
      std::int32_t end = from + kChunk, at = find(from, end);
      if (at < end) return at;
      ticker_.Tick(kChunkWeight);
      from = end;
    }
    return from < to ? find(from, to) : to;
  }

  std::int32_t NextFirst(std::int32_t from, std::int32_t to) {
    if (!plan_.hasFirst) return std::min(from, to);
    if (plan_.atWordStart)
      return InChunks(from, to,
                      [&](auto a, auto b) { return text_.FindWordStart(words_, plan_.first, a, b); });
    return InChunks(from, to, [&](auto a, auto b) { return text_.FindFirst(plan_.first, a, b); });
  }

  std::int32_t NextLine(std::int32_t from, std::int32_t to) {
    ticker_.Tick();
    std::int32_t feed = InChunks(from, to, [&](auto a, auto b) { return text_.FindByte('\n', a, b); });
    return feed < to ? feed + 1 : to;
  }

  // The next place where the literal stands wholly before `to`; `to` without any.
  std::int32_t NextLiteral(std::int32_t from, std::int32_t to) {
    auto overlap = static_cast<std::int32_t>(plan_.literal.Length()) - 1;
    if (to - overlap <= from) return to;
    ticker_.Tick();
    std::int32_t at = InChunks(from, to - overlap, [&](auto a, auto b) {
      std::int32_t found = text_.FindLiteral(plan_.literal, a, b + overlap);
      return found < b ? found : b;
    });
    return at < to - overlap ? at : to;
  }

  // The next place worth trying after the pattern has failed at `place`.
  std::int32_t After(std::int32_t place) {
    if (!plan_.skipsLeadRun || matcher_.WasStretched()) return place + 1;
    std::int32_t end = text_.FindFirstNot(plan_.leadRun, place, size_);
    ticker_.Tick((end - place) / 256);
    return end > place && end < size_ ? end + 1 : std::max(end, place + 1);
  }

  std::int32_t Try(std::int32_t place) {
    if (plan_.atWordStart && place > 0 && words_.Has(text_[place - 1])) return kNoMatch;
    // No match begins behind the stop, nor within a character.
    if (place > stop_ || (pattern_.isForUtf8 && Utf8Start(text_, place) != place)) return kNoMatch;
    std::int32_t length = matcher_.Run(place);
    if (length < 0) return length;
    if (registers_) matcher_.Report(place, *registers_);
    return place;
  }

  CompiledPattern& pattern_;
  const SearchPlan& plan_;
  MatchProgram& program_;
  const ByteClass& words_;
  Text text_;
  std::int32_t size_;
  std::int32_t stop_;
  MatchRegisters* registers_;
  ProgressTicker ticker_;
  Backtracker<Text> matcher_;
};

}  // namespace

std::int32_t SearchPattern(CompiledPattern& pattern, const TextView& text, BytePos start, std::int32_t range,
                           MatchRegisters* registers, Progress* progress, std::optional<BytePos> stop) {
  if (range == 0 || start.value < 0 || start > text.End()) return kNoMatch;
  try {
    if (!pattern.mapValid) ComputeFirstCharMap(pattern);
    return WithText(text, [&](const auto& accessible) {
      std::int32_t end = std::min(stop.value_or(text.End()), text.End()).value;
      Search search(pattern, accessible, end, registers, progress);
      return range > 0 ? search.Forward(start.value, range) : search.Backward(start.value, range);
    });
  } catch (const std::bad_alloc&) {
    return kMatcherOverflow;
  }
}

}  // namespace tarrow
