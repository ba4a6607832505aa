// Shows on the console what the command writes to its output file, while it does so.
//
// The command writes to the file itself, so nothing stands between it and the disk, and what it has written
// is there whatever becomes of this program. This only reads along. A console is slow: where the command is
// far ahead, what lies between is left out.
#pragma once

#include <windows.h>

namespace tarrow {

class OutputMirror {
 public:
  explicit OutputMirror(const wchar_t* path);
  ~OutputMirror();
  OutputMirror(const OutputMirror&) = delete;
  OutputMirror& operator=(const OutputMirror&) = delete;

  // Shows what has come since the last call; at most some 64 KB.
  void Show();

 private:
  static constexpr DWORD kChunk = 16 * 1024;
  static constexpr int kChunksAtOnce = 4;
  static constexpr ULONGLONG kTooFar = 256 * 1024;

  void CatchUp();

  HANDLE file_;
  HANDLE console_;
  char* buffer_;
  ULONGLONG shown_ = 0;
};

}  // namespace tarrow
