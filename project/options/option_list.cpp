#include "project/options/option_list.h"

#include "project/options/options.h"

#include <algorithm>

namespace tarrow {

std::vector<OptionLine> ListOptions(const ProjectOptions& options) {
  std::vector<OptionLine> lines;
  for (int option = 0; option < kOptionCount; ++option)
    lines.push_back({std::string(OptionKey(option)), options.Option(static_cast<ProjectOption>(option))});
  return lines;
}

OptionLine SplitOptionLine(std::string_view text) {
  std::size_t equals = std::min(text.find('='), text.size());
  return {std::string(text.substr(0, equals)), std::string(text.substr(std::min(equals + 1, text.size())))};
}

std::optional<std::size_t> FindOptionLine(const std::vector<OptionLine>& lines, std::string_view name) {
  auto found = std::ranges::find(lines, name, &OptionLine::name);
  if (found == lines.end()) return std::nullopt;
  return static_cast<std::size_t>(found - lines.begin());
}

}  // namespace tarrow
