#include "tools/file_manager/file_table.h"

#include "base/path_text.h"

#include <algorithm>
#include <numeric>

namespace tarrow {
namespace {

struct AttributeLetter {
  std::uint32_t attribute;
  char letter;
};
constexpr AttributeLetter kLetters[] = {
    {kAttributeReadOnly, 'R'}, {kAttributeHidden, 'H'}, {kAttributeSystem, 'S'}, {kAttributeArchive, 'A'}};

FileRow RowOf(const ListedFile& file, std::string_view directory) {
  FileRow row;
  row.key = file.path;
  row.path = std::string(DirectoryPart(file.path)) + file.entry.name;
  row.name = NameSeenFrom(directory, row.path);
  row.size = file.entry.size;
  row.modified = file.entry.modified;
  row.attributes = file.entry.attributes;
  return row;
}

std::uint64_t NumberIn(const FileRow& row, FileColumn column) {
  switch (column) {
    case FileColumn::kSize:
      return row.size;
    case FileColumn::kModified:
      return row.modified;
    default:
      return 0;
  }
}

}  // namespace

void FileTable::Assign(const std::vector<ListedFile>& files, std::string_view directory) {
  rows_.clear();
  for (const ListedFile& file : files)
    if (!file.entry.name.empty()) rows_.push_back(RowOf(file, directory));
  order_.resize(rows_.size());
  Sort();
}

void FileTable::SortBy(FileColumn column, bool descending) {
  column_ = column;
  descending_ = descending;
  Sort();
}

// What is equal in the column stays in the order of the names, whichever way the column goes.
void FileTable::Sort() {
  std::iota(order_.begin(), order_.end(), 0u);
  if (column_ == FileColumn::kName) {
    if (descending_) std::ranges::reverse(order_);
    return;
  }
  auto sortBy = [&](auto valueOf) {
    std::ranges::stable_sort(order_, [&](std::uint32_t a, std::uint32_t b) {
      return descending_ ? valueOf(b) < valueOf(a) : valueOf(a) < valueOf(b);
    });
  };
  if (column_ == FileColumn::kAttributes)
    sortBy([&](std::uint32_t i) { return AttributeLetters(rows_[i].attributes); });
  else
    sortBy([&](std::uint32_t i) { return NumberIn(rows_[i], column_); });
}

std::optional<std::size_t> FileTable::Find(std::string_view key) const {
  auto found = std::ranges::lower_bound(rows_, key, {}, &FileRow::key);
  if (found == rows_.end() || found->key != key) return {};
  auto place = static_cast<std::uint32_t>(found - rows_.begin());
  return static_cast<std::size_t>(std::ranges::find(order_, place) - order_.begin());
}

std::optional<std::size_t> FileTable::FindName(std::string_view prefix, std::size_t start) const {
  for (std::size_t i = 0; i < Size(); ++i) {
    std::size_t row = (start + i) % Size();
    std::string_view name = (*this)[row].name;
    if (EqualIgnoringCase(name.substr(0, prefix.size()), prefix)) return row;
  }
  return {};
}

std::uint64_t FileTable::TotalSize() const {
  return std::accumulate(rows_.begin(), rows_.end(), std::uint64_t{0},
                         [](std::uint64_t sum, const FileRow& row) { return sum + row.size; });
}

std::string AttributeLetters(std::uint32_t attributes) {
  std::string letters;
  for (auto [attribute, letter] : kLetters)
    if (attributes & attribute) letters += letter;
  return letters;
}

}  // namespace tarrow
