// Find and replace in the text of a window: the searches of this folder applied to a text control.
//
// The questions and complaints of a search are message boxes; the hourglass shows while it runs, and Escape
// ends it by CYieldException.
#pragma once

#include "edit/control/text_control.h"
#include "search/find/find_state.h"
#include "ui/program/messages.h"
#include "ui/program/wait_state.h"

#include <cstddef>

namespace tarrow {

class FindInWindow {
 public:
  // `boxOwner` owns the message boxes. All must outlive the object.
  FindInWindow(Messages& messages, Waiting& waiting, FindState& state, TextControl& control, HWND boxOwner)
      : messages_(messages), waiting_(waiting), state_(state), control_(control), boxOwner_(boxOwner) {}

  // Takes the selection as the pattern when it lies within a line, unless it is the last match itself.
  void TakeSelection();

  // Selects the next match in the direction of the find state, from the selection on, and brings it into the
  // middle of the view; false when there is none, and the user knows.
  bool Find();

  // The same forwards within the selection that the user has made, as long as only Find() and
  // ReplaceSelection() have changed it since.
  bool FindInSelection();

  // Whether the selection is what was selected here last, in a text that has not changed since; and whether
  // that is a match.
  bool IsOwn() const { return state_.own == Here(); }
  bool IsAtMatch() const { return state_.ownIsMatch && IsOwn(); }

  // Replaces the selection by the replacement for the last match, for good, and selects what stands there
  // then.
  void ReplaceSelection();

  // Replaces all matches in the text, or in the selection if the find state says so, as one unit of undo.
  // Returns how many there were; the user knows when there were none.
  std::size_t ReplaceAll();

 private:
  template <typename FindIt>
  bool FindBy(FindIt findIt);
  void ShowMatch(TextRange match);
  OwnSelection Here() const;
  void ApplyAll(const EditList& edits);
  void Complain(int message);

  Messages& messages_;
  Waiting& waiting_;
  FindState& state_;
  TextControl& control_;
  HWND boxOwner_;
};

}  // namespace tarrow
