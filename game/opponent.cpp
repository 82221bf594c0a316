// The computer opponent's part of a turn.
#include "game/opponent.h"

namespace brindlemoor {

EnemyPlays PlayEnemyHand() { return {}; }  // the enemy keeps its hand

}  // namespace brindlemoor
