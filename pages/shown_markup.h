// The markup that pages show: tags, and the attributes of each.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace brindlemoor {

/// What the value of an attribute must be.
enum class AttributeValue : std::uint8_t {
  kAny,
  kPicture,  ///< the address of a picture file: no network, no data
  kCommand,  ///< a link as the program composes it, such as CARD123
};

struct ShownAttribute {
  std::string_view Name;  ///< in lower case
  AttributeValue Value = AttributeValue::kAny;
};

struct ShownTag {
  std::string_view Name;     ///< in lower case
  std::uint32_t Attributes;  ///< bits by the place in ShownAttributes()
  bool NeedsThem = false;    ///< without them the tag is nothing
};

/// Both in the order of their names. Whatever stands in neither is not shown.
std::span<const ShownTag> ShownTags();
std::span<const ShownAttribute> ShownAttributes();

/// The rows of a name in any case, nullptr for one that is not shown.
const ShownTag* FindShownTag(std::string_view name);
const ShownAttribute* FindShownAttribute(std::string_view name);

/// True when the tag may have the attribute.
bool HasAttribute(const ShownTag& tag, const ShownAttribute& attribute);
/// True when it may have it and the value is what it must be.
bool Shows(const ShownTag& tag, const ShownAttribute& attribute, std::string_view value);

/// Tags whose content is nothing to read: it goes with them.
inline constexpr std::array<std::string_view, 11> kSilentTags = {
    "iframe", "noembed", "noframes", "noscript", "script", "select",
    "style",  "svg",     "template", "textarea", "title"};

}  // namespace brindlemoor
