// Opening and leaving the card editor, and its test games.
#include "editor/editor_opening.h"

#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/editor_forms.h"
#include "editor/suspended_game.h"
#include "game/game_list.h"
#include "pages/page_files.h"
#include "script/effect_masks.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"
#include "ui/main_window.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kReportPage = "LastDiplayed.html";  // spelled so wherever it is used

void SuspendGame() {
  Session& session = State();
  auto suspended = std::make_shared<SuspendedGame>();
  suspended->Before = session;
  suspended->Report = Desktop().Files().Read(PagePath(kReportPage)).value_or("");
  session.Suspended = std::move(suspended);
  for (DeckRec& deck : session.Decks) deck.Cards.Reset(1);
}

/// The session as it was, but for what belongs to the editor and to the program.
void PutSessionBack(Session before) {
  Session& session = State();
  before.Desktop = session.Desktop;
  before.OpenForms = session.OpenForms;
  before.OpenEditorForms = session.OpenEditorForms;
  before.ImageBridge = session.ImageBridge;
  before.Templates = session.Templates;
  before.CostCard = session.CostCard;
  before.CommonTraits = session.CommonTraits;
  before.CardFile = session.CardFile;
  before.EditCard = session.EditCard;
  before.GameFileName = session.GameFileName;
  before.Random = session.Random;
  before.ActionsAdded = session.ActionsAdded;  // the records that stay have numbers of it
  session = std::move(before);
  RenumberAllTraitBits();  // the editor's names are not those of the match
}

/// The main window after a test game has used it, or the editor may have made what it lists.
void ShowGameAgain(const std::string& report) {
  MainWindow& window = TheMainWindow();
  const Session& session = State();
  window.ShowDebugMode();
  window.Command1.Caption = session.GameOver == 1 ? "End Game" : "Take Turn";
  if (session.CurrentGame == 0) {
    HideHand();
    BlankSideViews();
    State().Games.Reset(1);
    DiscoverGames();
    ShowGameList();
    return;
  }
  Desktop().Files().Write(PagePath(kReportPage), report);
  ShowMain(kReportPage);
  if (session.GameOver == 1) {
    HideHand();
  } else {
    UpdateHand();
  }
  ShowPlayMenu();
}

}  // namespace

void OpenCardEditor() {
  // A running script may hold the cards that the editor puts aside.
  if (State().TurnRunning == 1) return;
  if (State().Suspended != nullptr) {
    BackToCardEditor();  // from a test game
    return;
  }
  SuspendGame();
  State().SingleCardEdit = 0;
  TheCardEdit().Form_Load();
  Desktop().ShowForm(TheCardEdit(), false);
  Desktop().HideForm(TheMainWindow());
  TheCardEdit().OfferUntitledCopy();
}

void LeaveCardEditor() {
  const std::shared_ptr<SuspendedGame> suspended = std::exchange(State().Suspended, nullptr);
  if (suspended != nullptr) {
    PutSessionBack(suspended->Before);
  }
  Desktop().ShowForm(TheMainWindow(), false);
  if (suspended == nullptr) return;
  if (suspended->Tested || State().CurrentGame == 0) ShowGameAgain(suspended->Report);
}

void EditCardImage(Card& card) {
  Session& session = State();
  if (session.Suspended != nullptr) {
    Desktop().MessageBox("The images of these cards are changed in the card editor.");
    return;
  }
  session.SingleCardEdit = 1;
  session.EditCard = card;
  TheCardEdit().Form_Load();
  Desktop().ShowForm(TheCardEdit(), true);
  card.Picture = session.EditCard.Picture;
  card.Thumb = session.EditCard.Thumb;
  session.SingleCardEdit = 0;
}

void BeginTestCards() {
  Session& session = State();
  if (session.Suspended != nullptr) {
    SuspendedGame& suspended = *session.Suspended;
    suspended.EditorCards = session.Collection;
    suspended.EditorTemplates = session.Templates;
    suspended.EditorCostCard = session.CostCard;
    suspended.EditorTokens = session.Players[1].Tokens;
    suspended.Tested = true;
  }
  session.DeckManagerMode = kTestPosition;
  Desktop().HideForm(TheCardEdit());
  TheDeckManager().Form_Load();
  Desktop().ShowForm(TheDeckManager(), false);
  // The form's window is made anew when its view comes up; the message must stand before that one.
  Desktop().PumpEvents();
  Desktop().MessageBox(
      "Choose the cards you would like to test.  You may place cards in the player's starting hand "
      "or already in play.  When done, click the Play button.");
}

void BackToCardEditor() {
  Session& session = State();
  session.DeckManagerMode = kOwnCards;
  if (session.Suspended != nullptr) {
    const SuspendedGame& suspended = *session.Suspended;
    session.Collection = suspended.EditorCards;
    session.Templates = suspended.EditorTemplates;
    session.CostCard = suspended.EditorCostCard;
    session.Players[1].Tokens = suspended.EditorTokens;
  }
  Desktop().ShowForm(TheCardEdit(), false);
  Desktop().HideForm(TheMainWindow());
}

void BuildOpponent() {
  State().DeckManagerMode = kNewOpponent;
  TheDeckManager().Form_Load();
  Desktop().ShowForm(TheDeckManager(), true);
  State().DeckManagerMode = kOwnCards;
}

}  // namespace brindlemoor
