// A counting allocator for every benchmark program.
#include "bench/measures.h"

#include <cstdlib>
#include <new>

namespace {

std::uint64_t allocations = 0;

void* Allocate(std::size_t size) {
  ++allocations;
  void* block = std::malloc(size > 0 ? size : 1);
  if (block == nullptr) std::abort();
  return block;
}

}  // namespace

void* operator new(std::size_t size) { return Allocate(size); }
void* operator new[](std::size_t size) { return Allocate(size); }
void operator delete(void* block) noexcept { std::free(block); }
void operator delete[](void* block) noexcept { std::free(block); }
void operator delete(void* block, std::size_t) noexcept { std::free(block); }
void operator delete[](void* block, std::size_t) noexcept { std::free(block); }

namespace brindlemoor {

std::uint64_t AllocationCount() noexcept { return allocations; }

}  // namespace brindlemoor
