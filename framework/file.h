// CFile: a file on disk, opened, read and written with every result checked.
//
// Positions and sizes are bytes, 64 bits; paths are UTF-8 and shorter than 260 characters, as everywhere in
// the program (a longer one is refused as a bad path, never cut). A failure is a CFileException that names
// the file and the cause; a write that the disk took only in part is one too, since a full disk may report
// success. Reading and writing are not buffered: take large blocks.
#pragma once

#include "base/disk_file.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace tarrow {

class CFile final : public DiskFile {
 public:
  enum class Mode {
    kRead,       // the file must exist
    kUpdate,     // read and write; the file must exist
    kCreate,     // write; an existing file is emptied
    kCreateNew,  // write; the file must not exist
    kOwn,        // as kUpdate, and the file can be removed by its handle
    kOwnNew,     // the same of a file that must not exist
  };
  // What other openers may do meanwhile.
  enum class Share { kNothing, kRead, kReadWrite };

  CFile() = default;

  // Opens `path`. Throws CFileException.
  CFile(std::string_view path, Mode mode, Share share);

  // Closes; a failure to do so goes unseen. Who has written calls Close().
  ~CFile() override;

  CFile(CFile&& other) noexcept;
  CFile& operator=(CFile&& other) noexcept;

  bool IsOpen() const { return handle_ != nullptr; }
  const std::string& Path() const { return path_; }
  // The handle (a HANDLE), which the file keeps; null when closed.
  void* Handle() const { return handle_; }

  std::size_t Read(std::span<char> into) override;
  void Seek(std::uint64_t position) override;
  // Throws for what is no file on a disk: a console, a pipe, a port.
  std::uint64_t Size() override;

  // Writes all of `bytes` at the current position. Throws when fewer arrived, too.
  void Write(std::string_view bytes) override;
  void Truncate() override;
  void Flush() override;
  void Close() override;

 private:
  [[noreturn]] void Fail(unsigned long error) const;

  void* handle_ = nullptr;
  std::string path_;
};

// Reads the whole of a file that other programs may have open. Throws CFileException, or CMemoryException
// when it is larger than memory.
[[nodiscard]] std::string ReadWholeFile(std::string_view path);

}  // namespace tarrow
