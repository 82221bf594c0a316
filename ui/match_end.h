// MatchEndPanel: what the main window says above the report when a match has ended.
#pragma once

#include <string>

#include "platform/passing_label.h"

namespace brindlemoor {

/// Hidden but between the end of a match and the player's next choice.
struct MatchEndPanel {
  MatchEndPanel();

  Frame Panel{"MatchEnd"};
  Label Verdict{"MatchVerdict"};
  Label Facts{"MatchFacts"};            ///< turns and tokens
  PassingLabel NewCards{"MatchCards"};  ///< hidden where there are none
  Button PlayAgain{"PlayAgain"};
  Button GameList{"GameList"};
  Button SeeReport{"SeeReport"};

  Layout Arrangement();
  /// Tells of the recorded match, with the keyboard on "Play Again".
  void Show();
  void Hide() { Panel.Visible = false; }

  void PlayAgain_Click();
  void GameList_Click();
  void SeeReport_Click();
};

/// "New cards: Elf, Imp (2)." since the match or visit began, "" for none.
std::string NewCardsText();

/// The panel of the main window; nothing where no match is recorded.
void ShowMatchEnd();

}  // namespace brindlemoor
