// StatusLine: what a room may show in the status bar, whether the bar is there or not.
#pragma once

#include <string_view>

namespace tarrow {

// The panes of the status bar that windows publish into; the states are positions in the pane's list of
// words.
enum class Indicator { kInsertMode, kEditMode, kModification, kIndentation };

class StatusLine {
 public:
  // Shows a text (UTF-8), or string `id`, for some seconds (0: until the next one). An empty text returns to
  // the panes.
  virtual void ShowStatus(std::string_view text, int seconds) = 0;
  virtual void ShowStatusId(int id, int seconds) = 0;

  // What the active window publishes. Line and column are one-based; line 0 shows nothing.
  virtual void PublishCaret(int line, int column) = 0;
  virtual void PublishIndicator(Indicator indicator, int state) = 0;

  // What runs in the background, and for how long; an empty text when nothing does.
  virtual void PublishTask(std::string_view text) = 0;

 protected:
  ~StatusLine() = default;
};

}  // namespace tarrow
