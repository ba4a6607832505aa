// CNumEdit: a one-line field that takes digits only, typed or pasted.
#pragma once

#include "framework/wnd.h"

namespace tarrow {

class CNumEdit final : public CWnd {
 public:
  // The greatest number of digits that a field takes.
  static constexpr int kMostDigits = 9;

  // Makes the field as a child of `parent`, which gets its EN_CHANGE. False when it could not be made.
  [[nodiscard]] bool CreateField(HWND parent, UINT id);

  // Shows a number, or nothing for 0, without a notification; the text is selected when the field has the
  // focus.
  void Show(int number);
  bool IsShowing() const { return showing_; }

  // What is told when Up (-1) or Down (1) is pressed, or the mouse wheel turned.
  std::function<void(int step)> onStep;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnChar(UINT character, LPARAM keyData);
  void OnKeyDown(UINT key, LPARAM keyData);
  void OnMouseWheel(int delta, UINT keys, POINT screen);
  LRESULT OnPaste(WPARAM w, LPARAM l);

  bool showing_ = false;
};

}  // namespace tarrow
