// Table and FixedTable: the 1-based arrays that hold the session's state.
#pragma once

#include <array>
#include <cassert>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace brindlemoor {

/// A 1-based array that grows; its elements keep their address while it does, so that a running
/// script may hold a reference into the table while a card enters it. Copies copy every element;
/// assignment writes element by element into the storage that is there.
template <class T>
class Table {
 public:
  Table() = default;
  explicit Table(int count) { Resize(count); }
  Table(const Table& other) { Assign(other); }
  Table(Table&& other) noexcept
      : chunks_(std::move(other.chunks_)), count_(std::exchange(other.count_, 0)) {}
  Table& operator=(const Table& other) {
    if (this != &other) Assign(other);
    return *this;
  }
  Table& operator=(Table&& other) noexcept {
    if (this != &other) {
      chunks_ = std::move(other.chunks_);
      count_ = std::exchange(other.count_, 0);
    }
    return *this;
  }
  ~Table() = default;

  /// Index of the last element, 0 for an empty table.
  int UpperBound() const noexcept { return count_; }
  bool Holds(int index) const noexcept { return index >= 1 && index <= count_; }

  /// The element at a 1-based index, which must be inside the table.
  T& operator[](int index) noexcept {
    assert(Holds(index));
    return chunks_[static_cast<std::size_t>(index - 1) / kChunk]
                  [static_cast<std::size_t>(index - 1) % kChunk];
  }
  const T& operator[](int index) const noexcept {
    return const_cast<Table&>(*this)[index];  // NOLINT: one body for both
  }

  /// The index of an element by its address, 0 for one that lies elsewhere.
  int IndexOf(const T& element) const noexcept {
    for (std::size_t chunk = 0; chunk < chunks_.size(); ++chunk) {
      const T* first = chunks_[chunk].get();
      if (std::less<>()(&element, first) || !std::less<>()(&element, first + kChunk)) continue;
      const auto index = static_cast<int>(chunk * kChunk) + static_cast<int>(&element - first) + 1;
      return Holds(index) ? index : 0;
    }
    return 0;
  }

  /// Adds an element at the end and returns its index.
  int Append(T element) {
    Resize(count_ + 1);
    (*this)[count_] = std::move(element);
    return count_;
  }
  /// Makes the table exactly count long; kept elements keep content and address.
  void Resize(int count) {
    while (static_cast<std::size_t>(count) > chunks_.size() * kChunk) {
      chunks_.push_back(std::make_unique<T[]>(kChunk));
    }
    for (int index = count + 1; index <= count_; ++index) (*this)[index] = T{};
    count_ = count;
  }
  /// Makes the table count long and every element fresh.
  void Reset(int count) {
    Resize(0);
    Resize(count);
  }

  template <class Element, class Owner>
  struct Iterator {
    Owner* owner;
    int index;
    Element& operator*() const { return (*owner)[index]; }
    Iterator& operator++() {
      ++index;
      return *this;
    }
    bool operator==(const Iterator& other) const { return index == other.index; }
  };
  auto begin() { return Iterator<T, Table>{this, 1}; }
  auto end() { return Iterator<T, Table>{this, count_ + 1}; }
  auto begin() const { return Iterator<const T, const Table>{this, 1}; }
  auto end() const { return Iterator<const T, const Table>{this, count_ + 1}; }

 private:
  static constexpr std::size_t kChunk = 16;

  void Assign(const Table& other) {
    Resize(other.count_);
    for (int index = 1; index <= count_; ++index) (*this)[index] = other[index];
  }

  std::vector<std::unique_ptr<T[]>> chunks_;
  int count_ = 0;
};

/// A 1-based array of fixed length.
template <class T, int N>
class FixedTable {
 public:
  static constexpr int UpperBound() { return N; }
  static constexpr bool Holds(int index) { return index >= 1 && index <= N; }
  T& operator[](int index) noexcept {
    assert(Holds(index));
    return elements_[static_cast<std::size_t>(index) - 1];
  }
  const T& operator[](int index) const noexcept {
    assert(Holds(index));
    return elements_[static_cast<std::size_t>(index) - 1];
  }
  auto begin() { return elements_.begin(); }
  auto end() { return elements_.end(); }
  auto begin() const { return elements_.begin(); }
  auto end() const { return elements_.end(); }
  bool operator==(const FixedTable&) const = default;

 private:
  std::array<T, static_cast<std::size_t>(N)> elements_{};
};

}  // namespace brindlemoor
