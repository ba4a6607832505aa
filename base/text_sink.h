// Where the tools write what they find: a result window, standard output, a string in a test.
#pragma once

#include <string>
#include <string_view>

namespace tarrow {

class TextSink {
 public:
  virtual ~TextSink() = default;

  // Takes some bytes of output; line ends are CR LF. The bytes may hold NULs. May throw what the target
  // throws.
  virtual void Write(std::string_view bytes) = 0;
};

class StringSink final : public TextSink {
 public:
  void Write(std::string_view bytes) override { text.append(bytes); }

  std::string text;
};

}  // namespace tarrow
