// Writing and reading positions.
#include "server/json_ranges.h"

namespace brindlemoor {

namespace {

Json PositionAsJson(const TextPosition& position) {
  return {{"line", position.Line}, {"character", position.Character}};
}

}  // namespace

std::optional<TextPosition> PositionIn(const Json& value, const char* name) {
  const auto line = SizeIn(value, {name, "line"});
  const auto character = SizeIn(value, {name, "character"});
  if (!line || !character) return std::nullopt;
  return TextPosition{*line, *character};
}

Json RangeOf(const TextPositions& positions, std::size_t begin, std::size_t end) {
  return {{"start", PositionAsJson(positions.PositionOf(begin))},
          {"end", PositionAsJson(positions.PositionOf(end))}};
}

}  // namespace brindlemoor
