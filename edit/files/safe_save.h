// Saving a file so that nothing is ever lost.
//
// The new bytes are written to a temporary file beside the old one and handed to the disk before the old file
// is touched; then it is replaced in one step. A file that must stay the same file (it has other names, is a
// link, is held open, or would lose what only the file system knows of it) is overwritten in place instead,
// the temporary file kept until that has succeeded: what the file grows by is written first, so that a full
// disk shows before any old byte is gone. Whatever fails, and whenever the program is killed, the disk holds
// all of the old bytes or all of the new; which, and where, save_leftovers.h finds out.
//
// Paths are UTF-8. The name on the disk keeps its case.
#pragma once

#include "base/disk_file.h"
#include "base/exceptions.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// The disk as saving needs it. Operations throw CFileException, and have changed nothing then.
class SaveDisk {
 public:
  enum class Kind { kNothing, kFile, kDevice };
  enum class Access { kRead, kUpdate, kDevice };

  // What stands behind a name.
  struct Target {
    std::string path;  // in full, in the case that it has on the disk
    Kind kind;
    bool inPlace = false;  // must not be replaced by another file
  };

  virtual ~SaveDisk() = default;

  // Throws kAccessDenied for a directory and a read-only file.
  [[nodiscard]] virtual Target Resolve(const std::string& path) = 0;

  // Makes an empty file with a name of its own in the directory of `path`, or in the system's directory for
  // temporary files when `path` is empty. Returns its path.
  [[nodiscard]] virtual std::string MakeTemporary(const std::string& path) = 0;

  // The paths of the temporary files that stand beside `path` and were made for it, the newest first.
  [[nodiscard]] virtual std::vector<std::string> Temporaries(const std::string& path) = 0;

  // Opens what exists; others may read it meanwhile.
  [[nodiscard]] virtual std::unique_ptr<DiskFile> Open(const std::string& path, Access access) = 0;

  // Puts the file `from` in the place of the existing `to`, keeping the attributes of `to`, which gets the
  // name `backup` (whatever had that is gone) unless it is empty.
  virtual void Replace(const std::string& from, const std::string& to, const std::string& backup) = 0;

  // Gives a file another name; a file that has it is replaced.
  virtual void Move(const std::string& from, const std::string& to) = 0;

  // Copies bytes, times and attributes over the existing file `to`, which a failure leaves in any state.
  virtual void Copy(const std::string& from, const std::string& to) = 0;

  virtual void Remove(const std::string& path) = 0;
};

struct SaveOptions {
  bool backup = false;  // the old file is kept under its name with the extension .BAK

  // Told when the backup could not be made; the file is saved all the same.
  std::function<void(const CFileException&)> backupFailed;
};

// Writes the file `path` with the bytes that `write` puts out; it may be called once only. Throws
// CFileException naming `path`, or what `write` throws; the old file is whole then, or the new one is in the
// temporary file.
void SafeSave(SaveDisk& disk, const std::string& path, const SaveOptions& options,
              const std::function<void(ByteSink&)>& write);

// The name of the backup of `path`, or an empty one when the file is its own backup.
[[nodiscard]] std::string BackupName(const std::string& path);

}  // namespace tarrow
