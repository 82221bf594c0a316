// KeySearch: whether a text holds the keys of custom strings.
#pragma once

#include <string_view>

namespace brindlemoor {

/// Looks for keys in one text, which must not change meanwhile. Keys mostly begin with the same
/// character, so what the text does not hold of it is known from the key before.
class KeySearch {
 public:
  explicit KeySearch(std::string_view text) noexcept : text_(text) {}

  /// True when the key stands somewhere in the text; the empty key stands nowhere.
  bool Finds(std::string_view key) noexcept {
    if (key.empty() || key.front() == absent_) return false;
    if (text_.find(key) != std::string_view::npos) return true;
    if (text_.find(key.front()) == std::string_view::npos) absent_ = key.front();
    return false;
  }

 private:
  std::string_view text_;
  char absent_ = '\0';  ///< a first character that the text does not hold
};

}  // namespace brindlemoor
