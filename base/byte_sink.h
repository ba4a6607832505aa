// Where engines write bytes to: a file, or a string in a test. The counterpart of ByteSource.
#pragma once

#include <string>
#include <string_view>

namespace tarrow {

class ByteSink {
 public:
  virtual ~ByteSink() = default;

  // Takes all of `bytes`, behind what it took before. Throws CFileException when not all of them arrived.
  virtual void Write(std::string_view bytes) = 0;
};

// Collects the bytes in a string.
class StringByteSink final : public ByteSink {
 public:
  void Write(std::string_view bytes) override { text.append(bytes); }

  std::string text;
};

}  // namespace tarrow
