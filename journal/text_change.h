// What differs between two versions of a text.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

/// A later version of a text: so many bytes of the front and of the back of the earlier one with
/// something else between.
struct TextChange {
  std::size_t Front = 0;
  std::size_t Back = 0;
  std::string Middle;
};

TextChange ChangeBetween(std::string_view before, std::string_view after);
/// The later version; nothing where the change belongs to another text.
std::optional<std::string> Changed(std::string_view before, const TextChange& change);

/// Says where two different texts part, with a piece of each, in three lines.
std::string TextDifference(std::string_view journal, std::string_view replay);

}  // namespace brindlemoor
