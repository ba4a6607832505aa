// Searches the lines of one file for a pattern and writes what it finds: the heart of the global search.
//
// A line has at most 255 characters, its line feed among them; a longer one counts as several, each searched
// by itself. A carriage return before a line feed belongs to the line end. Lines are counted from 1; an empty
// one is counted and never matches. Within a line the pattern is searched for as in a text of its own, in the
// character set that the line tells.
#pragma once

#include "base/byte_source.h"
#include "base/progress.h"
#include "base/text_sink.h"
#include "search/files/line_pattern.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class FileSearch {
 public:
  enum class Listing { kLines, kCounts };

  // Finds `pattern`, which has been compiled, and writes to `sink`; both outlive the search. `progress` may
  // be null. Written lines end in `lineEnd`.
  FileSearch(LinePattern& pattern, Listing listing, TextSink& sink, Progress* progress,
             std::string_view lineEnd = "\r\n");
  ~FileSearch();

  // Searches `file` from where it stands to its end and returns the number of matching lines. When lines are
  // listed, writes each as "shownName(number): text"; when they are counted, writes "fullName: count" if
  // there are any. Throws CFileException and CYieldException, and what the sink throws;
  // what has been found until then is written, but no count.
  std::int64_t Run(ByteSource& file, std::string_view shownName, std::string_view fullName);

 private:
  class Lines;

  void SearchMapped(Lines& lines, ByteSource& file);
  void SearchRead(Lines& lines, ByteSource& file);

  LinePattern& pattern_;
  Listing listing_;
  TextSink& sink_;
  Progress* progress_;
  std::string_view lineEnd_;
  std::vector<char> buffer_;
};

}  // namespace tarrow
