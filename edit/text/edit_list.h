// An ascending list of replacements: what a command asks of a text, however many places it changes.
//
// The ranges are those of the text before the first replacement; they ascend and do not overlap, so that the
// text takes the whole list in one sweep and as one unit of undo. The replacements lie one behind another in
// a single block: a list of two million costs 24 MB and their bytes, and no allocation of its own for any.
// Adding throws CMemoryException when the list outgrows what a text may hold, std::bad_alloc when memory
// ends.
#pragma once

#include "base/exceptions.h"
#include "base/units.h"

#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct Edit {
  TextRange range;
  std::string_view text;
};

class EditList {
 public:
  // Replaces `range` by `text`.
  void Add(TextRange range, std::string_view text) {
    Append(text);
    Finish(range);
  }

  // A replacement made piece by piece: any number of Append, then Finish with the range that it replaces.
  void Append(std::string_view text) { bytes_.append(text); }
  void Append(std::size_t count, char byte) { bytes_.append(count, byte); }
  void Finish(TextRange range) {
    if (bytes_.size() > static_cast<std::size_t>(kMaxTextSize)) throw CMemoryException();
    rows_.push_back({range, BytePos(static_cast<std::int64_t>(bytes_.size()))});
  }

  // Makes room ahead for `bytes` bytes of replacement text.
  void Reserve(std::size_t bytes) { bytes_.reserve(bytes); }

  // What the list takes in memory, without what it has reserved.
  std::size_t Bytes() const { return rows_.size() * sizeof(Row) + bytes_.size(); }

  bool Empty() const { return rows_.empty(); }
  std::size_t Size() const { return rows_.size(); }

  // The replacement number `i`; its text is valid until the list changes.
  Edit operator[](std::size_t i) const {
    auto from = i == 0 ? 0u : static_cast<std::size_t>(rows_[i - 1].textEnd.value);
    auto to = static_cast<std::size_t>(rows_[i].textEnd.value);
    return {rows_[i].range, std::string_view(bytes_).substr(from, to - from)};
  }

  // By how many bytes the text grows, or shrinks when negative.
  std::int64_t Growth() const {
    std::int64_t growth = static_cast<std::int64_t>(bytes_.size());
    for (const Row& row : rows_) growth -= row.range.Length();
    return growth;
  }

 private:
  struct Row {
    TextRange range;
    BytePos textEnd;  // where its replacement ends in bytes_
  };

  std::vector<Row> rows_;
  std::string bytes_;
};

}  // namespace tarrow
