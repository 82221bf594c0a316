// Words that lay cards out.
#include <algorithm>
#include <array>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "scenario/scenario_library.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "script/card_setup.h"
#include "script/effect_masks.h"
#include "script/trait_changes.h"
#include "script/triggers.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kMostOwner = 255;
constexpr std::int32_t kFirstId = 1000;
constexpr std::size_t kHandles = 20000;

/// A card in the table has been there for a while: what is laid out on it is no change that is
/// still to be told of, as it is with a card that enters play.
void GiveTrait(Card& card, std::string_view trait) {
  const Text changed = card.ChangedTraits;
  const std::string_view name = FieldAt(trait, 1, ':');
  if (HasTrait(card, name)) {
    SetTrait(card, name, trait.substr(std::min(name.size() + 1, trait.size())), 1);
  } else {
    SetTrait(card, trait, "", 1);  // as card files write it
  }
  if (IsTableRecord(card)) card.ChangedTraits = changed;
}

/// Traits as card files have them: NAME or NAME:VALUE.
void AddTraits(Scene& scene, WordReader& line, Card& card) {
  while (!line.AtEnd()) {
    const std::string trait = line.Take("a trait");
    if (trait.empty()) {
      scene.Stop("A trait has no name.");
      return;
    }
    if (card.Traits.UpperBound() < limits::kCardItems) GiveTrait(card, trait);
  }
}

/// What stands behind "card" and "player".
struct CardLine {
  std::string Handle;
  std::string Name;
  std::string File;  ///< "" for a card that is made here
  int Owner = 1;
  const PlaceRow* Place = &PlaceRows()[0];
  std::int32_t GlobalID = 0;
};

/// Takes the options up to "with"; false when the line is wrong.
bool TakeOptions(WordReader& line, CardLine& card) {
  while (line.Good() && !line.AtEnd()) {
    if (line.TakeIf("with")) return true;
    if (line.TakeIf("from")) {
      card.File = line.Take("a card file");
    } else if (line.TakeIf("owner")) {
      card.Owner = line.TakeWhole("an owner", 0, kMostOwner);
    } else if (line.TakeIf("in")) {
      card.Place = line.TakePlace();
    } else if (line.TakeIf("gid")) {
      card.GlobalID = line.TakeWhole("a GlobalID", 1, 100000000);
    } else {
      return line.Ends();
    }
  }
  return line.Good();
}

/// A record with the line's name and owner; one without a name when the line is wrong.
Card MadeCard(Scene& scene, const CardLine& line) {
  Card card;
  const OwnSequence sequence;
  if (line.File.empty()) {
    InitCard(card, 1, 0);
    SetOwner(card, line.Owner);  // as a file is read: a card of owner 3 keeps the bit of side 1
    card.Name = line.Name;
    if (line.Name.empty()) scene.Stop("The card has no name.");
  } else {
    const std::string path = FindGameFile(line.File);
    if (!path.empty()) card = scene.Library.Definition(scene, path, line.Name);
    if (path.empty()) {
      scene.Stop(Joined("There is no file ", ShownText(line.File), "."));
    } else if (IsFree(card)) {
      scene.Stop(
          Joined("There is no card ", ShownText(line.Name), " in ", ShownText(line.File), "."));
    }
    SetOwner(card, line.Owner);
    card.InPlay = 0;
  }
  card.GlobalID = line.GlobalID != 0 ? line.GlobalID
                                     : kFirstId + static_cast<std::int32_t>(scene.Handles.size());
  return card;
}

/// Makes the line's card and puts it into its place.
Card* LayOut(Scene& scene, WordReader& line, const CardLine& row) {
  if (scene.Handles.size() >= kHandles) scene.Stop("There are too many cards.");
  if (!scene.Handles.emplace(row.Handle, CardHandle()).second) {
    scene.Stop(Joined("There is a card ", ShownText(row.Handle), " already."));
  }
  if (!line.Good()) return nullptr;
  Card card = MadeCard(scene, row);
  if (!line.Good()) return nullptr;
  scene.Pristine = false;
  scene.Changed = true;
  const int side = State().Players.Holds(row.Owner) ? row.Owner : 1;
  const std::int32_t gid = card.GlobalID;
  Card* placed = PutIntoPlace(scene, *row.Place, side, std::move(card));
  if (placed == nullptr) {
    scene.Stop(Joined("There is no room in ", row.Place->Word, "."));
    return nullptr;
  }
  scene.Handles[row.Handle] = {gid, row.Place, side};
  scene.CardInHand = row.Handle;
  if (IsTableRecord(*placed)) placed->ChangedTraits = Text();
  AddTraits(scene, line, *placed);
  return placed;
}

void MakeCard(Scene& scene, WordReader& line) {
  CardLine row;
  row.Handle = line.Take("a card");
  const bool isOption = !line.NextIsQuoted();
  row.Name = isOption ? row.Handle : line.Take("a name");
  if (line.Good() && TakeOptions(line, row)) LayOut(scene, line, row);
}

void MakePlayer(Scene& scene, WordReader& line) {
  CardLine row;
  row.Owner = line.TakeWhole("a side", 1, 2);
  row.Handle = Joined("player", row.Owner);
  row.Name = line.NextIsQuoted() ? line.Take("a name") : Joined("Player ", row.Owner);
  if (!line.Good() || !TakeOptions(line, row)) return;
  Card* card = LayOut(scene, line, row);
  if (card == nullptr) return;
  GiveTrait(*card, "PLAYER");
  PlayerState& player = State().Players[row.Owner];
  player.PlayerCard = card->Slot;
  player.Color = card->NameColor;
}

