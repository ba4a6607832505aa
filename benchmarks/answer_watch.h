#pragma once
// Asks the program from another thread whether it is there, again and again, while the program works.

#include "benchmarks/report.h"

#include <windows.h>

#include <atomic>
#include <functional>
#include <thread>

namespace tarrow::bench {

class AnswerWatch {
 public:
  // `ask` sends a message to a window of the program; called on the watch's own thread, with the seconds
  // since its beginning.
  explicit AnswerWatch(std::function<void(double seconds)> ask)
      : ask_(std::move(ask)), thread_([this] { Watch(); }) {}
  ~AnswerWatch() { Stop(); }
  AnswerWatch(const AnswerWatch&) = delete;
  AnswerWatch& operator=(const AnswerWatch&) = delete;

  void Stop() {
    stopped_ = true;
    if (thread_.joinable()) thread_.join();
  }

  // The longest time that the program took to answer, in seconds; to be asked after Stop().
  double LongestSilence() const { return longest_; }

 private:
  void Watch() {
    auto begun = std::chrono::steady_clock::now();
    while (!stopped_) {
      double at = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
      longest_ = std::max(longest_, Seconds([&] { ask_(at); }));
      ::Sleep(1);
    }
  }

  std::function<void(double seconds)> ask_;
  std::atomic<bool> stopped_ = false;
  double longest_ = 0;
  std::thread thread_;
};

}  // namespace tarrow::bench
