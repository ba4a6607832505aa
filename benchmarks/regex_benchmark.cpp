// Every match of the patterns that programmers search for, over 100 MB of C with CR LF line ends, beside
// PCRE2 with its JIT compiler, RE2 and the C library's regexec.
//
// The rivals get patterns of their own dialect that find the same places; that they do is checked before the
// time is believed. regexec, which has no notion of a long text, gets the lines one by one, and as few of
// them as it needs for a measure; its time is scaled up.

#include "benchmarks/c_text.h"
#include "benchmarks/report.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"

#define PCRE2_CODE_UNIT_WIDTH 8
#include <pcre2.h>
#include <re2/re2.h>
#include <regex.h>

#include <cmath>
#include <cstdint>
#include <memory>

namespace tarrow::bench {
namespace {

struct PatternRow {
  const char* name;
  const char* tarrow;
  const char* perl;   // for PCRE2 and RE2
  const char* posix;  // for regexec
  bool ignoreCase = false;
  bool hasBackReference = false;  // which RE2 has not
};

constexpr PatternRow kPatterns[] = {
    {"common literal", "return", "return", "return"},
    {"rare literal", "EOVERFLOW", "EOVERFLOW", "EOVERFLOW"},
    {"absent literal", "zyxwvutsrq", "zyxwvutsrq", "zyxwvutsrq"},
    {"literal in any case", "error", "error", "error", true},
    {"whole word", "\\<if\\>", "\\bif\\b", "\\<if\\>"},
    {"capital words", "\\<[A-Z][A-Z0-9_]*\\>", "\\b[A-Z][A-Z0-9_]*\\b", "\\<[A-Z][A-Z0-9_]*\\>"},
    {"^#include", "^#include", "^#include", "^#include"},
    {"indented #define", "^[ \\t]*#[ \\t]*define", "^[ \\t]*#[ \\t]*define", "^[ \t]*#[ \t]*define"},
    {"numbers", "[0-9]+", "[0-9]+", "[0-9]+"},
    {"calls", "[A-Za-z_][A-Za-z0-9_]*(", "[A-Za-z_][A-Za-z0-9_]*\\(", "[A-Za-z_][A-Za-z0-9_]*\\("},
    {"strings", "\"[^\"\r\n]*\"", "\"[^\"\\r\\n]*\"", "\"[^\"\r\n]*\""},
    {"dot-star", "struct.*{", "struct[^\\r\\n]*\\{", "struct[^\r\n]*\\{"},
    {"whole lines", ".*deprecated.*", "[^\\r\\n]*deprecated[^\\r\\n]*", "[^\r\n]*deprecated[^\r\n]*"},
    {"groups", "\\([a-z_]+\\)->\\([a-z_]+\\)", "([a-z_]+)->([a-z_]+)", "([a-z_]+)->([a-z_]+)"},
    {"back-reference", "\\<\\([a-z]+\\) \\1\\>", "\\b([a-z]+) \\1\\b", "\\<([a-z]+) \\1\\>", false, true},
    {"trailing blanks", "[ \\t]+$", "[ \\t]+\\r", "[ \t]+\r"},
};

// How many matches there are and a digest of where they begin.
struct Places {
  std::int64_t count = 0;
  std::uint64_t digest = 0;

  void Add(std::size_t at) {
    ++count;
    digest = digest * 1099511628211u + at;
  }
  friend bool operator==(const Places&, const Places&) = default;
};

class TarrowEngine {
 public:
  explicit TarrowEngine(const PatternRow& row) {
    PatternError error = CompileFindPattern(row.tarrow, {.matchCase = !row.ignoreCase}, pattern_);
    Check(error == PatternError::kNone, row.name);
  }

  Places FindAll(std::string_view text) {
    Places places;
    TextView view(text);
    MatchRegisters registers;
    for (BytePos at; at < view.End(); at = BytePos(registers.end[0])) {
      std::int32_t found = SearchPattern(pattern_, view, at, view.End() - at, &registers);
      if (found < 0) break;
      places.Add(static_cast<std::size_t>(found));
    }
    return places;
  }

 private:
  CompiledPattern pattern_;
};

class PcreEngine {
 public:
  explicit PcreEngine(const PatternRow& row) {
    int error = 0;
    PCRE2_SIZE offset = 0;
    auto options = PCRE2_MULTILINE | (row.ignoreCase ? PCRE2_CASELESS : 0u);
    code_ = pcre2_compile(reinterpret_cast<PCRE2_SPTR>(row.perl), PCRE2_ZERO_TERMINATED, options, &error,
                          &offset, nullptr);
    Check(code_ && pcre2_jit_compile(code_, PCRE2_JIT_COMPLETE) == 0, row.name);
    data_ = pcre2_match_data_create_from_pattern(code_, nullptr);
  }
  ~PcreEngine() {
    pcre2_match_data_free(data_);
    pcre2_code_free(code_);
  }
  PcreEngine(const PcreEngine&) = delete;
  PcreEngine& operator=(const PcreEngine&) = delete;

  Places FindAll(std::string_view text) {
    Places places;
    auto subject = reinterpret_cast<PCRE2_SPTR>(text.data());
    const PCRE2_SIZE* ends = pcre2_get_ovector_pointer(data_);
    for (std::size_t at = 0; pcre2_jit_match(code_, subject, text.size(), at, 0, data_, nullptr) > 0;
         at = ends[1])
      places.Add(ends[0]);
    return places;
  }

