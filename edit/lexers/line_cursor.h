// LineCursor: a place in a line that a lexer takes apart, and the runs that it has found so far.
//
// What is passed becomes part of a run when the run is ended with its style; only lexers that are not called
// for every line of a large text can afford its comfort.
#pragma once

#include "edit/lexers/lexer.h"

#include <algorithm>
#include <string_view>

namespace tarrow {

constexpr bool IsBlankByte(char c) {
  return c == ' ' || c == '\t';
}
constexpr bool IsDigitByte(char c) {
  return c >= '0' && c <= '9';
}
// Letters, digits, underscores, and all bytes from 0x80 on.
constexpr bool IsWordByte(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || IsDigitByte(c) || c == '_' ||
         static_cast<signed char>(c) < 0;
}

class LineCursor {
 public:
  // `runs` may be null: nobody wants them.
  LineCursor(std::string_view line, StyleRuns* runs)
      : line_(line), runs_(runs), at_(ByteOrderMarkSize(line)) {}

  bool AtEnd() const { return at_ == line_.size(); }
  std::size_t At() const { return at_; }
  std::string_view Line() const { return line_; }
  std::string_view Rest() const { return line_.substr(at_); }

  // The byte so many bytes further on; NUL beyond the end.
  char Peek(std::size_t ahead = 0) const { return at_ + ahead < line_.size() ? line_[at_ + ahead] : '\0'; }
  char Before() const { return at_ == 0 ? '\0' : line_[at_ - 1]; }

  void Skip(std::size_t count = 1) { at_ = std::min(at_ + count, line_.size()); }
  void SkipTo(std::size_t at) { at_ = std::min(at, line_.size()); }
  void SkipToEnd() { at_ = line_.size(); }

  // Passes the bytes that `wanted` holds for, and returns them.
  template <typename Wanted>
  std::string_view SkipWhile(Wanted wanted) {
    std::size_t from = at_;
    while (at_ < line_.size() && wanted(line_[at_])) ++at_;
    return line_.substr(from, at_ - from);
  }
  std::string_view SkipBlanks() { return SkipWhile(IsBlankByte); }
  std::string_view SkipWord() { return SkipWhile(IsWordByte); }

  // Passes what stands between here and the next `quote`, which is here, too; to the end where none follows.
  void SkipQuoted() {
    char quote = Peek();
    Skip();
    SkipWhile([=](char c) { return c != quote; });
    Skip();
  }

  // What has been passed since the last run ended is a run of this style.
  void End(Style style) {
    if (runs_) runs_->Add(at_, style);
  }

  // The same with the rest of the line.
  void EndLine(Style style) {
    SkipToEnd();
    End(style);
  }

 private:
  std::string_view line_;
  StyleRuns* runs_;
  std::size_t at_;
};

}  // namespace tarrow
