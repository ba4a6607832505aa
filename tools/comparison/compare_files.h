// Compares two text files line by line, as a stream: the files are read alternately, a line at a time, and a
// difference is settled as soon as three consecutive lines of one file are found again as three consecutive
// lines of the other. Neither file is held whole and none is read twice, so files of any length compare in
// bounded memory; the price is that the differences are right but not always the fewest.
#pragma once

#include "base/byte_source.h"
#include "base/progress.h"
#include "base/text_sink.h"
#include "tools/comparison/line_window.h"

#include <cstdint>
#include <string_view>

namespace tarrow {

enum class ComparisonForm {
  // Blocks as a reader wants them. An `a` block names the old line that the run of equal lines begins with.
  // CR LF and LF are the same line end, and lines are of at most 127 characters, longer ones cut into
  // several.
  kReading,
  // Blocks as the patch program takes them: numbered as diff numbers them, every byte of a line counting, a
  // missing line end at the end of the file marked. Lines above 65535 characters are refused.
  kPatch,
};

struct ComparisonOptions {
  ComparisonForm form = ComparisonForm::kReading;
  std::string_view lineEnd = "\r\n";
  // What the lines not yet settled may cost. Beyond it the oldest are settled as differing.
  std::uint64_t memoryLimit = 40 << 20;
};

// Writes the differences to `out` and returns whether there were any. Throws CFileException of either source,
// what `out` throws, CYieldException, LongLineException (only for kPatch), std::bad_alloc; what was written
// before stays.
bool CompareFiles(ByteSource& first, ByteSource& second, TextSink& out, const ComparisonOptions& options,
                  Progress* progress);

}  // namespace tarrow
