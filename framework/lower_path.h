// Paths in lower case that still name the same file.
//
// The program shows and compares paths in lower case. On a disk that tells "A.txt" from "a.txt", a path whose
// lower case is the name of another file keeps its own case instead: to open and save the other one would be
// worse than to show a capital letter.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace tarrow {

class LowerPaths {
 public:
  // `path` in lower case, or with the letters that it needs to name the file that it names. Remembers what it
  // learns of a directory: an object is for one list of files, or one question.
  [[nodiscard]] std::string Lower(std::string_view path);

 private:
  void Enter(std::string_view directory);
  bool IsTaken(const std::string& path, const std::string& lowerName);

  std::string directory_, lowerDirectory_;          // with the separator behind it
  int asked_ = 0;                                   // about names in that directory
  std::optional<std::set<std::string>> ambiguous_;  // its names that differ in case only, in lower case
};

}  // namespace tarrow
