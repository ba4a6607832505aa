// Writes the blocks of a comparison: a header naming the lines of both files, the old lines, the new ones.
#pragma once

#include "base/text_batch.h"
#include "tools/comparison/compare_files.h"
#include "tools/comparison/pending_lines.h"

namespace tarrow {

// The lines pending up to the two ends; the last `run` of each file's are equal and not part of the block.
struct DifferenceBlock {
  std::uint64_t run = 0;
  std::uint64_t end0 = 0;
  std::uint64_t end1 = 0;
};

class DifferenceWriter {
 public:
  DifferenceWriter(TextSink& out, const ComparisonOptions& options, Progress* progress)
      : out_(out), options_(options), ticker_(progress) {}

  // Writes a block, unless it has no lines. Throws what the sink throws, CYieldException.
  void Write(const PendingLines& first, const PendingLines& second, const DifferenceBlock& block);
  void Flush() { out_.Flush(); }
  bool AnyWritten() const { return anyWritten_; }

 private:
  // Consecutive lines of one file; `last` may lie below `first` when there are none.
  struct Span {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint64_t shown = 0;  // the number in the header

    bool Empty() const { return last < first; }
  };

  Span SpanOf(const PendingLines& lines, std::uint64_t last, std::uint64_t whenNonePending) const;
  void WriteRange(const Span& span);
  void WriteLines(const PendingLines& lines, const Span& span, std::string_view prefix);

  TextBatch out_;
  const ComparisonOptions options_;
  ProgressTicker ticker_;
  bool anyWritten_ = false;
};

}  // namespace tarrow
