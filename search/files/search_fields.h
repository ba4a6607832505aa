// The fields of the global search dialog: what they hold, and what a browse puts into them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// What one search is asked for.
struct SearchRequest {
  std::string text;       // the pattern
  std::string files;      // names and wildcard patterns, separated by blanks
  std::string directory;  // may be empty
  bool matchCase = true;
  bool wholeWord = false;
  bool listLines = true;
};

// Whether a search can start: something to search for, and somewhere to search.
[[nodiscard]] bool CanSearch(const SearchRequest& request);

// The names whose list of files is searched (CFileDir::BuildFromNames): the directory, blanks and all, before
// the words of the other field.
[[nodiscard]] std::vector<std::string> NamesToSearch(const SearchRequest& request);

// Puts the files that were picked (full paths) into the fields: names into one and their directory into the
// other. Files of several directories keep their paths and the directory is emptied.
void PutPickedFiles(const std::vector<std::string>& paths, SearchRequest& request);

}  // namespace tarrow
