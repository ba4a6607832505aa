// The lines of a file are converted while it is read, in one pass, on the assumption that all of them end as
// the first one does; when one does not, the file is read again as it is. Knowing the format before
// converting would cost every file a second pass for the sake of the few that are mixed.
#include "edit/files/file_load.h"

#include "base/byte_scan.h"
#include "base/exceptions.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

// Small enough to stay in the processor's nearest cache between being read, counted and converted.
constexpr std::size_t kChunk = 65536;

constexpr std::size_t kControlCheck = 256;

bool IsQuestionable(char c) {
  return static_cast<unsigned char>(c) < ' ' && !(c >= '\t' && c <= '\r');
}

// The first control character among those bytes that are looked at: 256, or all but the last of a smaller
// file.
std::optional<unsigned char> FindControlByte(ByteSource& source) {
  std::array<char, kControlCheck> head;
  source.Seek(0);
  std::size_t size = source.Read(head);
  if (size < kControlCheck && size > 0) --size;
  auto found = std::find_if(head.begin(), head.begin() + size, IsQuestionable);
  if (found == head.begin() + size) return {};
  return static_cast<unsigned char>(*found);
}

// The format that the first line end of a file stands for, or nothing when it has none.
std::optional<FileFormat> FormatOfFirstLineEnd(ByteSource& source) {
  std::array<char, kChunk> chunk;
  source.Seek(0);
  while (std::size_t size = source.Read(chunk)) {
    std::size_t at = FindEitherByte({chunk.data(), size}, '\r', '\n');
    if (at == size) continue;
    if (chunk[at] == '\n') return FileFormat::kUnix;
    bool followed =
        at + 1 < size ? chunk[at + 1] == '\n' : source.Read({chunk.data(), 1}) == 1 && chunk[0] == '\n';
    return followed ? FileFormat::kDos : FileFormat::kMac;
  }
  return {};
}

void LoadUnchanged(ByteSource& source, std::int64_t size, TextBuffer& text) {
  source.Seek(0);
  text.FinishLoad(static_cast<std::int64_t>(source.Read(text.PrepareLoad(size))));
}

// Fills a text buffer from pieces of a file, a byte of one value becoming CR LF.
class Conversion {
 public:
  Conversion(TextBuffer& text, std::int64_t fileSize, char lineEnd)
      : text_(text), room_(text.PrepareLoad(fileSize)), fileSize_(fileSize), lineEnd_(lineEnd) {}

  void Add(std::string_view piece);
  std::int64_t Finish() {
    text_.FinishLoad(used_, lines_);
    return used_;
  }

 private:
  void MakeRoom(std::int64_t bytes, std::size_t lines);

  TextBuffer& text_;
  std::span<char> room_;
  std::span<BytePos> starts_;
  std::int64_t fileSize_;
  std::int64_t taken_ = 0;  // bytes of the file
  std::int64_t used_ = 0;   // bytes of the text
  std::size_t lines_ = 0;   // line starts written
  char lineEnd_;
};

// Makes room for a piece, and for what is still to come if that has as many lines as the file had so far.
void Conversion::MakeRoom(std::int64_t bytes, std::size_t lines) {
  std::int64_t rest = fileSize_ - taken_;
  auto ahead = static_cast<double>(rest) * static_cast<double>(lines_ + lines) / static_cast<double>(taken_);
  if (used_ + bytes > static_cast<std::int64_t>(room_.size())) {
    std::int64_t hoped = used_ + bytes + rest + static_cast<std::int64_t>(ahead);
    std::int64_t wanted = std::max(used_ + bytes, std::min<std::int64_t>(hoped, kMaxTextSize));
    room_ = text_.ExtendLoad(used_, wanted);
  }
  if (lines_ + lines > starts_.size())
    starts_ = text_.ExtendLineStarts(lines_, lines_ + lines + static_cast<std::size_t>(ahead));
}

void Conversion::Add(std::string_view piece) {
  taken_ += static_cast<std::int64_t>(piece.size());
  std::size_t lines = CountByte(piece, lineEnd_);
  MakeRoom(static_cast<std::int64_t>(piece.size() + lines), lines);
  char* start = room_.data();
  char* to = start + used_;
  BytePos* lineStart = starts_.data() + lines_;
  while (!piece.empty()) {
    std::size_t length = CopyUntilByte(piece, to, lineEnd_);
    to += length;
    if (length == piece.size()) break;
    *to++ = '\r';
    *to++ = '\n';
    *lineStart++ = BytePos(to - start);
    piece.remove_prefix(length + 1);
  }
  used_ = to - start;
  lines_ += lines;
}

// Loads a file whose lines all end in the byte `lineEnd`; false as soon as one does not.
bool LoadConverted(ByteSource& source, std::int64_t size, std::int64_t maxSize, char lineEnd,
                   TextBuffer& text) {
  char otherEnd = lineEnd == '\n' ? '\r' : '\n';
  std::array<char, kChunk> chunk;
  Conversion conversion(text, size, lineEnd);
  source.Seek(0);
  for (std::int64_t left = size; left > 0;) {
    auto wanted = static_cast<std::size_t>(std::min<std::int64_t>(left, kChunk));
    std::string_view piece(chunk.data(), source.Read({chunk.data(), wanted}));
    if (piece.empty()) break;  // the file has shrunk
    if (FindByte(piece, otherEnd) != piece.size()) return false;
    conversion.Add(piece);
    left -= static_cast<std::int64_t>(piece.size());
  }
  if (conversion.Finish() >= maxSize) throw CMemoryException();
  return true;
}

}  // namespace

std::optional<LoadedText> LoadText(ByteSource& source, std::int64_t maxSize, LoadQuestions& ask) {
  std::uint64_t fileSize = source.Size();
  if (fileSize > static_cast<std::uint64_t>(std::clamp<std::int64_t>(maxSize, 0, kMaxTextSize)))
    throw CMemoryException();
  auto size = static_cast<std::int64_t>(fileSize);
  LoadedText loaded;
  // Memory is had, or not, before anybody is asked anything.
  (void)loaded.text.PrepareLoad(size);
  if (auto byte = FindControlByte(source); byte && !ask.AcceptControlByte(*byte)) return {};
  auto format = size == 0 ? FileFormat::kDos : FormatOfFirstLineEnd(source);
  if (format && *format != FileFormat::kDos &&
      LoadConverted(source, size, maxSize, LineEndOf(*format)[0], loaded.text)) {
    loaded.format = *format;
    return loaded;
  }
  if (format != FileFormat::kDos && !ask.AcceptLineEnds()) return {};
  LoadUnchanged(source, size, loaded.text);
  return loaded;
}

}  // namespace tarrow
