// A parent with a text control in it that writes down what the control tells it, and the keys and clicks of a
// user.
#pragma once

#include "edit/control/text_control.h"
#include "tests/window_pump.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace tarrow {

inline constexpr int kControlId = 3244;
inline constexpr DWORD kControlStyle = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOHSCROLL |
                                       ES_AUTOVSCROLL | ES_NOHIDESEL | WS_VSCROLL | WS_HSCROLL;

class ControlHost : public CWnd {
 public:
  // A window of 640 by 400 pixels, filled by the control.
  ControlHost();

  TextControl control;
  std::map<UINT, int> notified;  // how often each code has come
  POINT rightClick{-1, -1};

  void SetText(const std::string& text);
  std::string Content() const { return control.View().Copy(); }

  // A key with what it types, as the message loop delivers it.
  void Press(UINT key, bool shift = false, bool control = false);
  void Type(std::u16string_view text);
  void Mouse(UINT message, POINT at, UINT keys = 0);

  // Content with the selection in brackets, the caret alone as "|".
  std::string Shown() const;

 private:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  LRESULT WindowProc(UINT message, WPARAM w, LPARAM l) override;
  void OnRButtonDown(UINT, POINT at) { rightClick = at; }
};

}  // namespace tarrow
