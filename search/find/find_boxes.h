// The questions and complaints of a search as message boxes, above the progress box if that is there; the
// hourglass rests meanwhile.
#pragma once

#include "search/find/find_text.h"
#include "ui/program/messages.h"
#include "ui/program/progress_box.h"
#include "ui/program/wait_state.h"

#include <optional>

namespace tarrow {

class FindBoxes final : public FindDialogue {
 public:
  FindBoxes(Messages& messages, Waiting& waiting, const CProgressBox& progress, HWND owner,
            const FindState& state)
      : messages_(messages), waiting_(waiting), progress_(progress), owner_(owner), state_(state) {
    wait_.emplace(waiting);
  }

  bool ConfirmRestart(int message) override {
    bool restart = Show(MB_OKCANCEL | MB_ICONQUESTION, message) == IDOK;
    wait_.emplace(waiting_);
    return restart;
  }
  void Complain(int message) override { Show(MB_OK | MB_ICONEXCLAMATION, message); }

 private:
  int Show(UINT style, int message) {
    wait_.reset();
    HWND owner = progress_.Exists() ? progress_.Handle() : owner_;
    return messages_.ShowMessageBox(owner, style, message, {state_.pattern});
  }

  Messages& messages_;
  Waiting& waiting_;
  const CProgressBox& progress_;
  HWND owner_;
  const FindState& state_;
  std::optional<WaitState> wait_;
};

}  // namespace tarrow
