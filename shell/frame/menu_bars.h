// The menus of the frame: the bar without a document, the bar of edit windows, and the popup menu.
//
// All are built from the tables of ui/commands/menus.h. The bar that is installed belongs to the frame
// window; this class destroys the others.
#pragma once

#include "framework/handle.h"
#include "framework/mdi.h"
#include "ui/program/private_messages.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

class MenuBars {
 public:
  MenuBars();

  MenuBar Current() const { return current_; }
  HMENU Installed() const { return Bar(current_); }

  // Installs a bar in the frame's client window, its window list included. Returns whether the bar changed.
  bool Show(const CMDIFrameWnd& frame, MenuBar bar);

  // Greys or enables the Project popup of the installed bar.
  void EnableProject(const CMDIFrameWnd& frame, bool enable) const;

  // What a command's item says, with its key text behind a TAB; empty when it has none.
  std::string ItemText(UINT command) const;

  // Shows every command with the key that it has by default.
  void ResetKeyTexts() const;

  // Gives a command's item in both bars another key text (with its TAB; empty: none).
  void SetKeyText(UINT command, std::string_view keyText) const;

  // Shows the recent files in the File popups of both bars, most recent first.
  void SetRecentFiles(const std::vector<std::string>& paths) const;

  // The popup menu of edit windows, made at its first use.
  HMENU Popup();

  // Brings the items of a popup that opens up to date: greyed and checked as `query` says.
  static void Update(HMENU popup, const std::function<bool(UINT id, CommandState& state)>& query);

  // Marks the unsaved windows in a popup that lists the windows of the frame.
  static void MarkUnsaved(const CMDIFrameWnd& frame, HMENU popup);

  // The frame is being destroyed, and the installed bar with it.
  void ReleaseInstalled();

 private:
  HMENU Bar(MenuBar bar) const { return bar == MenuBar::kEdit ? edit_.Get() : noDocument_.Get(); }

  MenuHandle noDocument_;
  MenuHandle edit_;
  MenuHandle popup_;
  MenuBar current_ = MenuBar::kNoDocument;
};

}  // namespace tarrow
