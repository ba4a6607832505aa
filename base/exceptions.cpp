#include "base/exceptions.h"

#include <cerrno>

namespace tarrow {

FileCause FileCauseFromErrno(int error) {
  switch (error) {
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
      return FileCause::kAccessDenied;
    case EBADF:
      return FileCause::kBadHandle;
    case EMFILE:
    case ENFILE:
      return FileCause::kTooManyOpenFiles;
    case ENOENT:
      return FileCause::kFileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
      return FileCause::kBadPath;
    case ENOSPC:
      return FileCause::kDiskFull;
    case EIO:
      return FileCause::kHardware;
    case ESPIPE:
      return FileCause::kBadSeek;
    default:
      return FileCause::kGeneric;
  }
}

// The numbers are those of winerror.h; written out because engines do not include it.
FileCause FileCauseFromWindows(unsigned long error) {
  switch (error) {
    case 5:    // ERROR_ACCESS_DENIED
    case 16:   // ERROR_CURRENT_DIRECTORY
    case 19:   // ERROR_WRITE_PROTECT
    case 65:   // ERROR_NETWORK_ACCESS_DENIED
    case 80:   // ERROR_FILE_EXISTS
    case 183:  // ERROR_ALREADY_EXISTS
      return FileCause::kAccessDenied;
    case 6:
      return FileCause::kBadHandle;  // ERROR_INVALID_HANDLE
    case 32:
      return FileCause::kSharingViolation;  // ERROR_SHARING_VIOLATION
    case 33:
      return FileCause::kLockViolation;  // ERROR_LOCK_VIOLATION
    case 4:
      return FileCause::kTooManyOpenFiles;  // ERROR_TOO_MANY_OPEN_FILES
    case 2:
      return FileCause::kFileNotFound;  // ERROR_FILE_NOT_FOUND
    case 3:                             // ERROR_PATH_NOT_FOUND
    case 15:                            // ERROR_INVALID_DRIVE
    case 53:                            // ERROR_BAD_NETPATH
    case 123:                           // ERROR_INVALID_NAME
    case 161:                           // ERROR_BAD_PATHNAME
    case 206:                           // ERROR_FILENAME_EXCED_RANGE
    case 267:                           // ERROR_DIRECTORY
      return FileCause::kBadPath;
    case 39:   // ERROR_HANDLE_DISK_FULL
    case 112:  // ERROR_DISK_FULL
      return FileCause::kDiskFull;
    case 82:
      return FileCause::kDirectoryFull;  // ERROR_CANNOT_MAKE
    case 21:                             // ERROR_NOT_READY
    case 23:                             // ERROR_CRC
    case 29:                             // ERROR_WRITE_FAULT
    case 30:                             // ERROR_READ_FAULT
    case 31:                             // ERROR_GEN_FAILURE
    case 1117:                           // ERROR_IO_DEVICE
      return FileCause::kHardware;
    case 25:   // ERROR_SEEK
    case 131:  // ERROR_NEGATIVE_SEEK
      return FileCause::kBadSeek;
    case 38:
      return FileCause::kEndOfFile;  // ERROR_HANDLE_EOF
    default:
      return FileCause::kGeneric;
  }
}

}  // namespace tarrow
