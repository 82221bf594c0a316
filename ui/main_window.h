// MainWindow: three views, the card picture, the hand strip, the turn button and the menus.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

#include "core/records.h"
#include "platform/controls.h"
#include "ui/aim_banner.h"
#include "ui/kept_match_panel.h"
#include "ui/match_end.h"
#include "ui/opponent_menu.h"
#include "ui/opponent_trial.h"
#include "ui/plan_panel.h"
#include "ui/turn_history.h"
#include "ui/turn_story.h"

namespace brindlemoor {

struct MainWindow : Form {
  MainWindow();

  BrowserView WB{"WB"};
  BrowserView InPlayWB{"InPlayWB"};
  BrowserView CardDescWB{"CardDescWB"};
  PictureBox Picture1{"Picture1"};
  std::array<std::unique_ptr<PictureBox>, kHandPositions + 1> Picture2;  ///< from 1
  std::array<std::unique_ptr<Label>, kHandPositions> HandLabel;  ///< from 0, i for Picture2(i + 1)
  Label NothingSaved{"NothingSaved"};                            ///< shown in debug mode
  Button Command1{"Command1"};
  Button backbutton{"backbutton"};
  MatchEndPanel End;
  AimBanner Aim;
  TurnStory Story;  ///< in its place while nothing is aimed
  PlanPanel Plan;
  KeptMatchPanel Kept;
  TurnHistory History;
  OpponentMenu Opponent;

  MenuItem filemen{"filemen", "File"};
  MenuItem newgamemen{"newgamemen", "Quit / New Game"};
  MenuItem deckmanagermen{"deckmanagermen", "Deck Manager"};
  MenuItem EditMen{"EditMen", "Card Editor"};
  MenuItem openarchivemen{"openarchivemen", "Open a Game Archive..."};
  MenuItem saveplrmen{"saveplrmen", "Save Current Player"};
  MenuItem savehtmlmen{"savehtmlmen", "Save HTML Snapshot"};
  MenuItem switchmen{"switchmen", "Switch Player"};
  MenuItem optionmen{"optionmen", "Options"};
  MenuItem fullsizemen{"fullsizemen", "Full Sized Images"};
  MenuItem debugmen{"debugmen", "Debug Mode"};
  MenuItem helpmen{"helpmen", "Help"};
  MenuItem helppagesmen{"helppagesmen", "Help Pages"};
  MenuItem hintmen{"hintmen", "Hint"};

  /// A place of the hand and the card that lies there.
  struct HandCard {
    int Position = 0;
    std::int32_t GlobalID = 0;
    bool operator==(const HandCard&) const = default;
  };
  HandCard LastHovered;  ///< what the pointer showed last
  /// What is known of the opponents of the list, by game and opponent, while it is shown.
  std::map<std::pair<int, int>, TrialMatches> Trials;
  std::string KeepingTold;  ///< why the match could not be kept, as the player was told

  void Form_Load();
  void Command1_Click();
  /// False at the list of games, where the turn button does nothing.
  bool TakesTurns() const;
  void backbutton_Click();
  void Picture2_MouseMove(int position);
  /// A table card that the pointer or the focus came to is shown beside the report.
  void WB_LinkPointed(const std::string& address);
  void Picture2_MouseUp(int position, MouseButton button);
  void newgamemen_Click();
  void switchmen_Click();
  void deckmanagermen_Click();
  void EditMen_Click();
  void openarchivemen_Click();
  void saveplrmen_Click();
  void savehtmlmen_Click();
  void fullsizemen_Click();
  void debugmen_Click();
  void helpmen_Click();
  void hintmen_Click();
  bool Form_QueryClose();
  /// Its check mark, and the word that nothing is saved.
  void ShowDebugMode();
};

/// Shows a file of the program's folder in the main view, lets events run and empties PageText.
void ShowMain(std::string_view file);
/// Shows the hand of side 1 in the strip.
void UpdateHand();
/// Asks about a match in progress and about what the player owns before the list of games takes
/// their place. False to stay.
bool MayLeaveGame();
/// From a game that has ended to the list of games; a test game leads back to the editor that began
/// it. False when the player would rather stay.
bool LeaveEndedGame();
/// Hides the strip.
void HideHand();
/// Takes plan, card page and picture of the last game from the sides.
void BlankSideViews();
/// Queues a hand position with a target (0 none yet: it awaits one; -1 discard), or takes it out of
/// the queue.
void QueuePlay(int position, int target);
/// Moves queue entries up over free ones.
void CompactQueue();
/// Paints an image file into Picture1.
void PaintImage(std::string_view file);

}  // namespace brindlemoor
