// Reading JSON of strangers: what is not there, or is something else, is nothing.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

namespace brindlemoor {

using Json = nlohmann::json;

/// Reads a text. Nothing for what is no JSON, or is nested deeper than any message needs.
std::optional<Json> ParsedJson(std::string_view text);
/// As one line. Bytes that are no UTF-8 become U+FFFD.
std::string JsonLine(const Json& value);

/// The value below these names, one in the other; nullptr where there is none.
const Json* ValueIn(const Json& value, std::initializer_list<const char*> names);
std::optional<std::string> TextIn(const Json& value, std::initializer_list<const char*> names);
/// A whole number from 0.
std::optional<std::size_t> SizeIn(const Json& value, std::initializer_list<const char*> names);
/// False where there is none as well.
bool FlagIn(const Json& value, std::initializer_list<const char*> names);
/// True for a list that holds the text.
bool ListHolds(const Json* list, std::string_view text);

}  // namespace brindlemoor
