// CConfigureProjectDialog: the target of the project, its build environment, and the options of that.
//
// Set and a choice of another environment take effect at once; target, arguments and the kind of build when
// the dialog is closed with its button.
#pragma once

#include "framework/dialog.h"
#include "project/options/option_list.h"
#include "project/options/project_settings.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"

#include <string>
#include <vector>

namespace tarrow {

class CConfigureProjectDialog final : public CDialog {
 public:
  // All of them outlive the dialog.
  CConfigureProjectDialog(ProjectSettings& settings, Messages& messages, Help& help);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const DialogField kFields[];

  void OnSelectOption();
  void OnSelectEnvironment();
  void OnEditName();
  void OnEditSetting();
  void OnSet();
  void OnHelp();

  void FillEnvironments();
  void FillOptions();
  void ShowOption(int line);
  void SelectLine(int line);
  void PutLine(const OptionLine& line);
  void MakeRoomFor(const std::string& text);

  ProjectSettings& settings_;
  Messages& messages_;
  Help& help_;
  std::vector<OptionLine> lines_;  // of the list box
  std::string target_, arguments_;
  bool debugBuild_;
  int listWidth_ = 0;       // pixels of the widest line
  bool isFilling_ = false;  // the dialog itself sets the fields
};

}  // namespace tarrow
