#include "edit/text/reserved_memory.h"

#include "base/exceptions.h"
#include "edit/text/page_memory.h"

#include <limits>

namespace tarrow {
namespace {

ReservedMemory::Permission permission = nullptr;

std::size_t RoundUp(std::size_t bytes) {
  constexpr std::size_t kStep = ReservedMemory::kCommitStep;
  if (bytes > std::numeric_limits<std::size_t>::max() - kStep) throw CMemoryException();
  return (bytes + kStep - 1) / kStep * kStep;
}

void AskPermission() {
  if (permission && !permission()) throw CMemoryException();
}

}  // namespace

void ReservedMemory::SetPermission(Permission ask) {
  permission = ask;
}

ReservedMemory::ReservedMemory(std::size_t reserve) {
  AskPermission();
  std::size_t rounded = RoundUp(reserve);
  data_ = ReservePages(rounded);
  if (!data_) throw CMemoryException();
  reserved_ = rounded;
}

ReservedMemory::~ReservedMemory() {
  if (data_) ReleasePages(data_, reserved_);
}

void ReservedMemory::Commit(std::size_t bytes) {
  std::size_t rounded = RoundUp(bytes);
  if (rounded <= committed_) return;
  AskPermission();
  if (rounded > reserved_ || !CommitPages(data_ + committed_, rounded - committed_)) throw CMemoryException();
  committed_ = rounded;
}

}  // namespace tarrow
