// Paths in lower case that still name the same file.
//
// The program shows and compares paths in lower case. On a disk that tells "A.txt" from "a.txt", a path whose
// lower case is the name of another file keeps its own case instead: to open and save the other one would be
// worse than to show a capital letter.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace tarrow {

class LowerPaths {
 public:
  // `path` in lower case, or with the letters that it needs to name the file that it names. Remembers what it
  // learns of directories: an object is for one list of files, or one question.
  [[nodiscard]] std::string Lower(std::string_view path);

 private:
  struct Directory {
    std::string path, lower;                         // with the separator behind it
    int asked = 0;                                   // about names in it
    std::optional<std::set<std::string>> ambiguous;  // its names that differ in case only, in lower case

    explicit Directory(std::string_view path);
    bool IsTaken(const std::string& file, const std::string& lowerName);
  };

  std::map<std::string, Directory> directories_;
};

}  // namespace tarrow
