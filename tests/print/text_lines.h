// The lines of a string, ended by CR LF, to be printed.
#pragma once

#include "edit/documents/printable.h"

#include <string_view>

namespace tarrow {

class TextLines final : public PrintedLines {
 public:
  explicit TextLines(std::string_view text) : rest_(text) {}

  std::optional<TextView> Next() override {
    if (rest_.empty()) return {};
    std::size_t end = rest_.find("\r\n");
    std::string_view line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 2);
    return line;
  }
  const Charset& LineCharset() const override { return charset_; }

 private:
  std::string_view rest_;
  Charset charset_;
};

}  // namespace tarrow
