// What the game asks of the program's windows.
#pragma once

#include <string>
#include <string_view>

namespace brindlemoor {

/// A row of calls that a session is given when it is opened: by the windows, or kNoWindows.
struct GameWindows {
  void (*ShowMainWindow)();
  void (*RaiseMainWindow)();
  /// Shows a page file in the main view, lets events run and empties PageText.
  void (*ShowMain)(std::string_view file);
  void (*SetTurnButton)(std::string_view caption);
  /// The player's choice in the menu: 1 full sized images, 0 thumbnails.
  int (*FullSizeImages)();
  /// Shows the hand of side 1 in the strip.
  void (*UpdateHand)();
  void (*HideHand)();
  /// Tells how the match that has just ended went.
  void (*ShowMatchEnd)();
  /// Takes plan, card page and picture of the last game from the sides.
  void (*BlankSideViews)();
  /// The list of games is shown: says what comes first.
  void (*ShowFirstSteps)();
  /// Asks who plays; no name in the profile means nobody.
  void (*ChooseProfile)();
  /// Lets the player choose and change a deck. False when that was closed without one.
  bool (*ShowDeckManager)();
  /// What stands below the list of games in debug mode.
  std::string (*NotesOnGames)(const std::string& folder);
};

/// Those of a session that nobody looks at: nothing is shown, nobody chooses.
extern const GameWindows kNoWindows;

/// Those of the session.
const GameWindows& Windows();

}  // namespace brindlemoor
