#include "tools/file_lists/file_dir.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/words.h"

#include <algorithm>
#include <new>
#include <utility>

namespace tarrow {

std::size_t CFileDir::Build(std::initializer_list<std::string_view> strings) {
  files_.clear();
  next_ = 0;
  try {
    std::vector<std::string> words;
    for (std::string_view text : strings)
      for (std::string& word : SplitWords(text)) words.push_back(std::move(word));
    return BuildFromNames(words);
  } catch (const std::bad_alloc&) {
    throw CMemoryException();
  }
}

std::size_t CFileDir::BuildFromNames(const std::vector<std::string>& names) {
  files_.clear();
  next_ = 0;
  try {
    auto first = names.begin();
    std::string prefix;
    if (names.size() > 1)
      if (auto directory = WithoutTrailingSeparators(names.front()); IsDirectory(directory)) {
        prefix = JoinPath(directory, "");
        ++first;
      }
    for (; first != names.end(); ++first) AddName(prefix + *first);
    // Sorting once costs less than keeping the list sorted name by name.
    std::ranges::sort(files_, {}, &ListedFile::path);
    files_.erase(std::ranges::unique(files_, {}, &ListedFile::path).begin(), files_.end());
    return files_.size();
  } catch (const std::bad_alloc&) {
    files_.clear();
    throw CMemoryException();
  } catch (...) {
    files_.clear();
    throw;
  }
}

void CFileDir::AddName(const std::string& name) {
  std::vector<DirectoryEntry> found = disk_.Find(name);
  if (found.empty()) {
    files_.push_back({disk_.Lower(name), {}});
    return;
  }
  std::string_view directory = DirectoryPart(name);
  for (DirectoryEntry& entry : found) {
    if (entry.IsDirectory()) continue;
    std::string joined = std::string(directory) + entry.name;
    files_.push_back({disk_.Lower(disk_.FullPath(joined).value_or(joined)), std::move(entry)});
  }
}

const std::string* CFileDir::Next() {
  return next_ < files_.size() ? &files_[next_++].path : nullptr;
}

}  // namespace tarrow
