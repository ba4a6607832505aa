#include "edit/text/page_memory.h"

#include <windows.h>

namespace tarrow {

char* ReservePages(std::size_t bytes) {
  return static_cast<char*>(::VirtualAlloc(nullptr, bytes, MEM_RESERVE, PAGE_NOACCESS));
}

bool CommitPages(char* at, std::size_t bytes) {
  return ::VirtualAlloc(at, bytes, MEM_COMMIT, PAGE_READWRITE) != nullptr;
}

void ReleasePages(char* at, std::size_t) {
  ::VirtualFree(at, 0, MEM_RELEASE);
}

}  // namespace tarrow
