#include "search/pattern/first_char_map.h"
#include "search/pattern/pattern_search.h"
#include "search/pattern/regex_compiler.h"
#include "search/pattern/regex_dump.h"
#include "tests/search/pattern/naive_matcher.h"
#include "tests/search/pattern/random_patterns.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace tarrow {
namespace {

// How many pairs to try: TARROW_REGEX_PAIRS, or what is quick.
int PairCount() {
  const char* wanted = std::getenv("TARROW_REGEX_PAIRS");
  return wanted ? std::atoi(wanted) : 20'000;
}

// One compiled pattern searched several times by the engine and by the naive one, each with code of its own:
// results and registers must agree. Counts the searches in `pairs`.
void Compare(RandomPatterns& generator, const std::string& source, bool foldCase, int& pairs) {
  CompiledPattern compiled;
  compiled.foldCase = foldCase;
  if (CompilePattern(source, compiled) != PatternError::kNone) return;
  ComputeFirstCharMap(compiled);
  std::string pristine = DumpPattern(compiled);
  std::vector<std::uint8_t> naiveCode = compiled.code;
  for (int round = 0; round < 3; ++round) {
    std::string text = generator.Text();
    int size = static_cast<int>(text.size());
    int start = generator.Below(3) ? 0 : generator.Below(size + 1);
    int range = generator.Below(3) ? size - start : -start;
    if (generator.Below(4) == 0) range = generator.Below(2 * size + 2) - size;
    int gap = generator.Below(size + 1);

    CompiledPattern naivePattern;
    naivePattern.foldCase = foldCase;
    naivePattern.code = naiveCode;
    MatchRegisters expected, actual;
    naive::Limits limits{2'000'000};
    int wanted = naive::SearchPattern(naivePattern, text, start, range, expected, limits);
    if (wanted == naive::kOutOfSteps) return;
    ++pairs;
    naiveCode = naivePattern.code;

    TextView view(std::string_view(text).substr(0, gap), std::string_view(text).substr(gap));
    int found = SearchPattern(compiled, view, BytePos(start), range, &actual);
    ASSERT_EQ(found, wanted) << Quoted(source) << " in " << Quoted(text) << " from " << start << " range "
                             << range << " fold " << foldCase << "\n"
                             << pristine;
    if (found >= 0) {
      ASSERT_EQ(actual, expected) << Quoted(source) << " in " << Quoted(text) << " from " << start << "\n"
                                  << pristine;
    }
  }
}

TEST(RegexProperty, AgreesWithTheNaiveMatcher) {
  RandomPatterns generator(20261121);
  for (int pairs = 0, wanted = PairCount(); pairs < wanted && !testing::Test::HasFatalFailure();) {
    std::string pattern = generator.Pattern();
    Compare(generator, pattern, generator.Below(3) == 0, pairs);
  }
}

}  // namespace
}  // namespace tarrow
