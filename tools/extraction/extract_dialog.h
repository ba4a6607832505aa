// The Extract Strings dialog: asks for binary files and for the pattern of what is extracted from them.
#pragma once

#include "framework/dialog.h"

#include <string>

namespace tarrow {

struct ExtractionRequest {
  std::string files;  // names and wildcard patterns, separated by blanks
  std::string pattern;
};

class CExtractDialog final : public CDialog {
 public:
  // Shows `request`, which outlives the dialog, and takes the user's into it on OK. The focus comes to the
  // pattern when that is wrong.
  CExtractDialog(ExtractionRequest& request, bool patternIsWrong);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  void OnFieldChanged();
  void OnBrowse();

  ExtractionRequest& request_;
  bool patternIsWrong_;
};

}  // namespace tarrow
