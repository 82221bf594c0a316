// NearestWord: the edit distance with swaps, by rows, given up as soon as it is too large.
#include "lint/word_distance.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <utility>

#include "text/fold.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kLongestWord = 62;
constexpr std::size_t kShortWord = 5;

using DistanceRow = std::array<std::uint8_t, kLongestWord + 1>;

/// The distance, or any number above limit.
int WordDistance(std::string_view from, std::string_view to, int limit) {
  const int lengths = std::abs(static_cast<int>(from.size()) - static_cast<int>(to.size()));
  if (lengths > limit) return lengths;
  DistanceRow before{};
  DistanceRow above{};
  DistanceRow row{};
  for (std::size_t column = 0; column <= to.size(); ++column) {
    above[column] = static_cast<std::uint8_t>(column);
  }
  const auto same = [&](std::size_t at, std::size_t column) {
    return AsciiUpper(from[at - 1]) == AsciiUpper(to[column - 1]);
  };
  for (std::size_t at = 1; at <= from.size(); ++at) {
    row[0] = static_cast<std::uint8_t>(at);
    int least = row[0];
    for (std::size_t column = 1; column <= to.size(); ++column) {
      int cost = std::min(above[column], row[column - 1]) + 1;
      cost = std::min(cost, above[column - 1] + (same(at, column) ? 0 : 1));
      if (at > 1 && column > 1 && same(at, column - 1) && same(at - 1, column)) {
        cost = std::min(cost, before[column - 2] + 1);
      }
      row[column] = static_cast<std::uint8_t>(cost);
      least = std::min(least, cost);
    }
    if (least > limit) return least;
    before = std::exchange(above, row);
  }
  return above[to.size()];
}

}  // namespace

std::string NearestWord(std::string_view word, std::span<const std::string_view> known) {
  if (word.empty() || word.size() > kLongestWord) return {};
  int limit = word.size() < kShortWord ? 1 : 2;
  std::string_view nearest;
  for (const std::string_view candidate : known) {
    if (candidate.size() > kLongestWord) continue;
    const int distance = WordDistance(word, candidate, limit);
    if (distance > limit) continue;
    nearest = candidate;
    if (distance == 0) break;
    limit = distance - 1;
  }
  return std::string(nearest);
}

}  // namespace brindlemoor
