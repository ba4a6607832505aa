// A disk for tests: a table of names, on drive c, with everything that an engine may ask of it.
#pragma once

#include "base/file_lookup.h"
#include "base/path_text.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarrow {

class TableDisk : public FileLookup {
 public:
  // A file, or a directory with kAttributeDirectory. The name is a full path; its case is the one on the
  // disk.
  void Add(const std::string& path, std::uint32_t attributes = kAttributeArchive) {
    files_[path] = attributes;
  }

  std::optional<std::uint32_t> Attributes(std::string_view path) override {
    std::string full = WholePath(path);
    for (auto& [name, attributes] : files_)
      if (EqualIgnoringCase(name, full)) return attributes;
    return {};
  }
  bool IsDriveKnown(char letter) override { return letter == 'c' || letter == 'C'; }
  std::optional<std::string> FullPath(std::string_view path) override {
    std::string full = WholePath(path);
    if (full.size() >= kMaxPath) return {};
    return full;
  }
  void Find(std::string_view pattern, Progress*, const EntryUse& use) override {
    std::string full = WholePath(pattern);
    std::vector<DirectoryEntry> found;
    bool wild = full.find_first_of("*?") != std::string::npos;
    if (wild)
      found = {{.name = ".", .attributes = kAttributeDirectory},
               {.name = "..", .attributes = kAttributeDirectory}};
    for (auto& [name, attributes] : files_)
      if (EqualIgnoringCase(DirectoryPart(name), DirectoryPart(full)) &&
          Matches(FileNamePart(full), FileNamePart(name)))
        found.push_back({.name = std::string(FileNamePart(name)), .attributes = attributes});
    std::ranges::reverse(found);  // a disk promises no order
    for (DirectoryEntry& entry : found) use(std::move(entry));
  }
  std::string Lower(std::string_view path) override { return LowerLetters(path); }
  std::string LowerLetters(std::string_view path) override {
    std::string lower(path);
    for (char& c : lower)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return lower;
  }

  std::string current = "c:\\work";

 private:
  std::string WholePath(std::string_view path) const {
    if (path.size() >= 2 && path[1] == ':')
      return path.size() == 2 || path[2] != '\\' ? JoinPath(current, path.substr(2)) : std::string(path);
    return JoinPath(current, path);
  }
  static bool Matches(std::string_view pattern, std::string_view name) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == '*')
      return Matches(pattern.substr(1), name) || (!name.empty() && Matches(pattern, name.substr(1)));
    return !name.empty() &&
           (pattern[0] == '?' || EqualIgnoringCase(pattern.substr(0, 1), name.substr(0, 1))) &&
           Matches(pattern.substr(1), name.substr(1));
  }

  std::map<std::string, std::uint32_t> files_;
};

}  // namespace tarrow
