// SharedArray: a 1-based array whose storage is shared between copies until one of them writes.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <memory>
#include <type_traits>
#include <utility>

#include "text/small_blocks.h"

namespace brindlemoor {

/// A 1-based array with value semantics and copy on write: copying costs one counter, and the
/// first write to a copy clones the elements. Not for use from several threads.
///
/// A reference that Edit gave must not be kept while the array is copied or asked for its marks:
/// the copy would share the storage that the reference still writes to, and the marks would be
/// those of before.
template <class T>
class SharedArray {
 public:
  SharedArray() noexcept = default;
  /// count elements, all freshly made.
  explicit SharedArray(int count) { Resize(count); }
  SharedArray(const SharedArray& other) noexcept : storage_(other.storage_) {
    if (storage_ != nullptr) ++storage_->references;
  }
  SharedArray(SharedArray&& other) noexcept : storage_(std::exchange(other.storage_, nullptr)) {}
  SharedArray& operator=(const SharedArray& other) noexcept {  // NOLINT: itself has its storage
    if (storage_ == other.storage_) return *this;
    SharedArray copy(other);
    std::swap(storage_, copy.storage_);
    return *this;
  }
  SharedArray& operator=(SharedArray&& other) noexcept {
    SharedArray taken(std::move(other));
    std::swap(storage_, taken.storage_);
    return *this;
  }
  ~SharedArray() { Release(); }

  /// Index of the last element, 0 for an empty array.
  int UpperBound() const noexcept { return storage_ != nullptr ? storage_->count : 0; }
  bool Holds(int index) const noexcept { return index >= 1 && index <= UpperBound(); }

  /// The element at a 1-based index; an index outside the array reads as an empty element.
  const T& operator[](int index) const noexcept {
    return Holds(index) ? storage_->Elements()[index - 1] : kAbsent.Element;
  }
  /// The element for writing; the index must be inside the array.
  T& Edit(int index) {
    assert(Holds(index));
    return Changed(index).Elements()[index - 1];
  }
  /// The same for a change that leaves the element's marks as they are.
  T& EditAlike(int index) {
    assert(Holds(index));
    return Own(index).Elements()[index - 1];
  }
  /// Adds an element at the end and returns its index.
  int Append(T element) {
    const int index = UpperBound() + 1;
    Storage& own = Changed(index);
    new (own.Elements() + own.count) T(std::move(element));
    return own.count = index;
  }
  /// Makes the array exactly count long; kept elements keep their content, new ones are fresh.
  void Resize(int count) {
    if (count == UpperBound()) return;
    Storage& own = Changed(count);
    if (count < own.count) std::destroy_n(own.Elements() + count, own.count - count);
    if (count > own.count) {
      std::uninitialized_value_construct_n(own.Elements() + own.count, count - own.count);
    }
    own.count = count;
  }
  /// Makes the array count long and every element fresh.
  void Reset(int count) { *this = SharedArray(count); }
  /// What the elements are together as marks, the bits 0 to 62, in any meaning that the one
  /// function gives them that an array is asked with: worked out once for what is shared, until it
  /// is written.
  template <class MarksOf>
  std::uint64_t Marks(MarksOf marksOf) const {
    if (storage_ == nullptr) return 0;
    if (storage_->marks == 0) storage_->marks = marksOf(*this) | kMarksAreKnown;
    return storage_->marks;
  }
  bool SharesStorageWith(const SharedArray& other) const noexcept {
    return storage_ == other.storage_;
  }

  /// Iteration reads only.
  const T* begin() const noexcept { return storage_ != nullptr ? storage_->Elements() : nullptr; }
  const T* end() const noexcept { return begin() + UpperBound(); }

 private:
  /// An empty element that is there before the program begins and is never destroyed, so that
  /// reading asks no guard for it.
  union Absent {
    T Element;
    constexpr Absent() noexcept : Element{} {}
    ~Absent() {}
  };
  static constinit inline const Absent kAbsent{};

  static constexpr std::uint64_t kMarksAreKnown = std::uint64_t{1} << 63;

  /// The head of the storage; the elements follow it in the same piece of memory.
  struct Storage {
    std::uint32_t references = 1;
    int count = 0;
    int room = 0;             ///< elements that there is memory for
    std::uint64_t marks = 0;  ///< 0 while they are not known
    T* Elements() noexcept { return reinterpret_cast<T*>(this + 1); }
  };

  static std::size_t BytesFor(int room) noexcept {
    return sizeof(Storage) + static_cast<std::size_t>(room) * sizeof(T);
  }
  static Storage* New(int room) {
    static_assert(alignof(T) <= alignof(Storage));
    static_assert(std::is_nothrow_copy_constructible_v<T>);
    static_assert(std::is_nothrow_default_constructible_v<T>);
    return new (SmallBlocks::Take(BytesFor(room))) Storage{.room = room};
  }
  static void Delete(Storage* storage) noexcept {
    std::destroy_n(storage->Elements(), storage->count);
    SmallBlocks::Give(storage, BytesFor(storage->room));
  }
  void Release() noexcept {
    if (storage_ != nullptr && --storage_->references == 0) Delete(storage_);
    storage_ = nullptr;
  }
  /// The storage, which nobody shares from here on, with room for so many elements.
  Storage& Own(int room) {
    if (storage_ == nullptr) {
      storage_ = New(room);
    } else if (storage_->references > 1) {
      Storage* own = New(std::max(room, storage_->count));
      std::uninitialized_copy_n(storage_->Elements(), storage_->count, own->Elements());
      own->count = storage_->count;
      own->marks = storage_->marks;
      --storage_->references;
      storage_ = own;
    } else if (storage_->room < room) {
      Storage* grown = New(std::max(room, storage_->count * 2));
      std::uninitialized_move_n(storage_->Elements(), storage_->count, grown->Elements());
      grown->count = storage_->count;
      Delete(std::exchange(storage_, grown));
    }
    return *storage_;
  }
  Storage& Changed(int room) {
    Storage& own = Own(room);
    own.marks = 0;
    return own;
  }

  Storage* storage_ = nullptr;
};

}  // namespace brindlemoor
