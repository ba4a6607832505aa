// The commands of tarrowc: one table, from which they are found, run and explained.
#pragma once

#include "console/console.h"
#include "console/options.h"

#include <span>
#include <string_view>

namespace tarrow {

struct Command {
  std::string_view name;
  std::string_view operands;  // as the help shows them
  std::size_t leastOperands;
  std::size_t mostOperands;
  std::string_view summary;
  std::string_view exits;  // what the exit codes mean
  int troubleCode;
  std::span<const Option> options;
  // Returns the exit code of a run without trouble. Throws UsageError, CFileException of the standard output,
  // CYieldException.
  int (*run)(const Arguments&, Console&);
};

std::span<const Command> Commands();

int RunSearch(const Arguments& arguments, Console& console);
int RunCompare(const Arguments& arguments, Console& console);
int RunStrings(const Arguments& arguments, Console& console);
int RunLines(const Arguments& arguments, Console& console);
int RunHex(const Arguments& arguments, Console& console);

}  // namespace tarrow
