// TurnStory: what the last turn brought, in a few lines above the report.
#pragma once

#include <string>

#include "platform/controls.h"

namespace brindlemoor {

struct TurnStory {
  TurnStory();

  TextBox Lines{"TurnStory"};

  /// Shows the story of the last turn, unless something else is to be said in its place.
  void Update(bool hasPlace);
};

/// The last turn of the session: what came to nothing, and what became of both sides.
std::string StoryOfTurn();

}  // namespace brindlemoor
