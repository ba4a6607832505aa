// The question what is to become of a text whose file another program has changed.
//
// Closed with IDC_RELOAD, IDC_OVERWRITE, IDC_SAVE_AS, or IDCANCEL: keep the text, where that is not modified,
// or decide later.
#pragma once

#include "framework/dialog.h"
#include "resources/resource.h"

#include <string>

namespace tarrow {

class CFileChangedDialog final : public CDialog {
 public:
  CFileChangedDialog(std::string path, bool modified)
      : CDialog(modified ? IDD_TEXT_AND_FILE_CHANGED : IDD_FILE_CHANGED), path_(std::move(path)) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;

 private:
  void OnButton(UINT id) { Close(static_cast<int>(id)); }

  std::string path_;
};

}  // namespace tarrow
