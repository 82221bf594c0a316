// RecordWriter: records as bytes, by the tables of their fields.
#pragma once

#include <bit>
#include <cmath>
#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "core/records.h"
#include "saving/record_fields.h"

namespace brindlemoor {

/// What stands for the program's folder before a path, and before itself.
inline constexpr char kFolderMark = '\x01';

/// Puts records one behind the other. A text is written once; records hold its number. Paths below
/// the folder are written without it. What is written must stay as it is until Bytes.
class RecordWriter {
 public:
  explicit RecordWriter(std::string_view folder) : folder_(folder) {}

  template <class Type>
  void Put(const Type& value) {
    if constexpr (std::is_floating_point_v<Type>) {
      // A number that is none reads as 0 wherever it is used.
      PutNumber(std::bit_cast<std::int64_t>(std::isfinite(value) ? value : 0.0));
    } else if constexpr (std::is_arithmetic_v<Type> || std::is_enum_v<Type>) {
      PutNumber(static_cast<std::int64_t>(value));
    } else if constexpr (std::convertible_to<const Type&, std::string_view>) {
      PutText(value);
    } else if constexpr (kHasFields<Type>) {
      PutFields(value, kFieldsOf<Type>);
    } else {
      PutList(value);
    }
  }
  template <class Record, class Fields>
  void PutFields(const Record& record, const Fields& fields) {
    std::apply([&](const auto&... field) { (Put(record.*field.Member), ...); }, fields);
  }

  /// The texts, and behind them the records.
  std::string Bytes() const;

 private:
  template <class List>
  void PutList(const List& list) {
    if constexpr (!kHasFixedLength<List>) PutCount(CountOf(list));
    for (const auto& element : list) Put(element);
  }
  template <class Record>
  void PutList(const std::shared_ptr<Record>& record) {
    Put(record != nullptr);
    if (record != nullptr) Put(*record);
  }
  /// Most words are 0: a byte tells which are not.
  void PutList(const TraitWords& words);

  template <class List>
  static std::size_t CountOf(const List& list) {
    if constexpr (requires { list.size(); }) {
      return list.size();
    } else {
      return static_cast<std::size_t>(list.UpperBound());
    }
  }

  void PutNumber(std::int64_t number);
  void PutCount(std::size_t count);
  void PutText(std::string_view text);

  std::string_view folder_;
  std::unordered_map<std::string_view, std::size_t> numbers_;
  std::vector<std::string_view> texts_;
  std::string records_;
};

}  // namespace brindlemoor
