#include "project/commands/run_request.h"

#include <algorithm>
#include <array>

namespace tarrow {
namespace {

constexpr std::array<std::string_view, 4> kExecutables = {"EXE", "COM", "PIF", "BAT"};

struct Parts {
  bool quoted;
  std::string_view name;
  std::string_view arguments;  // with what separates them from the name
};

Parts Split(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  bool quoted = line.starts_with('"');
  if (quoted) line.remove_prefix(1);
  std::size_t end = std::min(line.find(quoted ? '"' : ' '), line.size());
  std::string_view rest = line.substr(end);
  if (quoted && !rest.empty()) rest.remove_prefix(1);
  return {quoted, line.substr(0, end), rest};
}

bool SameLetters(std::string_view a, std::string_view b) {
  auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [&](char x, char y) { return upper(x) == upper(y); });
}

}  // namespace

RunRequest MakeRunRequest(std::string_view commandLine,
                          const std::function<bool(const std::string&)>& exists) {
  Parts parts = Split(commandLine);
  RunRequest request;
  if (parts.name.empty()) return request;
  std::string name(parts.name);
  if (name.find('.') == std::string::npos) name += ".EXE";
  std::string_view extension = std::string_view(name).substr(name.rfind('.') + 1);
  request.valid = std::any_of(kExecutables.begin(), kExecutables.end(),
                              [&](std::string_view known) { return SameLetters(extension, known); }) &&
                  exists(name);
  request.commandLine = parts.quoted ? '"' + name + '"' : name;
  request.commandLine += parts.arguments;
  return request;
}

std::string ProgramName(std::string_view commandLine) {
  return std::string(Split(commandLine).name);
}

}  // namespace tarrow
