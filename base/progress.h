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
};

// Turns calls from an inner loop into polls by time: Tick() costs a decrement and only looks at the clock
// every `stride` calls. A null progress makes it a no-op. Making one costs nothing either: the first look at
// the clock only starts the time.
class ProgressTicker {
 public:
  explicit ProgressTicker(Progress* progress, int stride = 4096)
      : progress_(progress), stride_(stride), countdown_(stride) {}

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
    if (last_ == std::chrono::steady_clock::time_point{}) last_ = now;
    if (now - last_ < kPeriod) return;
    last_ = now;
    progress_->Poll();
  }

  Progress* progress_;
  int stride_;
  int countdown_;
  std::chrono::steady_clock::time_point last_{};
};

}  // namespace tarrow
