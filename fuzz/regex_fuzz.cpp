// Any pattern over any text: the engine and the naive interpreter of the same byte code come to the same
// result, forwards and backwards, wherever the text's gap lies. Where the naive one takes too many steps
// nothing is compared, but the engine must let itself be stopped. As a pattern for UTF-8 it takes no
// character apart.
#include "base/exceptions.h"
#include "search/pattern/anchored_scan.h"
#include "search/pattern/find_pattern.h"
#include "search/pattern/pattern_search.h"
#include "search/pattern/regex_compiler.h"
#include "search/pattern/regex_dump.h"
#include "search/pattern/utf8_text.h"
#include "tests/search/pattern/naive_matcher.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>

using namespace tarrow;  // NOLINT

namespace {

class StopAtOnce final : public tarrow::Progress {
 public:
  void Poll() override { throw tarrow::CYieldException(); }
};

void Require(bool holds) {
  if (!holds) std::abort();
}

void CompareSearch(tarrow::CompiledPattern pattern, const std::string& text, std::size_t gap, int start,
                   int range) {
  tarrow::CompiledPattern naivePattern = pattern;
  tarrow::MatchRegisters expected, actual;
  tarrow::naive::Limits limits{60'000};
  int wanted = tarrow::naive::SearchPattern(naivePattern, text, start, range, expected, limits);
  tarrow::TextView view(std::string_view(text).substr(0, gap), std::string_view(text).substr(gap));
  StopAtOnce progress;
  try {
    int found = tarrow::SearchPattern(pattern, view, tarrow::BytePos(start), range, &actual, &progress);
    if (wanted == tarrow::naive::kOutOfSteps) return;
    Require(found == wanted);
    Require(found < 0 || actual == expected);
  } catch (const tarrow::CYieldException&) {
  }
}

}  // namespace

// What patterns are made of, so that groups close and closures have something to repeat.
std::string PatternOf(const std::string& bytes) {
  static const char* const kPieces[] = {"a",   "b",     "ab",   ".",    ".*",      "*",        "+",   "?",
                                        "^",   "$",     "\\(",  "\\)",  "\\(a\\)", "\\(b*\\)", "\\1", "\\2",
                                        "\\<", "\\>",   "[ab]", "[^a]", "[a-z]*",  "[^\r\n]",  "\\t", "\r\n",
                                        "é",   "[é-ü]", "É*",   "[]",   "\\",      "_"};
  std::string pattern;
  for (char c : bytes) {
    auto number = static_cast<unsigned char>(c);
    pattern += number < 0xC0 ? kPieces[number % std::size(kPieces)] : std::string(1, c);
  }
  return pattern;
}

void SearchInUtf8(const std::string& source, const std::string& text, bool foldCase) {
  CompiledPattern pattern;
  if (CompileFindPattern(source, {.matchCase = !foldCase}, Charset(), pattern) != PatternError::kNone) return;
  Require(pattern.code.empty() == DumpPattern(pattern).empty());
  TextView view(text);
  MatchRegisters registers;
  StopAtOnce progress;
  if (SearchPattern(pattern, view, BytePos(0), view.Size(), &registers, &progress) < 0) return;
  for (int r = 0; r < MatchRegisters::kCount; ++r)
    if (auto range = registers.Range(r)) {
      Require(Utf8Start(FlatText(view), range->start.value) == range->start.value);
      Require(Utf8Start(FlatText(view), range->end.value) == range->end.value);
    }
}

// The first bytes choose the case option, whether the pattern is made of pieces, the gap, the start and the
// length of the pattern.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 4) return 0;
  std::string bytes(reinterpret_cast<const char*>(data) + 4, size - 4);
  std::size_t patternLength = std::min<std::size_t>(data[3], bytes.size());
  std::string source = bytes.substr(0, patternLength), text = bytes.substr(patternLength);
  if (data[0] & 0x80) source = PatternOf(source);
  try {
    SearchInUtf8(source, text, data[0] & 1);
  } catch (const tarrow::CYieldException&) {
  }
  tarrow::CompiledPattern pattern;
  pattern.foldCase = data[0] & 1;
  if (tarrow::CompilePattern(source, pattern) != tarrow::PatternError::kNone) return 0;
  Require(pattern.code.empty() == tarrow::DumpPattern(pattern).empty());
  // A long run now and then reaches the limits of the failure stack.
  if ((data[0] & 14) == 2) text += std::string(4090 + data[0] / 16, text.empty() ? 'a' : text.back());
  auto textSize = static_cast<int>(text.size());
  std::size_t gap = text.empty() ? 0 : data[1] % (text.size() + 1);
  int start = text.empty() ? 0 : data[2] % (textSize + 1);
  CompareSearch(pattern, text, gap, start, textSize - start);
  CompareSearch(pattern, text, gap, textSize, -textSize);
  CompareSearch(pattern, text, gap, start, 5);
  StopAtOnce progress;
  try {
    (void)tarrow::FindAnchoredMatch(pattern, text, 0, text.size(), &progress);
  } catch (const tarrow::CYieldException&) {
  }
  return 0;
}
