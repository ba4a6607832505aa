// Replace All and Shift Right, found, collected and applied to the text of a window, beside loops written by
// hand that copy the text with the same changes.
#include "edit/commands/shift_lines.h"
#include "edit/text/text_buffer.h"
#include "search/find/replace_all.h"
#include "search/pattern/find_pattern.h"

#include "benchmarks/report.h"

#include <malloc.h>

#include <cstring>

namespace tarrow::bench {
namespace {

constexpr int kRuns = 3;
constexpr double kGoal = 0.1;  // within ten times

std::string RepeatLine(std::string_view line, std::size_t count) {
  std::string text;
  text.reserve(line.size() * count);
  for (std::size_t i = 0; i < count; ++i) text += line;
  return text;
}

TextBuffer BufferOf(std::string_view text) {
  TextBuffer buffer;
  auto room = buffer.PrepareLoad(static_cast<std::int64_t>(text.size()));
  std::memcpy(room.data(), text.data(), text.size());
  buffer.FinishLoad(static_cast<std::int64_t>(text.size()));
  return buffer;
}

// Times `edit` on fresh buffers of `text` and checks that it makes `expected` of them.
template <typename Edit>
double TimeEdit(std::string_view text, std::string_view expected, const char* what, Edit edit) {
  double best = std::numeric_limits<double>::infinity();
  for (int run = 0; run < kRuns; ++run) {
    TextBuffer buffer = BufferOf(text);
    best = std::min(best, Seconds([&] { edit(buffer); }));
    Check(buffer.Contiguous() == expected, what);
  }
  return best;
}

std::string CopyReplacing(std::string_view text, std::string_view word, std::string_view by) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(word, from)) != text.npos; from = at + word.size())
    out.append(text, from, at - from).append(by);
  return out.append(text, from);
}

void BenchReplaceAll(std::size_t matches) {
  std::string text = RepeatLine("int needle = compute(value, 17);  // a comment.\r\n", matches);
  std::string expected;
  double byHand = BestSeconds(kRuns, [&] { expected = CopyReplacing(text, "needle", "thread"); });
  double tarrow = TimeEdit(text, expected, "Replace All", [](TextBuffer& buffer) {
    CompiledPattern pattern;
    Check(CompileFindPattern("needle", {}, pattern) == PatternError::kNone, "pattern");
    Replacement replacement("thread", Charset());
    TextRange whole{BytePos(0), buffer.End()};
    buffer.Apply(ReplaceAll(pattern, buffer.Contiguous(), whole, replacement).edits);
  });
  Row({"Replace All, " + std::to_string(matches) + " matches in " + std::to_string(text.size() / 1000000) +
           " MB",
       tarrow, "copying by hand", byHand, "s", kGoal});
}

// Four columns more: two tabs stand for the tab and the four spaces that the lines begin with.
std::string CopyShifted(std::string_view text) {
  std::string out;
  out.reserve(text.size() + text.size() / 8);
  for (std::size_t from = 0; from < text.size();) {
    const void* end = std::memchr(text.data() + from, '\n', text.size() - from);
    std::size_t next =
        end ? static_cast<std::size_t>(static_cast<const char*>(end) - text.data()) + 1 : text.size();
    std::size_t blanks = from;
    int width = 0;
    for (; blanks < next && (text[blanks] == ' ' || text[blanks] == '\t'); ++blanks)
      width += text[blanks] == '\t' ? 8 - width % 8 : 1;
    width += 4;
    out.append(static_cast<std::size_t>(width / 8), '\t').append(static_cast<std::size_t>(width % 8), ' ');
    out.append(text, blanks, next - blanks);
    from = next;
  }
  return out;
}

void BenchShift(std::size_t lines) {
  std::string text = RepeatLine("\t    if (count > limit) return Clamp(count, limit);\r\n", lines);
  text.resize(text.size() - 2);
  std::string expected;
  double byHand = BestSeconds(kRuns, [&] { expected = CopyShifted(text); });
  double tarrow = TimeEdit(text, expected, "Shift Right", [](TextBuffer& buffer) {
    buffer.Apply(ShiftLines(buffer.View(), {BytePos(0), buffer.End()}, 4, {}).edits);
  });
  Row({"Shift Right, " + std::to_string(lines) + " lines", tarrow, "copying by hand", byHand, "s", kGoal});
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  // Each run of either side gets fresh pages, as the one command of a user does.
  ::mallopt(M_MMAP_THRESHOLD, 1 << 20);
  bool quick = tarrow::bench::IsQuick(argc, argv);
  tarrow::bench::BenchReplaceAll(quick ? 100000 : 2000000);
  tarrow::bench::BenchShift(quick ? 20000 : 100000);
}
