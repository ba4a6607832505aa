#include "project/help/include_line.h"

#include "base/path_text.h"

#include <algorithm>

namespace tarrow {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kKeyword = "include";
constexpr std::string_view kNext = "_next";

std::string_view Trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
  return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

bool BeginsWithWord(std::string_view text) {
  if (text.empty()) return false;
  auto c = static_cast<unsigned char>(text[0]);
  return c == '_' || c >= 0x80 || (c >= '0' && c <= '9') || ((c | 0x20) >= 'a' && (c | 0x20) <= 'z');
}

// What follows the keyword, if the line has it.
std::optional<std::string_view> BehindKeyword(std::string_view line) {
  line = Trimmed(line);
  if (!line.starts_with('#') && !line.starts_with('!')) return std::nullopt;
  line.remove_prefix(1);
  if (!line.starts_with(kKeyword)) return std::nullopt;
  line.remove_prefix(kKeyword.size());
  if (line.starts_with(kNext)) line.remove_prefix(kNext.size());
  if (BeginsWithWord(line)) return std::nullopt;
  return Trimmed(line);
}

void AppendDirectories(std::string_view list, std::string_view name, std::vector<std::string>& paths) {
  while (!list.empty()) {
    std::size_t end = std::min(list.find(';'), list.size());
    std::string_view directory = Trimmed(list.substr(0, end));
    if (!directory.empty()) paths.push_back(JoinPath(directory, name));
    list.remove_prefix(std::min(end + 1, list.size()));
  }
}

}  // namespace

std::optional<IncludeName> ReadIncludeLine(std::string_view line) {
  std::optional<std::string_view> text = BehindKeyword(line);
  if (!text || text->empty()) return std::nullopt;
  bool quoted = text->front() == '"';
  if (quoted || text->front() == '<') {
    text->remove_prefix(1);
    *text = text->substr(0, text->find(quoted ? '"' : '>'));
  }
  if (text->empty()) return std::nullopt;
  bool hasDirectory = text->find_first_of("\\:") != text->npos;
  return IncludeName{std::string(*text), quoted || hasDirectory};
}

std::vector<std::string> IncludeCandidates(const IncludeName& include, std::string_view option,
                                           std::string_view variable) {
  std::vector<std::string> paths;
  if (include.tryAsWritten) paths.push_back(include.name);
  AppendDirectories(option, include.name, paths);
  AppendDirectories(variable, include.name, paths);
  return paths;
}

}  // namespace tarrow
