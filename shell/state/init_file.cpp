#include "shell/state/init_file.h"

#include "base/path_text.h"

#include <optional>

namespace tarrow {
namespace {

// What keeps a file in the current directory from being taken for the settings: it is none of the user's
// making.
constexpr std::uint32_t kNotOrdinary =
    kAttributeDirectory | kAttributeReadOnly | kAttributeHidden | kAttributeSystem;

// The file that a name on the command line stands for, or nothing.
std::optional<std::string> NamedFile(FileLookup& files, std::string_view named) {
  if (named.empty()) return {};
  std::string_view name = WithoutTrailingSeparators(named);
  if (IsDirectory(files, name)) {
    auto directory = files.FullPath(name);
    if (!directory) return {};
    return JoinPath(*directory, kInitFileName);
  }
  if (files.Attributes(named)) return files.FullPath(named);
  std::string_view directory = WithoutTrailingSeparators(DirectoryPart(named));
  if (!IsDirectory(files, directory)) return {};
  return files.FullPath(directory);
}

}  // namespace

std::string HomeDirectory(std::string_view programPath) {
  std::string home(programPath.substr(0, programPath.rfind('\\') + 1));
  if (home.ends_with("nt\\")) home.resize(home.size() - 3);
  return home;
}

std::string FindInitFile(FileLookup& files, std::string_view named, std::string_view homeDirectory) {
  if (auto file = NamedFile(files, named)) return *file;
  auto attributes = files.Attributes(kInitFileName);
  if (attributes && (*attributes & kNotOrdinary) == 0)
    if (auto file = files.FullPath(kInitFileName)) return *file;
  return std::string(homeDirectory).append(kInitFileName);
}

}  // namespace tarrow
