// BackgroundQueue: a thread that does one task after another, so that nobody waits for a disk.
//
// The thread starts with the first task. A task must not throw.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace tarrow {

class BackgroundQueue {
 public:
  // `onIdle` is called on the thread when the last task is done; it must be quick.
  explicit BackgroundQueue(std::function<void()> onIdle) : onIdle_(std::move(onIdle)) {}

  // Does what is still to be done, and ends the thread.
  ~BackgroundQueue();
  BackgroundQueue(const BackgroundQueue&) = delete;
  BackgroundQueue& operator=(const BackgroundQueue&) = delete;

  // Puts a task at the end; `bytes` is what it holds in memory. Throws std::system_error when there can be no
  // thread, and std::bad_alloc.
  void Post(std::size_t bytes, std::function<void()> task);

  // What the tasks hold that are not done yet.
  std::size_t Bytes() const;

  // Waits until all is done.
  void Finish();

 private:
  struct Task {
    std::size_t bytes;
    std::function<void()> run;
  };

  void Run();

  std::function<void()> onIdle_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<Task> tasks_;  // the first is being done
  std::size_t bytes_ = 0;
  bool isEnding_ = false;
  std::thread thread_;
};

}  // namespace tarrow
