#include "shell/state/profile_store.h"

#include "base/utf16.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace tarrow {
namespace {

constexpr int kWidestNumber = 32;  // digits of 32 bits in base 2

// How the store names a value: the section's name, a backslash, the key; in lower case to compare.
std::string CompositeKey(std::string_view section, std::string_view key) {
  std::string name = std::string(section).append("\\").append(key);
  for (char& c : name)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + ('a' - 'A'));
  return name;
}

std::uint32_t NumberOf(std::string_view text, int base) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  std::uint32_t number = 0;
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
  return error == std::errc::result_out_of_range ? std::numeric_limits<std::uint32_t>::max() : number;
}

}  // namespace

CProfileStore::CProfileStore(std::vector<std::string> sections, AnsiDecoder decode)
    : sections_(std::move(sections)), decode_(std::move(decode)) {}

std::string CProfileStore::Decode(std::string value) const {
  return decode_ && !IsUtf8(value) ? decode_(value) : value;
}

void CProfileStore::Load(const IniText& file) {
  for (int section = 0; section < static_cast<int>(sections_.size()); ++section)
    for (const std::string& key : file.Keys(SectionName(section))) {
      std::string value = *ValueIn(file, section, key);
      BeginWith(section, key, value);
      WriteString(section, key, value);
    }
}

std::optional<std::string> CProfileStore::ValueIn(const IniText& file, int section,
                                                  std::string_view key) const {
  auto value = file.Value(SectionName(section), key);
  return value ? std::optional(Decode(*std::move(value))) : std::nullopt;
}

void CProfileStore::BeginWith(int section, std::string_view key, std::string_view value) {
  std::string text(value);
  FindOrAdd(section, key).begun = std::move(text);
}

void CProfileStore::Save(IniText& file) const {
  for (const Entry& entry : entries_) {
    if (!entry.value) continue;
    auto present = ValueIn(file, entry.section, entry.key);
    bool stays = present && (entry.value == entry.begun || entry.value == present);
    if (!stays) file.SetValue(SectionName(entry.section), entry.key, *entry.value);
  }
}

const CProfileStore::Entry* CProfileStore::Find(int section, std::string_view key) const {
  auto found = index_.find(CompositeKey(SectionName(section), key));
  return found == index_.end() || !entries_[found->second].value ? nullptr : &entries_[found->second];
}

bool CProfileStore::ReadString(int section, std::string_view key, std::string& out) const {
  const Entry* entry = Find(section, key);
  out = entry ? *entry->value : std::string();
  return entry != nullptr;
}

std::optional<std::uint32_t> CProfileStore::ReadNumber(int section, std::string_view key, int base) const {
  const Entry* entry = Find(section, key);
  if (!entry) return {};
  return NumberOf(*entry->value, base);
}

CProfileStore::Entry& CProfileStore::FindOrAdd(int section, std::string_view key) {
  std::string name = CompositeKey(SectionName(section), key);
  if (auto found = index_.find(name); found != index_.end()) return entries_[found->second];
  entries_.push_back({section, std::string(key), {}, {}});
  try {
    index_.emplace(std::move(name), entries_.size() - 1);
  } catch (...) {
    entries_.pop_back();
    throw;
  }
  return entries_.back();
}

void CProfileStore::WriteString(int section, std::string_view key, std::string_view value) {
  std::string text(value);
  FindOrAdd(section, key).value = std::move(text);
}

void CProfileStore::WriteNumber(int section, std::string_view key, std::uint32_t value, int base) {
  WriteString(section, key, NumberText(value, base));
}

void CProfileStore::RemoveKey(int section, std::string_view key) {
  auto found = index_.find(CompositeKey(SectionName(section), key));
  if (found != index_.end()) entries_[found->second].Forget();
}

void CProfileStore::RemoveSection(int section) {
  for (Entry& entry : entries_)
    if (entry.section == section) entry.Forget();
}

void CProfileStore::Clear() {
  entries_.clear();
  index_.clear();
}

std::vector<std::string> CProfileStore::Keys(int section) const {
  std::vector<std::string> keys;
  for (const Entry& entry : entries_)
    if (entry.section == section && entry.value) keys.push_back(entry.key);
  return keys;
}

std::string NumberText(std::uint32_t number, int base) {
  char digits[kWidestNumber];
  return std::string(digits, std::to_chars(digits, digits + kWidestNumber, number, base).ptr);
}

std::vector<std::string> SplitBarList(std::string_view text) {
  std::vector<std::string> names;
  for (std::size_t bar; (bar = text.find('|')) != std::string_view::npos; text.remove_prefix(bar + 1))
    names.emplace_back(text.substr(0, bar));
  return names;
}

}  // namespace tarrow
