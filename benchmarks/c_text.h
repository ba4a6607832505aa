#pragma once
// C source code by the megabyte, for benchmarks that need text as programmers have it.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace tarrow::bench {

// The headers of this machine one after another, in the order of their paths, again and again until there are
// `size` bytes. Line ends are LF or CR LF, whichever is asked for. Empty where there are no headers.
inline std::string MakeCText(std::size_t size, bool crLf) {
  namespace fs = std::filesystem;
  std::vector<fs::path> paths;
  for (const auto& entry :
       fs::recursive_directory_iterator("/usr/include", fs::directory_options::skip_permission_denied))
    if (entry.is_regular_file() && entry.path().extension() == ".h") paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());

  std::string text;
  text.reserve(size);
  for (const fs::path& path : paths) {
    std::ifstream file(path, std::ios::binary);
    for (std::istreambuf_iterator<char> at(file), end; at != end && text.size() < size; ++at) {
      if (*at == '\r') continue;
      if (*at == '\n' && crLf) text += '\r';
      text += *at;
    }
  }
  for (std::size_t once = text.size(); once > 0 && text.size() < size;)
    text.append(text, 0, std::min(once, size - text.size()));
  return text;
}

}  // namespace tarrow::bench
