// The list of the markup that pages show.
#include "pages/shown_markup.h"

#include <algorithm>

#include "text/addresses.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr auto kAttributes = std::to_array<ShownAttribute>({
    {"align"},
    {"alt"},
    {"bgcolor"},
    {"border"},
    {"bordercolor"},
    {"cellpadding"},
    {"cellspacing"},
    {"clear"},
    {"color"},
    {"colspan"},
    {"face"},
    {"height"},
    {"href", AttributeValue::kCommand},
    {"hspace"},
    {"noshade"},
    {"nowrap"},
    {"rowspan"},
    {"size"},
    {"src", AttributeValue::kPicture},
    {"start"},
    {"type"},
    {"valign"},
    {"value"},
    {"vspace"},
    {"width"},
});
static_assert(std::ranges::is_sorted(kAttributes, {}, &ShownAttribute::Name));

/// The bits of attributes, by their names with a blank between them.
consteval std::uint32_t With(std::string_view names) {
  std::uint32_t bits = 0;
  while (!names.empty()) {
    const std::string_view name = names.substr(0, names.find(' '));
    const auto* row = std::ranges::find(kAttributes, name, &ShownAttribute::Name);
    bits |= 1U << (row - kAttributes.begin());
    if (row == kAttributes.end()) throw "no such attribute";
    names.remove_prefix(std::min(names.size(), name.size() + 1));
  }
  return bits;
}

constexpr std::uint32_t kPlain = 0;
constexpr std::uint32_t kBlock = With("align");
constexpr std::uint32_t kFont = With("color face size");
constexpr std::uint32_t kRows = With("align bgcolor valign");
constexpr std::uint32_t kCell =
    With("align bgcolor bordercolor colspan height nowrap rowspan valign width");
constexpr std::uint32_t kList = With("start type");

constexpr auto kTags = std::to_array<ShownTag>({
    {"a", With("href"), true},
    {"b", kPlain},
    {"big", kPlain},
    {"blockquote", kPlain},
    {"br", With("clear")},
    {"caption", With("align valign")},
    {"center", kPlain},
    {"cite", kPlain},
    {"code", kPlain},
    {"dd", kPlain},
    {"del", kPlain},
    {"div", kBlock},
    {"dl", kPlain},
    {"dt", kPlain},
    {"em", kPlain},
    {"font", kFont},
    {"h1", kBlock},
    {"h2", kBlock},
    {"h3", kBlock},
    {"h4", kBlock},
    {"h5", kBlock},
    {"h6", kBlock},
    {"hr", With("align color noshade size width")},
    {"i", kPlain},
    {"img", With("align alt border height hspace src vspace width"), true},
    {"ins", kPlain},
    {"kbd", kPlain},
    {"li", With("type value")},
    {"nobr", kPlain},
    {"ol", kList},
    {"p", kBlock},
    {"pre", kPlain},
    {"q", kPlain},
    {"s", kPlain},
    {"samp", kPlain},
    {"small", kPlain},
    {"span", kPlain},
    {"strike", kPlain},
    {"strong", kPlain},
    {"sub", kPlain},
    {"sup", kPlain},
    {"table", With("align bgcolor border bordercolor cellpadding cellspacing height width")},
    {"tbody", kRows},
    {"td", kCell},
    {"tfoot", kRows},
    {"th", kCell},
    {"thead", kRows},
    {"tr", With("align bgcolor bordercolor height valign")},
    {"tt", kPlain},
    {"u", kPlain},
    {"ul", kList},
    {"var", kPlain},
    {"wbr", kPlain},
});
static_assert(std::ranges::is_sorted(kTags, {}, &ShownTag::Name));

