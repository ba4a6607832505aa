// CToolBar: the row of buttons below the menu, each of which sends its command when the mouse is released
// over it.
//
// The buttons come from a table (ui/bars/tool_buttons.h). Whether a command can run now is asked of the
// frame, in the way in which its menus ask; the project buttons are switched besides.
#pragma once

#include "framework/wnd.h"
#include "ui/bars/tool_buttons.h"
#include "ui/bars/tool_images.h"

#include <functional>
#include <memory>
#include <vector>

namespace tarrow {

class CToolBar : public CWnd {
 public:
  // Whether a command can run: false when nobody knows it.
  using Query = std::function<bool(UINT id, CommandState& state)>;

  ~CToolBar() override { Destroy(); }

  // What a command's menu item says, its key behind a TAB.
  using ItemText = std::function<std::string(UINT id)>;

  // Creates the bar at no size: the frame lays it out with HeightFor(). Commands go to `parent`. False when
  // the window could not be made.
  [[nodiscard]] bool CreateBar(HWND parent, bool withProject, Query query, ItemText itemText);

  // The height of a bar of that width, in pixels.
  int HeightFor(int width) const;

  // Asks anew which buttons can act, and paints those for which the answer is another. Cheap enough for idle
  // time.
  void UpdateButtons();

  // Shows or hides the project buttons.
  void ShowProjectButtons(bool show);

  // Project buttons act only while a project is open and none of its commands is running.
  void EnableProjectButtons(bool enable);

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  struct Button {
    PlacedButton place;
    bool enabled = false;
  };
  static constexpr int kNone = -1;

  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnPaint();
  void OnColorsChanged();
  void OnButtonDown(UINT keys, POINT point);
  void OnButtonUp(UINT keys, POINT point);
  void OnMouseMove(UINT keys, POINT point);
  LRESULT OnMouseLeave(WPARAM w, LPARAM l);
  LRESULT OnCaptureChanged(WPARAM w, LPARAM l);
  LRESULT OnNotify(WPARAM w, LPARAM l);

  std::vector<PlacedButton> Place(int width) const;
  void PlaceAll();
  void MakeTips();
  bool CanAct(const ToolButton& button) const;
  int ButtonAt(POINT point) const;
  RECT ButtonRect(int index) const;
  void InvalidateButton(int index) const;
  void SetHot(int index);
  void PaintButton(HDC dc, int index) const;
  int Scale(int pixels) const;
  int ButtonSize() const;

  Query query_;
  ItemText itemText_;
  bool withProject_ = true;
  bool projectEnabled_ = false;
  int dpi_ = 96;
  std::unique_ptr<ToolImages> images_;
  std::vector<Button> buttons_;
  int hot_ = kNone;      // under the mouse
  int pressed_ = kNone;  // took the mouse
  HWND tips_ = nullptr;  // owned by the bar
};

}  // namespace tarrow
