// The text of an initialisation file: read, changed key by key, and written with everything else as it was.
//
// Any bytes are accepted, and come back unchanged where nothing was set: comments, unknown keys, the order of
// lines, their line ends, a byte-order mark. Keys and sections may be of any number and length. The meaning
// is that of the platform's private profiles: the first of several sections or keys of one name counts, names
// are compared without regard to case, blanks around names and values do not count, and a pair of quotes
// around a value is not part of it. Text in UTF-16 (with its mark) is read and written as such; strings are
// UTF-8 then, and otherwise the bytes of the file.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarrow {

class IniText {
 public:
  IniText() : IniText(std::string_view()) {}
  explicit IniText(std::string_view bytes);

  // The bytes to write to the file.
  [[nodiscard]] std::string Bytes() const;

  // The names of a section's keys, in their order; none when there is no such section.
  [[nodiscard]] std::vector<std::string> Keys(std::string_view section) const;

  [[nodiscard]] std::optional<std::string> Value(std::string_view section, std::string_view key) const;

  // Sets a value, adding key and section where they are missing. It reads back as it is, blanks and quotes
  // around it included, except that a line end becomes a blank. A key that no line can hold (empty, with an
  // "=", a line end or blanks around it, or beginning like a comment or a section) is left out.
  void SetValue(std::string_view section, std::string_view key, std::string_view value);

  void RemoveKey(std::string_view section, std::string_view key);

  // Removes all keys of a section, and the section itself unless it holds anything else. Set again, it stands
  // where it stood.
  void RemoveSection(std::string_view section);

 private:
  enum class Encoding { kBytes, kUtf8Mark, kUtf16 };

  struct Section {
    std::string name;                // in lower case
    std::string header;              // its line, line end included; empty for what precedes the first section
    std::vector<std::string> lines;  // with their line ends
    std::string blankLines;          // at the end of the section
    bool removed = false;
    // Lower-case names of keys to the first line of each; made for the sections that somebody asks about.
    mutable std::unordered_map<std::string, std::size_t> keys;
    mutable bool isIndexed = false;

    const std::unordered_map<std::string, std::size_t>& Index() const;
  };

  void Parse(std::string_view text);
  void CloseSection();
  const Section* Find(std::string_view name) const;
  Section* Find(std::string_view name);
  Section& FindOrAdd(std::string_view name);
  template <typename Predicate>
  static void EraseLines(Section& section, Predicate isUnwanted);

  Encoding encoding_ = Encoding::kBytes;
  std::string halfUnit_;  // the byte that is left over at the end of UTF-16
  std::string lineEnd_ = "\r\n";
  std::vector<Section> sections_;
  std::unordered_map<std::string, std::size_t> byName_;  // the first section of each name
};

}  // namespace tarrow
