#include "wrapper/output_mirror.h"

namespace tarrow {

OutputMirror::OutputMirror(const wchar_t* path)
    : file_(::CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, 0, nullptr)),
      console_(::GetStdHandle(STD_OUTPUT_HANDLE)),
      buffer_(static_cast<char*>(::HeapAlloc(::GetProcessHeap(), 0, kChunk))) {}

OutputMirror::~OutputMirror() {
  if (file_ != INVALID_HANDLE_VALUE) ::CloseHandle(file_);
  if (buffer_) ::HeapFree(::GetProcessHeap(), 0, buffer_);
}

void OutputMirror::Show() {
  if (file_ == INVALID_HANDLE_VALUE || !buffer_) return;
  CatchUp();
  for (int i = 0; i < kChunksAtOnce; ++i) {
    DWORD count = 0, written = 0;
    if (!::ReadFile(file_, buffer_, kChunk, &count, nullptr) || count == 0) return;
    ::WriteFile(console_, buffer_, count, &written, nullptr);
    shown_ += count;
  }
}

void OutputMirror::CatchUp() {
  LARGE_INTEGER size;
  if (!::GetFileSizeEx(file_, &size)) return;
  auto whole = static_cast<ULONGLONG>(size.QuadPart);
  if (whole < shown_ + kTooFar) return;
  LARGE_INTEGER start;
  start.QuadPart = static_cast<LONGLONG>(whole - kChunk);
  if (!::SetFilePointerEx(file_, start, nullptr, FILE_BEGIN)) return;
  shown_ = whole - kChunk;
  constexpr char kGap[] = "\r\n[...]\r\n";
  DWORD written = 0;
  ::WriteFile(console_, kGap, sizeof kGap - 1, &written, nullptr);
}

}  // namespace tarrow
