// CBuildDialog: which target the make tool is to build.
#pragma once

#include "framework/dialog.h"

#include <string>

namespace tarrow {

class CBuildDialog final : public CDialog {
 public:
  // Shows `target`, and takes over what the user makes of it.
  explicit CBuildDialog(std::string& target);

 protected:
  std::span<const DialogField> Fields() const override;
  bool OnInitDialog() override;
  void OnOk() override;

 private:
  static const DialogField kFields[];

  std::string& target_;
  std::string text_;
};

}  // namespace tarrow
