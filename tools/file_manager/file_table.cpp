#include "tools/file_manager/file_table.h"

#include "base/path_text.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace tarrow {
namespace {

struct AttributeLetter {
  std::uint32_t attribute;
  char letter;
};
constexpr AttributeLetter kLetters[] = {
    {kAttributeReadOnly, 'R'}, {kAttributeHidden, 'H'}, {kAttributeSystem, 'S'}, {kAttributeArchive, 'A'}};

// A number that orders attributes as their letters do.
std::uint32_t AttributeRank(std::uint32_t attributes) {
  std::uint32_t rank = 0;
  for (char letter : (AttributeLetters(attributes) + "    ").substr(0, 4))
    rank = rank << 8 | static_cast<unsigned char>(letter);
  return rank;
}

}  // namespace

void FileTable::Assign(std::vector<ListedFile> files, std::string_view directory) {
  files_ = std::move(files);
  std::erase_if(files_, [](const ListedFile& file) { return file.entry.name.empty(); });
  directory_ = directory;
  totalSize_ = 0;
  for (const ListedFile& file : files_) totalSize_ += file.entry.size;
  Sort();
}

std::vector<std::size_t> FileTable::SortBy(FileColumn column, bool descending,
                                           const std::vector<std::size_t>& rows) {
  std::vector<bool> isWanted(files_.size());
  for (std::size_t row : rows) isWanted[order_[row]] = true;
  column_ = column;
  descending_ = descending;
  Sort();
  return RowsWhere(isWanted);
}

std::uint64_t FileTable::SortValue(const ListedFile& file) const {
  switch (column_) {
    case FileColumn::kSize:
      return file.entry.size;
    case FileColumn::kModified:
      return file.entry.modified;
    case FileColumn::kAttributes:
      return AttributeRank(file.entry.attributes);
    default:
      return 0;
  }
}

// What is equal in the column stays in the order of the names, whichever way the column goes.
void FileTable::Sort() {
  order_.resize(files_.size());
  std::iota(order_.begin(), order_.end(), 0u);
  if (column_ == FileColumn::kName) {
    if (descending_) std::ranges::reverse(order_);
    return;
  }
  std::vector<std::uint64_t> values(files_.size());
  std::ranges::transform(files_, values.begin(), [&](const ListedFile& file) { return SortValue(file); });
  std::ranges::stable_sort(order_, [&](std::uint32_t a, std::uint32_t b) {
    return descending_ ? values[b] < values[a] : values[a] < values[b];
  });
}

std::string FileTable::Path(std::size_t row) const {
  const ListedFile& file = (*this)[row];
  return std::string(DirectoryPart(file.path)) + file.entry.name;
}

std::string FileTable::Name(std::size_t row) const {
  return std::string(NameSeenFrom(directory_, Path(row)));
}

// Both are in the same order, and gone through side by side.
std::vector<std::size_t> FileTable::RowsOf(const std::vector<std::string>& paths) const {
  std::vector<bool> isWanted(files_.size());
  auto file = files_.begin();
  for (const std::string& path : paths) {
    while (file != files_.end() && file->path < path) ++file;
    if (file != files_.end() && file->path == path)
      isWanted[static_cast<std::size_t>(file - files_.begin())] = true;
  }
  return RowsWhere(isWanted);
}

// The rows of those places in files_ that are marked.
std::vector<std::size_t> FileTable::RowsWhere(const std::vector<bool>& isWanted) const {
  std::vector<std::size_t> rows;
  for (std::size_t row = 0; row < order_.size(); ++row)
    if (isWanted[order_[row]]) rows.push_back(row);
  return rows;
}

std::optional<std::size_t> FileTable::FindName(std::string_view prefix, std::size_t start) const {
  for (std::size_t i = 0; i < Size(); ++i) {
    std::size_t row = (start + i) % Size();
    std::string name = Name(row);
    if (EqualIgnoringCase(std::string_view(name).substr(0, prefix.size()), prefix)) return row;
  }
  return {};
}

std::string AttributeLetters(std::uint32_t attributes) {
  std::string letters;
  for (auto [attribute, letter] : kLetters)
    if (attributes & attribute) letters += letter;
  return letters;
}

}  // namespace tarrow
