// CProfileStore: the settings between the program and its initialisation files.
//
// A set of values by section number and key, all kept as text; the files are read into it and it is written
// into them, and between the two this program touches no file. Another instance of it may: the store
// remembers what it began with, and writes what has changed since over whatever a file holds by then, and
// nothing else. Names are compared without regard to the case of letters. Strings are UTF-8. An operation for
// which memory runs out throws std::bad_alloc and changes nothing.
#pragma once

#include "base/ini_text.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tarrow {

class CProfileStore {
 public:
  // Makes UTF-8 of bytes in the system's ANSI code page: files of old hold values in it.
  using AnsiDecoder = std::function<std::string(std::string_view)>;

  // Section numbers are positions in `sections`. Without a decoder, bytes that are not UTF-8 stay as they
  // are.
  explicit CProfileStore(std::vector<std::string> sections, AnsiDecoder decode = {});

  // Takes over every value that the file has in the known sections, replacing those already there.
  void Load(const IniText& file);

  // The value that a key has in a file.
  [[nodiscard]] std::optional<std::string> ValueIn(const IniText& file, int section,
                                                   std::string_view key) const;

  // What a key stands for that no file has: not a value of the store, but what it begins with.
  void BeginWith(int section, std::string_view key, std::string_view value);

  // Sets every value in the file, known or not to the program. Nothing is removed from the file. A value that
  // is there already stays as it is written; so does one that differs where the store still has what it began
  // with, for then somebody else has changed the file.
  void Save(IniText& file) const;

  // The value of a key; false, and an empty string, when it has none.
  [[nodiscard]] bool ReadString(int section, std::string_view key, std::string& out) const;

  // The value as an unsigned number in `base` (2 to 36), up to the first character that is no digit of it, at
  // most 0xFFFFFFFF; nothing when the key has none.
  [[nodiscard]] std::optional<std::uint32_t> ReadNumber(int section, std::string_view key, int base) const;

  void WriteString(int section, std::string_view key, std::string_view value);
  void WriteNumber(int section, std::string_view key, std::uint32_t value, int base);

  // Take values out of the store, and what they began with; a file is not touched.
  void RemoveKey(int section, std::string_view key);
  void RemoveSection(int section);
  void Clear();

  // The keys of a section that have a value, in the order in which they came.
  [[nodiscard]] std::vector<std::string> Keys(int section) const;

  const std::string& SectionName(int section) const { return sections_[static_cast<std::size_t>(section)]; }

 private:
  struct Entry {
    int section;
    std::string key;
    std::optional<std::string> value;  // none once it was removed; set again, it keeps its place
    std::optional<std::string> begun;  // what it was when it was loaded

    void Forget() {
      value.reset();
      begun.reset();
    }
  };

  const Entry* Find(int section, std::string_view key) const;
  Entry& FindOrAdd(int section, std::string_view key);
  std::string Decode(std::string value) const;

  std::vector<std::string> sections_;
  AnsiDecoder decode_;
  std::vector<Entry> entries_;
  std::unordered_map<std::string, std::size_t> index_;  // by composite key, in lower case
};

// The digits of a number in `base` (2 to 36).
[[nodiscard]] std::string NumberText(std::uint32_t number, int base);

// The names in a text in which each is ended by a vertical bar.
[[nodiscard]] std::vector<std::string> SplitBarList(std::string_view text);

}  // namespace tarrow
