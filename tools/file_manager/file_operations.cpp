#include "tools/file_manager/file_operations.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "ui/program/string_ids.h"

#include <algorithm>
#include <functional>
#include <new>
#include <set>
#include <unordered_map>

namespace tarrow {
namespace {

// Why a file is left alone though the disk would not refuse.
class Refusal : public CException {
 public:
  explicit Refusal(int message) : message_(message) {}
  int Message() const { return message_; }
  const char* what() const noexcept override { return "refused"; }

 private:
  int message_;
};

// One operation over many files: tells of each, collects what fails, ends where the user cancels.
class Walk {
 public:
  Walk(OperationOwner& owner, OperationReport& report)
      : owner_(owner), report_(report), ticker_(&owner.GetProgress(), 1) {}

  // Calls `use` for the file `path`; it returns whether anything was done. False when the user has cancelled.
  bool Do(const std::string& path, const std::function<bool()>& use) {
    try {
      owner_.OnFile(path, visited_++);
      ticker_.Tick();
      ++(use() ? report_.done : report_.skipped);
    } catch (const CFileException& failure) {
      Fail(path, kTextFirstFileCause + static_cast<int>(failure.Cause()));
    } catch (const Refusal& refusal) {
      Fail(path, refusal.Message());
    } catch (const std::bad_alloc&) {
      Fail(path, kTextOutOfMemory);
    } catch (const CMemoryException&) {
      Fail(path, kTextOutOfMemory);
    } catch (const CYieldException&) {
      report_.cancelled = true;
    }
    return !report_.cancelled;
  }

 private:
  void Fail(const std::string& path, int message) { report_.failures.push_back({path, message}); }

  OperationOwner& owner_;
  OperationReport& report_;
  ProgressTicker ticker_;
  std::size_t visited_ = 0;
};

void RefuseReadOnly(const std::string& path, std::uint32_t attributes) {
  if (attributes & kAttributeReadOnly) throw CFileException(FileCause::kAccessDenied, path);
}

FileState StateOf(FileDisk& disk, const std::string& path) {
  auto state = disk.State(path);
  if (!state) throw CFileException(FileCause::kFileNotFound, path);
  return *state;
}

// What fails is the failure that is being dealt with already.
void RemoveQuietly(FileDisk& disk, const std::string& path) {
  try {
    disk.SetAttributes(path, kAttributeNormal);
    disk.Remove(path);
  } catch (const CFileException&) {
  }
}

template <typename Use>
OperationReport ForEach(OperationOwner& owner, std::span<const std::string> paths, Use use) {
  OperationReport report;
  Walk walk(owner, report);
  for (const std::string& path : paths)
    if (!walk.Do(path, [&] { return use(path); })) break;
  return report;
}

// Attributes as the platform takes them: none at all has a number of its own.
std::uint32_t Settable(std::uint32_t attributes) {
  attributes &= kAttributeReadOnly | kAttributeHidden | kAttributeSystem | kAttributeArchive;
  return attributes ? attributes : std::uint32_t{kAttributeNormal};
}

}  // namespace

// Copying or moving: both ask before they replace, and never leave half a file.
class FileOperations::Transfer {
 public:
  Transfer(FileDisk& disk, OperationOwner& owner, bool moves)
      : disk_(disk), owner_(owner), moves_(moves), walk_(owner, report_) {}

  OperationReport Run(std::span<const FileTask> tasks) {
    tasks_ = tasks;
    for (const FileTask& task : tasks) keys_.push_back({disk_.Lower(task.from), disk_.Lower(task.to)});
    for (std::size_t i : Order())
      if (!walk_.Do(tasks[i].from, [&] { return DoTask(i); })) break;
    return std::move(report_);
  }

 private:
  // The names of a task in lower case, by which names are compared.
  struct Keys {
    std::string from, to;
  };

  std::vector<std::size_t> Order();
  bool DoTask(std::size_t i);
  bool MayReplace(const FileTask& task, const FileState& old, const FileState& fresh);
  void CopyFile(const FileTask& task, bool replace);
  void MoveFile(const FileTask& task, bool replace, std::uint32_t attributes);
  bool IsTaken(std::size_t i) const { return taken_.contains(keys_[i].to) || waiting_.contains(keys_[i].to); }

