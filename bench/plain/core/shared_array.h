// SharedArray for the plain engine: every copy has elements of its own.
#pragma once

#include <cassert>
#include <cstdint>
#include <utility>
#include <vector>

namespace brindlemoor {

/// The engine's 1-based array without sharing.
template <class T>
class SharedArray {
 public:
  SharedArray() = default;
  explicit SharedArray(int count) { Resize(count); }

  int UpperBound() const noexcept { return static_cast<int>(elements_.size()); }
  bool Holds(int index) const noexcept { return index >= 1 && index <= UpperBound(); }
  const T& operator[](int index) const noexcept {
    static const T empty{};
    return Holds(index) ? elements_[static_cast<std::size_t>(index) - 1] : empty;
  }
  T& Edit(int index) {
    assert(Holds(index));
    return elements_[static_cast<std::size_t>(index) - 1];
  }
  T& EditAlike(int index) { return Edit(index); }
  int Append(T element) {
    elements_.push_back(std::move(element));
    return UpperBound();
  }
  void Resize(int count) { elements_.resize(static_cast<std::size_t>(count)); }
  void Reset(int count) { *this = SharedArray(count); }

  /// Nothing is kept, so that every mark may be there.
  template <class MarksOf>
  std::uint64_t Marks(MarksOf) const {
    return ~std::uint64_t{0};
  }

  const T* begin() const noexcept { return elements_.data(); }
  const T* end() const noexcept { return elements_.data() + elements_.size(); }

 private:
  std::vector<T> elements_;
};

}  // namespace brindlemoor
