// OpponentMenu: how hard the opponent thinks.
#pragma once

#include <array>
#include <memory>

#include "core/mind_levels.h"
#include "platform/controls.h"

namespace brindlemoor {

/// The levels, of which one is marked; below "Options".
struct OpponentMenu {
  OpponentMenu();

  MenuItem Menu{"opponentmen", "Opponent"};
  std::array<std::unique_ptr<MenuItem>, kMindLevels.size()>
      Levels;  ///< from 0, named "Opponent(0)" and so on

  /// Takes over what the current player has chosen.
  void Update();

 private:
  void Choose(int level);
  void Mark();
};

}  // namespace brindlemoor
