// Finds where the lines of a file start, piece by piece, at the speed of reading it. CR LF, a lone LF and a
// lone CR end a line.
//
// A control byte other than white space makes one question of it, and is then counted twice: all lines after
// it start one byte late. That is a rule of these files, not a mistake.
#pragma once

#include "base/byte_mask.h"
#include "viewer/records/line_offsets.h"

#include <functional>
#include <string_view>

namespace tarrow {

// The line end that a file has, by the last one that was not CR LF.
enum class LineTerminator { kCrLf, kLf, kCr };

// Whether to go on with a file that holds this control byte.
using NonAnsiQuestion = std::function<bool(unsigned char)>;

class LineScan {
 public:
  // Appends to `offsets`. Without a question every byte is accepted; the first control byte counts twice all
  // the same.
  LineScan(LineOffsets& offsets, const NonAnsiQuestion& question) : offsets_(offsets), question_(question) {
    offsets_.Append(0);
  }

  // Takes the next bytes of the file; false when the question was declined. Offsets wrap at 4 GiB: the caller
  // keeps the file below it. Throws std::bad_alloc.
  [[nodiscard]] bool Scan(std::string_view piece);

  // After the last piece: gives a last line without terminator its end, as if it had one.
  void Finish();

  LineTerminator Terminator() const { return terminator_; }

 private:
  [[nodiscard]] bool ScanBlock(const char* block, std::size_t size, char next);
  [[nodiscard]] bool Ask(unsigned char control);

  LineOffsets& offsets_;
  const NonAnsiQuestion& question_;
  LineTerminator terminator_ = LineTerminator::kCrLf;
  std::uint32_t offset_ = 0;  // of what comes next, with the doubled byte counted
  bool heldCr_ = false;       // a CR at the end of a piece, whose line ends with the next byte or at it
  bool afterCr_ = false;      // the block before ended in a CR
  bool asked_ = false;
};

}  // namespace tarrow
