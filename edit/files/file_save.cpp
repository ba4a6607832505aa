#include "edit/files/file_save.h"

#include "base/byte_scan.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

// Turns line ends into one byte on the way to a sink.
class LineEndWriter {
 public:
  LineEndWriter(ByteSink& out, char lineEnd) : out_(out), lineEnd_(lineEnd) {}

  void Add(std::string_view piece) {
    while (!piece.empty()) piece.remove_prefix(AddSome(piece));
  }
  void Flush() {
    if (used_) out_.Write({block_.data(), used_});
    used_ = 0;
  }

 private:
  // Takes the bytes up to and including the next CR, or as many as there is room for.
  std::size_t AddSome(std::string_view piece) {
    if (afterCr_) {
      afterCr_ = false;
      if (piece[0] == '\n') return 1;
    }
    if (used_ == block_.size()) Flush();
    std::size_t most = std::min(piece.size(), block_.size() - used_);
    std::size_t length = CopyUntilByte(piece.substr(0, most), block_.data() + used_, '\r');
    used_ += length;
    if (length == most) return length;
    block_[used_++] = lineEnd_;
    afterCr_ = true;
    return length + 1;
  }

  ByteSink& out_;
  std::array<char, 65536> block_;
  std::size_t used_ = 0;
  bool afterCr_ = false;
  char lineEnd_;
};

}  // namespace

void SaveText(TextView text, FileFormat format, ByteSink& out) {
  if (format == FileFormat::kDos) {
    if (!text.head.empty()) out.Write(text.head);
    if (!text.tail.empty()) out.Write(text.tail);
    return;
  }
  LineEndWriter writer(out, LineEndOf(format)[0]);
  writer.Add(text.head);
  writer.Add(text.tail);
  writer.Flush();
}

}  // namespace tarrow
