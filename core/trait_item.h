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
  std::string_view View() const noexcept { return text_; }
  const Text& AsText() const noexcept { return text_; }
  operator const Text&() const noexcept { return text_; }       // NOLINT: meant to convert
  operator std::string_view() const noexcept { return text_; }  // NOLINT: meant to convert
  bool operator==(const TraitItem& other) const noexcept { return text_ == other.text_; }
  template <class Written>
  requires(std::convertible_to<const Written&, std::string_view> &&
           !std::same_as<Written, TraitItem>) bool
  operator==(const Written& text) const noexcept {
    return text_ == std::string_view(text);
  }

  /// Up to the first ":".
  std::string_view Name() const noexcept { return View().substr(0, nameSize_); }
  /// The field behind the name.
  std::string_view Value() const noexcept;
  /// What the value reads as; 1 without a value.
  double Number() const noexcept { return number_; }

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
  bool IsWritten(std::string_view name, std::string_view value) const noexcept;

 private:
  /// For names with the same key: mostly they have the same size and are alike.
  static bool FoldsLike(std::string_view a, std::string_view b) noexcept {
    if (a.size() != b.size()) return FoldEquals(a, b);
    for (std::size_t index = 0; index < a.size(); ++index) {
      if (AsciiUpper(a[index]) != AsciiUpper(b[index])) return FoldEquals(a, b);
    }
    return true;
  }
  void TakeApart(std::size_t nameSize, std::uint32_t key);

  Text text_;
  double number_ = 1;
  std::uint32_t nameSize_ = 0;
  std::uint32_t key_ = kEmptyTraitKey;
  std::uint32_t bonusKey_ = kNoTraitKey;
  std::uint32_t bonusSize_ = 0;  ///< bytes of the prefix "BONUS", 0 for an ordinary trait
};

}  // namespace brindlemoor
