// What a room may ask of the program around it.
//
// Rooms lie below the shell and never include it; the shell implements this interface and hands it to whoever
// it creates. Texts are UTF-8; string numbers are those of the string table.
#pragma once

#include "ui/program/help.h"
#include "ui/program/messages.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"
#include "ui/settings/global_settings.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace tarrow {

class CMDIChildWnd;
class CMDIFrameWnd;

class Host : public Messages, public StatusLine, public Waiting, public Help {
 public:
  // Opens a file in a window of its own, or brings its window to the top. Returns whether a window shows it.
  virtual bool OpenFile(std::string_view path, bool readOnly, bool hexView) = 0;

  // Notes a file that was opened as the most recent one.
  virtual void AddRecentFile(std::string_view path) = 0;

  // What becomes of a document window, told by itself. `first`: no other was active before; `last`: no other
  // takes its place.
  virtual void ChildOpened(CMDIChildWnd& child) = 0;
  virtual void ChildActivated(CMDIChildWnd& child, bool first) = 0;
  virtual void ChildDeactivated(CMDIChildWnd& child, bool last) = 0;
  virtual void ChildRetitled(CMDIChildWnd& child) = 0;
  virtual void ChildClosed(CMDIChildWnd& child) = 0;

  // The current directory is another one, or may be.
  virtual void DirectoryChanged() = 0;

  // Runs the popup menu of an edit window at a place on the screen.
  virtual void ShowPopupMenu(POINT screen) = 0;

  // The filter list of the dialogs that name files: descriptions and patterns, each ended by a vertical bar.
  virtual std::string FileFilter() const = 0;

  // The font that new edit windows get.
  virtual LOGFONTW ScreenFont() const = 0;

  virtual GlobalSettings& Settings() = 0;
  virtual CMDIFrameWnd& Frame() = 0;

 protected:
  ~Host() = default;
};

}  // namespace tarrow
