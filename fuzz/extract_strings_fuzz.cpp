// A pattern (the default one if there is none), its end marked by a 0xFF, and bytes: what is extracted stands
// in the file where it is said to, in order, and the fast scan finds what trying every place finds.
#include "tools/extraction/extract_strings.h"

#include "base/exceptions.h"
#include "fuzz/long_input.h"
#include "search/pattern/anchored_scan.h"
#include "search/pattern/regex_compiler.h"
#include "search/pattern/regex_matcher.h"

#include <cstdint>
#include <cstdlib>

namespace {

// Patterns may take exponential time; what takes longer than this many polls is given up.
struct Patience final : tarrow::Progress {
  void Poll() override { throw tarrow::CYieldException(); }
};

struct Pattern final : tarrow::AnchoredPattern {
  Match FindFirst(std::string_view text, std::size_t from, std::size_t limit, tarrow::Progress*) override {
    auto found = tarrow::FindAnchoredMatch(fast, text, from, limit, &patience);
    Match match = found ? Match{found->at, found->length} : Match{limit, 0};
    for (std::size_t at = from; at <= match.start && at < limit; ++at) {
      tarrow::TextView rest = text.substr(at);
      std::int32_t length =
          std::max(tarrow::MatchAt(slow, rest, tarrow::BytePos(0), rest.End(), nullptr, &patience), 0);
      if (static_cast<std::size_t>(length) != (at == match.start ? match.length : 0)) std::abort();
    }
    last = match;
    return match;
  }

  tarrow::CompiledPattern fast, slow;
  Patience patience;
  Match last;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  std::string_view text = input.substr(0, input.find('\xFF'));
  std::string_view rest = input.substr(std::min(text.size() + 1, input.size()));
  std::string bytes =
      tarrow::LongInput(rest, rest.empty() ? 0 : static_cast<std::uint8_t>(rest[0]), 33 << 10);
  if (text.empty()) text = tarrow::kDefaultStringPattern;
  Pattern pattern;
  if (tarrow::CompilePattern(text, pattern.fast) != tarrow::PatternError::kNone) return 0;
  if (tarrow::CompilePattern(text, pattern.slow) != tarrow::PatternError::kNone) std::abort();
  tarrow::StringSource source(bytes);
  tarrow::StringSink out;
  try {
    tarrow::ExtractStrings(source, "f", pattern, out, "\n", &pattern.patience);
  } catch (const tarrow::CYieldException&) {
    return 0;
  }
  // Each line names an offset behind the one before, and shows what stands there.
  std::size_t at = 0, end = 0;
  for (rest = out.text; !rest.empty();) {
    if (!rest.starts_with("f(0x")) std::abort();
    at = std::strtoull(rest.data() + 4, nullptr, 16);
    rest.remove_prefix(rest.find("): ") + 3);
    std::size_t n = 0;
    while (n < 128 && at + n < bytes.size() && n < rest.size() && rest[n] == bytes[at + n]) ++n;
    while (n > 0 && rest.substr(n, 5) != "\nf(0x" && rest.substr(n) != "\n") --n;
    if (at < end || n == 0) std::abort();
    end = at + n;
    rest.remove_prefix(n + 1);
  }
  return 0;
}
