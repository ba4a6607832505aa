#include "edit/files/safe_save.h"

#include "base/path_text.h"
#include "edit/files/save_leftovers.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

constexpr std::size_t kBlock = 65536;

using Kind = SaveDisk::Kind;
using Access = SaveDisk::Access;

void CopyRange(DiskFile& from, DiskFile& to, std::uint64_t start, std::uint64_t end) {
  std::array<char, kBlock> block;
  from.Seek(start);
  to.Seek(start);
  while (start < end) {
    auto wanted = static_cast<std::size_t>(std::min<std::uint64_t>(end - start, kBlock));
    std::size_t size = from.Read({block.data(), wanted});
    if (size == 0) throw CFileException(FileCause::kEndOfFile, {});
    to.Write({block.data(), size});
    start += size;
  }
}

// A temporary file, removed at the end of its scope unless it is to stay.
class TemporaryFile {
 public:
  TemporaryFile(SaveDisk& disk, std::string path) : disk_(disk), path_(std::move(path)) {}
  ~TemporaryFile() {
    if (keep_) return;
    try {
      disk_.Remove(path_);
    } catch (...) {  // it lies there to no harm
    }
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  const std::string& Path() const { return path_; }
  void Keep(bool keep = true) { keep_ = keep; }

 private:
  SaveDisk& disk_;
  std::string path_;
  bool keep_ = false;
};

class Saving {
 public:
  Saving(SaveDisk& disk, SaveDisk::Target target, const SaveOptions& options)
      : disk_(disk), target_(std::move(target)), options_(options) {
    if (options.backup && target_.kind == Kind::kFile) backup_ = BackupName(target_.path);
  }

  void Run(const std::function<void(ByteSink&)>& write);

 private:
  std::string MakeTemporary();
  bool ReplaceTarget(TemporaryFile& temporary);
  void CopyBackup();
  void Overwrite(TemporaryFile& temporary);
  void Extend(DiskFile& from, DiskFile& to, std::uint64_t oldSize, std::uint64_t newSize,
              TemporaryFile& temporary);

  SaveDisk& disk_;
  SaveDisk::Target target_;
  const SaveOptions& options_;
  std::string backup_;  // to be made still
};

void WriteWhole(SaveDisk& disk, const std::string& path, Access access,
                const std::function<void(ByteSink&)>& write) {
  auto file = disk.Open(path, access);
  write(*file);
  file->Flush();
  file->Close();
}

void Saving::Run(const std::function<void(ByteSink&)>& write) {
  if (target_.kind == Kind::kDevice) return WriteWhole(disk_, target_.path, Access::kDevice, write);
  TemporaryFile temporary(disk_, MakeTemporary());
  WriteWhole(disk_, temporary.Path(), Access::kUpdate, write);
  if (target_.kind == Kind::kNothing) {
    disk_.Move(temporary.Path(), target_.path);
    return temporary.Keep();
  }
  if (!target_.inPlace && ReplaceTarget(temporary)) return temporary.Keep();
  if (!backup_.empty()) CopyBackup();
  Overwrite(temporary);
}

// Where the directory takes no new file, the text is kept elsewhere while the file is overwritten.
std::string Saving::MakeTemporary() {
  try {
    return disk_.MakeTemporary(target_.path);
  } catch (const CFileException&) {
    target_.inPlace = true;
    return disk_.MakeTemporary({});
  }
}

// Whether the target could be replaced. A backup that stands in the way is done without.
bool Saving::ReplaceTarget(TemporaryFile& temporary) {
  try {
    disk_.Replace(temporary.Path(), target_.path, backup_);
    return true;
  } catch (const CFileException& error) {
    if (backup_.empty()) return false;
    try {
      disk_.Replace(temporary.Path(), target_.path, {});
    } catch (const CFileException&) {
      return false;
    }
    if (options_.backupFailed) options_.backupFailed(error);
    return true;
  }
}

void Saving::CopyBackup() {
  try {
    TemporaryFile copy(disk_, disk_.MakeTemporary(backup_));
    disk_.Copy(target_.path, copy.Path());
    disk_.Move(copy.Path(), backup_);
    copy.Keep();
  } catch (const CFileException& error) {
    if (options_.backupFailed) options_.backupFailed(error);
  }
}

void Saving::Overwrite(TemporaryFile& temporary) {
  auto from = disk_.Open(temporary.Path(), Access::kUpdate);
  auto to = disk_.Open(target_.path, Access::kUpdate);
  std::uint64_t newSize = from->Size(), oldSize = to->Size();
  Seal(*from, newSize);
  if (newSize > oldSize) Extend(*from, *to, oldSize, newSize, temporary);
  // From here on the temporary file is the only whole text.
  temporary.Keep();
  CopyRange(*from, *to, 0, std::min(oldSize, newSize));
  if (newSize < oldSize) {
    to->Seek(newSize);
    to->Truncate();
  }
  to->Flush();
  to->Close();
  temporary.Keep(false);
}

// Writes what lies behind the old bytes; when there is no room for it, the file is cut back to them.
void Saving::Extend(DiskFile& from, DiskFile& to, std::uint64_t oldSize, std::uint64_t newSize,
                    TemporaryFile& temporary) {
  try {
    CopyRange(from, to, oldSize, newSize);
    to.Flush();
  } catch (const CFileException&) {
    try {
      to.Seek(oldSize);
      to.Truncate();
    } catch (const CFileException&) {
      temporary.Keep();
    }
    throw;
  }
}

}  // namespace

std::string BackupName(const std::string& path) {
  std::string backup = ReplaceAfterLastDot(path, ".BAK");
  return EqualIgnoringCase(backup, path) ? std::string() : backup;
}

void SafeSave(SaveDisk& disk, const std::string& path, const SaveOptions& options,
              const std::function<void(ByteSink&)>& write) {
  try {
    Saving(disk, disk.Resolve(path), options).Run(write);
  } catch (const CFileException& error) {
    // The user knows nothing of temporary files: the failure is that of the file to be saved.
    throw CFileException(error.Cause(), path);
  }
}

}  // namespace tarrow
