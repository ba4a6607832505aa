// CWinSelector: a small window beside the frame that lists the document windows; choosing one activates it.
//
// The windows are numbered in the order in which they came. Below the list stands a field for a number, which
// goes to the window of that number as it is typed, and a wheel that steps through the windows; list, field
// and wheel follow the active window. The selector belongs to the frame and stands above it. Windows are told
// to it as they come and go; while many come at once, updating is switched off and the list drawn once at the
// end.
#pragma once

#include "framework/mdi.h"
#include "ui/selector/num_edit.h"
#include "ui/selector/thumb_wheel.h"

#include <string_view>
#include <vector>

namespace tarrow {

class CWinSelector final : public CWnd {
 public:
  // Opens at the right edge of the screen with all children of `frame`, the active one selected. False when
  // the window could not be made.
  [[nodiscard]] bool Open(CMDIFrameWnd& frame, std::string_view title);

  // These do nothing while the selector is not open.
  void Add(const CMDIChildWnd& child);
  void Remove(const CMDIChildWnd& child);
  void Select(const CMDIChildWnd& child);
  void Retitle(const CMDIChildWnd& child);  // its text, or whether it is saved, has changed
  void SetUpdating(bool updating);

  bool HasFocus() const { return Exists() && ::IsChild(Handle(), ::GetFocus()); }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }
  void OnFinalMessage() override { windows_.clear(); }

 private:
  static constexpr UINT kListId = 101, kNumberId = 102, kWheelId = 103;

  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnSetFocus(HWND from);
  void OnListChoice();
  void OnNumberTyped();
  void OnGoThere();
  void OnEscape() { Post(WM_CLOSE); }
  LRESULT OnNotify(WPARAM w, LPARAM l);

  bool CreateList();
  int Count() const { return static_cast<int>(windows_.size()); }
  int Chosen() const;
  int NumberOf(HWND child) const;
  void ShowRow(int number);
  void Choose(int number);
  void Activate(int number);

  CMDIFrameWnd* frame_ = nullptr;
  HWND list_ = nullptr;
  CNumEdit number_;
  CThumbWheel wheel_;
  std::vector<HWND> windows_;  // number 1 first
};

}  // namespace tarrow
