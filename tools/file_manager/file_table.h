// The list of the file manager: files in the order of a column, ready to be shown row by row.
//
// Rows are numbered from 0 in that order. Ordering a hundred thousand files again moves their numbers only.
#pragma once

#include "tools/file_lists/file_dir.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct FileRow {
  std::string path;  // full, the name in the case that it has on the disk
  std::string key;   // the same in lower case: which file it is, and its place among the names
  std::string name;  // as it is shown: seen from the directory of the list
  std::uint64_t size = 0;
  std::uint64_t modified = 0;  // in units of 100 nanoseconds since 1601, UTC
  std::uint32_t attributes = 0;
};

enum class FileColumn { kName, kSize, kModified, kAttributes };
inline constexpr int kFileColumnCount = 4;

class FileTable {
 public:
  // Takes over the files of a list that exist, shown as seen from `directory`, in the order last asked for.
  void Assign(const std::vector<ListedFile>& files, std::string_view directory);

  void SortBy(FileColumn column, bool descending);
  FileColumn SortColumn() const { return column_; }
  bool IsDescending() const { return descending_; }

  std::size_t Size() const { return order_.size(); }
  const FileRow& operator[](std::size_t row) const { return rows_[order_[row]]; }

  // The row of the file with that key.
  [[nodiscard]] std::optional<std::size_t> Find(std::string_view key) const;

  // The first row from `start` on, going round, whose name begins with `prefix`, ASCII letters in any case.
  [[nodiscard]] std::optional<std::size_t> FindName(std::string_view prefix, std::size_t start) const;

  // The sum of the sizes of all files.
  std::uint64_t TotalSize() const;

 private:
  void Sort();

  std::vector<FileRow> rows_;         // in the order of their keys
  std::vector<std::uint32_t> order_;  // places in rows_
  FileColumn column_ = FileColumn::kName;
  bool descending_ = false;
};

// The attributes as letters: R, H, S, A.
[[nodiscard]] std::string AttributeLetters(std::uint32_t attributes);

}  // namespace tarrow
