#include "console/mapped_file.h"

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace tarrow {
namespace {

constexpr off_t kLeastSize = 1 << 20;

// What the handler needs to know, which can be told nothing: there is one mapping at a time.
char* volatile mapped = nullptr;
volatile std::size_t mappedSize = 0;
volatile std::sig_atomic_t hasLost = 0;

// The system sends this for a byte of the mapping that the file does not have any more. Zeros take the place
// of all from there on, and what was going on goes on.
void OnLostBytes(int number, siginfo_t* fault, void*) {
  auto* at = static_cast<char*>(fault->si_addr);
  char* begin = mapped;
  if (begin && at >= begin && at < begin + mappedSize) {
    auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    char* from = begin + static_cast<std::size_t>(at - begin) / page * page;
    auto size = static_cast<std::size_t>(begin + mappedSize - from);
    hasLost = 1;
    if (mmap(from, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) != MAP_FAILED) return;
  }
  signal(number, SIG_DFL);  // whatever it was, it comes again
}

void CatchLostBytes() {
  struct sigaction action = {};
  action.sa_sigaction = OnLostBytes;
  action.sa_flags = SA_SIGINFO;
  sigemptyset(&action.sa_mask);
  sigaction(SIGBUS, &action, nullptr);
}

}  // namespace

MappedFile::MappedFile(char* bytes, std::size_t size) {
  hasLost = 0;
  mappedSize = size;
  mapped = bytes;
}

MappedFile::~MappedFile() {
  munmap(mapped, mappedSize);
  mapped = nullptr;
}

std::string_view MappedFile::From(std::size_t position) const {
  if (position >= mappedSize) return {};
  return {mapped + position, mappedSize - position};
}

bool MappedFile::HasLost() const {
  return hasLost != 0;
}

std::unique_ptr<MappedFile> MapFile(int descriptor) {
  struct stat status;
  bool isLargeFile =
      fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size >= kLeastSize;
  if (mapped || !isLargeFile) return {};
  CatchLostBytes();
  auto size = static_cast<std::size_t>(status.st_size);
  void* bytes = mmap(nullptr, size, PROT_READ, MAP_SHARED, descriptor, 0);
  if (bytes == MAP_FAILED) return {};
  madvise(bytes, size, MADV_SEQUENTIAL);
  return std::unique_ptr<MappedFile>(new MappedFile(static_cast<char*>(bytes), size));
}

}  // namespace tarrow
