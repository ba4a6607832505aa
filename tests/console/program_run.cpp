#include "program_run.h"

#include <atomic>
#include <fstream>
#include <random>
#include <sstream>

namespace tarrow {
namespace {

std::string WithLf(const std::string& text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i)
    if (text[i] != '\r' || i + 1 == text.size() || text[i + 1] != '\n') out += text[i];
  return out;
}

}  // namespace

TestDirectory::TestDirectory() {
  do {
    path_ = std::filesystem::temp_directory_path() / ("tarrowc" + std::to_string(std::random_device()()));
  } while (!std::filesystem::create_directory(path_));
}

TestDirectory::~TestDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

void TestDirectory::Write(std::string_view name, std::string_view bytes) const {
  std::ofstream(Path(name), std::ios::binary) << bytes;
}

std::string TestDirectory::Read(std::string_view name) const {
  std::ostringstream text;
  text << std::ifstream(Path(name), std::ios::binary).rdbuf();
  return text.str();
}

ProgramResult TestDirectory::Run(const std::vector<std::string>& arguments, std::string_view input) const {
  std::vector<std::string> command{TARROWC_PROGRAM};
  command.insert(command.end(), arguments.begin(), arguments.end());
  Write(".in", "");
  ProgramResult result;
  result.exitCode =
      RunProcess(command, path_, Path(input.empty() ? ".in" : input), Path(".out"), Path(".err"));
  result.out = WithLf(Read(".out"));
  result.err = WithLf(Read(".err"));
  return result;
}

}  // namespace tarrow