constexpr char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Where the rows of each first letter begin in a sorted table, and where those of "z" end.
template <class Rows>
constexpr auto FirstLetters(const Rows& rows) {
  std::array<std::uint8_t, 27> starts{};
  std::uint8_t row = 0;
  for (unsigned letter = 0; letter < starts.size(); ++letter) {
    while (row < rows.size() && static_cast<unsigned>(rows[row].Name[0] - 'a') < letter) ++row;
    starts[letter] = row;
  }
  return starts;
}
constexpr auto kTagLetters = FirstLetters(kTags);
constexpr auto kAttributeLetters = FirstLetters(kAttributes);

bool IsName(std::string_view name, std::string_view lower) {
  return name.size() == lower.size() && std::equal(name.begin(), name.end(), lower.begin(),
                                                   [](char a, char b) { return Lower(a) == b; });
}

/// Pages have hundreds of tags, so a name is only looked for where its first letter has its rows.
template <class Rows>
auto Find(const Rows& rows, const std::array<std::uint8_t, 27>& letters, std::string_view name)
    -> decltype(rows.data()) {
  const auto letter = static_cast<unsigned>(name.empty() ? 0 : Lower(name[0]) - 'a');
  if (name.empty() || letter >= 26) return nullptr;
  for (std::size_t row = letters[letter]; row < letters[letter + 1]; ++row) {
    if (IsName(name, rows[row].Name)) return &rows[row];
  }
  return nullptr;
}

/// An address without a scheme, or that of a file of this machine. A browser reads a backslash as a
/// slash, passes over blanks before the address, and resolves "&...;".
bool IsPicture(std::string_view address) {
  if (address.starts_with("//") || address.starts_with(' ')) return false;
  for (std::size_t at = 0; at < address.size(); ++at) {
    const char next = at + 1 < address.size() ? AsciiUpper(address[at + 1]) : ' ';
    const bool reference = address[at] == '&' && (next == '#' || (next >= 'A' && next <= 'Z'));
    if (reference || address[at] == '\\' || address[at] == '\t' || address[at] == '\n' ||
        address[at] == '\r') {
      return false;
    }
  }
  const std::size_t mark = address.find_first_of(":/?#");
  if (mark == std::string_view::npos || address[mark] != ':') return true;
  if (!address.starts_with(kFileScheme)) return false;
  address.remove_prefix(kFileScheme.size());
  return address.empty() || (address.starts_with('/') && !address.starts_with("//"));
}

/// Takes a whole number off a text; false when there is none.
bool TakeNumber(std::string_view& text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
  text.remove_prefix(end);
  return end > 0;
}

/// The forms that the views hand on as commands (see the link protocol).
bool IsCommand(std::string_view link) {
  if (link.starts_with("HELP:")) return true;
  if (link == "CARDRulesCard") return true;
  const bool twoNumbers = !link.starts_with("CARD");
  for (const std::string_view word : {"CARD", "MENUACTION:", "GAME:"}) {
    if (!link.starts_with(word)) continue;
    link.remove_prefix(word.size());
    if (!TakeNumber(link)) return false;
    if (!twoNumbers) return link.empty();
    if (!link.starts_with(':')) return false;
    link.remove_prefix(1);
    return TakeNumber(link) && link.empty();
  }
  return false;
}

}  // namespace

std::span<const ShownTag> ShownTags() { return kTags; }

std::span<const ShownAttribute> ShownAttributes() { return kAttributes; }

const ShownTag* FindShownTag(std::string_view name) { return Find(kTags, kTagLetters, name); }

const ShownAttribute* FindShownAttribute(std::string_view name) {
  return Find(kAttributes, kAttributeLetters, name);
}

bool HasAttribute(const ShownTag& tag, const ShownAttribute& attribute) {
  return (tag.Attributes >> (&attribute - kAttributes.data()) & 1U) != 0;
}

bool Shows(const ShownTag& tag, const ShownAttribute& attribute, std::string_view value) {
  if (!HasAttribute(tag, attribute)) return false;
  switch (attribute.Value) {
    case AttributeValue::kPicture:
      return IsPicture(value);
    case AttributeValue::kCommand:
      return IsCommand(value);
    case AttributeValue::kAny:
      break;
  }
  return true;
}

}  // namespace brindlemoor
