#include "base/path_text.h"

#include <algorithm>

namespace tarrow {
namespace {

bool IsSeparator(char c) {
  return c == '\\' || c == '/';
}

char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

}  // namespace

std::size_t DirectoryLength(std::string_view path) {
  std::size_t separator = path.find_last_of("\\/");
  if (separator == std::string_view::npos) separator = path.rfind(':');
  return separator == std::string_view::npos ? 0 : separator + 1;
}

std::string_view DirectoryPart(std::string_view path) {
  return path.substr(0, DirectoryLength(path));
}
std::string_view FileNamePart(std::string_view path) {
  return path.substr(DirectoryLength(path));
}

std::string_view WithoutTrailingSeparators(std::string_view path) {
  while (path.size() > 1 && IsSeparator(path.back()) && path[path.size() - 2] != ':') path.remove_suffix(1);
  return path;
}

std::string JoinPath(std::string_view directory, std::string_view name) {
  std::string path(directory);
  if (!path.empty() && !IsSeparator(path.back()) && path.back() != ':') path += '\\';
  return path.append(name);
}

std::string PathFrom(std::string_view directory, std::string_view name) {
  bool isRooted = !name.empty() && (IsSeparator(name[0]) || (name.size() > 1 && name[1] == ':'));
  return isRooted ? std::string(name) : JoinPath(directory, name);
}

std::string ReplaceAfterLastDot(std::string_view path, std::string_view extension) {
  return std::string(path.substr(0, path.rfind('.'))).append(extension);
}

std::string_view NameSeenFrom(std::string_view directory, std::string_view path) {
  if (directory.empty() || !EqualIgnoringCase(path.substr(0, directory.size()), directory)) return path;
  std::string_view rest = path.substr(directory.size());
  if (IsSeparator(directory.back())) return rest.empty() ? path : rest;
  return rest.size() > 1 && IsSeparator(rest[0]) ? rest.substr(1) : path;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::ranges::equal(a, b, [](char x, char y) { return AsciiLower(x) == AsciiLower(y); });
}

}  // namespace tarrow
