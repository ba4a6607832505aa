// SettingsCommands: the Global Settings command, and what follows when the user changes them.
#pragma once

#include "framework/command_target.h"
#include "shell/commands/active_keys.h"
#include "shell/commands/document_windows.h"
#include "shell/frame/frame.h"
#include "shell/state/program_state.h"
#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/program/stored_settings.h"

namespace tarrow {

class SettingsCommands final : public CommandTarget {
 public:
  // All of them outlive the object.
  SettingsCommands(CTwFrame& frame, ProgramState& state, DocumentWindows& windows, ActiveKeys& keys,
                   StoredSettings& stored, Messages& messages, Help& help)
      : frame_(frame),
        state_(state),
        windows_(windows),
        keys_(keys),
        stored_(stored),
        messages_(messages),
        help_(help) {}

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnGlobalSettings();
  void SetScreenFont(const LOGFONTW& font);

  CTwFrame& frame_;
  ProgramState& state_;
  DocumentWindows& windows_;
  ActiveKeys& keys_;
  StoredSettings& stored_;
  Messages& messages_;
  Help& help_;
};

}  // namespace tarrow
