#include "project/commands/command_lines.h"

#include "base/path_text.h"
#include "base/utf16.h"

namespace tarrow {
namespace {

std::string Quoted(std::string_view path) {
  if (path.find(' ') == path.npos) return std::string(path);
  return '"' + std::string(path) + '"';
}

std::string Joined(std::string_view a, std::string_view b) {
  return std::string(a).append(" ").append(b);
}

std::string ByMode(const CommandSource& source, ProjectOption debug, ProjectOption release) {
  return source.options.Option(source.debugBuild ? debug : release);
}

std::size_t Characters(std::string_view text) {
  return Utf8ToUtf16<char16_t>(text).size();
}

}  // namespace

std::string_view CompileExtension(std::string_view path) {
  std::string_view name = FileNamePart(path);
  std::size_t dot = name.rfind('.');
  if (dot == name.npos || name.size() - dot < 2) return {};
  return name.substr(dot);
}

bool CompileCommand::NeedsResponseFile() const {
  return Characters(program) + Characters(arguments) + Characters(path) + 2 >= kCommandLimit;
}

std::string CompileCommand::Line(std::string_view responseFile) const {
  if (NeedsResponseFile()) return program + " @" + Quoted(responseFile);
  return Joined(Joined(program, arguments), path);
}

// The extension is compared as it is: paths are kept in lower case.
CompileCommand MakeCompileCommand(const CommandSource& source, std::string_view path) {
  const ProjectOptions& options = source.options;
  if (CompileExtension(path) == ".rc")
    return {options.Option(kOptionRC),
            Joined(options.Option(kOptionRCArgs), ByMode(source, kOptionRCDebug, kOptionRCRelease)),
            Quoted(path)};
  return {
      options.Option(kOptionCompiler),
      Joined(options.Option(kOptionCompileArgs), ByMode(source, kOptionCompileDebug, kOptionCompileRelease)),
      Quoted(path)};
}

std::string LinkCommand(const CommandSource& source) {
  const ProjectOptions& options = source.options;
  std::string line = Joined(Joined(options.Option(kOptionLinker), options.Option(kOptionLinkArgs)),
                            ByMode(source, kOptionLinkDebug, kOptionLinkRelease));
  if (!source.target.empty()) line += " -out:" + source.target;
  if (std::string list = options.Option(kOptionLinkListFile); !list.empty()) line += " -map:" + list;
  line = Joined(line, options.Option(kOptionLinkObjects));
  line = Joined(line, ByMode(source, kOptionLinkLibsDebug, kOptionLinkLibsRelease));
  return line + options.Option(kOptionLinkLibs);
}

std::string BuildCommand(const CommandSource& source) {
  return Joined(Joined(source.options.Option(kOptionBuilder), source.options.Option(kOptionBuildArgs)),
                ByMode(source, kOptionBuildDebug, kOptionBuildRelease));
}

std::string BuildTargetCommand(const CommandSource& source, std::string_view buildTarget) {
  return Joined(BuildCommand(source), buildTarget);
}

std::string DebugCommand(const CommandSource& source) {
  return Joined(Joined(source.options.Option(kOptionDebugger), source.target), source.testArguments);
}

std::string TestCommand(const CommandSource& source) {
  return Joined(source.target, source.testArguments);
}

std::string WrapperPath(std::string_view home) {
  return JoinPath(home, "nt\\projexec.exe");
}

std::string WrapperCommand(std::string_view home, std::string_view outputFile, std::string_view command) {
  return Joined(Joined(Quoted(WrapperPath(home)), Quoted(outputFile)), command);
}

}  // namespace tarrow
