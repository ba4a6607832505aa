#include "shell/state/command_line.h"

#include "base/words.h"

#include <algorithm>

namespace tarrow {
namespace {

char LowerLetter(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::optional<ArrangeMode> ArrangeOfLetter(char letter) {
  switch (LowerLetter(letter)) {
    case 'v':
      return ArrangeMode::kTileAcross;
    case 'h':
      return ArrangeMode::kTileDown;
    case 'c':
      return ArrangeMode::kCascade;
    case 'm':
      return ArrangeMode::kMaximised;
    default:
      return {};
  }
}

std::string_view SkipBlanks(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

// Takes the option in front of `line`, which begins with its "-" or "/".
void TakeOption(std::string_view& line, CommandLineOptions& options) {
  line.remove_prefix(1);
  if (line.empty() || line.front() == ' ') return;
  char letter = LowerLetter(line.front());
  line.remove_prefix(1);
  if (letter == 'd' || letter == 'i') {
    (letter == 'd' ? options.workingDirectory : options.initFile) = TakeWord(line);
    return;
  }
  bool glued = !line.empty() && line.front() != ' ';
  std::string rest = glued ? TakeWord(line) : std::string();
  if (letter == 'a' && !rest.empty())
    if (auto mode = ArrangeOfLetter(rest.front())) options.arrange = mode;
  if (letter == 'e') options.editorOnly = true;
  if (letter == 'p') options.print = true;
}

}  // namespace

CommandLineOptions ParseCommandLine(std::string_view line) {
  CommandLineOptions options;
  for (line = SkipBlanks(line); !line.empty() && (line.front() == '-' || line.front() == '/');
       line = SkipBlanks(line))
    TakeOption(line, options);
  options.files = line;
  return options;
}

std::string_view SkipProgramName(std::string_view line) {
  if (line.starts_with('"')) {
    std::size_t quote = line.find('"', 1);
    return line.substr(quote == std::string_view::npos ? line.size() : quote + 1);
  }
  return line.substr(std::min(line.find_first_of(" \t"), line.size()));
}

}  // namespace tarrow
