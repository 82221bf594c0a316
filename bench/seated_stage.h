// The shipped game with its first deck and its first opponent at the table.
#pragma once

#include <stdexcept>

#include "bench/bench_session.h"
#include "simulation/stage.h"

namespace brindlemoor {

inline void OrThrow(const std::string& problem) {
  if (!problem.empty()) throw std::runtime_error(problem);
}

/// A stage on the shipped game.
inline Stage OpenedStage() {
  Stage stage;
  OrThrow(stage.Open(BenchData("games"), "", 1));
  return stage;
}

inline void SeatFirst(Stage& stage) {
  OrThrow(stage.Seat(stage.Decks().front(), stage.Opponents().front()));
}

}  // namespace brindlemoor
