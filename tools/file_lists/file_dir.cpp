#include "tools/file_lists/file_dir.h"

#include "base/exceptions.h"
#include "base/path_text.h"
#include "base/words.h"

#include <algorithm>
#include <new>
#include <utility>

namespace tarrow {
namespace {

// What a tick is given for an entry of a directory, and for a comparison of two paths.
constexpr int kEntryWeight = 64, kComparisonWeight = 4;

}  // namespace

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
    Sort();
    if (TellApart()) Sort();
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
  if (name.find_first_of("?*") != std::string::npos) return AddPattern(name);
  bool isFound = false;
  disk_.Find(name, progress_, [&](DirectoryEntry&& entry) {
    isFound = true;
    if (!entry.IsDirectory()) AddFound(DirectoryPart(name), std::move(entry));
  });
  if (!isFound) files_.push_back({disk_.Lower(name), {}});
}

// What a pattern finds stands in one directory: the disk is asked once for its full path, and whether that
// may be written in lower case. Which of the names may, the list itself tells (TellApart).
void CFileDir::AddPattern(const std::string& pattern) {
  std::string_view directory = DirectoryPart(pattern);
  std::string full, lower;
  bool isFound = false;
  ProgressTicker ticker(progress_);
  disk_.Find(pattern, progress_, [&](DirectoryEntry&& entry) {
    ticker.Tick(kEntryWeight);
    isFound = true;
    if (entry.IsDirectory()) return;
    if (full.empty()) {
      full = DirectoryPart(disk_.FullPath(std::string(directory) + entry.name).value_or(""));
      lower = disk_.Lower(full);
    }
    if (full.empty() || full.size() + entry.name.size() >= kMaxPath)
      return AddFound(directory, std::move(entry));
    files_.push_back({lower + disk_.LowerLetters(entry.name), std::move(entry)});
  });
  if (!isFound) files_.push_back({disk_.Lower(pattern), {}});
}

void CFileDir::AddFound(std::string_view directory, DirectoryEntry&& entry) {
  std::string joined = std::string(directory) + entry.name;
  files_.push_back({disk_.Lower(disk_.FullPath(joined).value_or(joined)), std::move(entry)});
}

// Sorting once costs less than keeping the list sorted name by name.
void CFileDir::Sort() {
  ProgressTicker ticker(progress_);
  std::ranges::sort(files_, [&](const ListedFile& a, const ListedFile& b) {
    ticker.Tick(kComparisonWeight);
    return a.path < b.path;
  });
}

// Gives files whose names are the same only in lower case their own case back; whether there were any.
bool CFileDir::TellApart() {
  bool areAny = false;
  for (auto first = files_.begin(); first != files_.end();) {
    auto last = std::find_if(first, files_.end(), [&](const ListedFile& f) { return f.path != first->path; });
    bool areOne =
        std::all_of(first, last, [&](const ListedFile& f) { return f.entry.name == first->entry.name; });
    areAny |= !areOne;
    for (; first != last; ++first)
      if (!areOne && !first->entry.name.empty())
        first->path = std::string(DirectoryPart(first->path)) + first->entry.name;
  }
  return areAny;
}

std::vector<ListedFile> CFileDir::TakeFiles() {
  next_ = 0;
  return std::exchange(files_, {});
}

const std::string* CFileDir::Next() {
  return next_ < files_.size() ? &files_[next_++].path : nullptr;
}

}  // namespace tarrow
