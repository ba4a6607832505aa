// DocumentWindows: the document windows as a whole, laid out, closed, listed, and followed by the frame.
#pragma once

#include "edit/documents/document_services.h"
#include "framework/command_target.h"
#include "shell/commands/recovery.h"
#include "shell/frame/bars.h"
#include "shell/frame/menu_bars.h"
#include "ui/selector/window_selector.h"

namespace tarrow {

class DocumentWindows final : public CommandTarget, public DocumentFrame {
 public:
  // All of them outlive the object.
  DocumentWindows(const DocumentServices& services, CWinSelector& selector, Recovery& recovery, Bars& bars,
                  MenuBars& menus);

  // Lays all windows out as the settings say; a maximised layout only with `maximise`.
  void Arrange(bool maximise);

  // Asks every window whether it may be closed, from the top of the z-order; false at the first that may not.
  [[nodiscard]] bool QueryCloseAll();

  // Closes every window without a question.
  void CloseAll();

  // The tab size has changed for the windows that are open, and with `withFont` the screen font, too.
  void ApplySettings(bool withFont);

  // DocumentFrame:
  void ChildOpened(CMDIChildWnd& child) override;
  void ChildActivated(CMDIChildWnd& child, bool first) override;
  void ChildDeactivated(CMDIChildWnd& child, bool last) override;
  void ChildRetitled(CMDIChildWnd& child) override;
  void ChildClosed(CMDIChildWnd& child) override;
  void ShowPopupMenu(POINT screen) override;

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

 private:
  void OnCloseWindow();
  void OnLayout(UINT id);
  void OnArrangeIcons();
  void OnCloseAll();
  void OnSelector();
  bool HasWindow() const { return frame_.ActiveChild() != nullptr; }

  const DocumentServices& services_;
  CMDIFrameWnd& frame_;
  CWinSelector& selector_;
  Recovery& recovery_;
  Bars& bars_;
  MenuBars& menus_;
};

}  // namespace tarrow
