// tarrowc: the searching, comparing, extracting and viewing of Tarrow for scripts and pipes. Each command
// prints what the window of its result would show.

#include "base/text_format.h"
#include "base/version.h"
#include "console/commands.h"
#include "console/system.h"
#include "ui/program/string_ids.h"
#include "ui/program/string_table.h"

#include <algorithm>
#include <new>

namespace tarrow {
namespace {

constexpr int kUsageCode = 2;
constexpr int kInterruptedCode = 130;

std::string GeneralHelp() {
  std::string help = "Usage: tarrowc COMMAND [OPTION...] ...\n\nCommands:\n";
  for (const Command& command : Commands())
    help += FormatText("  %-8s %-16s %s\n", {command.name, command.operands, command.summary});
  return help +
         "\nA file named \"-\" is the standard input (not for lines and hex, which need a file on a disk).\n"
         "\"tarrowc COMMAND --help\" tells more of a command, \"tarrowc --version\" the version.\n";
}

std::string HelpOn(const Command& command) {
  return FormatText("Usage: tarrowc %s [OPTION...] %s\n\n", {command.name, command.operands}) +
         HelpOnOptions(command.options) + FormatText("\nThe exit code is %s.\n", {command.exits});
}

void Print(Stream stream, std::string_view text) {
  std::string lines;
  for (char c : text) c == '\n' ? lines.append(kNewLine) : lines.append(1, c);
  WriteTo(stream, lines);
}

int RunParsed(const Command& command, std::span<const std::string> words, Console& console) {
  Arguments arguments(command.options, words);
  if (arguments.Has(kHelpLetter)) {
    Print(Stream::kOutput, HelpOn(command));
    return 0;
  }
  std::size_t count = arguments.Operands().size();
  if (count < command.leastOperands || count > command.mostOperands)
    throw UsageError(FormatText("%s expected", {command.operands}));
  CatchInterrupts();
  int code = command.run(arguments, console);
  console.Flush();
  console.GetProgress().Clear();
  return console.Failed() ? command.troubleCode : code;
}

// What was found goes out as far as anybody takes it.
void TellOfInterrupt(Console& console) {
  for (auto tell :
       {+[](Console& c) { c.Flush(); }, +[](Console& c) { c.Complain(FindText(kTextCancelled)); }}) {
    try {
      tell(console);
    } catch (const std::exception&) {
    }
  }
}

int RunCommand(const Command& command, std::span<const std::string> words) {
  Console console(command.name);
  try {
    return RunParsed(command, words, console);
  } catch (const UsageError& error) {
    console.Complain(FormatText("%s; see tarrowc %s --help", {error.what(), command.name}));
  } catch (const CFileException& failure) {
    console.Complain(failure);
  } catch (const CYieldException&) {
    TellOfInterrupt(console);
    return kInterruptedCode;
  } catch (const std::bad_alloc&) {
    console.Complain(FindText(kTextOutOfMemory));
  }
  return command.troubleCode;
}

int PrintToOutput(std::string_view text) {
  Console console("help");
  try {
    Print(Stream::kOutput, text);
    return 0;
  } catch (const CFileException& failure) {
    console.Complain(failure);
    return kUsageCode;
  }
}

int Run(std::span<const std::string> words) {
  if (words.empty()) {
    Print(Stream::kError, GeneralHelp());
    return kUsageCode;
  }
  const std::string& name = words[0];
  if (name == "--help" || name == "-h" || name == "help") return PrintToOutput(GeneralHelp());
  if (name == "--version") return PrintToOutput("tarrowc " TARROW_VERSION "\n");
  auto commands = Commands();
  auto command =
      std::find_if(commands.begin(), commands.end(), [&](const Command& c) { return c.name == name; });
  if (command != commands.end()) return RunCommand(*command, words.subspan(1));
  Print(Stream::kError, FormatText("tarrowc: unknown command '%s'; see tarrowc --help\n", {name}));
  return kUsageCode;
}

}  // namespace
}  // namespace tarrow

int main(int argc, char** argv) {
  tarrow::KeepStandardStreamsApart();
  try {
    return tarrow::Run(tarrow::ProgramArguments(argc, argv));
  } catch (const std::exception&) {
    // Not even the standard error takes anything.
    return tarrow::kUsageCode;
  }
}
