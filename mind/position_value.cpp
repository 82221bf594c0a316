// Learning the value of positions.
#include "mind/position_value.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/cards.h"
#include "core/state.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kOfSide = 3;   ///< cards in the table, in the hand, in the pile
constexpr std::size_t kOfTrait = 2;  ///< on the player card, on the others
constexpr std::size_t kFeatures =
    kOfSide + kOfTrait * static_cast<std::size_t>(PositionValue::kMostTraits);

int CountCards(const Pile& pile) {
  int count = 0;
  for (const Card& card : pile) count += IsFree(card) ? 0 : 1;
  return count;
}

using Matrix = std::vector<std::vector<double>>;

/// Solves a symmetric positive definite system by Cholesky's method, in place.
void Solve(Matrix& matrix, std::vector<double>& right) {
  const std::size_t size = right.size();
  for (std::size_t row = 0; row < size; ++row) {
    for (std::size_t column = 0; column <= row; ++column) {
      double sum = matrix[row][column];
      for (std::size_t k = 0; k < column; ++k) sum -= matrix[row][k] * matrix[column][k];
      matrix[row][column] = row == column ? std::sqrt(sum) : sum / matrix[column][column];
    }
  }
  for (std::size_t row = 0; row < size; ++row) {
    for (std::size_t k = 0; k < row; ++k) right[row] -= matrix[row][k] * right[k];
    right[row] /= matrix[row][row];
  }
  for (std::size_t row = size; row-- > 0;) {
    for (std::size_t k = row + 1; k < size; ++k) right[row] -= matrix[k][row] * right[k];
    right[row] /= matrix[row][row];
  }
}

}  // namespace

int PositionValue::PlaceOf(std::string_view trait) {
  const auto known = traits_.find(trait);
  if (known != traits_.end()) return known->second;
  const int place = static_cast<int>(traits_.size());
  if (place >= kMostTraits) return -1;
  traits_.emplace(trait, place);
  return place;
}

void PositionValue::AddCard(const Card& card, double sign, bool isPlayer, Features& features) {
  constexpr double kLargest = 1000;  // a number that a game uses for "no end" tells no more
  for (const TraitItem& item : card.Traits) {
    if (item.empty()) continue;
    const int place = PlaceOf(item.Name());
    if (place < 0) continue;
    const std::size_t at = kOfSide + kOfTrait * static_cast<std::size_t>(place);
    features[at + (isPlayer ? 0 : 1)] += sign * std::clamp(item.Number(), -kLargest, kLargest);
  }
}

PositionValue::Features PositionValue::Look() {
  const Session& session = State();
  Features features(kFeatures);
  for (const Card& card : session.CardTable) {
    if (IsFree(card) || card.InPlay == 0 || (card.Owner != 1 && card.Owner != 2)) continue;
    const double sign = card.Owner == side_ ? 1 : -1;
    const bool isPlayer = session.Players[card.Owner].PlayerCard == card.Slot;
    if (!isPlayer) features[0] += sign;
    AddCard(card, sign, isPlayer, features);
  }
  for (int side = 1; side <= 2; ++side) {
    const double sign = side == side_ ? 1 : -1;
    features[1] += sign * CountCards(session.Players[side].Hand);
    features[2] += sign * CountCards(session.Players[side].Deck);
  }
  return features;
}

void PositionValue::Learn(Features features, double result) {
  seen_.push_back(std::move(features));
  results_.push_back(result);
}

void PositionValue::Fit() {
  if (seen_.empty()) return;
  const auto count = static_cast<double>(seen_.size());
  mean_.assign(kFeatures, 0);
  meanResult_ = 0;
  for (std::size_t index = 0; index < seen_.size(); ++index) {
    for (std::size_t at = 0; at < kFeatures; ++at) mean_[at] += seen_[index][at] / count;
    meanResult_ += results_[index] / count;
  }
  Matrix products(kFeatures, Features(kFeatures));
  Features right(kFeatures);
  Features away(kFeatures);
  for (std::size_t index = 0; index < seen_.size(); ++index) {
    for (std::size_t at = 0; at < kFeatures; ++at) away[at] = seen_[index][at] - mean_[at];
    for (std::size_t row = 0; row < kFeatures; ++row) {
      if (away[row] == 0) continue;
      right[row] += away[row] * (results_[index] - meanResult_);
      for (std::size_t column = 0; column <= row; ++column) {
        products[row][column] += away[row] * away[column];
      }
    }
  }
  // Positions of one match are much alike, so that they count for less than their number; a feature
  // is held back by as much as it varies.
  constexpr double kRidge = 0.05;
  constexpr double kLeast = 1e-6;
  for (std::size_t at = 0; at < kFeatures; ++at) {
    products[at][at] += kRidge * products[at][at] + kLeast * count;
  }
  Solve(products, right);
  weights_ = std::move(right);
}

double PositionValue::Of(const Features& features) const {
  if (weights_.empty()) return meanResult_;
  double value = meanResult_;
  for (std::size_t at = 0; at < kFeatures; ++at) value += weights_[at] * (features[at] - mean_[at]);
  constexpr double kSteepness = 4;  // of the curve in the middle, where it is a straight line
  return 1 / (1 + std::exp(-kSteepness * (value - 0.5)));
}

}  // namespace brindlemoor
