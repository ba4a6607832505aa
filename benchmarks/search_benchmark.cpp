// tarrowc search beside GNU grep -n and ripgrep on one thread, as whole processes: one file of 100 MB, and
// the same bytes as 20,000 files.
//
// The output of all three is compared before the time is believed. Lines are kept below 255 characters, since
// longer ones count as several here. grep runs in the C locale, where it is fastest.

#include "benchmarks/c_text.h"
#include "benchmarks/report.h"

#include <unistd.h>

#include <fstream>

namespace tarrow::bench {
namespace {

struct SearchRow {
  const char* name;
  const char* pattern;  // the same in all three dialects
  bool ignoreCase;
  bool isLiteral;
};

constexpr SearchRow kRows[] = {
    {"common literal", "return", false, true},     {"rare literal", "EOVERFLOW", false, true},
    {"absent literal", "zyxwvutsrq", false, true}, {"literal in any case", "error", true, true},
    {"^#include", "^#include", false, false},      {"numbers", "[0-9]+", false, false},
    {"types", "[a-z_]+_t ", false, false},
};

// A directory that goes when its owner does.
class WorkFolder {
 public:
  WorkFolder()
      : path_(std::filesystem::temp_directory_path() / ("tarrow-search-" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(path_ / "files");
  }
  ~WorkFolder() { std::filesystem::remove_all(path_); }
  WorkFolder(const WorkFolder&) = delete;
  WorkFolder& operator=(const WorkFolder&) = delete;

  std::string Path() const { return path_.string(); }

 private:
  std::filesystem::path path_;
};

void WriteFile(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

// `text` with every long line broken.
std::string WithShortLines(const std::string& text) {
  std::string out;
  out.reserve(text.size() + text.size() / 100);
  std::size_t length = 0;
  for (char c : text) {
    length = c == '\n' ? 0 : length + 1;
    if (length == 250) {
      out += '\n';
      length = 1;
    }
    out += c;
  }
  return out;
}

// Writes `text` as the file "all.c" and as `count` files in "files", cut between lines.
void WriteFiles(const std::string& folder, const std::string& text, std::size_t count) {
  WriteFile(folder + "/all.c", text);
  std::size_t at = 0;
  for (std::size_t i = 0; i < count; ++i) {
    std::size_t end =
        std::min(text.find('\n', std::max(at, text.size() / count * (i + 1))), text.size() - 1) + 1;
    char name[32];
    std::snprintf(name, sizeof name, "/files/f%05zu.c", i);
    WriteFile(folder + name, std::string_view(text).substr(at, end - at));
    at = end;
  }
}

class Runner {
 public:
  Runner(std::string folder, int runs) : folder_(std::move(folder)), runs_(runs) {}

  // The best time of `command`, whose output goes to `output` in the work folder.
  double Time(const std::string& command, const std::string& output) const {
    std::string line = "cd " + folder_ + " && LC_ALL=C " + command + " > " + output;
    return BestSeconds(runs_, [&] { Check(std::system(line.c_str()) <= 256, command.c_str()); });
  }

  // Whether two outputs are the same but for the form in which file and line are named.
  bool SameFindings(const std::string& ours, const std::string& rivals, bool hasNames) const {
    const char* form = hasNames ? "s/^([^(]*)\\(([0-9]+)\\): /\\1:\\2:/" : "s/^[^(]*\\(([0-9]+)\\): /\\1:/";
    std::string line = "cd " + folder_ + " && sed -E '" + form + "' " + ours + " | cmp -s - " + rivals;
    return std::system(line.c_str()) == 0;
  }

 private:
  std::string folder_;
  int runs_;
};

void MeasureRow(const SearchRow& row, const Runner& runner, bool isOneFile) {
  std::string option = row.ignoreCase ? " -i" : "";
  std::string pattern = std::string(" -e '") + row.pattern + "' ";
  std::string files = isOneFile ? "all.c" : "files/*.c";
  double tarrow = runner.Time(
      std::string(TARROWC_PROGRAM) + " search" + option + " '" + row.pattern + "' " + files, "tarrow.out");
  double grep = runner.Time("grep -nE" + option + pattern + files, "grep.out");
  double ripgrep = runner.Time("rg -j1 -n --no-heading --color never" + option + pattern + files, "rg.out");
  Check(runner.SameFindings("tarrow.out", "grep.out", !isOneFile), row.name);
  Check(runner.SameFindings("tarrow.out", "rg.out", !isOneFile), row.name);
  std::string work = std::string(isOneFile ? "one file: " : "many files: ") + row.name;
  Row({work, tarrow, "grep -n", grep, "s", 1});
  Row({work, tarrow, "rg -j1 -n", ripgrep, "s", row.isLiteral ? 1.0 : 0.0});
}

int Main(bool isQuick) {
  RequireProgram("rg", "ripgrep");
  RequireProgram("grep", "grep");
  std::string text = WithShortLines(MakeCText(isQuick ? 5'000'000 : 100'000'000, false));
  WorkFolder folder;
  WriteFiles(folder.Path(), text, isQuick ? 1000 : 20'000);
  Runner runner(folder.Path(), isQuick ? 1 : 5);
  for (bool isOneFile : {true, false})
    for (const SearchRow& row : kRows) MeasureRow(row, runner, isOneFile);
  return 0;
}

}  // namespace
}  // namespace tarrow::bench

int main(int argc, char** argv) {
  return tarrow::bench::Main(tarrow::bench::IsQuick(argc, argv));
}
