#include "shell/commands/environment_options.h"

#include "project/options/options.h"

namespace tarrow {

std::string EnvironmentOptions::Option(ProjectOption option) const {
  int environment = state_.settings.project.environment;
  std::string value;
  if (state_.store.ReadString(kFirstOptionSection + environment, OptionKey(option), value)) return value;
  return std::string(OptionPreset(option, environment));
}

}  // namespace tarrow
