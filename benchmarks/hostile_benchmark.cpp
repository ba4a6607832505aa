// Patterns that take for ever, over 16 MB: how long a search goes on without looking whether the user has had
// enough. PCRE2's interpreter, which knows no such look, is given the same patterns and ends by its own limit
// on steps; that counts no compared bytes, so with long back-references it does not come in time.

#include "base/exceptions.h"
#include "benchmarks/report.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>

#include <string>

namespace tarrow::bench {
namespace {

struct HostileRow {
  const char* name;
  std::string tarrow;
  std::string perl;
  const std::string& text;
  bool rivalEnds = true;  // within minutes
};

std::string Repeated(std::string_view piece, int count) {
  std::string out;
  for (; count > 0; --count) out += piece;
  return out;
}

// Measures the time between polls; the user has had enough after `seconds`.
class Patience final : public Progress {
 public:
  explicit Patience(double seconds) : seconds_(seconds) {}

  void Poll() override {
    longest_ = std::max(longest_, Since(last_));
    last_ = Clock::now();
    if (Since(began_) > seconds_) throw CYieldException();
  }
  double Longest() const { return std::max(longest_, Since(last_)); }

 private:
  using Clock = std::chrono::steady_clock;

  static double Since(Clock::time_point then) {
    return std::chrono::duration<double>(Clock::now() - then).count();
  }

  double seconds_, longest_ = 0;
  Clock::time_point began_ = Clock::now(), last_ = began_;
};

double LongestWithoutPoll(const HostileRow& row, double seconds) {
  Patience patience(seconds);
  try {
    CompiledPattern pattern;
    Check(CompileFindPattern(row.tarrow, {}, pattern) == PatternError::kNone, row.name);
    TextView view(row.text);
    Check(SearchPattern(pattern, view, BytePos(0), view.Size(), nullptr, &patience) < 0, row.name);
  } catch (const CYieldException&) {
  }
  return patience.Longest();
}

double SecondsOfPcre(const HostileRow& row) {
  int error = 0;
  PCRE2_SIZE offset = 0;
  pcre2_code* code = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(row.perl.c_str()), PCRE2_ZERO_TERMINATED,
                                   PCRE2_MULTILINE, &error, &offset, nullptr);
  Check(code != nullptr, row.name);
  pcre2_match_data* data = pcre2_match_data_create_from_pattern(code, nullptr);
  int result = 0;
  double seconds = Seconds([&] {
    result = pcre2_match(code, reinterpret_cast<PCRE2_SPTR>(row.text.data()), row.text.size(), 0, 0, data,
                         nullptr);
  });
  Check(result < 0, row.name);
  pcre2_match_data_free(data);
  pcre2_code_free(code);
  return seconds;
}

int Main(bool isQuick) {
  std::size_t size = isQuick ? 1'000'000 : 16'000'000;
  std::string letters(size, 'x'), feeds(size, '\n'), third(size / 3, 'x'),
      twice = third + "b" + third + third;
  const HostileRow kRows[] = {
      {"nested closures", "\\(\\(x*\\)*\\)*y", "(?:(?:x*)*)*y", letters},
      {"optional items", Repeated("x?", 30) + Repeated("x", 30) + "y",
       Repeated("x?", 30) + Repeated("x", 30) + "y", letters},
      {"optional groups", Repeated("\\(x?\\)?", 40) + "y", Repeated("(?:x?)?", 40) + "y", letters},
      {"back-reference of megabytes", "\\(x*\\)b" + Repeated(".?", 20) + "\\1y",
       "(x*+)b" + Repeated(".?", 20) + "\\1y", twice, false},
      {"literals that lead nowhere", "[0-9]+x", "[0-9]+x", letters},
      {"lines that lead nowhere", "^[a-c]", "^[a-c]", feeds},
      {"much code", Repeated(".", 16'000) + "y", Repeated(".", 16'000) + "y", letters, false},
  };
  for (const HostileRow& row : kRows) {
    double own = LongestWithoutPoll(row, isQuick ? 0.1 : 1);
    std::string work = std::string("hostile, ") + row.name + ": longest wait for Escape";
    if (row.rivalEnds) Row({work, own, "PCRE2 interpreter, whole", SecondsOfPcre(row), "s", 0});
    Row({work, own, "a tenth of a second", 0.1, "s", 1});
  }
  return 0;
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  return tarrow::bench::Main(tarrow::bench::IsQuick(argc, argv));
}
