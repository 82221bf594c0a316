// SmallBlocks: memory for the texts and arrays that a match makes and drops by the thousand.
#pragma once

#include <array>
#include <cstddef>
#include <new>

#include "text/sanitizers.h"

namespace brindlemoor {

/// Blocks that are kept when they are given back and serve the next of their size, which takes a
/// fifth of what the allocator takes. Larger blocks, and more than a few of one size, go back to
/// it. Not for use from several threads.
class SmallBlocks {
 public:
  /// At least so many bytes, aligned as operator new aligns.
  static void* Take(std::size_t bytes) {
    const std::size_t size = SizeOf(bytes);
    if (IsLarge(size)) return ::operator new(bytes);
    Kept& kept = kept_[size];
    if (kept.First == nullptr) return ::operator new(size* kStep);
    Block* block = kept.First;
    kept.First = block->Next;
    --kept.Count;
    return block;
  }
  /// Gives back what Take gave for so many bytes.
  static void Give(void* memory, std::size_t bytes) noexcept {
    const std::size_t size = SizeOf(bytes);
    if (IsLarge(size) || kept_[size].Count >= kMostOfSize) {
      ::operator delete(memory);
      return;
    }
    Kept& kept = kept_[size];
    kept.First = new (memory) Block{kept.First};
    ++kept.Count;
  }

 private:
  static constexpr std::size_t kStep = 16;
  /// Blocks of 16 to 1,008 bytes are kept.
  static constexpr std::size_t kSizes = 64;
  static constexpr int kMostOfSize = 256;

  struct Block {
    Block* Next;
  };
  struct Kept {
    Block* First;
    int Count;
  };
  static constexpr std::size_t SizeOf(std::size_t bytes) { return (bytes + kStep - 1) / kStep; }

  /// The sanitizer sees what is used after it was given back only in memory of its own.
  static constexpr bool IsLarge(std::size_t size) {
    return kUnderAddressSanitizer || size >= kSizes;
  }

  static constinit inline std::array<Kept, kSizes> kept_{};
};

}  // namespace brindlemoor
