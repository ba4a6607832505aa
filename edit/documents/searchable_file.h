// SearchableFile: a document window that Find goes through by the bytes of its file, piece by piece, because
// the file is never in memory as a whole.
#pragma once

#include "base/byte_source.h"
#include "base/file_range.h"
#include "edit/text/charset.h"

#include <windows.h>

#include <memory>

namespace tarrow {

class SearchableFile {
 public:
  // A source of its own for the bytes, which outlives the window if need be. Throws CFileException.
  [[nodiscard]] virtual std::unique_ptr<ByteSource> OpenBytes() const = 0;

  // What patterns are put into.
  virtual Charset SearchCharset() const = 0;

  // The bytes that are selected, empty at the caret; and selects those of a match and shows them.
  virtual FileRange SelectedBytes() = 0;
  virtual void SelectMatch(const FileRange& bytes) = 0;

  // Whether the selection still is that of the last match, and not one of the user.
  virtual bool IsAtMatch() const = 0;

  // Where it stands on the screen, in pixels.
  virtual RECT MatchOnScreen() const = 0;

 protected:
  ~SearchableFile() = default;
};

}  // namespace tarrow
