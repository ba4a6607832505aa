#include "tests/edit/text/failing_allocations.h"

#include "edit/text/reserved_memory.h"

#include <cstdlib>
#include <new>

namespace {

constexpr long kNever = -1;
long remaining = kNever;
bool refused = false;

bool Grant() {
  if (remaining == kNever) return true;
  if (remaining == 0) return !(refused = true);
  --remaining;
  return true;
}

void* AllocateOrNull(std::size_t size) noexcept {
  return Grant() ? std::malloc(size ? size : 1) : nullptr;
}

void* Allocate(std::size_t size) {
  void* memory = AllocateOrNull(size);
  if (!memory) throw std::bad_alloc();
  return memory;
}

}  // namespace

void* operator new(std::size_t size) {
  return Allocate(size);
}
void* operator new[](std::size_t size) {
  return Allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return AllocateOrNull(size);
}
void operator delete(void* memory) noexcept {
  std::free(memory);
}
void operator delete[](void* memory) noexcept {
  std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace tarrow {

FailingAllocations::FailingAllocations(long countdown) {
  refused = false;
  remaining = countdown;
  ReservedMemory::SetPermission(Grant);
}

FailingAllocations::~FailingAllocations() {
  remaining = kNever;
  ReservedMemory::SetPermission(nullptr);
}

bool FailingAllocations::Refused() const {
  return refused;
}

}  // namespace tarrow
