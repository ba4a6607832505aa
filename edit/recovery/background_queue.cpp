#include "edit/recovery/background_queue.h"

#include <utility>

namespace tarrow {

BackgroundQueue::~BackgroundQueue() {
  {
    std::lock_guard lock(mutex_);
    isEnding_ = true;
  }
  changed_.notify_all();
  if (thread_.joinable()) thread_.join();
}

void BackgroundQueue::Post(std::size_t bytes, std::function<void()> task) {
  {
    std::lock_guard lock(mutex_);
    if (!thread_.joinable()) thread_ = std::thread([this] { Run(); });
    tasks_.push_back({bytes, std::move(task)});
    bytes_ += bytes;
  }
  changed_.notify_all();
}

std::size_t BackgroundQueue::Bytes() const {
  std::lock_guard lock(mutex_);
  return bytes_;
}

void BackgroundQueue::Finish() {
  std::unique_lock lock(mutex_);
  changed_.wait(lock, [this] { return tasks_.empty(); });
}

void BackgroundQueue::Run() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return !tasks_.empty() || isEnding_; });
    if (tasks_.empty()) return;
    Task& task = tasks_.front();  // stays where it is while others are put behind it
    lock.unlock();
    task.run();
    lock.lock();
    bytes_ -= task.bytes;
    tasks_.pop_front();
    if (!tasks_.empty()) continue;
    changed_.notify_all();
    lock.unlock();
    onIdle_();
    lock.lock();
  }
}

}  // namespace tarrow
