// EnvironmentOptions: the options of the project's environment, from the settings or the presets.
#pragma once

#include "shell/state/program_state.h"
#include "ui/program/project_options.h"

namespace tarrow {

class EnvironmentOptions final : public ProjectOptions {
 public:
  // `state` outlives the object.
  explicit EnvironmentOptions(const ProgramState& state) : state_(state) {}

  std::string Option(ProjectOption option) const override;

 private:
  const ProgramState& state_;
};

}  // namespace tarrow
