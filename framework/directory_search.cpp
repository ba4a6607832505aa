#include "framework/directory_search.h"

#include "framework/handle.h"
#include "framework/unicode.h"

#include <windows.h>

#include <exception>
#include <memory>
#include <utility>
#include <vector>

namespace tarrow {
namespace {

using FindHandle = UniqueHandle<HANDLE, ::FindClose>;

constexpr std::size_t kBatch = 256;  // entries that are handed over at once
constexpr DWORD kPatience = 20;      // milliseconds between two polls while nothing comes

std::uint64_t Join(DWORD high, DWORD low) {
  return static_cast<std::uint64_t>(high) << 32 | low;
}

DirectoryEntry EntryOf(const WIN32_FIND_DATAW& data) {
  return {ToUtf8(data.cFileName), data.dwFileAttributes, Join(data.nFileSizeHigh, data.nFileSizeLow),
          Join(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime)};
}

class Locked {
 public:
  explicit Locked(SRWLOCK& lock) : lock_(lock) { ::AcquireSRWLockExclusive(&lock_); }
  ~Locked() { ::ReleaseSRWLockExclusive(&lock_); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;

 private:
  SRWLOCK& lock_;
};

// What whoever waits and the thread that asks the disk have in common; it goes with the last of them.
class Reading {
 public:
  explicit Reading(std::wstring pattern) : pattern_(std::move(pattern)) {}

  // The thread's work.
  void Read() noexcept {
    std::vector<DirectoryEntry> batch;
    std::exception_ptr failure;
    try {
      SearchDirectory(pattern_, [&](DirectoryEntry&& entry) {
        batch.push_back(std::move(entry));
        if (batch.size() >= kBatch) HandOver(batch);
      });
      HandOver(batch);
    } catch (const Abandoned&) {
    } catch (...) {
      failure = std::current_exception();
    }
    Locked locked(lock_);
    failure_ = failure;
    isOver_ = true;
    ::WakeConditionVariable(&changed_);
  }

  // Moves what has come into `batch`, having waited a little for it. False when nothing more will come.
  // Throws what stopped the thread.
  bool Take(std::vector<DirectoryEntry>& batch) {
    batch.clear();
    Locked locked(lock_);
    if (come_.empty() && !isOver_) ::SleepConditionVariableSRW(&changed_, &lock_, kPatience, 0);
    std::swap(batch, come_);
    if (failure_) std::rethrow_exception(failure_);
    return !batch.empty() || !isOver_;
  }

  // Nobody waits any more.
  void Abandon() {
    Locked locked(lock_);
    isAbandoned_ = true;
  }

 private:
  struct Abandoned {};

  void HandOver(std::vector<DirectoryEntry>& batch) {
    Locked locked(lock_);
    if (isAbandoned_) throw Abandoned();
    come_.insert(come_.end(), std::move_iterator(batch.begin()), std::move_iterator(batch.end()));
    batch.clear();
    ::WakeConditionVariable(&changed_);
  }

  const std::wstring pattern_;
  SRWLOCK lock_ = SRWLOCK_INIT;
  CONDITION_VARIABLE changed_ = CONDITION_VARIABLE_INIT;
  std::vector<DirectoryEntry> come_;  // and not yet been taken
  std::exception_ptr failure_;
  bool isOver_ = false;
  bool isAbandoned_ = false;
};

DWORD WINAPI ReadOnThread(void* parameter) noexcept {
  std::unique_ptr<std::shared_ptr<Reading>> reading(static_cast<std::shared_ptr<Reading>*>(parameter));
  (*reading)->Read();
  return 0;
}

// Starts the thread, with its share of the reading.
bool Start(const std::shared_ptr<Reading>& reading) {
  auto share = std::make_unique<std::shared_ptr<Reading>>(reading);
  KernelHandle thread(::CreateThread(nullptr, 0, ReadOnThread, share.get(), 0, nullptr));
  if (thread) (void)share.release();  // the thread's now
  return static_cast<bool>(thread);
}

}  // namespace

void SearchDirectory(const std::wstring& pattern, const EntryUse& use) {
  WIN32_FIND_DATAW data;
  HANDLE handle = pattern.empty() ? INVALID_HANDLE_VALUE : ::FindFirstFileW(pattern.c_str(), &data);
  if (handle == INVALID_HANDLE_VALUE) return;
  FindHandle find(handle);
  do use(EntryOf(data));
  while (::FindNextFileW(handle, &data));
}

void SearchDirectory(const std::wstring& pattern, Progress& progress, const EntryUse& use) {
  auto reading = std::make_shared<Reading>(pattern);
  if (!Start(reading)) return SearchDirectory(pattern, use);
  struct End {
    Reading& reading;
    ~End() { reading.Abandon(); }
  } end{*reading};
  ProgressTicker ticker(&progress, 1);
  for (std::vector<DirectoryEntry> batch; reading->Take(batch);) {
    ticker.Tick();
    for (DirectoryEntry& entry : batch) use(std::move(entry));
  }
}

}  // namespace tarrow
