// How a long operation stays interruptible: it polls a Progress, which may show how far it is and may throw
// CYieldException when the user has had enough. Nothing in an engine freezes its caller.
#pragma once

#include <chrono>
#include <cstdint>

namespace tarrow {

class Progress {
 public:
  virtual ~Progress() = default;

  // Called every few hundredths of a second; may dispatch messages. Throws CYieldException to abandon.
  virtual void Poll() = 0;

  // How much is done, in the unit in which whoever shows it has been told the whole.
  virtual void SetDone(std::int64_t) {}

 private:
  friend class ProgressTicker;

  // What the tickers of this progress hand on to one another.
  int ticked_ = 0;  // since the clock was looked at
  std::chrono::steady_clock::time_point lastPoll_{};
};

// Turns calls from an inner loop into polls by time: Tick() costs a decrement and only looks at the clock
// every `stride` calls. A null progress makes it a no-op. Making one costs nothing either: the first look at
// the clock only starts the time.
//
// A ticker takes up the count and the time where the one before it left them, so that an operation of many
// short steps, each with a ticker of its own, polls like one long step. The progress outlives its tickers.
class ProgressTicker {
 public:
  explicit ProgressTicker(Progress* progress, int stride = 4096)
      : progress_(progress), stride_(stride), countdown_(stride - (progress ? progress->ticked_ : 0)) {}
  ~ProgressTicker() {
    if (progress_) progress_->ticked_ = stride_ - countdown_;
  }
  ProgressTicker(const ProgressTicker&) = delete;
  ProgressTicker& operator=(const ProgressTicker&) = delete;

  // `weight` is the work done since the last call, in units of a few nanoseconds.
  void Tick(int weight = 1) {
    countdown_ -= weight;
    if (countdown_ <= 0) Look();
  }

 private:
  static constexpr std::chrono::milliseconds kPeriod{40};

  void Look() {
    countdown_ = stride_;
    if (!progress_) return;
    auto now = std::chrono::steady_clock::now();
    auto& last = progress_->lastPoll_;
    if (last == std::chrono::steady_clock::time_point{}) last = now;
    if (now - last < kPeriod) return;
    last = now;
    progress_->Poll();
  }

  Progress* progress_;
  int stride_;
  int countdown_;
};

}  // namespace tarrow
