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

enum class FileColumn { kName, kSize, kModified, kAttributes };
inline constexpr int kFileColumnCount = 4;

class FileTable {
 public:
  // Takes over the files of a list (CFileDir) that exist, to be shown as seen from `directory`, in the order
  // last asked for.
  void Assign(std::vector<ListedFile> files, std::string_view directory);

  // Gives the rows, in ascending order, that the files of `rows` have afterwards.
  std::vector<std::size_t> SortBy(FileColumn column, bool descending,
                                  const std::vector<std::size_t>& rows = {});
  FileColumn SortColumn() const { return column_; }
  bool IsDescending() const { return descending_; }

  std::size_t Size() const { return order_.size(); }

  // The file of a row. Its path is in lower case and tells which file it is.
  const ListedFile& operator[](std::size_t row) const { return files_[order_[row]]; }

  // Its full path, the name in the case that it has on the disk; and the name as it is shown, seen from the
  // directory of the list.
  std::string Path(std::size_t row) const;
  std::string Name(std::size_t row) const;

  // The rows, in ascending order, of those files in the list that have one of these paths, in lower case and
  // ascending order.
  [[nodiscard]] std::vector<std::size_t> RowsOf(const std::vector<std::string>& paths) const;

  // The first row from `start` on, going round, whose name begins with `prefix`, ASCII letters in any case.
  [[nodiscard]] std::optional<std::size_t> FindName(std::string_view prefix, std::size_t start) const;

  // The sum of the sizes of all files.
  std::uint64_t TotalSize() const { return totalSize_; }

 private:
  void Sort();
  std::vector<std::size_t> RowsWhere(const std::vector<bool>& isWanted) const;
  std::uint64_t SortValue(const ListedFile& file) const;

  std::vector<ListedFile> files_;     // in the order of their paths
  std::vector<std::uint32_t> order_;  // places in files_
  std::string directory_;
  std::uint64_t totalSize_ = 0;
  FileColumn column_ = FileColumn::kName;
  bool descending_ = false;
};

// The attributes as letters: R, H, S, A.
[[nodiscard]] std::string AttributeLetters(std::uint32_t attributes);

}  // namespace tarrow
