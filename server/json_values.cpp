// Looking values up, and reading with a bound on the depth.
#include "server/json_values.h"

#include <algorithm>

namespace brindlemoor {

std::optional<Json> ParsedJson(std::string_view text) {
  constexpr int kMostDepth = 64;
  bool isTooDeep = false;
  const auto keep = [&isTooDeep](int depth, Json::parse_event_t, Json&) {
    isTooDeep = isTooDeep || depth > kMostDepth;
    return !isTooDeep;
  };
  Json value = Json::parse(text, keep, false);
  if (isTooDeep || value.is_discarded()) return std::nullopt;
  return value;
}

std::string JsonLine(const Json& value) {
  return value.dump(-1, ' ', false, Json::error_handler_t::replace);
}

const Json* ValueIn(const Json& value, std::initializer_list<const char*> names) {
  const Json* found = &value;
  for (const char* name : names) {
    if (!found->is_object()) return nullptr;
    const auto entry = found->find(name);
    if (entry == found->end()) return nullptr;
    found = &*entry;
  }
  return found;
}

std::optional<std::string> TextIn(const Json& value, std::initializer_list<const char*> names) {
  const Json* found = ValueIn(value, names);
  if (found == nullptr || !found->is_string()) return std::nullopt;
  return found->get<std::string>();
}

std::optional<std::size_t> SizeIn(const Json& value, std::initializer_list<const char*> names) {
  const Json* found = ValueIn(value, names);
  if (found == nullptr || !found->is_number_unsigned()) return std::nullopt;
  return found->get<std::size_t>();
}

bool FlagIn(const Json& value, std::initializer_list<const char*> names) {
  const Json* found = ValueIn(value, names);
  return found != nullptr && found->is_boolean() && found->get<bool>();
}

bool ListHolds(const Json* list, std::string_view text) {
  return list != nullptr && list->is_array() &&
         std::ranges::any_of(*list, [text](const Json& item) {
           return item.is_string() && item.get_ref<const std::string&>() == text;
         });
}

}  // namespace brindlemoor
