#include "tools/file_manager/file_transfer.h"

#include "base/path_text.h"
#include "tools/file_manager/name_pattern.h"

namespace tarrow {
namespace {

bool EndsInSeparator(std::string_view path) {
  return path.ends_with('\\') || path.ends_with('/');
}

// The full path of a directory part as it is written: with the separator of a root, without any other.
std::optional<std::string> FullDirectory(FileLookup& disk, std::string_view part) {
  auto full = disk.FullPath(part.empty() ? "." : part);
  if (full) *full = WithoutTrailingSeparators(*full);
  return full;
}

}  // namespace

std::optional<TransferTarget> ReadTarget(FileLookup& disk, std::string_view text, std::string_view directory,
                                         std::size_t count) {
  std::string path = PathFrom(directory, text);
  if (text.empty()) return {};
  std::string_view name = FileNamePart(path);
  bool isDirectory = IsDirectory(disk, WithoutTrailingSeparators(path));
  bool namesFile = !isDirectory && !EndsInSeparator(path) && (count == 1 || HasWildcard(name));
  if (namesFile && !HasWildcard(name) && !IsFileName(name)) return {};
  auto full = FullDirectory(disk, namesFile ? DirectoryPart(path) : std::string_view(path));
  if (!full || HasWildcard(*full)) return {};
  return TransferTarget{*full, namesFile ? std::string(name) : "*", !IsDirectory(disk, *full)};
}

std::vector<FileTask> PlanTransfer(const std::vector<std::string>& files, const TransferTarget& target) {
  std::vector<FileTask> tasks;
  for (const std::string& file : files)
    if (auto name = MapName(FileNamePart(file), PatternFor(target.pattern), target.pattern))
      tasks.push_back({file, JoinPath(target.directory, *name)});
  return tasks;
}

std::vector<FileTask> PlanRename(const std::vector<std::string>& files, std::string_view from,
                                 std::string_view to) {
  std::vector<FileTask> tasks;
  for (const std::string& file : files)
    if (auto name = MapName(FileNamePart(file), from, to))
      tasks.push_back({file, std::string(DirectoryPart(file)) + *name});
  return tasks;
}

}  // namespace tarrow
