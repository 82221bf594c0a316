// The random sequence and the dice.
#include "core/random.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <vector>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "text/encoding.h"

namespace brindlemoor {

namespace {

constexpr std::uint64_t kRestartState = 0x6272696E646C6531;

/// The sum of the codes of the last, the first and the middle character.
double CharacterSum(std::string_view text) {
  std::vector<char32_t> characters;
  for (std::size_t position = 0; position < text.size();) {
    characters.push_back(NextCodePoint(text, position));
  }
  const std::size_t middle = (characters.size() + 1) / 2;
  return static_cast<double>(characters.back()) + static_cast<double>(characters.front()) +
         static_cast<double>(characters[middle - 1]);
}

}  // namespace

double RandomSource::Next() noexcept {
  State += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = State;
  mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
  mixed ^= mixed >> 31;
  return static_cast<double>(mixed >> 11) * 0x1.0p-53;
}

int RollDie(double n) {
  const double roll = State().Random.Next();
  const double sides = std::floor(n);
  if (!(sides >= 2)) return 1;
  constexpr double kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::fmin(1 + roll * std::fmin(sides, kMost), kMost));
}

double RollDice(double count, double sides) {
  if (!(count >= 1)) return 0;
  int& rolled = State().DiceRolled;
  const int allowed = std::min(limits::kDice, limits::kDiceOfTurn - rolled);
  if (count >= allowed + 1.0) {
    limits::ReportLimit("Too many dice; only some were rolled.");
    count = allowed;
  }
  SpendWorkOnSearch(static_cast<std::size_t>(count));
  rolled += static_cast<int>(count);
  double total = 0;
  for (int left = static_cast<int>(count); left > 0; --left) total += RollDie(sides);
  return total;
}

void SeedFromText(std::string_view text, double salt) {
  if (text.empty()) text = "RANDOM";
  const double number = NumericPrefix(text);
  const double seed = (number == 0 ? CharacterSum(text) : number) + salt;
  State().Random.State = kRestartState ^ std::bit_cast<std::uint64_t>(seed + 0.0);
}

void SeedFromClock() { State().Random.State = Desktop().ClockSeed(); }

}  // namespace brindlemoor
