#include "search/pattern/anchored_scan.h"

#include "search/pattern/backtracker.h"
#include "search/pattern/prepared_search.h"

#include <algorithm>
#include <new>

namespace tarrow {
namespace {

class AnchoredScan {
 public:
  AnchoredScan(CompiledPattern& pattern, std::string_view buffer, Progress* progress)
      : plan_(ScanPlanOf(pattern)),
        buffer_(buffer),
        text_{TextView(buffer)},
        ticker_(progress),
        matcher_(pattern, ProgramOf(pattern), text_, 0, text_.Size(), ticker_) {}

  std::optional<AnchoredMatch> Find(std::size_t from, std::size_t end) {
    for (std::size_t place = Next(from); place < end;) {
      std::int32_t length = Try(place);
      if (length > 0) return AnchoredMatch{place, static_cast<std::size_t>(length)};
      place = Next(length == kNoMatch ? After(place) : place + 1);
    }
    return std::nullopt;
  }

 private:
  // The first place from `place` on at which a match may begin.
  std::size_t Next(std::size_t place) const {
    if (plan_.runLength == 0 || place >= buffer_.size()) return place;
    std::string_view rest = buffer_.substr(place);
    return place +
           (plan_.runLength > 1 ? plan_.run.FindRun(rest, plan_.runLength) : plan_.run.FindFirst(rest));
  }

  // A failure at the front of a run of what the pattern begins to repeat is a failure all along it.
  std::size_t After(std::size_t place) const {
    if (!plan_.skipsLeadRun || matcher_.WasStretched()) return place + 1;
    return place + std::max<std::size_t>(plan_.leadRun.FindFirstNot(buffer_.substr(place)), 1);
  }

  std::int32_t Try(std::size_t place) {
    try {
      return matcher_.RunFromStart(static_cast<std::int32_t>(place));
    } catch (const std::bad_alloc&) {
      return kMatcherOverflow;
    }
  }

  const ScanPlan& plan_;
  std::string_view buffer_;
  FlatText text_;
  ProgressTicker ticker_;
  Backtracker<FlatText> matcher_;
};

}  // namespace

std::optional<AnchoredMatch> FindAnchoredMatch(CompiledPattern& pattern, std::string_view buffer,
                                               std::size_t from, std::size_t end, Progress* progress) {
  return AnchoredScan(pattern, buffer, progress).Find(from, end);
}

}  // namespace tarrow
