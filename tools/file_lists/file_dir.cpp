#include "tools/file_lists/file_dir.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/words.h"

#include <algorithm>
#include <new>

namespace tarrow {

std::size_t CFileDir::Build(std::initializer_list<std::string_view> strings) {
  paths_.clear();
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
  paths_.clear();
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
    std::ranges::sort(paths_);
    paths_.erase(std::ranges::unique(paths_).begin(), paths_.end());
    return paths_.size();
  } catch (const std::bad_alloc&) {
    paths_.clear();
    throw CMemoryException();
  } catch (...) {
    paths_.clear();
    throw;
  }
}

void CFileDir::AddName(const std::string& name) {
  std::vector<DirectoryEntry> found = files_.Find(name);
  if (found.empty()) {
    paths_.push_back(files_.Lower(name));
    return;
  }
  std::string_view directory = DirectoryPart(name);
  for (const DirectoryEntry& entry : found) {
    if (entry.IsDirectory()) continue;
    std::string joined = std::string(directory) + entry.name;
    paths_.push_back(files_.Lower(files_.FullPath(joined).value_or(joined)));
  }
}

const std::string* CFileDir::Next() {
  return next_ < paths_.size() ? &paths_[next_++] : nullptr;
}

}  // namespace tarrow
