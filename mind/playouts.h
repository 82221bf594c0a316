// Playouts: matches played on from the present table by the plain mind.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

#include "core/session_aside.h"
#include "core/state.h"
#include "core/turn_plan.h"

namespace brindlemoor {

class SimulationDesktop;

/// While it lasts the session belongs to the trials of a side; at its end the session is as it was,
/// the random source and the counted work included.
class Playouts {
 public:
  /// Trials of a side's coming turn that may take so many steps together.
  Playouts(int side, std::int64_t steps);
  ~Playouts();
  Playouts(const Playouts&) = delete;
  Playouts& operator=(const Playouts&) = delete;

  /// Plays a plan of the side (nothing for what the plain mind would do), then both sides plainly,
  /// so many turns together, and tells of each behind which the match goes on. 1 for a match that
  /// the side has won by then, 0 for a lost one, 0.5 for one that both have won; nothing for one
  /// that is not over. A function of the table, the plan and the number alone.
  std::optional<double> Play(const std::optional<TurnPlan>& plan, std::uint64_t number, int turns,
                             const std::function<void()>& played);
  /// The table before a trial, for looking at: hidden cards lie in no order that means anything.
  /// The steps of what is tried out on it count when the next trial or look begins.
  void Look();
  /// False when the steps are used up: what is played now is cut off.
  bool WorkIsLeft() const { return left_ > 0; }
  std::int64_t StepsLeft() const { return left_; }

 private:
  void CountWork();

  const SessionAside kept_;
  const int side_;
  std::int64_t left_;
  std::shared_ptr<SimulationDesktop> desktop_;
  Session base_;
};

}  // namespace brindlemoor
