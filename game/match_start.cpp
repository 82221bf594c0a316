// The start of a match.
#include "game/match_start.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "data/read_mark.h"
#include "data/saving.h"
#include "game/card_refresh.h"
#include "game/game_list.h"
#include "game/leaving.h"
#include "game/match_outcome.h"
#include "game/player_file_names.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "game/turn.h"
#include "game/windows.h"
#include "language/traits.h"
#include "pages/page_files.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/trait_actions.h"
#include "script/triggers.h"

namespace brindlemoor {

namespace {

void BackToList() {
  EnterProgramFolder();
  State().PageText.clear();
  ShowGameList();
}

/// What was there before the files of a match were read.
struct BeforeMatch {
  ReadMark Tables;
  FixedTable<PlayerState, 3> Players = State().Players;
  PlayerState GameDeck = State().GameDeck;
  std::int16_t CurrentGame = State().CurrentGame;
  std::uint8_t CurrentDeck = State().CurrentDeck;
  ProfileRec Profile = State().Profile;
  PlayerFileRec StoredPlayer = State().StoredPlayer;

  /// Takes out what the files brought, so that another opponent can be chosen.
  void PutBack() const {
    Session& session = State();
    Tables.PutBack();
    session.Players = Players;
    session.GameDeck = GameDeck;
    session.CurrentGame = CurrentGame;
    session.CurrentDeck = CurrentDeck;
    session.Profile = Profile;
    const PlayerFileRec now = std::exchange(session.StoredPlayer, StoredPlayer);
    // What was saved over the file that these cards came from counts: it is read again.
    const bool isOfGame = !now.Path.empty() && now.Path == StoredPlayer.Path;
    if (isOfGame && now.OnDisk != StoredPlayer.OnDisk) ReadPlayerFile(now.Path);
  }
};

bool HasOpponent(int gameIndex, int opponentIndex) {
  const Table<GameRec>& games = State().Games;
  return games.Holds(gameIndex) && games[gameIndex].OpponentFiles.Holds(opponentIndex) &&
         !games[gameIndex].OpponentFiles[opponentIndex].empty();
}

/// True when the file is still there; says so otherwise.
bool CanRead(std::string_view file) {
  if (!FindCardFile(file).empty()) return true;
  Desktop().MessageBox(CantRead(file, InCurrentFolder(file)));
  return false;
}

bool HasPlayerFile() {
  return IsThere(Desktop().Files(), InProgramFolder(StoredPlayerFile(State().CurrentGame)));
}

bool ReadOwnFile() { return ReadPlayerFile(StoredPlayerFile(State().CurrentGame)); }

/// Opponents and starter decks may have been saved in the deck manager.
void FindGamesAgain() {
  State().Games.Reset(1);
  DiscoverGames();
}

/// Lets the player choose a deck. False when there is none for this game or the program ends.
bool ChooseDeck() {
  Session& session = State();
  if (HasPlayerFile()) {
    if (!ReadOwnFile()) return false;
    if (!Windows().ShowDeckManager()) {
      FindGamesAgain();
      return false;
    }
    if (Desktop().Ending()) return false;
  }
  // A player file without a card that could be played counts like one that is not there.
  if (!HasPlayerFile() || !HoldsCards(session.Decks[session.CurrentDeck].Cards)) {
    Desktop().MessageBox(
        "You do not have a deck for this game!\n"
        "Please choose a starter deck or a card store.");
    return false;
  }
  LoadDeckIntoPlayer(session.Players[1], session.CurrentDeck);
  return true;
}

/// A card that begins in play leaves the draw pile for the table.
void BringIntoPlay(PlayerState& player, int position) {
  const Card card = player.Deck[position];
  const bool isPlayer = HasTrait(card, "PLAYER");
  FreeCard(player.Deck[position]);
  const int slot = AddToTable(card);
  if (!isPlayer || slot == 0) return;
  player.PlayerCard = slot;
  player.Color = State().CardTable[slot].NameColor;
}

/// The neutral cards that a starter deck or store put on the table enter play, each as if it had
/// come there by itself: its own OTHERENTERSPLAY actions clear the table for it. Returns their
/// slots.
std::vector<int> OpenStore() {
  std::vector<int> slots;
  Pile& table = State().CardTable;
  for (int slot = 1; slot <= table.UpperBound(); ++slot) {
    Card& card = table[slot];
    if (IsFree(card) || card.Owner != 0 || card.InPlay == 1) continue;
    card.Slot = static_cast<std::int16_t>(slot);
    EnterPlay(card);
    FireTrigger(card, "OTHERENTERSPLAY", slot);
    slots.push_back(slot);
  }
  return slots;
}

}  // namespace

bool ReadMatchFiles(int gameIndex, int opponentIndex) {
  const WorkAccount account;
  Session& session = State();
  const Text rules = session.Games[gameIndex].RulesFile;
  const Text opponent = session.Games[gameIndex].OpponentFiles[opponentIndex];
  const Text folder = session.Games[gameIndex].Folder;
  EnterProgramFolder();
  if (!CanRead(rules) || !CanRead(opponent)) return false;
  session.StarterDeckFlag = 0;
  ForgetRules();
  // The list shows over the two default player cards; what else lies there came from rules files.
  session.CardTable.Resize(std::max(session.Players[1].PlayerCard, session.Players[2].PlayerCard));
  session.Sideboard.Reset(1);
  InitPlayer(session.GameDeck, kGameDeckState);
  session.CurrentGame = static_cast<std::int16_t>(gameIndex);  // whose files come first
  ReadCards(rules, session.GameDeck, 0, "", 0);
  session.Profile.RulesFile = rules;
  session.CurrentFolder = folder.empty() ? session.ProgramFolder : InProgramFolder(folder);
  ReadCards(opponent, session.Players[2], 0, "", 0);
  EnterProgramFolder();
  return true;
}

void LoadDeckIntoPlayer(PlayerState& player, int deckNumber) {
  if (!State().Decks.Holds(deckNumber)) return;
  player.Deck = State().Decks[deckNumber].Cards;
  ShufflePile(player);
}

void BringInStartingCards() {
  const WorkAccount account;
  for (int side = 1; side <= 2; ++side) {
    PlayerState& player = State().Players[side];
    PutFreeElementFirst(player.Deck);
    // Cards that come into the pile meanwhile stay there.
    const int last = player.Deck.UpperBound();
    for (int position = 1; position <= last && player.Deck.Holds(position) && !WorkIsSpent();
         ++position) {
      const Card& card = player.Deck[position];
      if (IsFree(card)) continue;
      if (HasTrait(card, "STARTSINPLAY") || HasTrait(card, "PLAYER")) {
        BringIntoPlay(player, position);
      }
    }
  }
  FireTrigger(State().RulesCard, "GAMESTART");
}

void BeginGame() {
  RefreshPlayers();
  BringInStartingCards();
}

namespace {

/// What scripts do before the first turn.
void OpenTable() {
  const WorkAccount account;
  Session& session = State();
  ReapplyTraitActions(1);
  const std::vector<int> stores = session.StarterDeckFlag == 1 ? OpenStore() : std::vector<int>();
  BeginGame();
  for (const int slot : stores) {
    if (!IsFree(session.CardTable[slot])) FireTrigger(session.CardTable[slot], "GAMESTART");
  }
}

/// The way from a click on a portrait to the first report.
void StartMatch(int gameIndex, int opponentIndex) {
  Session& session = State();
  session.PageText = "<font size=+5>Loading...</font>";
  WritePage("Display.html", "#000000");
  State().Links = {};
  Windows().ShowMain("Display.html");
  // What ran while the page was shown may have changed the list.
  if (Desktop().Ending() || !HasOpponent(gameIndex, opponentIndex)) return;
  const BeforeMatch before;
  if (!ReadMatchFiles(gameIndex, opponentIndex)) {
    BackToList();
    return;
  }
  TellPlayerFileLeftAlone(gameIndex);
  if (session.StarterDeckFlag == 0 && !ChooseDeck()) {
    if (Desktop().Ending()) return;
    before.PutBack();
    BackToList();
    return;
  }
  EnterProgramFolder();
  // For a match the file has been read: read again, its cards would no longer be the stored twins
  // of those in the deck.
  if (session.StarterDeckFlag == 1 && !HasPlayerFile()) {
    OwnNothing();  // the cards of another game's player file are not of this game
    session.Players[1].Tokens = kFirstTokens;
  } else if (session.StarterDeckFlag == 1 && !ReadOwnFile()) {
    before.PutBack();
    BackToList();
    return;
  }
  BeginMatchRecord(gameIndex, opponentIndex);
  ShufflePile(session.Players[2]);
  OpenTable();
  TakeTurn(1);
  session.StarterDeckFlag = 0;
  StorePlayer();  // a starter deck has given its cards
}

}  // namespace

void ChooseGame(int gameIndex, int opponentIndex) {
  Session& session = State();
  if (session.TurnRunning == 1 || !HasOpponent(gameIndex, opponentIndex)) return;
  // The player's file of that game is read.
  if (!MayLeavePlayer(Leaving::kSavesFirst)) return;
  session.TurnRunning = 1;
  StartMatch(gameIndex, opponentIndex);
  session.TurnRunning = 0;
}

}  // namespace brindlemoor
