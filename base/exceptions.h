// What engines and windows throw: failures of files, exhausted memory, a user's Cancel.
//
// They are thrown at the edges and caught at the command that was asked for; the text that a user sees is
// made there, from the cause. Nothing else is thrown on purpose.
#pragma once

#include <exception>
#include <string>

namespace tarrow {

class CException : public std::exception {};

// Memory for an operation could not be had; the operation is abandoned and nothing has changed.
class CMemoryException : public CException {
 public:
  const char* what() const noexcept override { return "out of memory"; }
};

// The user cancelled a long operation.
class CYieldException : public CException {
 public:
  const char* what() const noexcept override { return "operation cancelled"; }
};

// Why an operation on a file failed. The order is that of the messages (strings 161 to 173).
enum class FileCause {
  kAccessDenied,
  kBadHandle,
  kSharingViolation,
  kLockViolation,
  kTooManyOpenFiles,
  kFileNotFound,
  kBadPath,
  kDiskFull,
  kDirectoryFull,
  kHardware,
  kBadSeek,
  kEndOfFile,
  kGeneric,
};

// An operation on the file `Path()` (UTF-8) failed.
class CFileException : public CException {
 public:
  CFileException(FileCause cause, std::string path) : cause_(cause), path_(std::move(path)) {}

  FileCause Cause() const { return cause_; }
  const std::string& Path() const { return path_; }
  const char* what() const noexcept override { return "file operation failed"; }

 private:
  FileCause cause_;
  std::string path_;
};

// The cause that stands for an errno value, or for an error code of Windows (GetLastError).
FileCause FileCauseFromErrno(int error);
FileCause FileCauseFromWindows(unsigned long error);

}  // namespace tarrow
