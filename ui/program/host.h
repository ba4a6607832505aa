// What a room may ask of the program around it.
//
// Rooms lie below the shell and never include it; the shell implements this interface and hands it to whoever
// it creates. Texts are UTF-8; string numbers are those of the string table.
#pragma once

#include "base/exceptions.h"
#include "base/text_format.h"
#include "base/units.h"
#include "ui/settings/global_settings.h"

#include <windows.h>

#include <initializer_list>
#include <string>
#include <string_view>

namespace tarrow {

class CMDIChildWnd;
class CMDIFrameWnd;

// The panes of the status bar that windows publish into; the states are positions in the pane's list of
// words.
enum class Indicator { kInsertMode, kEditMode, kModification, kIndentation };

class Host {
 public:
  // Shows string `id` formatted with `args` under the program's title and returns the button (IDOK ...).
  // Without an owner the frame owns the box.
  virtual int ShowMessageBox(HWND owner, UINT style, int id, std::initializer_list<FormatArg> args = {}) = 0;

  // The warning beep `sound` (MB_ICONSTOP ...); when the user wants visible alerts, the title of the frame
  // flashes too, or that of `window` unless it is maximised.
  virtual void Alert(UINT sound, const CMDIChildWnd* window = nullptr) = 0;

  // Reports a failed file operation: the stop beep, then file and cause.
  virtual void ShowFileError(HWND owner, const CFileException& error) = 0;

  // Exhausted memory: the exclamation beep and the message in the status bar.
  virtual void ReportOutOfMemory() = 0;

  // Shows a text in the status bar for some seconds (0: until the next one). An empty text returns to the
  // panes.
  virtual void ShowStatus(std::string_view text, int seconds) = 0;
  virtual void ShowStatusId(int id, int seconds) = 0;

  // What the active window publishes. Line and column are one-based; line 0 shows nothing.
  virtual void PublishCaret(int line, int column) = 0;
  virtual void PublishIndicator(Indicator indicator, int state) = 0;

  // Brackets bulk work: the hourglass, and the windows hidden when asked. Nests. Use WaitState.
  virtual void BeginWait(bool hideWindows) = 0;
  virtual void EndWait() = 0;

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

  // Opens the help file at a context number.
  virtual void ShowHelp(HWND owner, unsigned context) = 0;

  virtual GlobalSettings& Settings() = 0;
  virtual CMDIFrameWnd& Frame() = 0;

 protected:
  ~Host() = default;
};

// The wait state for as long as the object lives.
class WaitState {
 public:
  explicit WaitState(Host& host, bool hideWindows = false) : host_(host) { host_.BeginWait(hideWindows); }
  ~WaitState() { host_.EndWait(); }
  WaitState(const WaitState&) = delete;
  WaitState& operator=(const WaitState&) = delete;

 private:
  Host& host_;
};

}  // namespace tarrow
