// A trait as a card keeps it, and a trait's name as a card is searched for it: both with a short
// key, so that most items are passed over by comparing two numbers.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

/// The key of texts with a ":", which no item has as its name.
constexpr std::uint32_t kNoTraitKey = 0;
/// The key of the empty name, which free items have.
constexpr std::uint32_t kEmptyTraitKey = 0x80;

/// What two trait names that fold alike have in common: the size and the first letters of what
/// they fold to. Names with the same key may still differ.
std::uint32_t TraitKey(std::string_view name) noexcept;

/// A number below a bound of at most 65,536, spread over the keys of names.
constexpr std::uint32_t SpreadOfKey(std::uint32_t key, std::uint32_t bound) noexcept {
  constexpr std::uint32_t kSpread = 0x9E3779B1;
  return (((key * kSpread) >> 16) * bound) >> 16;  // a product instead of a remainder
}

/// The mark of names with a key among the marks of a card's traits (SharedArray::Marks).
constexpr std::uint64_t TraitMark(std::uint32_t key) noexcept {
  constexpr std::uint32_t kMarks = 62;
  return std::uint64_t{1} << SpreadOfKey(key, kMarks);
}

/// The mark of a card with a bonus for any trait.
inline constexpr std::uint64_t kBonusMark = std::uint64_t{1} << 62;

/// The name of a trait that is looked for.
class TraitName {
 public:
  template <class Name>
  requires(std::convertible_to<const Name&, std::string_view>) TraitName(const Name& name)
  noexcept
      : TraitName(std::string_view(name), TraitKey(std::string_view(name))) {}  // NOLINT: converts
  TraitName(std::string_view text, std::uint32_t key) noexcept : text_(text), key_(key) {}

  std::string_view View() const noexcept { return text_; }
  std::uint32_t Key() const noexcept { return key_; }

 private:
  std::string_view text_;
  std::uint32_t key_;
};

/// One item of a card's traits: "NAME:VALUE", "NAME", or "" for a free item.
class TraitItem {
 public:
  TraitItem() noexcept = default;
  /// "NAME:VALUE", or the name alone for the empty value.
  TraitItem(const TraitName& name, std::string_view value);
  TraitItem(Text text);  // NOLINT: meant to convert
  template <class Written>
  requires(std::convertible_to<const Written&, std::string_view>)
      TraitItem(const Written& text)  // NOLINT: meant to convert
      : TraitItem(Text(text)) {}

  bool empty() const noexcept { return text_.empty(); }
  const Text& AsText() const {
    if (waits_ != 0) MakeText();
    return text_;
  }
  std::string_view View() const { return AsText(); }
  operator const Text&() const { return AsText(); }       // NOLINT: meant to convert
  operator std::string_view() const { return AsText(); }  // NOLINT: meant to convert
  bool operator==(const TraitItem& other) const { return AsText() == other.AsText(); }
  template <class Written>
  requires(std::convertible_to<const Written&, std::string_view> &&
           !std::same_as<Written, TraitItem>) bool
  operator==(const Written& text) const {
    return AsText() == std::string_view(text);
  }

  /// Up to the first ":". Valid until somebody asks for the item's text or value.
  std::string_view Name() const noexcept { return text_.View().substr(0, nameSize_); }
  /// The field behind the name.
  std::string_view Value() const;
  /// What the value reads as; 1 without a value.
  double Number() const noexcept { return number_; }

  /// The marks of its name and of the trait that it raises.
  std::uint64_t Marks() const noexcept {
    return TraitMark(key_) | (IsBonus() ? TraitMark(bonusKey_) | kBonusMark : 0);
  }
  /// True when the name folds like this one.
  bool HasName(const TraitName& name) const noexcept {
    return key_ == name.Key() && FoldsLike(Name(), name.View());
  }
  /// True when the item is a bonus for another trait.
  bool IsBonus() const noexcept { return bonusSize_ != 0; }
  /// True when the item is a bonus for the trait of this name: "BONUS" and the name.
  bool IsBonusFor(const TraitName& name) const noexcept {
    return bonusKey_ == name.Key() && bonusSize_ != 0 &&
           FoldsLike(Name().substr(bonusSize_), name.View());
  }
  /// True when the item reads "NAME:VALUE"; for the empty value also without the ":".
  bool IsWritten(std::string_view name, std::string_view value) const;

  /// True for a number that the item can have for its value without its text: a whole one.
  static bool IsWhole(double number) noexcept;
  /// The item with a whole number for its value; its text is made when somebody asks for it, since
  /// most changes of traits are tried out and never read as a text.
  TraitItem WithWhole(double number) const;
  /// True when the value is a whole number whose text nobody has asked for.
  bool IsWholeNumber() const noexcept { return waits_ != 0; }

 private:
  /// For names with the same key: mostly they have the same size and are alike.
  static bool FoldsLike(std::string_view a, std::string_view b) noexcept {
    if (a == b) return true;
    if (a.size() != b.size()) return FoldEquals(a, b);
    for (std::size_t index = 0; index < a.size(); ++index) {
      if (AsciiUpper(a[index]) != AsciiUpper(b[index])) return FoldEquals(a, b);
    }
    return true;
  }
  void TakeApart(std::size_t nameSize, std::uint32_t key);
  void MakeText() const;

  mutable Text text_;  ///< the name alone while the value's text waits
  double number_ = 1;
  std::uint32_t nameSize_ : 31 = 0;
  mutable std::uint32_t waits_ : 1 = 0;
  std::uint32_t key_ = kEmptyTraitKey;
  std::uint32_t bonusKey_ = kNoTraitKey;
  std::uint32_t bonusSize_ = 0;  ///< bytes of the prefix "BONUS", 0 for an ordinary trait
};

}  // namespace brindlemoor
