// The statistics of the reports.
#pragma once

#include "simulation/totals.h"

namespace brindlemoor {

/// A share of 1 with its 95 % interval.
struct Share {
  Count Of = 0;  ///< how many observations; nothing is known with 0
  double Value = 0;
  double Low = 0;
  double High = 1;
};

/// The share of hits, with Wilson's score interval.
Share WilsonShare(Count hits, Count of);
/// The share of wins among the decided matches.
Share WinRate(const Score& score);
/// How much larger one share is than another, with Newcombe's interval made of both intervals.
Share Difference(const Share& a, const Share& b);

/// The least number of turns that at least this share of the matches did not go beyond.
int LengthAt(const std::map<int, Count>& lengths, double share);

}  // namespace brindlemoor
