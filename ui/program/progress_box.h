// CProgressBox: the small box that shows how far a long operation is, and lets the user end it.
//
// The operation polls the box as its Progress. Nothing is shown before it has lasted a third of a second, so
// that what is quick does not flicker; Escape ends it even then. From then on the program's other windows are
// disabled and only painted, the box takes its own input, and Cancel or Escape makes the next Poll() throw
// CYieldException. A poll between two looks costs a reading of the clock.
#pragma once

#include "base/progress.h"
#include "framework/busy_dialog.h"
#include "framework/dialog.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tarrow {

class CProgressBox final : public CDialog, public Progress {
 public:
  // For the frame, whose child the box is not but above which it stands. `text` says what is being done; both
  // are UTF-8. An Escape pressed before counts for nothing.
  CProgressBox(HWND frame, std::string_view text);
  ~CProgressBox() override;

  // What is being worked on now, a path mostly. Cheap: it is shown with the next look.
  void SetWork(std::string_view work);

  // Who makes the line that counts what has been found; asked at each look while the box stands.
  void SetCounts(std::function<std::string()> counts) { counts_ = std::move(counts); }

  // How much there is to do, and how much of it is done, in any unit; without a whole there is no bar.
  void SetWhole(std::int64_t whole) { whole_ = whole; }
  void SetDone(std::int64_t done) override { done_ = done; }

  // Shows what is new and lets the user act. Throws CYieldException once he has cancelled.
  void Poll() override;

 protected:
  bool OnInitDialog() override;
  void OnOk() override { isCancelled_ = true; }
  void OnCancel() override { isCancelled_ = true; }

 private:
  using Clock = std::chrono::steady_clock;

  void Open();
  void Show();

  HWND frame_;
  std::string text_;
  std::string work_;
  std::function<std::string()> counts_;
  std::string shownWork_, shownCounts_;
  std::int64_t whole_ = 0, done_ = 0;
  int shownPart_ = -1;  // thousandths
  Clock::time_point begun_ = Clock::now();
  Clock::time_point looked_ = begun_;
  std::optional<OtherWindowsDisabled> disabled_;
  bool isCancelled_ = false;
};

}  // namespace tarrow
