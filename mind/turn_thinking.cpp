// Sequential halving over changed plans.
#include "mind/turn_thinking.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <utility>
#include <vector>

#include "core/mind_levels.h"
#include "core/state.h"
#include "mind/plan_changes.h"
#include "mind/playouts.h"
#include "mind/position_value.h"

namespace brindlemoor {
namespace {

/// A plan and how its trials ended, from trial 0 on.
struct Candidate {
  std::optional<TurnPlan> Plan;
  std::vector<double> Results{};
  double Sum = 0;
};

/// How much better a candidate did than another on the deals that both have played, in standard
/// errors of the difference.
double Lead(const Candidate& candidate, const Candidate& other) {
  const std::size_t trials = std::min(candidate.Results.size(), other.Results.size());
  double sum = 0;
  double squares = 0;
  for (std::size_t trial = 0; trial < trials; ++trial) {
    const double difference = candidate.Results[trial] - other.Results[trial];
    sum += difference;
    squares += difference * difference;
  }
  return squares == 0 ? 0 : sum / std::sqrt(squares);
}

class Thinking {
 public:
  Thinking(int side, std::int64_t steps)
      : side_(side), playouts_(side, steps), values_(side), steps_(steps) {}

  std::optional<TurnPlan> Best() {
    playouts_.Look();
    TurnPlan plan = PlainPlan(side_);
    playouts_.Look();
    std::vector<TurnPlan> rivals = ChangedPlans(plan, side_);
    if (rivals.empty()) return std::nullopt;  // there is nothing to choose
    LearnValues(std::move(rivals));
    Candidate best;
    for (const double share : kShares) {
      if (!playouts_.WorkIsLeft()) break;
      const auto rival = BestBeside(best, plan, share);
      if (!rival) continue;
      best = *rival;
      plan = *best.Plan;
    }
    return best.Plan;
  }

 private:
  /// Of the work, for each step of the climb.
  static constexpr double kShareOfLearning = 0.25;
  static constexpr std::array<double, 3> kShares = {0.35, 0.25, 0.15};
  static constexpr int kMostTurns = 60;
  static constexpr int kTurnsOfTrial = 3;
  static constexpr std::size_t kFirstTrials = 4;
  static constexpr double kConvincing = 1.0;  ///< standard errors

  /// Plays matches to their end from these first turns, to learn what positions are worth.
  void LearnValues(std::vector<TurnPlan> rivals) {
    std::vector<std::optional<TurnPlan>> plans{std::nullopt};
    for (TurnPlan& rival : rivals) plans.push_back(std::move(rival));
    const std::int64_t end = playouts_.StepsLeft() - Steps(kShareOfLearning);
    for (std::uint64_t number = 0; playouts_.StepsLeft() > end; ++number) {
      std::vector<PositionValue::Features> seen;
      const auto result = playouts_.Play(plans[number % plans.size()], number, kMostTurns,
                                         [&] { seen.push_back(values_.Look()); });
      if (!playouts_.WorkIsLeft()) return;
      for (auto& features : seen) values_.Learn(std::move(features), result.value_or(0.5));
    }
    values_.Fit();
  }

  void Try(Candidate& candidate) {
    double expected = 0.5;
    const auto result = playouts_.Play(candidate.Plan, candidate.Results.size(), kTurnsOfTrial,
                                       [&] { expected = values_.Of(values_.Look()); });
    if (!playouts_.WorkIsLeft()) return;  // it was cut off
    candidate.Results.push_back(result.value_or(expected));
    candidate.Sum += candidate.Results.back();
  }

  /// What leads convincingly before the best plan yet; nothing when nothing does.
  std::optional<Candidate> BestBeside(Candidate& best, const TurnPlan& plan, double share) {
    const auto end = std::max<std::int64_t>(0, playouts_.StepsLeft() - Steps(share));
    playouts_.Look();
    std::vector<Candidate> rivals;
    for (TurnPlan& changed : ChangedPlans(plan, side_)) rivals.push_back({std::move(changed)});
    std::size_t trials = kFirstTrials;
    const std::int64_t begin = playouts_.StepsLeft();
    const auto rounds = static_cast<std::int64_t>(std::bit_width(rivals.size()));
    for (std::int64_t round = 1; !rivals.empty() && playouts_.StepsLeft() > end; ++round) {
      const std::int64_t roundEnd = begin - (begin - end) * std::min(round, rounds) / rounds;
      do {
        Bring(best, trials);
        for (Candidate& rival : rivals) Bring(rival, trials);
        ++trials;
      } while (playouts_.StepsLeft() > roundEnd);
      std::ranges::stable_sort(rivals, std::ranges::greater(), &Candidate::Sum);
      if (rivals.size() > 1) rivals.resize((rivals.size() + 1) / 2);
    }
    if (rivals.empty() || Lead(rivals[0], best) < kConvincing) return std::nullopt;
    return rivals[0];
  }

  std::int64_t Steps(double share) const {
    return static_cast<std::int64_t>(static_cast<double>(steps_) * share);
  }
  /// Tries a candidate until it has so many results.
  void Bring(Candidate& candidate, std::size_t trials) {
    while (candidate.Results.size() < trials && playouts_.WorkIsLeft()) Try(candidate);
  }

  const int side_;
  Playouts playouts_;
  PositionValue values_;
  const std::int64_t steps_;
};

}  // namespace

std::optional<TurnPlan> PlanByPlaying(int side, std::int64_t steps) {
  if (steps <= 0 || State().GameOver != 0) return std::nullopt;
  return Thinking(side, steps).Best();
}

std::optional<TurnPlan> ThinkOfTurn(int side) {
  return PlanByPlaying(side, kMindLevels[State().Minds[side]].Steps);
}

}  // namespace brindlemoor
