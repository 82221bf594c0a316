// Reading game data for scenarios.
#include "scenario/scenario_library.h"

#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_reader.h"
#include "game/program_start.h"
#include "language/traits.h"
#include "scenario/scene.h"
#include "script/card_setup.h"
#include "script/effect_masks.h"
#include "ui/window_session.h"

namespace brindlemoor {

namespace {

constexpr std::uint64_t kOwnSeed = 1;

void AddLiving(std::vector<Card>& cards, const Pile& pile) {
  for (const Card& card : pile) {
    if (!IsFree(card)) cards.push_back(card);
  }
}

/// Every card of a file, read in a session aside. Draw pile first: there cards are defined.
std::vector<Card> CardsOfFile(const std::string& path) {
  Session outer = std::move(State());
  OpenWindowSession(outer.Desktop, outer.ProgramFolder);
  Session& aside = State();
  PrepareTables();
  PlayerState reader;
  InitPlayer(reader, 1);
  std::vector<Card> cards;
  aside.ReadDepth = 1;  // the order of the file
  if (ReadCards(path, reader, 1, "", 1)) {
    for (const Pile* pile : {&reader.Deck, &aside.CardTable, &aside.Collection, &aside.Sideboard}) {
      AddLiving(cards, *pile);
    }
    for (const DeckRec& deck : aside.Decks) AddLiving(cards, deck.Cards);
  }
  State() = std::move(outer);
  return cards;
}

void ReadRulesNow(const std::string& path) {
  const OwnSequence sequence;
  ForgetRules();
  ReadCards(path, State().GameDeck, 0, "", 0);
}

}  // namespace

OwnSequence::OwnSequence() : outer_(std::exchange(State().Random.State, kOwnSeed)) {}
OwnSequence::~OwnSequence() { State().Random.State = outer_; }

ScenarioLibrary::ScenarioLibrary() = default;
ScenarioLibrary::ScenarioLibrary(FileSystem& files) : machine_(files) {}
ScenarioLibrary::~ScenarioLibrary() = default;

Card ScenarioLibrary::Definition(const Scene& scene, const std::string& path,
                                 std::string_view name) {
  const OwnSequence sequence;
  // A file that the scenario wrote can be another one under the same name.
  if (scene.OwnFiles) definitions_.erase(path);
  const auto [entry, isNew] = definitions_.try_emplace(path);
  if (isNew) entry->second = CardsOfFile(path);
  Card found;
  for (const Card& card : entry->second) {
    if (card.Name != name && card.UniqueID != name) continue;
    found = card;
    RenumberTraitBits(found);  // each scenario numbers trait names anew
    CountActionsAsOld(found);  // the session that read it counted by itself
    break;
  }
  if (scene.OwnFiles) definitions_.erase(path);
  return found;
}

bool ScenarioLibrary::ReadRules(const Scene& scene, const std::string& path) {
  if (!Desktop().Files().Exists(path)) return false;
  if (!scene.Pristine || scene.OwnFiles) {
    ReadRulesNow(path);
    return true;
  }
  Session& session = State();
  auto& kept = rules_[path];
  if (kept == nullptr) {
    ReadRulesNow(path);
    // What a read showed must be shown by each.
    if (!scene.Desktop->Messages.empty() || session.OpenForms != nullptr) return true;
    kept = std::make_unique<Session>(session);
    kept->Desktop = nullptr;
    return true;
  }
  auto desktop = std::move(session.Desktop);
  const std::uint64_t random = session.Random.State;
  session = *kept;
  session.Desktop = std::move(desktop);
  session.Random.State = random;
  return true;
}

void PrepareTables() {
  Session& session = State();
  for (std::size_t bit = 1; bit < session.BitValues.size(); ++bit) {
    session.BitValues[bit] = std::uint64_t{1} << (bit - 1);
  }
  for (Pile* pile : {&session.CardTable, &session.TraitActions, &session.Sideboard,
                     &session.PendingCards, &session.Collection}) {
    pile->Reset(1);
  }
  ForgetTraitBits();
  session.TraitGraphics.Reset(1);
  session.WaitingSlots.Reset(1);
  for (int side = 1; side <= 3; ++side) InitPlayer(session.Players[side], side);
  InitPlayer(session.GameDeck, kGameDeckState);
  for (DeckRec& deck : session.Decks) deck.Cards.Reset(1);
}

std::string FindGameFile(const std::string& name) {
  std::string path = InProgramFolder(name);
  if (name.starts_with('/')) path = name;
  return Desktop().Files().Exists(path) ? path : ResolvePath(name, 0);
}

}  // namespace brindlemoor
