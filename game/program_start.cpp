// Program start and the reset of a new game.
#include "game/program_start.h"

#include <array>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "game/game_list.h"
#include "game/plans.h"
#include "game/player_files.h"
#include "game/windows.h"
#include "images/image_bridge.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_entry.h"
#include "script/card_setup.h"
#include "script/effect_masks.h"

namespace brindlemoor {

namespace {

void BuildBitValues() {
  auto& values = State().BitValues;
  values = {};
  for (std::size_t bit = 1; bit < values.size(); ++bit) values[bit] = std::uint64_t{1} << (bit - 1);
}

void ResetTables() {
  Session& session = State();
  ForgetRules();
  ForgetWaitingCards();
  session.CardTable.Reset(1);
  session.Sideboard.Reset(1);
  session.Games.Reset(1);
  ForgetTraitBits();
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    DeckRec& record = session.Decks[deck];
    if (record.DeckName.empty()) record.DeckName = DefaultDeckName(deck);
    record.Cards.Reset(1);
  }
}

/// What a game leaves behind that another game of the folder must not see.
void ForgetLastGame() {
  Session& session = State();
  ForgetPlans();
  session.Problems.clear();
  session.CurrentGame = 0;
  session.StarterDeckFlag = 0;
  session.Match = {};
  session.RefCache = {};  // its files may be others by the next match
}

struct DefaultPlayer {
  int Side;
  std::string_view Name;
  std::string_view Thumb;
};
constexpr std::array<DefaultPlayer, 2> kDefaultPlayers = {
    {{1, "Player 1", "Player1thumb.bmp"}, {2, "Player 2", "Player2thumb.bmp"}}};

/// A card that stands for a side until a card with the trait PLAYER takes its place.
void AddDefaultPlayer(const DefaultPlayer& player) {
  Card card;
  InitCard(card, player.Side, 0);
  card.Name = player.Name;
  card.Thumb = player.Thumb;
  AddEffect(card, "REQALLY:REQTRAIT:PLAYER:DESTROYME", kTargetTriggeringCard, "OTHERENTERSPLAY", 0,
            TargetTypeName(kTargetTriggeringCard));
  State().Players[player.Side].PlayerCard = AddToTable(card);
}

void ResetSides() {
  Session& session = State();
  session.ImageBridge = std::make_shared<cGdiPlus>();
  for (int side = 1; side <= 3; ++side) InitPlayer(session.Players[side], side);
  InitPlayer(session.GameDeck, kGameDeckState);
  for (const DefaultPlayer& player : kDefaultPlayers) AddDefaultPlayer(player);
  session.Players[3].Color = "#AAAAAA";
  Pile& hand = session.Players[1].Hand;
  hand.Reset(kHandPositions);
  for (Card& card : hand) InitCard(card, 1, 0);
  // A card that stayed would be taken for all that the player owns where the file can't be read.
  session.Collection.Reset(1);
  session.StoredPlayer = {};
  RenumberAllTraitBits();
}

/// The name of a file of the profile, "" when it is gone. Folders in the name lead nowhere.
std::string StoredFile(const Text& file) {
  const std::string name = FileNameOf(file);
  return !name.empty() && IsThere(Desktop().Files(), InProgramFolder(name)) ? name : "";
}

}  // namespace

void ForgetRules() {
  Session& session = State();
  session.RulesCard.InPlay = 1;
  InitCard(session.RulesCard, 1, 1);
  BuildEffectMasks(session.RulesCard, 0);
  session.TraitActions.Reset(1);
  session.TraitGraphics.Reset(1);
  session.CustomStrings.Reset(0);
  session.StringsCanVanish = false;
  session.DeckRules = Text();
}

void ForgetWaitingCards() {
  Session& session = State();
  session.PendingCards.Reset(1);
  session.PendingCount = 0;
  session.WaitingSlots.Reset(1);
  for (auto& hits : session.HitTable) hits.clear();
}

void StartProgram() {
  EnterProgramFolder();
  if (Desktop().Files().Exists(InProgramFolder("Debug.on"))) State().DebugMode = 1;
  NewGame();
  if (!Desktop().Ending()) Windows().ShowMainWindow();
}

namespace {

void LeadToList() {
  Session& session = State();
  EnterProgramFolder();
  session.GameOver = 0;
  Windows().SetTurnButton("Take Turn");
  SeedFromClock();
  BuildBitValues();
  session.FullSizeImages = static_cast<std::uint8_t>(Windows().FullSizeImages());
  ForgetLastGame();
  ResetTables();
  ResetSides();
  Windows().HideHand();
  Windows().BlankSideViews();
  if (session.Profile.PlayerName.empty()) Windows().ChooseProfile();
  if (session.Profile.PlayerName.empty()) {
    Desktop().EndProgram();
    return;
  }
  EnterProgramFolder();
  if (const std::string rules = StoredFile(session.Profile.RulesFile); !rules.empty()) {
    ReadCards(rules, session.GameDeck, 0, "", 0);
  }
  if (const std::string own = StoredFile(session.Profile.PlayerFile); !own.empty()) {
    ReadPlayerFile(own);
  }
  DiscoverGames();
  ShowGameList();
  Windows().ShowFirstSteps();
}

}  // namespace

void NewGame() {
  // What the user clicks while pages are shown must not begin this once more.
  const auto outer = std::exchange(State().TurnRunning, std::uint8_t{1});
  LeadToList();
  State().TurnRunning = outer;
}

}  // namespace brindlemoor
