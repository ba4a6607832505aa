// TextObserver: who follows the changes of a text, one by one.
#pragma once

#include "base/units.h"

#include <string_view>

namespace tarrow {

class TextObserver {
 public:
  // The bytes of `range` have been replaced by `text`; a list of replacements comes as one after another, in
  // the order of the text. Must not touch the text.
  virtual void OnReplaced(TextRange range, std::string_view text) noexcept = 0;

  // Another text has taken its place.
  virtual void OnExchanged() noexcept = 0;

 protected:
  ~TextObserver() = default;
};

// Where a text keeps its observer. He belongs to the place and not to the bytes: a text that is moved leaves
// him behind, and a place that takes another text tells him so.
class ObserverLink {
 public:
  ObserverLink() = default;
  ObserverLink(ObserverLink&&) noexcept {}
  ObserverLink& operator=(ObserverLink&&) noexcept {
    if (observer_) observer_->OnExchanged();
    return *this;
  }

  void Set(TextObserver* observer) { observer_ = observer; }
  void Replaced(TextRange range, std::string_view text) const noexcept {
    if (observer_) observer_->OnReplaced(range, text);
  }

 private:
  TextObserver* observer_ = nullptr;
};

}  // namespace tarrow
