#include "edit/documents/source_place.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace tarrow {
namespace {

constexpr std::size_t kLongestName = 260 * 3;  // bytes of the longest path in UTF-8
constexpr int kMostWords = 16;                 // of a name with blanks
constexpr int kMostQuestions = 64;             // to the disk, for one line

bool IsBlank(char c) {
  return c == ' ' || c == '\t';
}
bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

void SkipBlanks(std::string_view& text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return lower;
}

// Takes the digits at the start of `text`; a number too large for 32 bits becomes the largest one, which is
// beyond the end of every file.
std::uint32_t TakeNumber(std::string_view& text, unsigned base) {
  std::uint64_t number = 0;
  for (int digit; !text.empty() && (digit = HexDigit(text.front())) >= 0 && unsigned(digit) < base;
       text.remove_prefix(1))
    number =
        std::min<std::uint64_t>(number * base + unsigned(digit), std::numeric_limits<std::uint32_t>::max());
  return static_cast<std::uint32_t>(number);
}

// What a stretch of a line says: numbers, and the text before them, at whose end the name stands.
struct Stretch {
  std::string_view before;
  SourcePlace place;  // without the name
  bool hasColons = false;
};

// The numbers between parentheses: an address, or a line and perhaps a column with anything between them.
std::optional<SourcePlace> ReadInside(std::string_view inside) {
  SourcePlace place;
  SkipBlanks(inside);
  if (inside.size() >= 2 && inside[0] == '0' && (inside[1] | 0x20) == 'x') {
    inside.remove_prefix(2);
    place.isAddress = true;
    place.position = TakeNumber(inside, 16);
    return place;
  }
  place.position = TakeNumber(inside, 10);
  if (place.position == 0) return std::nullopt;
  while (!inside.empty() && !IsDigit(inside.front())) inside.remove_prefix(1);
  place.column = TakeNumber(inside, 10);
  return place;
}

// What may follow the numbers behind colons. "http://host:80/" names no place.
bool EndsNumbers(std::string_view rest) {
  return rest.empty() || IsBlank(rest.front()) ||
         std::string_view(":,;)]\"'").find(rest.front()) != rest.npos;
}

// The numbers behind the colon of "name:12", "name:12:5: error".
std::optional<SourcePlace> ReadBehindColon(std::string_view rest) {
  SourcePlace place;
  place.position = TakeNumber(rest, 10);
  if (place.position == 0 || !EndsNumbers(rest)) return std::nullopt;
  if (rest.size() >= 2 && rest[0] == ':' && IsDigit(rest[1])) {
    rest.remove_prefix(1);
    std::uint32_t column = TakeNumber(rest, 10);
    if (EndsNumbers(rest)) place.column = column;
  }
  return place;
}

// Goes through the stretches of a line that look like places, in the order in which they are considered.
class Stretches {
 public:
  explicit Stretches(std::string_view line) : line_(line) {}

  std::optional<Stretch> Next() {
    if (std::optional<Stretch> stretch = NextParenthesis()) return stretch;
    return NextColon();
  }

 private:
  std::optional<Stretch> NextParenthesis() {
    for (; (open_ = line_.find('(', open_)) != line_.npos; ++open_) {
      if (close_ <= open_) close_ = std::min(line_.find(')', open_), line_.size());
      if (close_ == line_.size()) break;
      std::string_view before = line_.substr(0, open_);
      while (!before.empty() && IsBlank(before.back())) before.remove_suffix(1);
      if (before.empty()) continue;
      if (auto place = ReadInside(line_.substr(open_ + 1, close_ - open_ - 1))) {
        ++open_;
        return Stretch{before, *place, false};
      }
    }
    open_ = line_.size();
    return std::nullopt;
  }

  std::optional<Stretch> NextColon() {
    while ((colon_ = line_.find(':', colon_)) != line_.npos) {
      std::string_view before = line_.substr(0, colon_++);
      std::string_view rest = line_.substr(colon_);
      if (before.empty() || IsBlank(before.back()) || rest.empty() || !IsDigit(rest.front())) continue;
      if (auto place = ReadBehindColon(rest)) return Stretch{before, *place, true};
    }
    colon_ = line_.size();
    return std::nullopt;
  }

  std::string_view line_;
  std::size_t open_ = 0;
  std::size_t close_ = 0;
  std::size_t colon_ = 0;
};

// The start of the word at the end of `text`, where `end` is the end of a word.
std::size_t WordStart(std::string_view text, std::size_t end) {
  while (end > 0 && !IsBlank(text[end - 1])) --end;
  return end;
}

// A name without the quotes and brackets that some tools put around it.
std::string_view Bare(std::string_view name) {
  std::size_t start = name.find_first_not_of("\"'([<");
  if (start == name.npos) return name;
  return name.substr(start, name.find_last_not_of("\"'>])") + 1 - start);
}

// Asks the disk about names, a bounded number of times: a line of a generated file can hold any number of
// parentheses.
class NameFinder {
 public:
  explicit NameFinder(const NameExists& exists) : exists_(exists) {}

  // The name of a file at the end of `text`: its last word, or more words.
  std::optional<std::string> Find(std::string_view text) {
    std::size_t start = text.size();
    for (int words = 0; start > 0 && words < kMostWords; ++words) {
      while (start > 0 && IsBlank(text[start - 1])) --start;
      start = WordStart(text, start);
      std::string_view name = text.substr(start);
      if (name.size() > kLongestName) break;
      if (IsFile(name)) return Lower(name);
      if (std::string_view bare = Bare(name); bare != name && IsFile(bare)) return Lower(bare);
    }
    return std::nullopt;
  }

 private:
  bool IsFile(std::string_view name) { return questions_++ < kMostQuestions && exists_(Lower(name)); }

  const NameExists& exists_;
  int questions_ = 0;
};

// Whether a word before a colon can be a name: of colons it holds that of a drive at most, and the hours of a
// time of the day ("12:30:00") are none.
bool CanBeName(std::string_view word) {
  return word.find(':', 2) == word.npos &&
         !std::ranges::all_of(word, [](char c) { return IsDigit(c) || c == ':'; });
}

// The name as the text alone tells it.
std::optional<std::string> LastWord(const Stretch& stretch) {
  std::string_view word = stretch.before.substr(WordStart(stretch.before, stretch.before.size()));
  if (!stretch.hasColons) return Lower(word);
  word = Bare(word);
  return CanBeName(word) ? std::optional(Lower(word)) : std::nullopt;
}

SourcePlace Named(std::string name, SourcePlace place) {
  place.name = std::move(name);
  return place;
}

}  // namespace

std::optional<SourcePlace> ParseSourcePlace(std::string_view line, const NameExists& exists) {
  std::optional<SourcePlace> first;
  NameFinder finder(exists);
  Stretches stretches(line);
  while (std::optional<Stretch> stretch = stretches.Next()) {
    if (std::optional<std::string> name = exists ? finder.Find(stretch->before) : std::nullopt)
      return Named(*name, stretch->place);
    if (std::optional<std::string> name = first ? std::nullopt : LastWord(*stretch))
      first = Named(*name, stretch->place);
    if (first && !exists) break;
  }
  return first;
}

}  // namespace tarrow
