// CGrepDialog: the modeless dialog of the global search.
//
// It stays open from one search to the next: OK reads the fields and sends the frame a request, which has
// been searched for when the send returns. Closing sends the same message with IsClosing().
#pragma once

#include "framework/dialog.h"
#include "search/files/search_fields.h"
#include "ui/program/help.h"
#include "ui/program/project_options.h"

#include <string>

namespace tarrow {

class CGrepDialog final : public CDialog {
 public:
  // `options` and `help` outlive the dialog, which lives until its window is gone and then deletes itself.
  CGrepDialog(HWND frame, const ProjectOptions& options, Help& help);

  // What is to be searched for.
  const SearchRequest& Request() const { return request_; }
  bool IsClosing() const { return isClosing_; }

  // Comes to the front, with the focus on a field when one is named.
  void ComeBack(int field = 0);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;
  void OnCancel() override;
  void OnFinalMessage() override { delete this; }

 private:
  void OnFieldChanged();
  void OnDefaults();
  void OnBrowse();
  void OnHelp();
  void ShowDefaults();
  SearchRequest ReadFields() const;

  HWND frame_;
  const ProjectOptions& options_;
  Help& help_;
  SearchRequest request_;
  bool isClosing_ = false;
};

}  // namespace tarrow
