// The keys of a view: which key is which move, and what a move makes of the view.
//
// A move is sent to the view as a message of its own, so that whoever drives the window can send one too. The
// caret goes with pages, keeps its column in passing shorter rows, and stays where it is when only the view
// scrolls.
#pragma once

#include "viewer/views/view_state.h"

#include <optional>

namespace tarrow {

// The numbers are those of the messages; their order is for good.
enum class ViewMove : unsigned {
  kPageUp = 2026,
  kPageDown,
  kTopOfWindow,
  kBottomOfWindow,
  kRowStart,
  kRowEnd,
  kFileStart,
  kFileEnd,
  kUp,
  kDown,
  kScrollUp,
  kScrollDown,
  kLeft,
  kRight,
};

inline constexpr ViewMove kFirstViewMove = ViewMove::kPageUp, kLastViewMove = ViewMove::kRight;

struct ViewKey {
  ViewMove move;
  int columns = 0;  // of kLeft and kRight

  friend bool operator==(const ViewKey&, const ViewKey&) = default;
};

// The move of a key, by its virtual-key code; nothing for a key that a view does not know.
std::optional<ViewKey> FindViewKey(unsigned virtualKey, bool control);

// The view after a move, scrolled so that the caret is in view unless the move scrolls itself. With `extend`
// the selection reaches to the caret.
ViewState Moved(const ViewState& state, ViewKey key, bool extend, ViewPage page, ViewRows& rows);

}  // namespace tarrow
