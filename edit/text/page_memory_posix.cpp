#include "edit/text/page_memory.h"

#include <sys/mman.h>

namespace tarrow {

char* ReservePages(std::size_t bytes) {
  void* at = ::mmap(nullptr, bytes, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  return at == MAP_FAILED ? nullptr : static_cast<char*>(at);
}

bool CommitPages(char* at, std::size_t bytes) {
  if (::mprotect(at, bytes, PROT_READ | PROT_WRITE) != 0) return false;
  // Filling a large text costs as much in page faults as in copying otherwise. Only a wish: failure is no
  // harm.
  ::madvise(at, bytes, MADV_HUGEPAGE);
  return true;
}

void ReleasePages(char* at, std::size_t bytes) {
  ::munmap(at, bytes);
}

}  // namespace tarrow
