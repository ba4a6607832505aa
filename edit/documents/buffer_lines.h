// The lines of a text buffer, or of a part of it, one after another: what an edit window prints.
#pragma once

#include "edit/documents/printable.h"
#include "edit/text/text_buffer.h"

namespace tarrow {

class BufferLines final : public PrintedLines {
 public:
  // The buffer and the charset must outlive the object; the buffer must not change meanwhile.
  BufferLines(const TextBuffer& buffer, const Charset& charset, TextRange part);

  // A line that `part` cuts is cut. Behind the last line end there is no further line.
  std::optional<TextView> Next() override;
  const Charset& LineCharset() const override { return charset_; }

 private:
  const TextBuffer& buffer_;
  const Charset& charset_;
  TextRange part_;
  LineNo line_;
};

}  // namespace tarrow
