// What the status bar shows and where, without a window: a row of panes, or one message in their place.
//
// A pane is as wide as the widest text it can show, so nothing moves when a text changes. Sizes are pixels of
// a display with 96 dots per inch, scaled by the caller's `Scale`; text is measured by the caller.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace tarrow {

// The horizontal extent of a pane; its top and bottom are those of the bar, less a margin.
struct PaneSpan {
  int left = 0;
  int right = 0;
};

class StatusPanes {
 public:
  static constexpr int kMaxPanes = 11;
  static constexpr int kFirstLeft = 10;  // also the left edge of a message
  static constexpr int kSpacing = 5;
  static constexpr int kTop = 3;
  static constexpr int kBottomMargin = 2;
  static constexpr int kMessageTop = 4;

  using Measure = std::function<int(std::string_view)>;
  using Scale = std::function<int(int)>;

  StatusPanes() : StatusPanes(nullptr, nullptr) {}
  StatusPanes(Measure measure, Scale scale) : measure_(std::move(measure)), scale_(std::move(scale)) {}

  // Each adds a pane at the right end and returns its index, or -1 when there are kMaxPanes already.
  int AddCaret();                        // line and column
  int AddWords(std::string_view words);  // one of the words between the commas
  int AddTwoState(std::string_view first, std::string_view second);
  int AddText(std::string_view widest);  // any text, nothing at first

  int Count() const { return static_cast<int>(panes_.size()); }
  PaneSpan Span(int pane) const { return panes_[static_cast<std::size_t>(pane)].span; }

  // The text that a pane shows now.
  std::string Text(int pane) const;

  // Sets which of its texts a pane shows; a state that it does not have (-1) shows nothing. Returns whether
  // the pane has changed. A pane that does not exist is left alone.
  bool SetState(int pane, int state);

  // Sets the text of a text pane. Returns whether it has changed.
  bool SetText(int pane, std::string_view text);

  // Sets what the caret panes show, one-based; line 0 shows nothing. Returns whether that has changed.
  bool SetCaret(long line, unsigned column);

  // A message takes the place of the panes until it is cleared (an empty text).
  void ShowMessage(std::string_view text) { message_ = text; }
  bool ShowsMessage() const { return !message_.empty(); }
  const std::string& Message() const { return message_; }

 private:
  struct Pane {
    std::vector<std::string> texts;  // none: a caret pane
    PaneSpan span;
    int state = -1;
  };

  int Add(Pane pane, int width);
  int WidestOf(const std::vector<std::string>& texts) const;

  Measure measure_;
  Scale scale_;
  std::vector<Pane> panes_;
  long line_ = 0;
  unsigned column_ = 0;
  std::string message_;
};

}  // namespace tarrow
