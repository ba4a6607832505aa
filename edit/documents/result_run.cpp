#include "edit/documents/result_run.h"

#include "edit/documents/log.h"
#include "framework/text_resources.h"
#include "ui/program/string_ids.h"

#include <exception>
#include <new>
#include <utility>

namespace tarrow {
namespace {

constexpr int kStatusSeconds = 5;
constexpr std::chrono::milliseconds kShowPeriod{100};

CTwLog* MakeWindow(const ResultServices& program, std::string_view title, PlaceFinder finder) {
  WaitState wait(program.waiting, true);
  return program.documents.NewResultWindow(title, std::move(finder));
}

}  // namespace

ResultRun::ResultRun(const ResultServices& program, std::string_view title, PlaceFinder finder,
                     std::string_view progressText)
    : program_(program),
      window_(MakeWindow(program, title, std::move(finder))),
      wait_(program.waiting),
      box_(program.frame.Handle(), progressText) {}

TextSink& ResultRun::Out() {
  return window_->Sink();
}

// Before the box is there nobody paints the window.
void ResultRun::Poll() {
  auto now = std::chrono::steady_clock::now();
  if (now - shown_ >= kShowPeriod) {
    window_->ShowHeld();
    ::UpdateWindow(window_->Control().Handle());
    shown_ = now;
  }
  box_.Poll();
}

bool ResultRun::Run(const std::function<void()>& work) {
  bool isDone = false;
  try {
    work();
    isDone = true;
  } catch (...) {
    ReportCurrent();
  }
  box_.SetCounts(nullptr);  // what it counted is over
  return isDone;
}

// Tells the user of the exception being handled.
void ResultRun::ReportCurrent() {
  try {
    throw;
  } catch (const CYieldException&) {
    program_.messages.Alert(MB_ICONHAND);
    program_.status.ShowStatusId(kTextCancelled, kStatusSeconds);
  } catch (const CFileException& failure) {
    program_.messages.ShowFileError(BoxOwner(), failure);
  } catch (const CMemoryException&) {
    program_.messages.ReportOutOfMemory();
  } catch (const std::bad_alloc&) {
    program_.messages.ReportOutOfMemory();
  }
}

void ResultRun::ReportFile(const CFileException& failure) {
  if (leavesOut_) {
    ++leftOut_;
    return;
  }
  if (failedFiles_++ == 0) return program_.messages.ShowFileError(BoxOwner(), failure);
  std::string cause = LoadText(kTextFirstFileCause + static_cast<int>(failure.Cause()));
  leavesOut_ = program_.messages.ShowMessageBox(BoxOwner(), MB_YESNO | MB_ICONEXCLAMATION,
                                                kTextFileErrorOrRest, {failure.Path(), cause}) == IDYES;
}

bool ResultRun::HasText() {
  window_->ShowHeld();
  return window_->Control().Buffer().End() > BytePos(0);
}

void ResultRun::Finish() {
  if (leftOut_ > 0)
    program_.messages.ShowMessageBox(BoxOwner(), MB_ICONEXCLAMATION, kTextFilesLeftOut,
                                     {std::exchange(leftOut_, 0)});
  if (window_) window_->Finish();
}

void ResultRun::Discard() {
  if (CTwLog* window = std::exchange(window_, nullptr)) window->Send(WM_CLOSE);
}

}  // namespace tarrow
