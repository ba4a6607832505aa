// CTwFindReplaceDialog: the modeless find or replace dialog.
//
// It looks for itself where it last stood, knows whether the pattern has been edited since the last search,
// and carries one box more than the system's dialog. It belongs to its window.
#pragma once

#include "framework/find_replace_dialog.h"
#include "search/find/find_state.h"
#include "search/find/match_place.h"

#include <functional>
#include <string>

namespace tarrow {

class CTwFindReplaceDialog final : public CFindReplaceDialog {
 public:
  // `frame` is the client area beside whose right edge the dialog stands the first time, in pixels of the
  // screen. `closed` is called once, when the window goes.
  CTwFindReplaceDialog(FindState& state, const RECT& frame, std::function<void()> closed);

  // Opens the find form or the replace form with what `state` says; false when the system refuses, and the
  // object is gone then.
  [[nodiscard]] bool Show(bool findOnly, HWND owner);

  bool IsFindOnly() const { return findOnly_; }

  // What the field of the replacement holds now, UTF-8. Not every system's dialog tells it with every button.
  std::string Replacement() const;
  bool SelectionOnly() const;

  // Whether the pattern has been edited since this was last asked.
  bool TakeTextChanged();

  // Moves the dialog off a match on the screen, as little as needed and never off the screen.
  void MoveAside(const Box& match);

  // Stores where the dialog stands in the find state.
  void RememberPlace();

 protected:
  static const MessageMap kMessageMap;
  const MessageMap& GetMessageMap() const override { return kMessageMap; }

  void OnInitDialog() override;
  void OnFinalMessage() override { delete this; }

 private:
  void Place(const Box& box);
  void OnFindWhatChanged();
  void OnDestroy();

  FindState& state_;
  RECT frame_;
  std::function<void()> closed_;
  bool findOnly_ = true;
  bool textChanged_ = true;
};

}  // namespace tarrow
