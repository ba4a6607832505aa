// ProjectOptions: how a room reads an option of the project's build environment.
#pragma once

#include <string>

namespace tarrow {

// The options in their lasting order; each has a key in the section of its environment.
enum ProjectOption : int {
  kOptionCompiler,
  kOptionCompileArgs,
  kOptionCompileRelease,
  kOptionCompileDebug,
  kOptionLinker,
  kOptionLinkArgs,
  kOptionLinkRelease,
  kOptionLinkDebug,
  kOptionLinkObjects,
  kOptionLinkListFile,
  kOptionLinkLibs,
  kOptionLinkLibsRelease,
  kOptionLinkLibsDebug,
  kOptionLinkDefsFile,
  kOptionBuilder,
  kOptionBuildArgs,
  kOptionBuildRelease,
  kOptionBuildDebug,
  kOptionRC,
  kOptionRCArgs,
  kOptionRCRelease,
  kOptionRCDebug,
  kOptionDebugger,
  kOptionFileFilter,
  kOptionGrepFiles,
  kOptionInclude,
  kOptionHelpSDK,
  kOptionHelpEnv,
};

class ProjectOptions {
 public:
  // The stored value, or the preset of the environment; may be empty.
  [[nodiscard]] virtual std::string Option(ProjectOption option) const = 0;

 protected:
  ~ProjectOptions() = default;
};

}  // namespace tarrow
