#include "base/ini_text.h"

#include "base/utf16.h"

#include <algorithm>
#include <cstring>

namespace tarrow {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

bool IsBlank(char c) {
  return static_cast<unsigned char>(c) <= ' ';
}

std::string_view Trim(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return lower;
}

// What a line says: a section's name, a key with the place of its "=", or (neither) something to keep.
struct Statement {
  std::optional<std::string_view> section;
  std::optional<std::string_view> key;
  std::size_t equals = 0;
};

Statement ReadStatement(std::string_view line) {
  std::string_view text = Trim(line);
  if (text.empty() || text[0] == ';') return {};
  Statement statement;
  if (text[0] == '[') {
    std::size_t end = text.rfind(']');
    if (end != std::string_view::npos) statement.section = Trim(text.substr(1, end - 1));
    return statement;
  }
  statement.equals = line.find('=');
  if (statement.equals == std::string_view::npos) return {};
  if (std::string_view key = Trim(line.substr(0, statement.equals)); !key.empty()) statement.key = key;
  return statement;
}

bool IsQuoted(std::string_view value) {
  return value.size() >= 2 && value.front() == value.back() &&
         (value.front() == '"' || value.front() == '\'');
}

// `value` as a line holds it, such that it reads back the same.
std::string ValueText(std::string_view value) {
  std::string text(value);
  for (char& c : text)
    if (c == '\r' || c == '\n') c = ' ';
  bool fragile = !text.empty() && (IsBlank(text.front()) || IsBlank(text.back()) || IsQuoted(text));
  return fragile ? '"' + text + '"' : text;
}

bool IsWritableKey(std::string_view key) {
  return !key.empty() && Trim(key) == key && key[0] != ';' && key[0] != '[' &&
         key.find_first_of("=\n") == std::string_view::npos;
}

std::string FromUtf16(std::string_view bytes) {
  std::u16string units(bytes.size() / 2, u'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * 2);
  return Utf16ToUtf8<char16_t>(units);
}

std::string ToUtf16(std::string_view utf8) {
  std::u16string units = Utf8ToUtf16<char16_t>(utf8);
  return std::string(reinterpret_cast<const char*>(units.data()), units.size() * 2);
}

}  // namespace

IniText::IniText(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) {
    encoding_ = Encoding::kUtf16;
    if (bytes.size() % 2) halfUnit_ = bytes.back();
    Parse(FromUtf16(bytes.substr(kUtf16Mark.size())));
    return;
  }
  if (bytes.starts_with(kUtf8Mark)) {
    encoding_ = Encoding::kUtf8Mark;
    bytes.remove_prefix(kUtf8Mark.size());
  }
  Parse(bytes);
}

void IniText::Parse(std::string_view text) {
  std::size_t firstEnd = text.find('\n');
  if (firstEnd != std::string_view::npos && (firstEnd == 0 || text[firstEnd - 1] != '\r'))
    lineEnd_.assign(1, '\n');
  sections_.emplace_back();
  while (!text.empty()) {
    std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    std::string_view line = text.substr(0, length);
    text.remove_prefix(length);
    auto name = ReadStatement(line).section;
    if (!name) {
      sections_.back().lines.emplace_back(line);
      continue;
    }
    CloseSection();
    Section& section = sections_.emplace_back();
    section.name = Lower(*name);
    section.header = line;
    byName_.try_emplace(section.name, sections_.size() - 1);
  }
  CloseSection();
}

// Sets the blank lines at the end of the last section apart, so that keys are added before them.
void IniText::CloseSection() {
  Section& section = sections_.back();
  auto firstBlank = section.lines.end();
  while (firstBlank != section.lines.begin() && Trim(*(firstBlank - 1)).empty()) --firstBlank;
  for (auto line = firstBlank; line != section.lines.end(); ++line) section.blankLines += *line;
  section.lines.erase(firstBlank, section.lines.end());
}

const std::unordered_map<std::string, std::size_t>& IniText::Section::Index() const {
  if (!isIndexed) {
    keys.clear();
    for (std::size_t i = 0; i < lines.size(); ++i)
      if (auto key = ReadStatement(lines[i]).key) keys.try_emplace(Lower(*key), i);
    isIndexed = true;
  }
  return keys;
}

