// What the file manager does to files: copies, moves and renames, deletes, touches, changes attributes.
//
// Each operation goes through its files one by one, asks before a file is replaced, collects what fails and
// goes on with the next. A copy appears under its final name only when it is whole. A read-only file is never
// replaced or deleted.
#pragma once

#include "tools/file_manager/file_disk.h"
#include "tools/file_manager/file_transfer.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace tarrow {

// Whoever an operation is done for.
class OperationOwner {
 public:
  enum class Answer { kYes, kYesToAll, kNo, kCancel };

  // The file `path` is next, after `done` others.
  virtual void OnFile(const std::string& path, std::size_t done) = 0;

  // Polled between files and within long ones; may throw CYieldException.
  virtual Progress& GetProgress() = 0;

  // Whether the file `to` may be replaced by `from`.
  virtual Answer MayReplace(const std::string& to, const FileState& old, const std::string& from,
                            const FileState& fresh) = 0;

  // The file `from` is now `to`.
  virtual void OnMoved(const std::string& from, const std::string& to) = 0;

 protected:
  ~OperationOwner() = default;
};

struct OperationFailure {
  std::string path;
  int message;  // the string that names the cause
};

struct OperationReport {
  std::size_t done = 0;
  std::size_t skipped = 0;  // left alone, as the user said or because there was nothing to do
  bool cancelled = false;
  std::vector<OperationFailure> failures;
};

enum class Removal { kRecycle, kForGood };

class FileOperations {
 public:
  FileOperations(FileDisk& disk, OperationOwner& owner) : disk_(disk), owner_(owner) {}

  OperationReport Copy(std::span<const FileTask> tasks);

  // Moves files, between volumes too, or renames them. A file that is to get the name of another one waits
  // until that has moved on.
  OperationReport Move(std::span<const FileTask> tasks);

  OperationReport Delete(std::span<const std::string> paths, Removal removal);

  // Sets the time of the last modification.
  OperationReport Touch(std::span<const std::string> paths, std::uint64_t time);

  // Sets and clears attributes.
  OperationReport ChangeAttributes(std::span<const std::string> paths, std::uint32_t set,
                                   std::uint32_t clear);

 private:
  class Transfer;

  FileDisk& disk_;
  OperationOwner& owner_;
};

}  // namespace tarrow
