// Lexing C: 100 MB of headers, the states alone and with the parts of every line, through the text as a
// window holds it; the same after a comment is opened at its start.
#include "edit/lexers/lexers.h"
#include "edit/lexers/line_states.h"

#include "benchmarks/c_text.h"
#include "benchmarks/report.h"

#include <algorithm>

namespace tarrow::bench {
namespace {

constexpr int kRuns = 5;
constexpr double kLeastSpeed = 300e6;  // bytes a second

TextBuffer BufferOf(const std::string& text) {
  TextBuffer buffer;
  auto size = static_cast<std::int64_t>(text.size());
  std::ranges::copy(text, buffer.PrepareLoad(size).begin());
  buffer.FinishLoad(size);
  return buffer;
}

void SettleAll(const TextBuffer& buffer, LineStates& states) {
  states.Settle(buffer, LineStates::kAllLines, std::numeric_limits<std::int64_t>::max());
  Check(states.IsSettled(), "all lines settled");
}

// Counts the runs, so that nobody leaves them out.
std::size_t LexAll(const TextBuffer& buffer, LineStates& states) {
  std::size_t count = 0;
  for (LineNo line; line <= buffer.LastLine(); ++line) count += states.RunsOf(buffer, line).Size();
  return count;
}

void LexHeaders(std::size_t megabytes) {
  std::string text = MakeCText(megabytes << 20, true);
  Check(!text.empty(), "headers of this machine");
  double most = static_cast<double>(text.size()) / kLeastSpeed;
  std::string of = " of " + std::to_string(megabytes) + " MB of headers";
  TextBuffer buffer = BufferOf(text);
  LineStates states;
  double settle = BestSeconds(kRuns, [&] {
    states.Reset(buffer, &CSourceLexer());
    SettleAll(buffer, states);
  });
  Row({"the states" + of, settle, "300 MB/s", most, "s", 1});

  std::size_t runs = 0;
  double lex = BestSeconds(kRuns, [&] { runs = LexAll(buffer, states); });
  Check(runs > text.size() / 100, "runs found");
  Row({"the parts" + of, lex, "300 MB/s", most, "s", 1});

  buffer.Replace({BytePos(0), BytePos(0)}, "/*");
  double change = Seconds([&] { states.Settle(buffer, {0, 100}, 1 << 16); });
  Row({"a screen behind a comment that is opened at the start" + of, change, "a millisecond", 1e-3, "s", 1});
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  tarrow::bench::LexHeaders(tarrow::bench::IsQuick(argc, argv) ? 4 : 100);
}
