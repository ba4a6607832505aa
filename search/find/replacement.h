// Replacement texts: what stands for the match, its groups, the clipboard, and changes of case.
//
//   & \0     the match             \n \t    CR LF, a tab           \u \l    the next character in upper or
//   \1..\9   a group               \p       the clipboard                   lower case
//   \\ \&    the character itself  \E \e    no more conversion     \U \L    all that follow
//
// A replacement is taken apart once and then built for any number of matches.
#pragma once

#include "base/text_view.h"
#include "edit/text/letters.h"
#include "search/pattern/compiled_pattern.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class Replacement {
 public:
  // Takes the replacement text `source` (UTF-8) apart, for texts in `charset`.
  Replacement(std::string_view source, Charset charset);

  Charset CharsetOfText() const { return charset_; }
  bool UsesClipboard() const;

  // The text that \p stands for, in the charset.
  void SetClipboard(std::string text) { clipboard_ = std::move(text); }

  // Appends the replacement of the match that `registers` tells of in `text`. Throws std::bad_alloc. A
  // register that reaches beyond the text counts as far as the text goes.
  void Build(TextView text, const MatchRegisters& registers, std::string& out) const;

 private:
  enum class Kind { kText, kRegister, kClipboard, kCase };
  enum class Case { kKeep, kUpperNext, kLowerNext, kUpper, kLower };

  struct Part {
    Kind kind;
    std::string text = {};
    int number = 0;
    Case mode = Case::kKeep;
  };

  // Appends to a text while a case mode lasts.
  class Builder;

  void AddText(std::string_view bytes);
  void AddEscape(std::string_view character);

  Charset charset_;
  std::vector<Part> parts_;
  std::string clipboard_;
};

}  // namespace tarrow
