// The statistics of the reports.
#include "simulation/statistics.h"

#include <algorithm>
#include <cmath>

namespace brindlemoor {

namespace {

constexpr double kDeviations95 = 1.959963984540054;

}  // namespace

Share WilsonShare(Count hits, Count of) {
  if (of <= 0) return {};
  const double n = static_cast<double>(of);
  const double p = static_cast<double>(hits) / n;
  const double z2 = kDeviations95 * kDeviations95;
  const double middle = (p + z2 / (2 * n)) / (1 + z2 / n);
  const double half = kDeviations95 / (1 + z2 / n) * std::sqrt(p * (1 - p) / n + z2 / (4 * n * n));
  return {of, p, hits == 0 ? 0 : std::max(0.0, middle - half),
          hits == of ? 1 : std::min(1.0, middle + half)};
}

Share WinRate(const Score& score) { return WilsonShare(score.Wins, score.Wins + score.Losses); }

Share Difference(const Share& a, const Share& b) {
  if (a.Of == 0 || b.Of == 0) return {0, 0, -1, 1};
  const double difference = a.Value - b.Value;
  const double below = std::hypot(a.Value - a.Low, b.High - b.Value);
  const double above = std::hypot(a.High - a.Value, b.Value - b.Low);
  return {a.Of + b.Of, difference, difference - below, difference + above};
}

int LengthAt(const std::map<int, Count>& lengths, double share) {
  Count all = 0;
  for (const auto& [turns, count] : lengths) all += count;
  Count shorter = 0;
  for (const auto& [turns, count] : lengths) {
    shorter += count;
    if (static_cast<double>(shorter) >= share * static_cast<double>(all)) return turns;
  }
  return 0;
}

}  // namespace brindlemoor
