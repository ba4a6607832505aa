// CSelectProjectDialog: which directory is to be the project, or that none is.
#pragma once

#include "framework/dialog.h"
#include "ui/program/help.h"

#include <string>
#include <vector>

namespace tarrow {

class CSelectProjectDialog final : public CDialog {
 public:
  // `current` is the directory of the open project, empty when there is none.
  CSelectProjectDialog(Help& help, std::string current, std::vector<std::string> recent)
      : CDialog(kTemplate), help_(help), current_(std::move(current)), recent_(std::move(recent)) {}

  // What was chosen, as it was typed; empty: no project.
  const std::string& Path() const { return path_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const WORD kTemplate;

  void OnEdit();
  void OnChoose();
  void OnExitProject();
  void OnHelp();
  void EnableButtons(bool change, bool exit);

  Help& help_;
  std::string current_;
  std::vector<std::string> recent_;
  std::string path_;
};

}  // namespace tarrow
