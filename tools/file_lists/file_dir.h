// CFileDir: names and wildcard patterns turned into a sorted list of full paths.
//
// The one place where the program expands wildcards. Paths are UTF-8, in lower case, in ascending order of
// their bytes, each once. A name that finds nothing is kept as it was given (in lower case), so that a file
// that does not exist yet can be opened. A pattern lists one directory; those within it are never entered.
// Where a disk has files whose names differ in case only, those keep their case.
#pragma once

#include "base/file_lookup.h"

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// One file of a list.
struct ListedFile {
  std::string path;      // full, in lower case
  DirectoryEntry entry;  // as it was found on the disk; without a name when nothing was found
};

class CFileDir {
 public:
  // `disk` answers for the disk; `progress`, which may be null, is polled meanwhile. Both outlive the list.
  explicit CFileDir(FileLookup& disk, Progress* progress = nullptr) : disk_(disk), progress_(progress) {}

  // Builds the list from strings of words separated by blanks (base/words.h), taken as one sequence; what was
  // there before is gone. When the first of several words names a directory, the others are names within it.
  // Returns the count of paths. Throws CMemoryException and CYieldException, and the list is empty then.
  std::size_t Build(std::initializer_list<std::string_view> strings);

  // The same from names that are words already, as a dialog or a drop returns them: blanks are part of them.
  std::size_t BuildFromNames(const std::vector<std::string>& names);

  // The next path of the list, or null behind the last. The pointer holds until the next Build.
  const std::string* Next();

  const std::vector<ListedFile>& Files() const { return files_; }

  // Hands the files over; the list is empty then.
  [[nodiscard]] std::vector<ListedFile> TakeFiles();

  bool IsDirectory(std::string_view name) { return tarrow::IsDirectory(disk_, name); }

 private:
  void AddName(const std::string& name);
  void AddPattern(const std::string& pattern);
  void AddFound(std::string_view directory, DirectoryEntry&& entry);
  void Sort();
  bool TellApart();

  FileLookup& disk_;
  Progress* progress_;
  std::vector<ListedFile> files_;
  std::size_t next_ = 0;
};

}  // namespace tarrow
