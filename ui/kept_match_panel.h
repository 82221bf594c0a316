// KeptMatchPanel: the matches that can go on, above the list of games.
#pragma once

#include <array>
#include <memory>

#include "platform/controls.h"

namespace brindlemoor {

/// Hidden where no match is kept, and behind the list of games.
struct KeptMatchPanel {
  KeptMatchPanel();

  /// More matches than these are reached by their opponents' portraits.
  static constexpr std::size_t kMost = 4;

  Frame Panel{"KeptMatches"};
  std::array<std::unique_ptr<Button>, kMost> Buttons;  ///< "Continue: Oona Ebb, turn 7"

  Layout Arrangement();
  /// Looks for the player's matches; the keyboard is on the first.
  void Show();
  void Hide() { Panel.Visible = false; }

 private:
  std::array<int, kMost> games_{};  // of the buttons, 0 for none
};

/// Keeps the match in progress after a turn, or forgets and counts it when it has ended. What goes
/// wrong is told once.
void KeepMatchAfterTurn();
/// An ended match, which goes on as its last turn is taken back, is no longer counted.
void UncountMatch();

/// Goes on with the match of a game. Where its files have changed, or it can't be read, the player
/// chooses.
void ContinueKeptMatch(int gameIndex);

/// Asks before another match takes the place of the one that is kept of a game. True to begin it.
bool MayBeginMatch(int gameIndex, int opponentIndex);

}  // namespace brindlemoor
