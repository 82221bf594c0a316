// RecordFields: the fields of a record as a table, for whoever writes or reads all of them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <tuple>
#include <type_traits>

#include "core/table.h"

namespace brindlemoor {

/// The most elements of a list that is read.
inline constexpr std::int64_t kMostElements = 1'000'000;

template <class Type>
constexpr std::int64_t LeastOf() {
  if constexpr (std::is_integral_v<Type> && std::is_signed_v<Type>) {
    return std::numeric_limits<Type>::min();
  }
  return 0;
}

template <class Type>
constexpr std::int64_t MostOf() {
  if constexpr (std::is_integral_v<Type>) {
    if constexpr (sizeof(Type) < sizeof(std::int64_t)) return std::numeric_limits<Type>::max();
    return std::numeric_limits<std::int64_t>::max();
  }
  return kMostElements;
}

/// One field of a record. The bounds are those of its number, or of the count of its elements;
/// texts have none.
template <class Record, class Type>
struct Field {
  Type Record::*Member;
  std::int64_t Least = LeastOf<Type>();
  std::int64_t Most = MostOf<Type>();
  int Since = 1;  ///< the version of files that has it first; for a reader of earlier ones it stays
};
template <class Record, class Type, class... Bounds>
Field(Type Record::*, Bounds...) -> Field<Record, Type>;

/// The fields of a record, in the order in which they are written: a tuple of Field. Each kind of
/// record gives its own.
template <class Record>
inline constexpr std::tuple<> kFieldsOf{};

template <class Record>
inline constexpr bool kHasFields =
    std::tuple_size_v<std::remove_cvref_t<decltype(kFieldsOf<Record>)>> > 0;

/// A list that keeps its length.
template <class List>
inline constexpr bool kHasFixedLength = false;
template <class Element, std::size_t Count>
inline constexpr bool kHasFixedLength<std::array<Element, Count>> = true;
template <class Element, int Count>
inline constexpr bool kHasFixedLength<FixedTable<Element, Count>> = true;

namespace member_count {

struct Anything {
  template <class Type>
  operator Type() const;
};

template <class Record, class... Members>
constexpr std::size_t Count() {
  if constexpr (requires { Record{Members{}..., Anything{}}; }) {
    return Count<Record, Members..., Anything>();
  } else {
    return sizeof...(Members);
  }
}

}  // namespace member_count

/// How many members a record has, so that a table can be held to name all of them. One that it
/// inherits from counts as one.
template <class Record>
inline constexpr std::size_t kMembersOf = member_count::Count<Record>();

}  // namespace brindlemoor
