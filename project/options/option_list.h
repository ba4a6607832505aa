// The list of options as its dialog shows it: one line for each, its key, "=" and its value.
#pragma once

#include "ui/program/project_options.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

struct OptionLine {
  std::string name;
  std::string value;

  std::string Text() const { return name + "=" + value; }
};

// All options with their values, in their lasting order.
[[nodiscard]] std::vector<OptionLine> ListOptions(const ProjectOptions& options);

// Parts a line at its first "=".
[[nodiscard]] OptionLine SplitOptionLine(std::string_view text);

// The place of the line of an option, if it has one; letters count in their case.
[[nodiscard]] std::optional<std::size_t> FindOptionLine(const std::vector<OptionLine>& lines,
                                                        std::string_view name);

}  // namespace tarrow
