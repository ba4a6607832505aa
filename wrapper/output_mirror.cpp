#include "wrapper/output_mirror.h"

#include "wrapper/entry.h"

namespace tarrow {

OutputMirror::OutputMirror(const wchar_t* path)
    : file_(::CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, 0, nullptr)),
      console_(::GetStdHandle(STD_OUTPUT_HANDLE)),
      buffer_(static_cast<char*>(::HeapAlloc(::GetProcessHeap(), 0, kChunk))),
      done_(::CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      thread_(::CreateThread(nullptr, 0, ThreadProc, this, 0, nullptr)) {}

// A thread that the console still holds is ended where it stands, in the middle of writing to it: the process
// is about to end, and nothing else waits for what it has.
OutputMirror::~OutputMirror() {
  ::SetEvent(done_);
  if (thread_ && ::WaitForSingleObject(thread_, kPatience) != WAIT_OBJECT_0) ::TerminateThread(thread_, 0);
  if (thread_) ::CloseHandle(thread_);
  ::CloseHandle(done_);
  if (file_ != INVALID_HANDLE_VALUE) ::CloseHandle(file_);
  if (buffer_) ::HeapFree(::GetProcessHeap(), 0, buffer_);
}

TARROW_CALLED_BY_SYSTEM DWORD WINAPI OutputMirror::ThreadProc(void* parameter) {
  auto& mirror = *static_cast<OutputMirror*>(parameter);
  bool isDone = false;
  while (!isDone) {
    isDone = ::WaitForSingleObject(mirror.done_, kPeriod) == WAIT_OBJECT_0;
    mirror.Show();
  }
  return 0;
}

// At most some 64 KB at once.
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
