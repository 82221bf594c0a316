// Quoting of fields.
#include "data/field_text.h"

#include <algorithm>
#include <array>

#include "text/text.h"

namespace brindlemoor {

namespace {

bool NeedsQuotes(std::string_view text) {
  if (text.empty()) return false;
  const char first = text.front();
  return first == ' ' || first == '\t' || first == '"' ||
         text.find_first_of(",\r\n") != std::string_view::npos;
}

std::string EscapedQuotes(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (const char character : text) {
    if (character == '"') {
      out += "&quot";
    } else {
      out += character;
    }
  }
  return out;
}

struct EscapeRow {
  char Character;
  std::string_view Written;
};
// No row's text begins another's.
constexpr std::array<EscapeRow, 5> kEscapes = {
    {{'&', "&amp"}, {'"', "&quot"}, {'#', "&num"}, {'\r', "&cr"}, {'\n', "&lf"}}};

}  // namespace

std::string FreeTextField(std::string_view text) {
  std::string out = "\"";
  for (const char character : text) {
    const auto row = std::ranges::find(kEscapes, character, &EscapeRow::Character);
    if (row == kEscapes.end()) {
      out += character;
    } else {
      out += row->Written;
    }
  }
  return out + '"';
}

std::string FreeTextOf(std::string_view field) {
  std::string out;
  while (!field.empty()) {
    const auto row = std::ranges::find_if(
        kEscapes, [field](const EscapeRow& escape) { return field.starts_with(escape.Written); });
    const bool isEscape = row != kEscapes.end();
    out += isEscape ? row->Character : field.front();
    field.remove_prefix(isEscape ? row->Written.size() : 1);
  }
  return out;
}

std::string QuotedField(std::string_view text) { return Joined('"', EscapedQuotes(text), '"'); }

std::string PlainField(std::string_view text) {
  if (!NeedsQuotes(text)) return std::string(text);
  std::string escaped = EscapedQuotes(text);
  return NeedsQuotes(escaped) ? Joined('"', escaped, '"') : escaped;
}

std::string NameAsRead(std::string_view name) {
  return NeedsQuotes(name) ? EscapedQuotes(name) : std::string(name);
}

std::string NameField(std::string_view name) {
  const std::string text = NameAsRead(name);
  return text.find('"') == std::string::npos ? Joined('"', text, '"') : text;
}

}  // namespace brindlemoor
