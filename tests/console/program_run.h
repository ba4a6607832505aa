// Runs the real tarrowc on files in a directory of the test's own, which is also its current directory.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct ProgramResult {
  int exitCode = -1;
  std::string out;  // with LF line ends
  std::string err;
};

// A directory that is empty, and gone at the end.
class TestDirectory {
 public:
  TestDirectory();
  ~TestDirectory();

  // `name` is UTF-8.
  std::filesystem::path Path(std::string_view name) const {
    return path_ / std::u8string(name.begin(), name.end());
  }
  void Write(std::string_view name, std::string_view bytes) const;
  std::string Read(std::string_view name) const;

  // Runs tarrowc to its end, its standard input being the file `input` (nothing when empty).
  ProgramResult Run(const std::vector<std::string>& arguments, std::string_view input = {}) const;

 private:
  std::filesystem::path path_;
};

// Runs a program with these three files as its standard streams; returns its exit code. Once for each system.
int RunProcess(const std::vector<std::string>& command, const std::filesystem::path& directory,
               const std::filesystem::path& input, const std::filesystem::path& out,
               const std::filesystem::path& err);

}  // namespace tarrow
