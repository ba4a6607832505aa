// A disk in memory for the file manager: files with contents on the drives c and d, and faults by injection.
#pragma once

#include "base/exceptions.h"
#include "base/path_text.h"
#include "tests/table_disk.h"
#include "tools/file_manager/file_disk.h"

#include <map>
#include <set>
#include <string>

namespace tarrow {

class ManagedDisk final : public FileDisk {
 public:
  struct File {
    std::string bytes;
    std::uint64_t modified = 1;
    std::uint32_t attributes = kAttributeArchive;
    int id = 0;  // the same for the names of one file
  };

  // By the full path in lower case; the name keeps its case.
  std::map<std::string, std::pair<std::string, File>> files;
  std::set<std::string> directories = {"c:\\", "c:\\work", "c:\\other", "d:\\", "d:\\far"};
  std::string current = "c:\\work";
  std::set<std::string> recycled;
  int copiesUntilFull = 1000;  // the copy after these finds the disk full, and leaves half a file
  int copiesUntilCancel = 1000;
  std::set<std::string> locked;  // cannot be moved or removed

  void Add(const std::string& path, std::string bytes = "text",
           std::uint32_t attributes = kAttributeArchive) {
    files[Lower(path)] = {path, {std::move(bytes), 1, attributes, ++lastId_}};
  }
  void Link(const std::string& path, const std::string& other) {
    files[Lower(path)] = {path, files.at(Lower(other)).second};
  }
  // All names, as they are on the disk, with what is in them.
  std::map<std::string, std::string> Listing() const {
    std::map<std::string, std::string> listing;
    for (auto& [key, file] : files) listing[file.first] = file.second.bytes;
    return listing;
  }
  File& At(const std::string& path) {
    auto found = files.find(Lower(path));
    if (found == files.end()) throw CFileException(FileCause::kFileNotFound, path);
    return found->second.second;
  }

  std::optional<std::uint32_t> Attributes(std::string_view path) override {
    auto state = State(std::string(path));
    if (!state) return {};
    return state->attributes;
  }
  bool IsDriveKnown(char letter) override {
    return std::string_view("cCdD").find(letter) != std::string_view::npos;
  }
  std::optional<std::string> FullPath(std::string_view path) override {
    if (path == ".") return current;
    if (path.starts_with('\\')) return "c:" + std::string(path);
    if (path.size() >= 2 && path[1] == ':') return std::string(path);
    return JoinPath(current, path);
  }
  void Find(std::string_view, Progress*, const EntryUse&) override {}
  std::string Lower(std::string_view path) override { return LowerLetters(path); }
  std::string LowerLetters(std::string_view path) override {
    std::string lower(path);
    for (char& c : lower)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return lower;
  }

  std::optional<FileState> State(const std::string& path) override {
    if (directories.contains(Lower(path))) return FileState{0, 0, kAttributeDirectory};
    auto found = files.find(Lower(path));
    if (found == files.end()) return {};
    const File& file = found->second.second;
    return FileState{file.bytes.size(), file.modified, file.attributes};
  }
  bool IsSame(const std::string& a, const std::string& b) override { return At(a).id == At(b).id; }
  std::string MakeTemporary(const std::string& path) override {
    std::string directory(WithoutTrailingSeparators(DirectoryPart(path)));
    if (!directories.contains(Lower(directory))) throw CFileException(FileCause::kBadPath, path);
    std::string temporary = JoinPath(directory, "trw" + std::to_string(lastId_) + ".tmp");
    Add(temporary, "");
    return temporary;
  }
  void Copy(const std::string& from, const std::string& to, Progress& progress) override {
    progress.Poll();
    File& target = At(to);
    const File& source = At(from);
    target.bytes = source.bytes.substr(0, source.bytes.size() / 2);
    if (copiesUntilCancel-- == 0) throw CYieldException();
    if (copiesUntilFull-- == 0) throw CFileException(FileCause::kDiskFull, to);
    int id = target.id;
    target = source;
    target.id = id;
  }
  bool Move(const std::string& from, const std::string& to, bool replace) override {
    if (Lower(from)[0] != Lower(to)[0]) return false;
    if (locked.contains(from)) throw CFileException(FileCause::kSharingViolation, from);
    bool same = Lower(from) == Lower(to);
    if (!same && !replace && files.contains(Lower(to))) throw CFileException(FileCause::kAccessDenied, to);
    File file = At(from);
    files.erase(Lower(from));
    files[Lower(to)] = {to, file};
    return true;
  }
  void Remove(const std::string& path) override {
    if (At(path).attributes & kAttributeReadOnly || locked.contains(path))
      throw CFileException(FileCause::kAccessDenied, path);
    files.erase(Lower(path));
  }
  void Recycle(const std::string& path) override {
    Remove(path);
    recycled.insert(path);
  }
  void SetAttributes(const std::string& path, std::uint32_t attributes) override {
    At(path).attributes = attributes;
  }
  void SetModified(const std::string& path, std::uint64_t time) override { At(path).modified = time; }

 private:
  int lastId_ = 0;
};

}  // namespace tarrow