 private:
  pcre2_code* code_;
  pcre2_match_data* data_;
};

class Re2Engine {
 public:
  explicit Re2Engine(const PatternRow& row) : expression_(std::string("(?m)") + row.perl, Options(row)) {
    Check(expression_.ok(), row.name);
  }

  Places FindAll(std::string_view text) {
    Places places;
    re2::StringPiece subject(text.data(), text.size()), match;
    for (std::size_t at = 0; expression_.Match(subject, at, text.size(), RE2::UNANCHORED, &match, 1);) {
      auto found = static_cast<std::size_t>(match.data() - text.data());
      places.Add(found);
      at = found + match.size();
    }
    return places;
  }

 private:
  static RE2::Options Options(const PatternRow& row) {
    RE2::Options options;
    options.set_encoding(RE2::Options::EncodingLatin1);
    options.set_case_sensitive(!row.ignoreCase);
    options.set_max_mem(64 << 20);
    return options;
  }

  RE2 expression_;
};

class PosixEngine {
 public:
  explicit PosixEngine(const PatternRow& row) {
    int flags = REG_EXTENDED | REG_NEWLINE | (row.ignoreCase ? REG_ICASE : 0);
    Check(regcomp(&expression_, row.posix, flags) == 0, row.name);
  }
  ~PosixEngine() { regfree(&expression_); }
  PosixEngine(const PosixEngine&) = delete;
  PosixEngine& operator=(const PosixEngine&) = delete;

  Places FindAll(std::string_view text) {
    Places places;
    for (std::size_t start = 0; start < text.size();) {
      std::size_t end = std::min(text.find('\n', start), text.size());
      for (std::size_t at = start; at < end;) {
        regmatch_t match;
        match.rm_so = 0;
        match.rm_eo = static_cast<regoff_t>(end - at);
        // What stands before the place is seen only as a flag: no line start there.
        int flags = REG_STARTEND | (at > start ? REG_NOTBOL : 0);
        if (regexec(&expression_, text.data() + at, 1, &match, flags) != 0) break;
        places.Add(at + static_cast<std::size_t>(match.rm_so));
        at += static_cast<std::size_t>(match.rm_eo);
      }
      start = end + 1;
    }
    return places;
  }

 private:
  regex_t expression_;
};

struct Timing {
  double seconds = 0;
  Places places;
};

template <typename Engine>
Timing Measure(const PatternRow& row, std::string_view text, int runs) {
  Engine engine(row);
  Timing timing;
  auto findAll = [&] { timing.places = engine.FindAll(text); };
  timing.seconds = BestSeconds(runs, findAll);
  // A short run is easily disturbed: it gets more chances.
  if (runs > 1 && timing.seconds < 0.05) timing.seconds = std::min(timing.seconds, BestSeconds(8, findAll));
  return timing;
}

struct Means {
  double tarrow = 0, best = 0, posix = 0;
  int count = 0;
};

// Measures one pattern and adds the logarithms of the times to `means`.
void MeasureRow(const PatternRow& row, std::string_view text, std::string_view sample, int runs,
                Means& means) {
  Timing tarrow = Measure<TarrowEngine>(row, text, runs);
  Timing best = Measure<PcreEngine>(row, text, runs);
  const char* name = "PCRE2 JIT";
  Check(best.places == tarrow.places, row.name);
  if (!row.hasBackReference) {
    Timing re2 = Measure<Re2Engine>(row, text, runs);
    Check(re2.places == tarrow.places, row.name);
    if (re2.seconds < best.seconds) {
      best = re2;
      name = "RE2";
    }
  }
  Timing posix = Measure<PosixEngine>(row, sample, 1);
  Check(posix.places == Measure<TarrowEngine>(row, sample, 1).places, row.name);
  double posixSeconds = posix.seconds * static_cast<double>(text.size()) / static_cast<double>(sample.size());

  std::string work = std::string("every match: ") + row.name;
  Row({work, tarrow.seconds, name, best.seconds, "s", 1});
  std::fprintf(stderr, "%-22s %9lld matches  tarrow %7.1f ms  %s %7.1f ms  regexec %9.1f ms\n", row.name,
               static_cast<long long>(tarrow.places.count), tarrow.seconds * 1e3, name, best.seconds * 1e3,
               posixSeconds * 1e3);
  means.tarrow += std::log(tarrow.seconds);
  means.best += std::log(best.seconds);
  means.posix += std::log(posixSeconds);
  ++means.count;
}

int Main(bool isQuick) {
  std::string text = MakeCText(isQuick ? 4'000'000 : 100'000'000, true);
  if (text.empty()) {
    std::fprintf(stderr, "cannot be measured without headers in /usr/include: the package libc6-dev\n");
    return 1;
  }
  std::string_view sample =
      std::string_view(text).substr(0, text.find('\n', text.size() / (isQuick ? 8 : 50)) + 1);
  Means means;
  for (const PatternRow& row : kPatterns) MeasureRow(row, text, sample, isQuick ? 1 : 3, means);
  auto mean = [&](double sum) { return std::exp(sum / means.count); };
  Row({"every match: geometric mean", mean(means.tarrow), "best per pattern", mean(means.best), "s", 1});
  Row({"every match: geometric mean", mean(means.tarrow), "regexec", mean(means.posix), "s", 5});
  return 0;
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  return tarrow::bench::Main(tarrow::bench::IsQuick(argc, argv));
}
