// The Key Bindings dialog: which key runs which command.
//
// It edits a table that its caller owns. Each opening begins with the bindings that are live, while the
// changes recorded in earlier openings stay on the table's list: they are still to be saved. Nothing is
// applied here.
#pragma once

#include "framework/dialog.h"
#include "ui/commands/key_bindings.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"

#include <span>

namespace tarrow {

class CKeyBindingsDialog final : public CDialog {
 public:
  // `live` are the bindings of the frame's accelerator table.
  CKeyBindingsDialog(Messages& messages, Help& help, KeyBindingTable& table,
                     std::span<const KeyBinding> live);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  bool OnInitDialog() override;

 private:
  void OnCommandSelected();
  void OnKeySelected();
  void OnModifierClicked();
  void OnSet();
  void OnHelp();

  bool FillLists() const;
  void ShowBinding();
  CommandId SelectedCommand() const;
  std::uint16_t SelectedKey() const;
  void EnableModifiers();

  Messages& messages_;
  Help& help_;
  KeyBindingTable& table_;
  std::span<const KeyBinding> live_;
};

}  // namespace tarrow
