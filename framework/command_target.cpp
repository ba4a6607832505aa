#include "framework/command_target.h"

namespace tarrow {

bool CommandTarget::QueryCommand(UINT id, CommandState& state) const {
  const MessageEntry* entry = GetMessageMap().FindCommand(id, 0);
  if (!entry) return false;
  state = entry->state ? entry->state(*this, id) : CommandState{};
  return true;
}

bool CommandTarget::RunCommand(UINT id, UINT code, HWND control, LRESULT& result) {
  const MessageEntry* entry = GetMessageMap().FindCommand(id, code);
  if (!entry) return false;
  result = entry->handle(*this, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(control));
  return true;
}

bool CommandTarget::HandleMessage(UINT message, WPARAM w, LPARAM l, LRESULT& result) {
  const MessageEntry* entry = GetMessageMap().Find(message);
  if (!entry) return false;
  result = entry->handle(*this, w, l);
  return true;
}

}  // namespace tarrow
