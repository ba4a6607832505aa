// A large file in memory as the system maps it: nothing is copied, and what is never looked at is never read.
//
// The file stays everybody's. Where another program cuts it, the bytes behind its new end read as zeros, and
// HasLost() tells that some of them were looked at.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

namespace tarrow {

class MappedFile {
 public:
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;

  // The bytes from `position` on; none where that lies behind the end.
  std::string_view From(std::size_t position) const;

  bool HasLost() const;

 private:
  friend std::unique_ptr<MappedFile> MapFile(int descriptor);
  MappedFile(char* bytes, std::size_t size);
};

// Maps the file, or returns null: for what is no file, for one that is read sooner than mapped, and while
// another one is mapped.
[[nodiscard]] std::unique_ptr<MappedFile> MapFile(int descriptor);

}  // namespace tarrow