std::string IniText::Bytes() const {
  std::string text;
  auto put = [&](const std::string& line) {
    // Only the last line of a file may lack its end; it gets one when something follows now.
    if (!line.empty() && !text.empty() && text.back() != '\n') text += lineEnd_;
    text += line;
  };
  for (const Section& section : sections_) {
    if (section.removed && section.lines.empty()) continue;
    put(section.header);
    for (const std::string& line : section.lines) put(line);
    put(section.blankLines);
  }
  if (encoding_ == Encoding::kUtf16) return std::string(kUtf16Mark) + ToUtf16(text) + halfUnit_;
  return encoding_ == Encoding::kUtf8Mark ? std::string(kUtf8Mark) + text : text;
}

const IniText::Section* IniText::Find(std::string_view name) const {
  auto found = byName_.find(Lower(name));
  return found == byName_.end() ? nullptr : &sections_[found->second];
}

IniText::Section* IniText::Find(std::string_view name) {
  auto found = byName_.find(Lower(name));
  return found == byName_.end() ? nullptr : &sections_[found->second];
}

IniText::Section& IniText::FindOrAdd(std::string_view name) {
  if (Section* section = Find(name)) return *section;
  // A blank line sets a new section off from what precedes it.
  Section& last = sections_.back();
  bool fileIsEmpty = sections_.size() == 1 && last.lines.empty() && last.blankLines.empty();
  if (!fileIsEmpty && last.blankLines.empty()) last.blankLines = lineEnd_;
  Section& section = sections_.emplace_back();
  section.name = Lower(name);
  section.header = '[' + std::string(name) + ']' + lineEnd_;
  byName_.try_emplace(section.name, sections_.size() - 1);
  return section;
}

std::vector<std::string> IniText::Keys(std::string_view section) const {
  std::vector<std::string> keys;
  const Section* found = Find(section);
  if (!found) return keys;
  for (std::size_t i = 0; i < found->lines.size(); ++i) {
    auto key = ReadStatement(found->lines[i]).key;
    if (key && found->Index().at(Lower(*key)) == i) keys.emplace_back(*key);
  }
  return keys;
}

std::optional<std::string> IniText::Value(std::string_view section, std::string_view key) const {
  const Section* found = Find(section);
  if (!found) return {};
  auto at = found->Index().find(Lower(key));
  if (at == found->Index().end()) return {};
  std::string_view line = found->lines[at->second];
  std::string_view value = Trim(line.substr(line.find('=') + 1));
  return std::string(IsQuoted(value) ? value.substr(1, value.size() - 2) : value);
}

void IniText::SetValue(std::string_view section, std::string_view key, std::string_view value) {
  if (!IsWritableKey(key)) return;
  Section& target = FindOrAdd(section);
  auto at = target.Index().find(Lower(key));
  if (at == target.keys.end()) {
    target.keys.emplace(Lower(key), target.lines.size());
    target.lines.push_back(std::string(key).append("=").append(ValueText(value)).append(lineEnd_));
    return;
  }
  std::string& line = target.lines[at->second];
  std::size_t end = line.size();
  while (end > 0 && (line[end - 1] == '\n' || line[end - 1] == '\r')) --end;
  std::size_t start = line.find('=') + 1;
  while (start < end && IsBlank(line[start])) ++start;
  line.replace(start, end - start, ValueText(value));
}

template <typename Predicate>
void IniText::EraseLines(Section& section, Predicate isUnwanted) {
  std::erase_if(section.lines, [&](const std::string& line) { return isUnwanted(ReadStatement(line)); });
  section.isIndexed = false;
}

void IniText::RemoveKey(std::string_view section, std::string_view key) {
  Section* found = Find(section);
  std::string name = Lower(key);
  if (!found || !found->Index().contains(name)) return;
  // Every line of that name goes, or a later one would come to count.
  EraseLines(*found, [&](const Statement& s) { return s.key && Lower(*s.key) == name; });
}

void IniText::RemoveSection(std::string_view section) {
  std::string name = Lower(section);
  for (Section& candidate : sections_) {
    if (candidate.header.empty() || candidate.name != name) continue;
    EraseLines(candidate, [](const Statement& s) { return s.key.has_value(); });
    candidate.removed = true;
  }
}

}  // namespace tarrow
