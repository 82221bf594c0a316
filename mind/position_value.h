// PositionValue: what a position is worth, learnt from how matches went on from such positions.
#pragma once

#include <string_view>
#include <vector>

#include "core/state.h"

namespace brindlemoor {

/// A linear estimate of how a match ends for a side, from numbers that every game has: of each
/// trait the value on the side's player card and the sum over its other cards in the table, how
/// many cards it has there, in the hand and in the pile; each less the other side's. Which of them
/// matter is learnt by ridge regression (Hoerl and Kennard, 1970) and nothing of a game is known.
class PositionValue {
 public:
  explicit PositionValue(int side) : side_(side) {}

  using Features = std::vector<double>;
  /// The numbers of the present table.
  Features Look();
  /// A position from which a match went on to such an end: 1 won, 0 lost, 0.5 neither.
  void Learn(Features features, double result);
  /// Works the weights out anew.
  void Fit();
  /// The end that is to be expected, 0 to 1; 0.5 before anything was learnt.
  double Of(const Features& features) const;

  /// Names beyond are not looked at.
  static constexpr int kMostTraits = 48;

 private:
  int PlaceOf(std::string_view trait);
  void AddCard(const Card& card, double sign, bool isPlayer, Features& features);

  int side_;
  KeyPlaces traits_;
  std::vector<Features> seen_;
  std::vector<double> results_;
  Features mean_;
  Features weights_;
  double meanResult_ = 0.5;
};

}  // namespace brindlemoor
