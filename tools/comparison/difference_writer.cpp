#include "tools/comparison/difference_writer.h"

namespace tarrow {

void DifferenceWriter::Write(const PendingLines& first, const PendingLines& second,
                             const DifferenceBlock& block) {
  Span old = SpanOf(first, block.end0 - block.run, first.LinesRead());
  Span added = SpanOf(second, block.end1 - block.run, second.LinesRead() + 1);
  if (old.Empty() && added.Empty()) return;
  anyWritten_ = true;
  WriteRange(old);
  out_.Text() += added.Empty() ? 'd' : old.Empty() ? 'a' : 'c';
  WriteRange(added);
  out_.Text() += options_.lineEnd;
  WriteLines(first, old, "< ");
  if (!old.Empty() && !added.Empty()) out_.Text().append("---").append(options_.lineEnd);
  WriteLines(second, added, "> ");
}

// A side without lines shows where its lines would stand: for the patch program the line before, for a reader
// the first line pending, which a run may have begun with.
DifferenceWriter::Span DifferenceWriter::SpanOf(const PendingLines& lines, std::uint64_t last,
                                                std::uint64_t whenNonePending) const {
  Span span{lines.First(), last, lines.Empty() ? whenNonePending : lines.First()};
  if (span.Empty() && options_.form == ComparisonForm::kPatch) span.shown = last;
  return span;
}

void DifferenceWriter::WriteRange(const Span& span) {
  out_.Text() += std::to_string(span.shown);
  if (span.last > span.first) out_.Text().append(",").append(std::to_string(span.last));
}

void DifferenceWriter::WriteLines(const PendingLines& lines, const Span& span, std::string_view prefix) {
  for (std::uint64_t number = span.first; number <= span.last; ++number) {
    out_.Text().append(prefix).append(lines.TextOf(number)).append(options_.lineEnd);
    if (options_.form == ComparisonForm::kPatch && !lines[number].terminated)
      out_.Text().append("\\ No newline at end of file").append(options_.lineEnd);
    ticker_.Tick();
    out_.FlushIfLarge();
  }
}

}  // namespace tarrow
