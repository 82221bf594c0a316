// Text for the plain engine: every copy has characters of its own.
#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "text/joined.h"

namespace brindlemoor {

/// The engine's Text without sharing.
class Text {
 public:
  Text() noexcept = default;
  Text(const char* text) : characters_(text) {}         // NOLINT: meant to convert
  Text(const std::string& text) : characters_(text) {}  // NOLINT: meant to convert
  Text(std::string_view text) : characters_(text) {}    // NOLINT: meant to convert

  bool empty() const noexcept { return characters_.empty(); }
  std::size_t size() const noexcept { return characters_.size(); }
  std::string_view View() const noexcept { return characters_; }
  std::string Str() const { return characters_; }
  operator std::string_view() const noexcept { return characters_; }  // NOLINT: meant to convert

  friend bool operator==(const Text& a, const Text& b) noexcept {
    return a.characters_ == b.characters_;
  }
  template <class Other>
  requires(std::convertible_to<const Other&, std::string_view> &&
           !std::same_as<Other, Text>) friend bool
  operator==(const Text& a, const Other& b) noexcept {
    return a.View() == std::string_view(b);
  }

 private:
  std::string characters_;
};

}  // namespace brindlemoor
