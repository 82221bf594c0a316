// The one random source of the engine.
#pragma once

#include <cstdint>
#include <string_view>

namespace brindlemoor {

/// A splitmix64 sequence: 64 bits of state, the same on every machine.
struct RandomSource {
  std::uint64_t State = 0;
  /// Uniform in [0, 1), 53 bits.
  double Next() noexcept;
};

/// An integer from 1 to n, n rounded down; 1 for every n below 2.
int RollDie(double n);
/// The sum of count rolls, both rounded down; 0 for a count below 1. Counts above the bound in
/// limits.h are cut there, which the page says.
double RollDice(double count, double sides);
/// Makes the sequence that follows a function of text and salt alone. An empty text is "RANDOM".
void SeedFromText(std::string_view text, double salt);
/// Seeds from the platform's clock (or from the sequence that a fixed seed gives).
void SeedFromClock();

/// The GlobalID of a copied card is a roll of a die with as many sides.
inline constexpr int kDuplicateId = 10000000;

}  // namespace brindlemoor
