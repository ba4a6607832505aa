// The dialog that offers the texts which earlier runs have left behind.
//
// All of them are chosen at first. Recover and Later close it; Discard asks once and removes the chosen ones
// for good. What is neither recovered nor discarded is offered again at the next start.
#pragma once

#include "edit/recovery/left_texts.h"
#include "framework/dialog.h"
#include "ui/program/messages.h"

#include <string>
#include <vector>

namespace tarrow {

class CRecoveryDialog final : public CDialog {
 public:
  // Both outlive the dialog. What is discarded leaves `texts`.
  CRecoveryDialog(Messages& messages, std::vector<LeftText>& texts);

  // The places in `texts` of those to be recovered.
  const std::vector<std::size_t>& Chosen() const { return chosen_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  void OnDiscard();
  void MakeColumns() const;
  void ShowTexts() const;
  std::vector<std::size_t> ChosenRows() const;
  bool Discard(LeftText& text);

  Messages& messages_;
  std::vector<LeftText>& texts_;
  std::vector<std::size_t> chosen_;
};

}  // namespace tarrow
