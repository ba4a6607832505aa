#include "framework/file.h"

#include "base/exceptions.h"
#include "framework/file_system.h"
#include "framework/unicode.h"

#include <windows.h>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace tarrow {
namespace {

// Some systems refuse a single transfer of gigabytes for lack of resources; this much they all take.
constexpr std::size_t kLargestTransfer = 64u << 20;

DWORD AccessOf(CFile::Mode mode) {
  switch (mode) {
    case CFile::Mode::kRead:
      return GENERIC_READ;
    case CFile::Mode::kUpdate:
      return GENERIC_READ | GENERIC_WRITE;
    case CFile::Mode::kOwn:
    case CFile::Mode::kOwnNew:
      return GENERIC_READ | GENERIC_WRITE | DELETE;
    default:
      return GENERIC_WRITE;
  }
}

DWORD DispositionOf(CFile::Mode mode) {
  switch (mode) {
    case CFile::Mode::kCreate:
      return CREATE_ALWAYS;
    case CFile::Mode::kCreateNew:
    case CFile::Mode::kOwnNew:
      return CREATE_NEW;
    default:
      return OPEN_EXISTING;
  }
}

DWORD ShareOf(CFile::Share share) {
  if (share == CFile::Share::kNothing) return 0;
  return share == CFile::Share::kRead ? FILE_SHARE_READ
                                      : FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
}

}  // namespace

CFile::CFile(std::string_view path, Mode mode, Share share) : path_(path) {
  std::wstring wide = CheckedWidePath(path);
  HANDLE handle = CreateFileW(wide.c_str(), AccessOf(mode), ShareOf(share), nullptr, DispositionOf(mode),
                              FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) Fail(GetLastError());
  handle_ = handle;
}

CFile::~CFile() {
  if (handle_) CloseHandle(handle_);
}

CFile::CFile(CFile&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), path_(std::move(other.path_)) {}

CFile& CFile::operator=(CFile&& other) noexcept {
  std::swap(handle_, other.handle_);
  std::swap(path_, other.path_);
  return *this;
}

void CFile::Fail(unsigned long error) const {
  throw CFileException(FileCauseFromWindows(error), path_);
}

std::size_t CFile::Read(std::span<char> into) {
  std::size_t total = 0;
  while (total < into.size()) {
    DWORD count = 0;
    auto wanted = static_cast<DWORD>(std::min(into.size() - total, kLargestTransfer));
    if (!ReadFile(handle_, into.data() + total, wanted, &count, nullptr)) {
      DWORD error = GetLastError();
      if (error == ERROR_HANDLE_EOF || error == ERROR_BROKEN_PIPE) break;
      Fail(error);
    }
    if (count == 0) break;
    total += count;
  }
  return total;
}

void CFile::Seek(std::uint64_t position) {
  LARGE_INTEGER offset;
  offset.QuadPart = static_cast<LONGLONG>(position);
  if (!SetFilePointerEx(handle_, offset, nullptr, FILE_BEGIN)) Fail(GetLastError());
}

std::uint64_t CFile::Size() {
  // A console or a port answers with a size of nothing, and reading it would wait for ever.
  if (GetFileType(handle_) != FILE_TYPE_DISK) throw CFileException(FileCause::kBadPath, path_);
  LARGE_INTEGER size;
  if (!GetFileSizeEx(handle_, &size)) Fail(GetLastError());
  return static_cast<std::uint64_t>(size.QuadPart);
}

void CFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD count = 0;
    auto wanted = static_cast<DWORD>(std::min(bytes.size(), kLargestTransfer));
    if (!WriteFile(handle_, bytes.data(), wanted, &count, nullptr)) Fail(GetLastError());
    if (count < wanted) Fail(ERROR_DISK_FULL);
    bytes.remove_prefix(count);
  }
}

void CFile::Truncate() {
  if (!SetEndOfFile(handle_)) Fail(GetLastError());
}

void CFile::Flush() {
  if (FlushFileBuffers(handle_)) return;
  // A device has no buffers and says so; the bytes have arrived all the same.
  DWORD error = GetLastError();
  if (GetFileType(handle_) == FILE_TYPE_DISK && error != ERROR_INVALID_FUNCTION) Fail(error);
}

void CFile::Close() {
  HANDLE handle = std::exchange(handle_, nullptr);
  if (handle && !CloseHandle(handle)) Fail(GetLastError());
}

std::string ReadWholeFile(std::string_view path) {
  CFile file(path, CFile::Mode::kRead, CFile::Share::kReadWrite);
  std::uint64_t size = file.Size();
  if (size >= std::numeric_limits<std::size_t>::max() / 2) throw CMemoryException();
  try {
    std::string bytes(static_cast<std::size_t>(size), '\0');
    bytes.resize(file.Read(bytes));
    return bytes;
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

}  // namespace tarrow
