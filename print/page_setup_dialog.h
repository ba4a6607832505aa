// The Page Setup dialog: header, footer and margins, in the measure of the user's region.
#pragma once

#include "framework/dialog.h"
#include "print/page_setup.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"

#include <array>

namespace tarrow {

class CPageSetupDialog final : public CDialog {
 public:
  // `setup` is what the dialog begins with, and what was chosen when it ends with IDOK.
  CPageSetupDialog(Messages& messages, Help& help, const LengthFormat& lengths, PageSetup& setup);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const DialogField kFields[];

  void OnHelp();

  Messages& messages_;
  Help& help_;
  LengthFormat lengths_;
  PageSetup& setup_;
  std::string header_, footer_;
  std::string left_, right_, top_, bottom_;
};

}  // namespace tarrow
