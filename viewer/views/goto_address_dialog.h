// The Goto Address dialog: asks for an address in hexadecimal.
#pragma once

#include "framework/dialog.h"
#include "ui/program/messages.h"

#include <cstdint>
#include <string>

namespace tarrow {

class CGotoAddressDialog final : public CDialog {
 public:
  // `address` is what the field shows first.
  CGotoAddressDialog(Messages& messages, std::uint32_t address);

  std::uint32_t Address() const { return address_; }

 protected:
  std::span<const DialogField> Fields() const override;
  void OnOk() override;

 private:
  Messages& messages_;
  std::string text_;
  std::uint32_t address_;
};

}  // namespace tarrow