  FileDisk& disk_;
  OperationOwner& owner_;
  bool moves_;
  bool replacesAll_ = false;
  OperationReport report_;
  Walk walk_;
  std::span<const FileTask> tasks_;
  std::vector<Keys> keys_;
  std::set<std::string, std::less<>> taken_;    // names that files of this operation have got
  std::set<std::string, std::less<>> waiting_;  // names that files to be moved still have
};

// The order of the tasks: that given, but a file whose new name is the old name of another comes after it.
std::vector<std::size_t> FileOperations::Transfer::Order() {
  std::unordered_map<std::string_view, std::size_t> sources;
  if (moves_)
    for (std::size_t i = 0; i < tasks_.size(); ++i) sources.emplace(keys_[i].from, i);
  for (auto& [name, i] : sources) waiting_.emplace(name);
  std::vector<std::size_t> order, chain;
  std::vector<bool> placed(tasks_.size());
  for (std::size_t first = 0; first < tasks_.size(); ++first) {
    for (std::size_t i = first; !placed[i];) {
      placed[i] = true;
      chain.push_back(i);
      auto next = sources.find(keys_[i].to);
      if (next == sources.end()) break;
      i = next->second;
    }
    order.insert(order.end(), chain.rbegin(), chain.rend());
    chain.clear();
  }
  return order;
}

bool FileOperations::Transfer::DoTask(std::size_t i) {
  const FileTask& task = tasks_[i];
  if (task.from == task.to) return false;
  FileState fresh = StateOf(disk_, task.from);
  std::optional<FileState> old = disk_.State(task.to);
  bool onlyCaseChanges = moves_ && keys_[i].from == keys_[i].to;
  bool replaces = old && !onlyCaseChanges;
  if (replaces) {
    if (old->attributes & kAttributeDirectory) throw Refusal(kTextNameOfDirectory);
    if (disk_.IsSame(task.from, task.to)) throw Refusal(kTextOntoItself);
    if (IsTaken(i)) throw Refusal(kTextNameTaken);
    if (!MayReplace(task, *old, fresh)) return false;
    RefuseReadOnly(task.to, old->attributes);
  }
  moves_ ? MoveFile(task, replaces, fresh.attributes) : CopyFile(task, replaces);
  waiting_.erase(keys_[i].from);
  taken_.insert(keys_[i].to);
  return true;
}

bool FileOperations::Transfer::MayReplace(const FileTask& task, const FileState& old,
                                          const FileState& fresh) {
  if (replacesAll_) return true;
  auto answer = owner_.MayReplace(task.to, old, task.from, fresh);
  if (answer == OperationOwner::Answer::kCancel) throw CYieldException();
  replacesAll_ = answer == OperationOwner::Answer::kYesToAll;
  return replacesAll_ || answer == OperationOwner::Answer::kYes;
}

// The copy is made beside its place and gets its name when it is whole.
void FileOperations::Transfer::CopyFile(const FileTask& task, bool replace) {
  std::string temporary = disk_.MakeTemporary(task.to);
  try {
    disk_.Copy(task.from, temporary, owner_.GetProgress());
    if (!disk_.Move(temporary, task.to, replace)) throw CFileException(FileCause::kGeneric, task.to);
  } catch (...) {
    RemoveQuietly(disk_, temporary);
    throw;
  }
}

// Between volumes a file is copied, and removed when its copy is whole. That it was read-only does not hold
// it back: it goes on living in its new place.
void FileOperations::Transfer::MoveFile(const FileTask& task, bool replace, std::uint32_t attributes) {
  if (!disk_.Move(task.from, task.to, replace)) {
    CopyFile(task, replace);
    if (attributes & kAttributeReadOnly)
      disk_.SetAttributes(task.from, Settable(attributes & ~std::uint32_t{kAttributeReadOnly}));
    disk_.Remove(task.from);
  }
  owner_.OnMoved(task.from, task.to);
}

OperationReport FileOperations::Copy(std::span<const FileTask> tasks) {
  return Transfer(disk_, owner_, false).Run(tasks);
}

OperationReport FileOperations::Move(std::span<const FileTask> tasks) {
  return Transfer(disk_, owner_, true).Run(tasks);
}

OperationReport FileOperations::Delete(std::span<const std::string> paths, Removal removal) {
  return ForEach(owner_, paths, [&](const std::string& path) {
    RefuseReadOnly(path, StateOf(disk_, path).attributes);
    removal == Removal::kRecycle ? disk_.Recycle(path) : disk_.Remove(path);
    return true;
  });
}

OperationReport FileOperations::Touch(std::span<const std::string> paths, std::uint64_t time) {
  return ForEach(owner_, paths, [&](const std::string& path) {
    disk_.SetModified(path, time);
    return true;
  });
}

OperationReport FileOperations::ChangeAttributes(std::span<const std::string> paths, std::uint32_t set,
                                                 std::uint32_t clear) {
  return ForEach(owner_, paths, [&](const std::string& path) {
    std::uint32_t old = Settable(StateOf(disk_, path).attributes), fresh = Settable((old & ~clear) | set);
    if (fresh != old) disk_.SetAttributes(path, fresh);
    return fresh != old;
  });
}

}  // namespace tarrow
