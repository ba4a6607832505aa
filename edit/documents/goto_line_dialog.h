// The Goto Line dialog: asks for a line number that counts from 1.
#pragma once

#include "framework/dialog.h"

namespace tarrow {

class CGotoLineDialog final : public CDialog {
 public:
  // `number` is what the field shows first.
  explicit CGotoLineDialog(int number);

  int Number() const { return number_; }

 protected:
  std::span<const DialogField> Fields() const override;

 private:
  int number_;
};

}  // namespace tarrow
