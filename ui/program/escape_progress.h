// Lets the Escape key end a long operation that shows no progress box.
#pragma once

#include "base/progress.h"

namespace tarrow {

class EscapeProgress final : public Progress {
 public:
  // Forgets an Escape that was pressed before.
  EscapeProgress();

  // Throws CYieldException when Escape has been pressed; the key is used up by that.
  void Poll() override;
};

}  // namespace tarrow
