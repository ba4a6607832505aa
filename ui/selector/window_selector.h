// CWinSelector: a small window beside the frame that lists the document windows; choosing one activates it.
//
// It belongs to the frame and stands above it. Windows are told to it as they come and go; while many come at
// once, updating is switched off and the list drawn once at the end.
#pragma once

#include "framework/mdi.h"

#include <string_view>

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
  void Retitle(const CMDIChildWnd& child);
  void SetUpdating(bool updating);

  bool HasFocus() const { return Exists() && ::GetFocus() == list_; }

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  static constexpr UINT kListId = 1;

  bool OnCreate(const CREATESTRUCTW& create);
  void OnSize(UINT kind, int width, int height);
  void OnSetFocus(HWND from);
  void OnActivateChoice();
  LRESULT OnListKey(WPARAM w, LPARAM l);

  int Find(HWND child) const;

  CMDIFrameWnd* frame_ = nullptr;
  HWND list_ = nullptr;
};

}  // namespace tarrow
