// Shows on the console what the command writes to its output file, while it does so.
//
// The command writes to the file itself, so nothing stands between it and the disk, and what it has written
// is there whatever becomes of this program. This only reads along, in a thread of its own: a console is
// slow, and stands still while the user marks something in it, which must hold up nobody. Where the command
// is far ahead, what lies between is left out.
#pragma once

#include <windows.h>

namespace tarrow {

class OutputMirror {
 public:
  // Begins to show the file `path`.
  explicit OutputMirror(const wchar_t* path);

  // Shows the rest, unless the console does not take it within a moment.
  ~OutputMirror();
  OutputMirror(const OutputMirror&) = delete;
  OutputMirror& operator=(const OutputMirror&) = delete;

 private:
  static constexpr DWORD kChunk = 16 * 1024;
  static constexpr int kChunksAtOnce = 4;
  static constexpr ULONGLONG kTooFar = 256 * 1024;
  static constexpr DWORD kPeriod = 50;      // between two looks at the file, in milliseconds
  static constexpr DWORD kPatience = 2000;  // at the end

  static DWORD WINAPI ThreadProc(void* mirror);
  void Show();
  void CatchUp();

  HANDLE file_;
  HANDLE console_;
  char* buffer_;
  ULONGLONG shown_ = 0;
  HANDLE done_;  // an event: the command has ended
  HANDLE thread_;
};

}  // namespace tarrow
