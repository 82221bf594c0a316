// A trait of the plain engine: its text and nothing else.
#pragma once

#include <concepts>
#include <cstdint>
#include <string_view>

#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

/// No key tells names apart.
constexpr std::uint32_t TraitKey(std::string_view) noexcept { return 0; }
/// Nor are they spread or marked.
constexpr std::uint32_t SpreadOfKey(std::uint32_t, std::uint32_t) noexcept { return 0; }
constexpr std::uint64_t TraitMark(std::uint32_t) noexcept { return 1; }

/// The engine's TraitName without a key.
class TraitName {
 public:
  template <class Name>
  requires(std::convertible_to<const Name&, std::string_view>) TraitName(const Name& name)
  noexcept : text_(name) {}  // NOLINT: converts

  std::string_view View() const noexcept { return text_; }
  std::uint32_t Key() const noexcept { return 0; }

 private:
  std::string_view text_;
};

/// The engine's TraitItem without anything worked out.
class TraitItem {
 public:
  TraitItem() noexcept = default;
  TraitItem(Text text) : text_(text) {}  // NOLINT: meant to convert
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

  bool IsWholeNumber() const noexcept { return false; }
  bool IsBonus() const noexcept { return FoldPrefixLength(Name(), "BONUS") > 0; }
  std::string_view Name() const noexcept;
  std::string_view Value() const noexcept;
  double Number() const;

 private:
  Text text_;
};

}  // namespace brindlemoor
