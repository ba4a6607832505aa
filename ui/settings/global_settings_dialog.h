// The Global Settings dialog: the values of GlobalSettings, the two fonts, page setup and key bindings.
//
// The dialog edits a GlobalSettingsChoice. When it closes with IDOK the caller applies the choice and does
// what EffectsOfChange() lists; when it is cancelled, the choice is to be thrown away whole.
#pragma once

#include "framework/dialog.h"
#include "ui/commands/key_bindings.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/settings/global_settings_form.h"

#include <functional>
#include <span>

namespace tarrow {

struct GlobalSettingsChoice {
  GlobalSettings settings;
  LOGFONTW screenFont{};
  FontChoice printerFont;  // empty: the usual one; its height is in dots of the printer
  KeyBindingTable keys;    // with the changes to save
  bool screenFontChanged = false;
  bool printerFontChanged = false;
  bool keysChanged = false;
  bool pageSetupChanged = false;
};

class CGlobalSettingsDialog final : public CDialog {
 public:
  // `live` are the bindings of the frame's accelerator table. `pageSetup` runs the Page Setup dialog and says
  // whether it was accepted; without it the button is disabled.
  CGlobalSettingsDialog(Messages& messages, Help& help, GlobalSettingsChoice& choice,
                        std::span<const KeyBinding> live,
                        std::function<bool(HWND owner)> pageSetup = nullptr);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const DialogField kFields[];

  void OnIndentationBox(UINT id);
  void OnScreenFont();
  void OnPrinterFont();
  void OnPageSetup();
  void OnKeyBindings();
  void OnHelp();
  void Refuse(int text, int field);

  Messages& messages_;
  Help& help_;
  GlobalSettingsChoice& choice_;
  std::span<const KeyBinding> live_;
  std::function<bool(HWND)> pageSetup_;
  int tabSize_;
  int shiftWidth_;
};

}  // namespace tarrow
