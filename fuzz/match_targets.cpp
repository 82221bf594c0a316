// Targets that play: clicks in a match, a whole match of a game folder.
#include "core/cards.h"
#include "core/state.h"
#include "fuzz/fuzz_session.h"
#include "fuzz/fuzz_targets.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "language/target_types.h"
#include "simulation/automatic_player.h"
#include "text/text.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {

namespace {

constexpr int kOpponents = 3;
constexpr int kTurns = 3;
constexpr int kMostClicks = 100;

void WriteGame(FuzzSession& session, std::string_view text) {
  for (const FolderFile& file : FilesOfText(text)) session.WriteFile(file.Name, file.Bytes);
}

void PlayTurns() {
  for (int turn = 0; turn < kTurns && State().GameOver == 0; ++turn) {
    PlanAutomaticPlays();
    TakeTurn(0);
  }
}

/// "W" and what follows: a link of the main view; "P" and "D": of the two at the side; anything
/// else presses the button.
void Click(std::string_view line) {
  const std::string address = Joined("file://", kFuzzFolder, "/", line.substr(1));
  switch (line.front()) {
    case 'W':
      WB_BeforeNavigate(address);
      break;
    case 'P':
      InPlayWB_BeforeNavigate(address);
      break;
    case 'D':
      CardDescWB_BeforeNavigate(address);
      break;
    default:
      TheMainWindow().Command1.Click();
  }
}

}  // namespace

void FuzzLinks(std::string_view bytes) {
  FuzzSession session;
  WriteGame(session, SmallGame());
  PlayDeckManagers(session.Desktop());
  NewGame();
  ChooseGame(1, kFirstOpponent);
  EndGame();
  NewGame();
  ChooseGame(1, kFirstOpponent + 1);
  MustHold(State().CurrentGame == 1, "there is no match whose links could be clicked");
  // Known numbers, so that links can name the cards.
  int number = 100;
  for (Card& card : State().CardTable) {
    State().Links.Cards.insert(number);
    card.GlobalID = number++;
  }
  int clicks = 0;
  for (const std::string& line : LinesOf(bytes)) {
    if (!line.empty() && ++clicks <= kMostClicks) Click(line);
  }
}

void FuzzMatch(std::string_view bytes) {
  FuzzSession session;
  WriteGame(session, bytes);
  NewGame();
  PlayOpponents(session.Desktop());
}

void PlayDeckManagers(HeadlessPlatform& desktop) {
  desktop.ModalForms.assign(20, [](Form& form) {
    if (&form != &TheDeckManager()) return;
    TheDeckManager().AddAll.Click();
    TheDeckManager().Command2_Click();
  });
}

void PlayOpponents(HeadlessPlatform& desktop) {
  PlayDeckManagers(desktop);
  for (int opponent = 0; opponent < kOpponents; ++opponent) {
    ChooseGame(1, kFirstOpponent + opponent);
    PlayTurns();
    EndGame();
    NewGame();
  }
}

}  // namespace brindlemoor
