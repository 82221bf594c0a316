// Markup of pages: what a "<" begins, and pages with nothing but the markup that is shown.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "pages/shown_markup.h"

namespace brindlemoor {

enum class MarkupFate : std::uint8_t {
  kShown,    ///< a tag of the list, or a "<" that is text: it stays as it is
  kTrimmed,  ///< a tag of the list that loses attributes
  kHidden,   ///< it goes
  kEscaped,  ///< no tag, and nothing that a browser might not take for one: its "<" becomes "&lt;"
};

/// What a "<" begins.
struct Markup {
  MarkupFate Fate = MarkupFate::kEscaped;
  std::string_view Source{};     ///< from the "<" on; the "<" alone when it is escaped or text
  std::string_view Name{};       ///< of a tag that is whole, else ""
  std::string_view Attribute{};  ///< the first attribute that is not shown
  const ShownTag* Tag = nullptr;
  bool IsEnd = false;  ///< </NAME>
};

/// Reads what begins at the text's first character, which is a "<". The text goes on to the end of
/// its page.
Markup ReadMarkup(std::string_view text);

/// A page of which only text and the markup of the list is left (pages/shown_markup.h). What is
/// clean stays as it is, byte for byte; a second cleaning changes nothing. What a browser would
/// have to mend, or what it might read otherwise than ReadMarkup does, is not shown.
std::string CleanMarkup(std::string page);

/// A clean page with other values, in double quotes, for the attributes of a kind.
std::string WithValues(std::string_view page, AttributeValue kind,
                       const std::function<std::string(std::string_view value)>& other);

}  // namespace brindlemoor
