// Printable: what a document window offers so that its text can be printed.
//
// Whatever shows text can: an edit window its lines, a file view its rows as it shows them. Lines are pulled
// one after another, so a document of any size prints in the same memory. The name of the document is that of
// its window (CTwChild).
#pragma once

#include "base/text_view.h"
#include "edit/text/charset.h"

#include <memory>
#include <optional>

namespace tarrow {

class PrintedLines {
 public:
  virtual ~PrintedLines() = default;

  // The next line, without its end; nothing after the last. It is valid until the next call. May throw
  // CFileException.
  virtual std::optional<TextView> Next() = 0;

  // What characters the bytes of the lines are.
  virtual const Charset& LineCharset() const = 0;
};

enum class PrintedPart { kAll, kSelection };

class Printable {
 public:
  virtual bool HasSelection() const { return false; }

  // The lines of the document or of its selection; what they are read from must outlive them unchanged.
  [[nodiscard]] virtual std::unique_ptr<PrintedLines> LinesToPrint(PrintedPart part) const = 0;

 protected:
  ~Printable() = default;
};

}  // namespace tarrow
