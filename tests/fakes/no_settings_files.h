// Settings that no file holds, for programs that are put together in a test or a benchmark.
#pragma once

#include "shell/state/settings.h"

namespace tarrow {

class NoSettingsFiles final : public SettingsFiles {
 public:
  IniText ReadGlobal() override { return {}; }
  void WriteGlobal(const IniText& text) override { written = text; }
  bool EnterProject(const std::string&) override { return false; }
  IniText ReadProject() override { return {}; }
  void WriteProject(const IniText&) override {}

  IniText written;  // what the global file would hold
};

}  // namespace tarrow
