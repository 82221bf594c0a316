// RecordReader: records out of bytes, by the tables of their fields, each number within its bounds.
#pragma once

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <vector>

#include "core/records.h"
#include "saving/record_fields.h"
#include "text/text.h"

namespace brindlemoor {

/// Reads what RecordWriter wrote. Bytes that are anything else make it fail, for good: what it
/// reads is then of no use, but it never reads outside of the bytes, nor takes more memory than
/// records of so many bytes can.
class RecordReader {
 public:
  /// Reads the texts, paths as they lie below a folder; bytes must stay. The version is that of the
  /// file (Field::Since).
  RecordReader(std::string_view bytes, std::string_view folder, int version);

  bool Failed() const { return failed_; }
  /// True when everything has been read.
  bool IsAtEnd() const { return !failed_ && bytes_.empty(); }

  template <class Type>
  void Take(Type& value, std::int64_t least = LeastOf<Type>(), std::int64_t most = MostOf<Type>()) {
    if (failed_) return;
    if constexpr (std::is_floating_point_v<Type>) {
      value = std::bit_cast<double>(TakeNumber());
      if (!std::isfinite(value)) failed_ = true;
    } else if constexpr (std::is_arithmetic_v<Type> || std::is_enum_v<Type>) {
      TakeWithin(value, least, most);
    } else if constexpr (std::same_as<Type, std::string>) {
      value = TakeText().View();
    } else if constexpr (kHasFields<Type>) {
      TakeFields(value, kFieldsOf<Type>);
    } else if constexpr (std::constructible_from<Type, const Text&>) {
      value = Type(TakeText());
    } else if constexpr (kHasFixedLength<Type>) {
      for (auto& element : value) Take(element);
    } else {
      TakeList(value, most);
    }
  }
  template <class Record, class Fields>
  void TakeFields(Record& record, const Fields& fields) {
    std::apply([&](const auto&... field) { (TakeField(record.*field.Member, field), ...); },
               fields);
  }

 private:
  template <class Type, class Field>
  void TakeField(Type& value, const Field& field) {
    if (field.Since <= version_) Take(value, field.Least, field.Most);
  }
  template <class Number>
  void TakeWithin(Number& value, std::int64_t least, std::int64_t most) {
    const std::int64_t number = TakeNumber();
    // A number of 64 bits has no bounds, and may be one without a sign.
    if (sizeof(Number) < sizeof number && (number < least || number > most)) {
      failed_ = true;
    } else {
      value = static_cast<Number>(number);
    }
  }
  /// A Table, SharedArray or vector. It grows with what is read: a count may be a lie.
  template <class List>
  void TakeList(List& list, std::int64_t most) {
    list = List();
    for (std::size_t left = TakeCount(most); left > 0 && !failed_; --left) {
      std::remove_cvref_t<decltype(*list.begin())> element{};
      Take(element);
      if constexpr (requires { list.push_back(element); }) {
        list.push_back(std::move(element));
      } else {
        list.Append(std::move(element));
      }
    }
  }
  template <class Element, class Order>
  void TakeList(std::set<Element, Order>& elements, std::int64_t most) {
    for (std::size_t left = TakeCount(most); left > 0 && !failed_; --left) {
      Element element{};
      Take(element);
      elements.insert(elements.end(), std::move(element));
    }
  }
  template <class Record>
  void TakeList(std::shared_ptr<Record>& record, std::int64_t /*most*/) {
    bool isThere = false;
    Take(isThere, 0, 1);
    if (!isThere) return;
    record = std::make_shared<Record>();
    Take(*record);
  }
  void TakeList(TraitWords& words, std::int64_t most);

  std::uint64_t TakeBits();
  std::int64_t TakeNumber();
  /// The elements of a list; each of them takes a byte at least.
  std::size_t TakeCount(std::int64_t most);
  Text TakeText();

  std::string_view bytes_;
  int version_;
  bool failed_ = false;
  std::vector<Text> texts_;
};

}  // namespace brindlemoor
