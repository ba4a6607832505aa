// What the parts of a text are, as far as colours tell them apart, and a line cut into runs of such parts.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace tarrow {

enum class Style : std::uint8_t {
  kText,  // whatever is nothing else
  kComment,
  kString,
  kNumber,
  kKeyword,
  kDirective,   // of a preprocessor or a make tool
  kPredefined,  // names that a compiler brings along
  kSection,     // what a part of a text begins with: sections, headings, labels, targets
  kKey,         // what a value is given to
  kVariable,    // what a value is put in for
  kCode,        // code within prose
  kEmphasis,
  kStrong,
  kLink,
  kPlace,  // the name of a file in a result
  kMatch,
  kHeader,  // what tells of the lines that follow it
  kOld,
  kNew,
  kError,
  kWarning,
};

inline constexpr std::size_t kStyleCount = static_cast<std::size_t>(Style::kWarning) + 1;

// A part of a line: from the end of the run before it, or the start of the line, to `end`.
struct StyleRun {
  std::int32_t end = 0;
  Style style = Style::kText;

  friend bool operator==(const StyleRun&, const StyleRun&) = default;
};

// The runs of one line, each longer than nothing and of another style than its neighbours.
class StyleRuns {
 public:
  void Clear() { runs_.clear(); }

  // The bytes from where the runs end so far to `end` have this style.
  void Add(std::size_t end, Style style) {
    auto at = static_cast<std::int32_t>(end);
    if (at == End()) return;
    if (!runs_.empty() && runs_.back().style == style)
      runs_.back().end = at;
    else
      runs_.push_back({at, style});
  }

  // Makes plain runs that are nothing but blanks part of the run before them, or of the next one where none
  // is: nothing is to be seen of their style. `line` is what the runs are of, or its beginning; what lies
  // behind that has no blanks.
  void JoinBlanks(std::string_view line);

  std::int32_t End() const { return runs_.empty() ? 0 : runs_.back().end; }
  bool Empty() const { return runs_.empty(); }
  std::size_t Size() const { return runs_.size(); }
  const StyleRun* begin() const { return runs_.data(); }
  const StyleRun* end() const { return runs_.data() + runs_.size(); }

 private:
  std::vector<StyleRun> runs_;
};

}  // namespace tarrow
