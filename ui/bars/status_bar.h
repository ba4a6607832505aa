// CStatusBar: the bar at the bottom of the frame, with panes, a clock, and messages that take their place.
//
// The bar measures and paints what StatusPanes says. A change repaints only the pane that it changes. Caps
// Lock and Num Lock are watched wherever in the program the keys are pressed.
#pragma once

#include "framework/handle.h"
#include "framework/wnd.h"
#include "ui/bars/clock_format.h"
#include "ui/bars/status_panes.h"
#include "ui/program/status_line.h"

#include <string_view>

namespace tarrow {

class CStatusBar : public CWnd {
 public:
  ~CStatusBar() override;

  // Creates the bar with the panes of the frame, at no size: the frame lays it out with Height(). False when
  // the window could not be made.
  [[nodiscard]] bool CreateBar(HWND parent, int points = 8);

  // The height that fits the font, in pixels.
  int Height() const { return height_; }

  // Shows a text in place of the panes for some seconds (0: until another call). An empty text brings the
  // panes back. A missing string is named by its number; string 0 is the empty text.
  void ShowMessage(std::string_view text, int seconds);
  void ShowMessageId(int id, int seconds);

  // Line 0 shows nothing.
  void SetCaret(int line, int column);

  // State -1 shows nothing.
  void SetIndicator(Indicator indicator, int state);

  // What runs in the background; an empty text when nothing does.
  void SetTask(std::string_view text);

  // No document is active: neither caret nor indicators, and no message.
  void ShowIdle();

  void SetAutoSave(bool on) { SetPane(autoSavePane_, on); }

  // Shows Caps Lock and Num Lock as the keyboard has them now.
  void UpdateKeyIndicators();

  void SwitchClock(bool on);
  bool HasClock() const { return hasClock_; }

  // The time or the regional settings have changed.
  void RefreshClock();

  const StatusPanes& Panes() const { return panes_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  bool OnCreate(const CREATESTRUCTW& create);
  void OnDestroy();
  void OnPaint();
  void OnTimer(UINT_PTR id);
  void OnSize(UINT kind, int width, int height);
  void OnColorsChanged();
  LRESULT OnClockTick(WPARAM w, LPARAM l);
  LRESULT OnKeysChanged(WPARAM w, LPARAM l);

  void AddPanes();
  void SetPane(int pane, int state);
  void InvalidatePane(int pane);
  RECT PaneRect(int pane) const;
  RECT ClockRect() const;
  void PaintPane(HDC dc, const RECT& area, std::string_view text) const;
  void PaintEdge(HDC dc, int width) const;
  int Scale(int pixels) const;
  void MeasureClock();

  int points_ = 8;
  int dpi_ = 96;
  int height_ = 0;
  FontHandle font_;
  StatusPanes panes_;
  int caretPane_ = -1;
  int indicatorPanes_[4] = {-1, -1, -1, -1};  // by Indicator
  int autoSavePane_ = -1;
  int capsPane_ = -1;
  int numPane_ = -1;
  int taskPane_ = -1;
  bool hasClock_ = false;
  ClockFormat clockFormat_;
  int clockWidth_ = 0;
};

}  // namespace tarrow
