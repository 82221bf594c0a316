// A trait as a card keeps it, and a trait's name as a card is searched for it: both with a short
// key, so that most items are passed over by comparing two numbers.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "core/fold.h"
#include "core/text.h"

namespace brindlemoor {

/// What two trait names that fold alike have in common: their size and their first letters. Names
/// with the same key may still differ. A name that is not all ASCII has the key 0, which says
/// nothing. One with a ":" has a key of its own, since no item has such a name.
constexpr std::uint32_t TraitKey(std::string_view name) noexcept {
  constexpr std::size_t kLetters = 3;
  constexpr unsigned kCaseBit = 0x20;
  std::uint32_t key = static_cast<std::uint8_t>(name.size()) | 0x80U;
  unsigned everyByte = 0;
  bool wholeName = true;
  for (std::size_t index = 0; index < name.size(); ++index) {
    const unsigned byte = static_cast<unsigned char>(name[index]);
    everyByte |= byte;
    wholeName = wholeName && name[index] != ':';
    if (index < kLetters) key |= (byte & ~kCaseBit) << (8 * (index + 1));
  }
  if (everyByte >= 0x80) return 0;
  return wholeName ? key : 0xFFFFFFFF;
}

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
  bool HasName(const TraitName& name) const noexcept { return FoldsLike(key_, name, Name()); }
  /// True when the item is a bonus for the trait of this name: "BONUS" and the name.
  bool IsBonusFor(const TraitName& name) const noexcept {
    return bonusSize_ != 0 && FoldsLike(bonusKey_, name, Name().substr(bonusSize_));
  }

 private:
  static bool FoldsLike(std::uint32_t key, const TraitName& name, std::string_view own) noexcept {
    if (key != 0 && name.Key() != 0) return key == name.Key() && AsciiFoldsLike(own, name.View());
    return FoldEquals(own, name.View());
  }
  /// For names of nothing but ASCII.
  static bool AsciiFoldsLike(std::string_view a, std::string_view b) noexcept {
    if (a.size() != b.size()) return false;
    for (std::size_t index = 0; index < a.size(); ++index) {
      if (AsciiUpper(a[index]) != AsciiUpper(b[index])) return false;
    }
    return true;
  }

  Text text_;
  double number_ = 1;
  std::uint32_t nameSize_ = 0;
  std::uint32_t key_ = TraitKey("");
  std::uint32_t bonusKey_ = 0;
  std::uint32_t bonusSize_ = 0;  ///< bytes of the prefix "BONUS", 0 for an ordinary trait
};

}  // namespace brindlemoor
