// SuspendedGame: what goes on behind the card editor while it is open.
#pragma once

#include <string>

#include "core/state.h"

namespace brindlemoor {

/// The editor and its test games use the session's tables for themselves; this is the session to go
/// back to.
struct SuspendedGame {
  Session Before;       ///< as it was when the editor was opened
  std::string Report;   ///< the page of the last turn, "" for none
  bool Tested = false;  ///< a test game has used the main window
  // What a save of the editor's file would write, while a test position is laid out and played.
  Table<Template> EditorTemplates;
  Card EditorCostCard;
  std::int32_t EditorTokens = 0;
  Pile EditorCards;
};

}  // namespace brindlemoor
