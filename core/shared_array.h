// SharedArray: a 1-based array whose storage is shared between copies until one of them writes.
#pragma once

#include <cassert>
#include <cstdint>
#include <utility>
#include <vector>

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
  int UpperBound() const noexcept {
    return storage_ != nullptr ? static_cast<int>(storage_->elements.size()) : 0;
  }
  bool Holds(int index) const noexcept { return index >= 1 && index <= UpperBound(); }

  /// The element at a 1-based index; an index outside the array reads as an empty element.
  const T& operator[](int index) const noexcept {
    return Holds(index) ? storage_->elements[static_cast<std::size_t>(index) - 1] : kAbsent.Element;
  }
  /// The element for writing; the index must be inside the array.
  T& Edit(int index) {
    assert(Holds(index));
    return Changed().elements[static_cast<std::size_t>(index) - 1];
  }
  /// The same for a change that leaves the element's marks as they are.
  T& EditAlike(int index) {
    assert(Holds(index));
    return Own().elements[static_cast<std::size_t>(index) - 1];
  }
  /// Adds an element at the end and returns its index.
  int Append(T element) {
    Changed().elements.push_back(std::move(element));
    return UpperBound();
  }
  /// Makes the array exactly count long; kept elements keep their content, new ones are fresh.
  void Resize(int count) {
    if (count != UpperBound()) Changed().elements.resize(static_cast<std::size_t>(count));
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
  const T* begin() const noexcept {
    return storage_ != nullptr ? storage_->elements.data() : nullptr;
  }
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

  struct Storage {
    std::uint32_t references = 1;
    std::vector<T> elements;
    std::uint64_t marks = 0;  ///< 0 while they are not known
  };

  void Release() noexcept {
    if (storage_ != nullptr && --storage_->references == 0) delete storage_;
    storage_ = nullptr;
  }
  Storage& Own() {
    if (storage_ == nullptr) {
      storage_ = new Storage;
    } else if (storage_->references > 1) {
      auto* own = new Storage{1, storage_->elements, storage_->marks};
      --storage_->references;
      storage_ = own;
    }
    return *storage_;
  }
  Storage& Changed() {
    Storage& own = Own();
    own.marks = 0;
    return own;
  }

  Storage* storage_ = nullptr;
};

}  // namespace brindlemoor
