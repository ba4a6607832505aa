#include "tools/comparison/compare_files.h"

#include "tools/comparison/difference_writer.h"
#include "tools/comparison/pending_lines.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::uint64_t kResyncLines = 3;
constexpr std::uint64_t kForcedLines = 10;

// A pending line of the other file that is equal to the newest line, and how many lines up to it are equal
// to the ones before that.
struct Candidate {
  std::uint64_t line = 0;
  std::uint64_t run = 0;
};

struct Candidates {
  std::array<Candidate, 5> items;
  std::size_t count = 0;
};

class Comparison {
 public:
  Comparison(ByteSource& first, ByteSource& second, TextSink& out, const ComparisonOptions& options,
             Progress* progress)
      : files_{File(first, options), File(second, options)},
        writer_(out, options, progress),
        limit_(options.memoryLimit),
        ticker_(progress) {}

  // Abandoned for whatever reason, it leaves all that was settled before in the sink.
  bool Run() {
    try {
      ReadBoth();
    } catch (...) {
      writer_.Flush();
      throw;
    }
    writer_.Flush();
    return writer_.AnyWritten();
  }

 private:
  struct File {
    File(ByteSource& source, const ComparisonOptions& options)
        : lines(source, options.form == ComparisonForm::kPatch ? LineForm::kExact : LineForm::kText) {}

    PendingLines lines;
    Candidates candidates;
    bool atEnd = false;
  };

  void ReadBoth();
  void ReadLine(int f);
  bool ContinueRun(int f, const LineSpan& line);
  void FindCandidates(int f);
  void SettleRun(int f, Candidate found);
  void Settle(std::uint64_t run, std::uint64_t end0, std::uint64_t end1);
  void KeepWithinLimit(const LineSpan& line);
  bool RestIsEqual();

  File files_[2];
  DifferenceWriter writer_;
  std::uint64_t limit_;
  ProgressTicker ticker_;
};

void Comparison::ReadBoth() {
  while (!files_[0].atEnd || !files_[1].atEnd) {
    for (int f : {0, 1})
      if (!files_[f].atEnd) ReadLine(f);
    ticker_.Tick();
  }
  if (!RestIsEqual()) Settle(0, files_[0].lines.LinesRead(), files_[1].lines.LinesRead());
}

void Comparison::ReadLine(int f) {
  File& file = files_[f];
  LineSpan line;
  if (!file.lines.Read(line)) {
    file.atEnd = true;
    return;
  }
  if (ContinueRun(f, line)) return;
  KeepWithinLimit(line);
  file.lines.Append(line);
  if (files_[1 - f].lines.Empty())
    file.candidates.count = 0;
  else
    FindCandidates(f);
}

// Takes the quick way where the files agree: the newest run of this file ends just before the oldest pending
// line of the other, and this line is that one. The search would find it first, lengthen the run and settle a
// block of no lines.
bool Comparison::ContinueRun(int f, const LineSpan& line) {
  File& file = files_[f];
  PendingLines& other = files_[1 - f].lines;
  const Candidates& previous = file.candidates;
  if (previous.count != 1 || previous.items[0].run < kResyncLines) return false;
  if (previous.items[0].line != other.Settled() || other.Empty() || !file.lines.Empty()) return false;
  const LineSpan& expected = other[other.First()];
  if (expected.terminated != line.terminated || other.Text(expected) != file.lines.Text(line)) return false;
  file.lines.Skip();
  other.DropThrough(other.First());
  ++file.candidates.items[0].line;
  ++file.candidates.items[0].run;
  return true;
}

void Comparison::FindCandidates(int f) {
  File& file = files_[f];
  Candidates previous = file.candidates;
  FoundLines equal = files_[1 - f].lines.FindEqual(file.lines, file.lines.LinesRead());
  file.candidates.count = equal.count;
  for (std::size_t i = 0; i < equal.count; ++i) {
    Candidate& now = file.candidates.items[i] = {equal.numbers[i], 1};
    for (std::size_t p = 0; p < previous.count; ++p)
      if (previous.items[p].line + 1 == now.line) now.run += previous.items[p].run;
  }
  auto end = file.candidates.items.begin() + static_cast<std::ptrdiff_t>(equal.count);
  auto found = std::find_if(file.candidates.items.begin(), end,
                            [](const Candidate& c) { return c.run >= kResyncLines; });
  if (found != end) SettleRun(f, *found);
}

void Comparison::SettleRun(int f, Candidate found) {
  std::uint64_t newest = files_[f].lines.LinesRead();
  Settle(found.run, f == 0 ? newest : found.line, f == 0 ? found.line : newest);
  files_[f].candidates.items[0] = found;
  files_[f].candidates.count = 1;
}

// Settles the lines up to the two ends, the last `run` of which are equal.
void Comparison::Settle(std::uint64_t run, std::uint64_t end0, std::uint64_t end1) {
  writer_.Write(files_[0].lines, files_[1].lines, {run, end0, end1});
  files_[0].lines.DropThrough(end0);
  files_[1].lines.DropThrough(end1);
}

// Makes room for a line by settling the oldest ones by force. A run must not reach into lines that went out
// as different, so the candidates go too.
void Comparison::KeepWithinLimit(const LineSpan& line) {
  PendingLines &first = files_[0].lines, &second = files_[1].lines;
  while (first.Cost() + second.Cost() + line.length > limit_ && !(first.Empty() && second.Empty())) {
    Settle(0, std::min(first.First() + kForcedLines, first.LinesRead()),
           std::min(second.First() + kForcedLines, second.LinesRead()));
    files_[0].candidates.count = files_[1].candidates.count = 0;
  }
}

// At the end of both files: whether what is pending is equal line by line.
bool Comparison::RestIsEqual() {
  PendingLines &first = files_[0].lines, &second = files_[1].lines;
  if (first.LinesRead() - first.Settled() != second.LinesRead() - second.Settled()) return false;
  for (std::uint64_t i = 1; i <= first.LinesRead() - first.Settled(); ++i)
    if (!first.Equal(first.Settled() + i, second, second.Settled() + i)) return false;
  return true;
}

}  // namespace

bool CompareFiles(ByteSource& first, ByteSource& second, TextSink& out, const ComparisonOptions& options,
                  Progress* progress) {
  return Comparison(first, second, out, options, progress).Run();
}

}  // namespace tarrow
