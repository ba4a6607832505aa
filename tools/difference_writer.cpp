#include "tools/difference_writer.h"

namespace tarrow {
namespace {

constexpr std::size_t kFlushSize = 64 << 10;

}  // namespace

void DifferenceWriter::Write(const PendingLines& first, const PendingLines& second,
                             const DifferenceBlock& block) {
  Span old = SpanOf(first, block.end0 - block.run, first.LinesRead());
  Span added = SpanOf(second, block.end1 - block.run, second.LinesRead() + 1);
  if (old.Empty() && added.Empty()) return;
  anyWritten_ = true;
  WriteRange(old);
  text_ += added.Empty() ? 'd' : old.Empty() ? 'a' : 'c';
  WriteRange(added);
  text_ += options_.lineEnd;
  WriteLines(first, old, "< ");
  if (!old.Empty() && !added.Empty()) text_.append("---").append(options_.lineEnd);
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
  text_ += std::to_string(span.shown);
  if (span.last > span.first) text_.append(",").append(std::to_string(span.last));
}

void DifferenceWriter::WriteLines(const PendingLines& lines, const Span& span, std::string_view prefix) {
  for (std::uint64_t number = span.first; number <= span.last; ++number) {
    text_.append(prefix).append(lines.TextOf(number)).append(options_.lineEnd);
    if (options_.form == ComparisonForm::kPatch && !lines[number].terminated)
      text_.append("\\ No newline at end of file").append(options_.lineEnd);
    ticker_.Tick();
    if (text_.size() >= kFlushSize) Flush();
  }
}

void DifferenceWriter::Flush() {
  if (!text_.empty()) out_.Write(text_);
  text_.clear();
}

}  // namespace tarrow
