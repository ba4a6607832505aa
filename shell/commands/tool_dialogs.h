// Small dialogs of the frame: About and System Metrics.
#pragma once

#include "framework/dialog.h"

namespace tarrow {

// The title and release of the program.
class CAboutDialog final : public CDialog {
 public:
  CAboutDialog();

 protected:
  bool OnInitDialog() override;
};

// The system metrics by name and value.
class CSystemMetricsDialog final : public CDialog {
 public:
  CSystemMetricsDialog();

 protected:
  bool OnInitDialog() override;
};

}  // namespace tarrow
