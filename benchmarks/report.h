#pragma once
// What every benchmark shares: the options, timing, checking, and the rows that ./bench gathers into one
// table.
//
// A benchmark first checks that Tarrow and its rival come to the same result, then times both in turn in the
// same run. It prints one Row per work; a row is fields between tabs:
//   work, Tarrow's figure, name of the rival, the rival's figure, unit, goal
// where smaller figures are better and the goal is the least wanted rival/Tarrow (0: none).

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>
#include <string_view>

namespace tarrow::bench {

// --quick asks for sizes that take a second or two in all, to see that the benchmark still works.
inline bool IsQuick(int argc, char** argv) {
  return std::any_of(argv + 1, argv + argc,
                     [](const char* word) { return std::string_view(word) == "--quick"; });
}

// Ends the program when a result is wrong: the time of a wrong result means nothing.
inline void Check(bool isRight, const char* what) {
  if (isRight) return;
  std::fprintf(stderr, "wrong result: %s\n", what);
  std::exit(1);
}

// Ends the program when the rival `program` is not there: a table without it would look like a good one.
inline void RequireProgram(const char* program, const char* package) {
  std::string command = std::string(program) + " --version >/dev/null 2>&1";
  if (std::system(command.c_str()) == 0) return;
  std::fprintf(stderr, "cannot be measured without the package %s\n", package);
  std::exit(1);
}

// The seconds of one run of `work`.
template <typename Work>
double Seconds(Work&& work) {
  const auto began = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - began).count();
}

// The best of several runs: what disturbs a run only ever makes it longer.
template <typename Work>
double BestSeconds(int runs, Work&& work) {
  double best = std::numeric_limits<double>::infinity();
  for (int run = 0; run < runs; ++run) best = std::min(best, Seconds(work));
  return best;
}

struct Result {
  std::string work;        // "load 100 MB of Unix text"
  double tarrow = 0;       // Tarrow's figure
  std::string rival;       // "unix2dos"
  double rivalFigure = 0;  // the rival's figure for the same work
  std::string unit = "s";  // "s" or "MB"
  double goal = 0;         // the least wanted rivalFigure / tarrow; 0 for none
};

inline void Row(const Result& result) {
  std::printf("%s\t%.9g\t%s\t%.9g\t%s\t%g\n", result.work.c_str(), result.tarrow, result.rival.c_str(),
              result.rivalFigure, result.unit.c_str(), result.goal);
  std::fflush(stdout);
}

}  // namespace tarrow::bench