/// The card that "trait" and the like speak of; stops the scenario when there is none.
Card* CardInHand(Scene& scene) {
  Card* card = FindScenarioCard(scene, scene.CardInHand).Record;
  if (card == nullptr) scene.Stop("There is no card before this line.");
  scene.Changed = true;
  return card;
}

void On(Scene& scene, WordReader& line) {
  const std::string reference = line.Take("a card");
  if (!line.Ends()) return;
  if (FindScenarioCard(scene, reference).Record == nullptr) {
    scene.Stop(Joined("There is no card ", ShownText(reference), "."));
  }
  scene.Pristine = false;
  scene.CardInHand = reference;
}

void Trait(Scene& scene, WordReader& line) {
  std::string trait = line.Take("a trait");
  if (!line.AtEnd()) trait += Joined(":", line.Take("a value"));
  if (trait.empty()) scene.Stop("The trait has no name.");
  if (!line.Ends()) return;
  Card* card = CardInHand(scene);
  if (card != nullptr) GiveTrait(*card, trait);
}

void NoTrait(Scene& scene, WordReader& line) {
  const std::string trait = line.Take("a trait");
  if (!line.Ends()) return;
  Card* card = CardInHand(scene);
  if (card != nullptr) RemoveTrait(*card, trait);
}

void Caption(Scene& scene, WordReader& line) {
  const std::string trait = line.Take("a trait");
  const std::string text = line.Take("a caption");
  if (!line.Ends()) return;
  Card* card = CardInHand(scene);
  if (card == nullptr) return;
  const int item = TraitSlot(*card, trait);
  if (item == 0 || !card->TraitCaptions.Holds(item)) {
    scene.Stop(Joined("The card has no trait ", ShownText(trait), "."));
    return;
  }
  card->TraitCaptions.Edit(item) = text;
}

void Effect(Scene& scene, WordReader& line) {
  const std::string target = line.Take("a target word");
  const std::string trigger = line.Take("a trigger");
  const std::string script = line.Take("a script");
  if (!line.Ends()) return;
  const bool known =
      std::ranges::any_of(kTargetTypeRows,
                          [&](const TargetTypeRow& row) { return row.Word == target; }) ||
      FieldAt(target, 1, ':') == "GIDCARD";
  if (!known) {
    scene.Stop(Joined("\"", ShownText(target), "\" is no target word."));
    return;
  }
  Card* card = CardInHand(scene);
  if (card == nullptr) return;
  const bool isTraitAction =
      FindScenarioCard(scene, scene.CardInHand).Place == FindPlace("traitactions");
  AddEffect(*card, script, TargetTypeCode(target), trigger, isTraitAction ? 1 : 0, target);
}

void Arm(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const int action = line.TakeWhole("the number of an action", 1, limits::kCardItems);
  if (!line.Ends()) return;
  if (!card.Record->Effects.Holds(action)) {
    scene.Stop(Joined("The card has no action ", action, "."));
    return;
  }
  card.Record->Effects.Edit(action).MenuState = kArmedMenuAction;
}

void Aim(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  const int action = line.TakeWhole("the number of an action", 1, limits::kCardItems);
  PlacedCard target;
  int number = 0;
  if (line.NextIsNumber()) {
    number = line.TakeWhole("a slot", 0, limits::kTableCards);
  } else if (!line.TakeIf("none")) {
    target = line.TakeCard("a target");
  }
  if (!line.Ends()) return;
  if (!card.Record->Effects.Holds(action)) {
    scene.Stop(Joined("The card has no action ", action, "."));
    return;
  }
  CardEffect& effect = card.Record->Effects.Edit(action);
  const std::string_view place = target.Place != nullptr ? target.Place->Word : "";
  effect.ChosenTarget = target.Record != nullptr ? target.Index : number;
  effect.PickedPile = static_cast<std::uint8_t>(place.starts_with("deck") ? place.back() - '0' : 0);
}

// clang-format off
constexpr std::array<ScenarioWord, 9> kWords = {{
    {"card", WordKind::kSetUp, MakeCard, "card CARD [\"NAME\"] [from FILE] [owner N] [in PLACE] [gid N] [with TRAIT...]",
     "lays out a card that lines call CARD; from FILE it is the card there with that name or unique ID. Without more words it is the player's and in play"},
    {"player", WordKind::kSetUp, MakePlayer, "player N [\"NAME\"] [from FILE] [gid N] [with TRAIT...]",
     "the player card of a side, called player1 or player2"},
    {"on", WordKind::kSetUp, On, "on CARD", "the lines below speak of this card, \"on rules\" of the rules card"},
    {"trait", WordKind::kSetUp, Trait, "trait NAME [VALUE]", "gives the card before a trait"},
    {"notrait", WordKind::kSetUp, NoTrait, "notrait NAME", "takes a trait from the card before"},
    {"caption", WordKind::kSetUp, Caption, "caption TRAIT TEXT", "what the card before says of a trait"},
    {"effect", WordKind::kSetUp, Effect, "effect TARGET TRIGGER SCRIPT", "gives the card before an action, in the words of card files"},
    {"arm", WordKind::kSetUp, Arm, "arm CARD N", "arms the menu action with that number"},
    {"aim", WordKind::kSetUp, Aim, "aim CARD N TARGET|none|SLOT", "the target that the user chose for an action: a card in play or one of the player's own"},
}};
// clang-format on

}  // namespace

std::span<const ScenarioWord> CardWords() { return kWords; }

}  // namespace brindlemoor
