#include "search/files/search_fields.h"

#include "base/path_text.h"
#include "base/words.h"

#include <algorithm>

namespace tarrow {

bool CanSearch(const SearchRequest& request) {
  return !request.text.empty() && !request.files.empty();
}

std::vector<std::string> NamesToSearch(const SearchRequest& request) {
  std::vector<std::string> names = SplitWords(request.files);
  if (!request.directory.empty()) names.insert(names.begin(), request.directory);
  return names;
}

void PutPickedFiles(const std::vector<std::string>& paths, SearchRequest& request) {
  if (paths.empty()) return;
  std::string_view directory = DirectoryPart(paths.front());
  bool inOne =
      std::ranges::all_of(paths, [&](const std::string& p) { return DirectoryPart(p) == directory; });
  std::vector<std::string> names;
  for (const std::string& path : paths) names.emplace_back(inOne ? FileNamePart(path) : path);
  request.files = JoinWords(names);
  request.directory = inOne ? WithoutTrailingSeparators(directory) : std::string_view();
}

}  // namespace tarrow
