// The topics of the help that the program asks for. The numbers are for good: help files know topics by them.
#pragma once

namespace tarrow {

enum HelpTopic : unsigned {
  kFindTopic = 1,
  kReplaceTopic = 2,
  kGlobalSearchTopic = 3,
  kResultLogTopic = 5,
  kHelpOnWordsTopic = 6,
  kSelectProjectTopic = 20,
  kConfigureProjectTopic = 21,
  kGlobalSettingsTopic = 40,
  kPageSetupTopic = 45,
  kKeyBindingsTopic = 50,
  kSelectorTopic = 60,
};

}  // namespace tarrow
