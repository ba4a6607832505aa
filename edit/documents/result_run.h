// ResultRun: one run of a tool that reads files and writes what it finds into a result window.
//
// It brings what all such runs share: the window, made while the others are hidden; the hourglass and the
// progress box; results that appear while the tool runs; failures shown once and told apart from the user's
// Cancel. What was written stays in the window, however the run ends.
#pragma once

#include "base/exceptions.h"
#include "base/progress.h"
#include "base/text_sink.h"
#include "edit/documents/documents.h"
#include "framework/mdi.h"
#include "ui/program/messages.h"
#include "ui/program/progress_box.h"
#include "ui/program/status_line.h"
#include "ui/program/wait_state.h"

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace tarrow {

// What a run needs of the program; all of them outlive it.
struct ResultServices {
  CMDIFrameWnd& frame;
  Documents& documents;
  Messages& messages;
  StatusLine& status;
  Waiting& waiting;
};

class ResultRun final : private Progress {
 public:
  // Makes the window. `progressText` is what the progress box says.
  ResultRun(const ResultServices& program, std::string_view title, PlaceFinder finder,
            std::string_view progressText);

  // Null when it could not be made, of which the user has been told; there is nothing to run then.
  CTwLog* Window() { return window_; }

  // Where results go, and what the tool polls; for use within Run().
  TextSink& Out();
  Progress& GetProgress() { return *this; }

  // How far the tool is: `done` of `whole`, in any unit.
  void SetWhole(std::int64_t whole) { box_.SetWhole(whole); }
  void SetDone(std::int64_t done) override { box_.SetDone(done); }
  void SetWork(std::string_view path) { box_.SetWork(path); }
  // `counts` is asked until Run() ends.
  void SetCounts(std::function<std::string()> counts) { box_.SetCounts(std::move(counts)); }

  // Between two files: polls if it is time.
  void Tick() { ticker_.Tick(); }

  // Tells of a file that cannot be read, so that the tool can go on with the next. From the second on the
  // user may have the rest left out; Finish() tells how many they were.
  void ReportFile(const CFileException& failure);

  // Does the work; what it throws ends it and is told to the user. Whether it came to its end.
  bool Run(const std::function<void()>& work);

  // Whether anything has been written.
  bool HasText();

  // The run is over: shows the rest of the results, and the number of files left out.
  void Finish();

  // Closes the window, which holds nothing worth keeping.
  void Discard();

 private:
  void Poll() override;
  void ReportCurrent();
  HWND BoxOwner() const { return box_.Exists() ? box_.Handle() : program_.frame.Handle(); }

  const ResultServices program_;
  CTwLog* window_ = nullptr;  // belongs to its window, which nobody can close before the run is over
  WaitState wait_;
  CProgressBox box_;
  ProgressTicker ticker_{this, 1};
  std::chrono::steady_clock::time_point shown_{};
  int failedFiles_ = 0;
  int leftOut_ = 0;
  bool leavesOut_ = false;
};

}  // namespace tarrow
