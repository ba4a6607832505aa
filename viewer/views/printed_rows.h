// The rows of a view, or what is selected of them, as lines to print: the text that is seen.
#pragma once

#include "edit/documents/printable.h"
#include "viewer/views/view_rows.h"

#include <functional>
#include <optional>
#include <string>

namespace tarrow {

class PrintedRows final : public PrintedLines {
 public:
  // `rows` gives the rows of the view, or null once its file is closed: then there are no more lines.
  PrintedRows(std::function<ViewRows*()> rows, std::optional<CellSelection> part);

  std::optional<TextView> Next() override;
  const Charset& LineCharset() const override { return charset_; }

 private:
  bool IsBehindLast(const ViewRows& rows) const;

  std::function<ViewRows*()> rows_;
  std::optional<CellSelection> part_;
  LineNo row_;
  std::string line_;
  Charset charset_;  // UTF-8
};

}  // namespace tarrow
