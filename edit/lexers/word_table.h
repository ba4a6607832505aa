// Lists of words with the style of each, looked up without comparing most of those that are no such word.
//
// The table is made when the program is compiled: open addressing by the length and three of the letters.
#pragma once

#include "edit/lexers/style.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace tarrow {

// Words of one style.
struct WordList {
  std::span<const std::string_view> words;
  Style style;
};

class WordTable {
 public:
  enum class Case { kExact, kIgnored };

  // Words in lower case where the case is ignored; no word twice, at most kMostWords in all.
  constexpr WordTable(Case letters, std::initializer_list<WordList> lists) : letters_(letters) {
    for (const WordList& list : lists)
      for (std::string_view word : list.words) Add({word, list.style});
  }

  // The style of a word, which is not empty; kText for any that is not in the table.
  constexpr Style StyleOf(std::string_view word) const {
    if (word.size() > longest_) return Style::kText;
    for (std::size_t slot = Hash(word); slots_[slot] != 0; slot = (slot + 1) % kSlots)
      if (const Entry& entry = entries_[slots_[slot] - 1u]; IsSame(entry.word, word)) return entry.style;
    return Style::kText;
  }

 private:
  static constexpr std::size_t kSlots = 1024;
  static constexpr std::size_t kMostWords = 255;

  struct Entry {
    std::string_view word;
    Style style = Style::kText;
  };

  constexpr unsigned Fold(char c) const {
    unsigned byte = static_cast<unsigned char>(c);
    return letters_ == Case::kIgnored && byte >= 'A' && byte <= 'Z' ? byte + ('a' - 'A') : byte;
  }

  constexpr std::size_t Hash(std::string_view word) const {
    unsigned hash = Fold(word.front()) * 7u + Fold(word.back()) * 29u + Fold(word[word.size() / 2]) * 131u;
    return (hash + static_cast<unsigned>(word.size()) * 521u) % kSlots;
  }

  constexpr bool IsSame(std::string_view entry, std::string_view word) const {
    if (letters_ == Case::kExact || entry.size() != word.size()) return entry == word;
    for (std::size_t i = 0; i < word.size(); ++i)
      if (Fold(word[i]) != static_cast<unsigned char>(entry[i])) return false;
    return true;
  }

  constexpr void Add(const Entry& entry) {
    entries_.at(count_) = entry;
    std::size_t slot = Hash(entry.word);
    while (slots_[slot] != 0) slot = (slot + 1) % kSlots;
    slots_[slot] = static_cast<std::uint8_t>(++count_);
    if (entry.word.size() > longest_) longest_ = entry.word.size();
  }

  Case letters_;
  std::size_t count_ = 0;
  std::size_t longest_ = 0;
  std::array<Entry, kMostWords> entries_{};
  std::array<std::uint8_t, kSlots> slots_{};  // the number of an entry, from 1; 0: none
};

}  // namespace tarrow
