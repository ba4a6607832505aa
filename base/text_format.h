// Formats the numbered messages, whose texts carry printf-style fields, without printf's blind trust: each
// argument brings its type, a field that does not fit its argument shows the argument all the same, and a
// field without an argument stays as it is written.
//
// Understood: %% and %[flags][width][.precision][l](d|u|x|X|c|s), flags '0' and '-'. Strings are bytes,
// passed on as they are; precision cuts a string or gives a number's least count of digits.
#pragma once

#include <concepts>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace tarrow {

class FormatArg {
 public:
  template <std::integral T>
  FormatArg(T number) : number_(static_cast<std::int64_t>(number)) {}        // NOLINT
  FormatArg(std::string_view text) : text_(text), isText_(true) {}           // NOLINT
  FormatArg(const std::string& text) : FormatArg(std::string_view(text)) {}  // NOLINT
  FormatArg(const char* text) : FormatArg(std::string_view(text)) {}         // NOLINT

  bool IsText() const { return isText_; }
  std::int64_t Number() const { return number_; }
  std::string_view Text() const { return text_; }

 private:
  std::int64_t number_ = 0;
  std::string_view text_;
  bool isText_ = false;
};

// Returns `pattern` with its fields filled from `args`, in order.
std::string FormatText(std::string_view pattern, std::initializer_list<FormatArg> args);

}  // namespace tarrow
