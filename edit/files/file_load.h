// Loading: the bytes of a file into a text buffer, its line ends made CR LF.
//
// A file whose first line end is CR LF is taken as it is. One whose line ends are all LF, or all CR, is
// converted. Any other (mixed, or without a line end at all) is taken as it is too, once the user agrees. No
// other byte is changed, ever. Sizes are bytes.
#pragma once

#include "base/byte_source.h"
#include "edit/files/file_format.h"
#include "edit/text/text_buffer.h"

#include <cstdint>
#include <optional>

namespace tarrow {

// What a user is asked while a file is loaded; false gives up loading.
class LoadQuestions {
 public:
  // A control character (0 to 31) stands in the first 256 bytes. Asked at most once.
  virtual bool AcceptControlByte(unsigned char byte) = 0;

  // The line ends are mixed, or there is none.
  virtual bool AcceptLineEnds() = 0;

 protected:
  ~LoadQuestions() = default;
};

struct LoadedText {
  TextBuffer text;
  FileFormat format = FileFormat::kDos;
};

// Loads all of `source`, lines indexed. Returns nothing when the user gave up. Throws CFileException, and
// CMemoryException when the file is larger than `maxSize`, its converted text not smaller, or memory runs
// out.
[[nodiscard]] std::optional<LoadedText> LoadText(ByteSource& source, std::int64_t maxSize,
                                                 LoadQuestions& ask);

}  // namespace tarrow
