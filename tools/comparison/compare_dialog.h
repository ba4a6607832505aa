// The Compare Files dialog: asks for two different files.
#pragma once

#include "framework/dialog.h"
#include "ui/program/messages.h"

#include <string>

namespace tarrow {

// Two files to be compared: as the user names them, and when the dialog has closed with OK their full paths.
struct ComparedFiles {
  std::string first, second;
};

class CCompareDialog final : public CDialog {
 public:
  // Both outlive the dialog.
  CCompareDialog(ComparedFiles& files, Messages& messages);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  void OnFieldFocused(UINT id) { lastField_ = static_cast<int>(id); }
  void OnBrowse();
  bool TakePath(int field, std::string& path);

  ComparedFiles& files_;
  Messages& messages_;
  int lastField_;  // the name field that last had the focus
};

}  // namespace tarrow
