#include "shell/commands/file_looker.h"

#include "edit/files/look_at_file.h"
#include "framework/handle.h"
#include "ui/program/private_messages.h"

#include <mutex>
#include <utility>

namespace tarrow {

struct FileLooker::Shared {
  std::mutex mutex;
  HWND window = nullptr;
  std::string wanted;  // the file to look at; empty: none
  std::optional<Answer> answer;
  bool isRunning = false;
};

FileLooker::FileLooker() : shared_(std::make_shared<Shared>()) {}
FileLooker::~FileLooker() = default;

void FileLooker::Ask(HWND window, const std::string& path) {
  {
    std::lock_guard lock(shared_->mutex);
    shared_->window = window;
    shared_->wanted = path;
    shared_->answer.reset();
    if (std::exchange(shared_->isRunning, true)) return;
  }
  auto theirs = std::make_unique<std::shared_ptr<Shared>>(shared_);
  KernelHandle thread(::CreateThread(nullptr, 0, Run, theirs.get(), 0, nullptr));
  if (thread) return void(theirs.release());  // the thread's now
  std::lock_guard lock(shared_->mutex);
  shared_->isRunning = false;
}

std::optional<FileLooker::Answer> FileLooker::TakeAnswer() {
  std::lock_guard lock(shared_->mutex);
  std::optional<Answer> answer;
  answer.swap(shared_->answer);
  return answer;
}

// Looks until nothing more is wanted.
DWORD WINAPI FileLooker::Run(void* shared) {
  std::unique_ptr<std::shared_ptr<Shared>> owner(static_cast<std::shared_ptr<Shared>*>(shared));
  Shared& my = **owner;
  std::unique_lock lock(my.mutex);
  while (!my.wanted.empty()) {
    std::string path = std::exchange(my.wanted, {});
    lock.unlock();
    bool isLocal = IsOnLocalDisk(path);
    FileLook look = isLocal ? LookAtFile(path) : FileLook{};
    lock.lock();
    if (!isLocal || !my.wanted.empty()) continue;
    my.answer = Answer{std::move(path), look};
    ::PostMessageW(my.window, kFileLookedMessage, 0, 0);
  }
  my.isRunning = false;
  return 0;
}

}  // namespace tarrow
