// CardReader: what each directive does.
#include <algorithm>
#include <limits>

#include "core/card_files.h"
#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_reader.h"
#include "data/card_reading.h"
#include "data/field_text.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr int kByte = 255;
constexpr int kLeast = std::numeric_limits<std::int32_t>::min();
constexpr int kMost = std::numeric_limits<std::int32_t>::max();
/// A broken file shows no more message boxes than these; the problems tell of all.
constexpr int kMessagesPerFile = 20;
/// Traits that are compared as fast as one item of an ordinary search.
constexpr std::size_t kTraitsOfItem = 4;

std::uint8_t ByteOf(std::string_view text) {
  const double number = NumericPrefix(text);
  return number >= 0 && number <= kByte ? static_cast<std::uint8_t>(number) : std::uint8_t{0};
}

/// A line "BONUSHP:2" gives the card the base "HP:BONUS". When a line of its own for that trait
/// follows, as in saved cards, it takes the place of the base: two items would be two traits.
void DropBonusBase(Card& card, std::string_view text) {
  const std::string_view name = FieldAt(text, 1, ':');
  const int base = TraitSlot(card, name);
  if (base == 0 || card.Traits[base].Value() != "BONUS" || !HasTrait(card, Joined("BONUS", name))) {
    return;
  }
  const int last = card.Traits.UpperBound();
  card.TraitCaptions.Resize(last);
  for (int item = base; item < last; ++item) {
    card.Traits.Edit(item) = TraitItem(card.Traits[item + 1].AsText());
    card.TraitCaptions.Edit(item) = Text(card.TraitCaptions[item + 1]);
  }
  card.Traits.Edit(last) = Text();
  card.TraitCaptions.Edit(last) = Text();
}

}  // namespace

/// A file is skipped when it is named as it was named before, or is being read under any name.
bool CardReader::MayInclude(std::string_view file, std::string_view path) const {
  const Session& session = State();
  const auto named = [file](const Text& name) { return FoldEquals(name, file); };
  if (std::any_of(session.FileList.begin() + 1, session.FileList.end(), named)) return false;
  const auto opened = session.OpenPaths.begin() + 1;
  return std::find(opened, opened + session.ReadDepth, path) == opened + session.ReadDepth;
}

void CardReader::Include(const DirectiveRow&) {
  if (!options_.FollowsIncludes) return;
  const std::string file = fields_[0];
  const std::string location = fields_[1];
  const std::string path = file.empty() ? "" : TakeReferencedFile(file);
  if (path.empty()) {
    Problem(Joined("the file \"", file, "\" is not there"));
  } else if (!MayInclude(file, path)) {
    Problem(Joined("the file \"", file, "\" is being read already"));
  } else if (State().ReadDepth >= limits::kNestedReads) {
    Problem(Joined("the file \"", file, "\" is not read: files may be nested ",
                   limits::kNestedReads, " deep"));
  } else {
    ReadCards(path, player_, options_.NoDuplicates ? 1 : 0, location, 1);
  }
}

void CardReader::StarterDeck(const DirectiveRow&) { State().StarterDeckFlag = 1; }

void CardReader::GameFile(const DirectiveRow&) { State().GameFileName = SharedField(0); }

void CardReader::CustomString(const DirectiveRow&) {
  if (!AddCustomString(Field(0), Field(1))) {
    Problem(Joined("the text for \"", Field(0), "\" is left out: there are too many"));
  }
}

/// The row of a #CARD line's location; sets the deck number that the location names. nullptr when
/// the card is left out.
const LocationRow* CardReader::ReadLocation() {
  std::string location = fields_[0];
  if (!options_.ForcedLocation.empty()) {
    const LocationRow* row = FindLocation(location);
    if (row != nullptr && row->CanBeForced) location = options_.ForcedLocation;
  }
  const std::string written = location;
  std::erase(location, '#');
  location = FoldUpper(location);
  if (FieldAt(location, 1, ':') == "INPLAYERDECK") {
    if (!ReadDeckNumber(FieldAt(location, 2, ':'))) {
      pile_ = kNoPile;
      return nullptr;
    }
    location = "PLAYERDECK";
  }
  const LocationRow* row = FindLocation(location);
  if (row == nullptr) {
    Problem(Joined("\"", written, "\" is no location; the card \"", Field(1), "\" is left out"));
  } else if (row->Pile == kPlayerDeckPile && deckNumber_ == 0) {
    Problem(Joined("the card \"", Field(1), "\" is left out: no deck number was given"));
    pile_ = kNoPile;
    return nullptr;
  }
  return row;
}

void CardReader::FullCard(const DirectiveRow&) {
  Card record;
  InitCard(record, 1, 0);
  record.Name = Field(1);
  record.UniqueID = Field(2);
  record.SourceFile = SharedField(3);
  record.Picture = SharedField(4);
  record.Thumb = SharedField(5);
  if (!Field(6).empty()) record.NameColor = SharedField(6);
  record.Description = SharedField(7);
  const LocationRow* location = ReadLocation();
  // A card at no location leaves the one before it current.
  if (location != nullptr && location->Pile != kNoPile) StoreCard(*location, std::move(record));
}

void CardReader::StoreCard(const LocationRow& location, Card record) {
  SetOwner(record, location.Owner == kReadingSide ? player_.PlayerNo : location.Owner);
  record.InPlay = static_cast<std::uint8_t>(location.InPlay);
  const bool isPlayer = location.Pile == kPlayerCardPile;
  Card* place = location.Pile == kCostPile ? &State().CostCard
                                           : NewCard(isPlayer ? kTablePile : location.Pile);
  pile_ = place == nullptr ? kNoPile : location.Pile;
  if (place == nullptr) return;
  *place = std::move(record);
  if (isPlayer) {
    player_.PlayerCard = LastPosition(kTablePile);
    place->NameColor = Text();
    player_.Color = Text();
  }
}

void CardReader::ShortCard(const DirectiveRow& row) {
  Card* card = NewPreparedCard(row.Pile, row.Neutral);
  if (card != nullptr) FillShortCard(*card, 0);
}

void CardReader::CardInPlayerDeck(const DirectiveRow& row) {
  pile_ = kNoPile;
  if (!ReadDeckNumber(Field(0))) return;
  Card* card = NewPreparedCard(row.Pile, row.Neutral);
  if (card != nullptr) FillShortCard(*card, 1);
}

void CardReader::StoreReference(PileCode pile, std::string_view name, std::string_view file) {
  Card found = GetRefCard(name, file);
  Card* place = NewCard(pile);
  if (place == nullptr) return;
  if (IsFree(found)) {
    Problem(Joined("no card \"", name, "\" is found in \"", file, "\"; its place stays free"));
  } else {
    SetOwner(found, player_.PlayerNo);
    found.GlobalID = RollDie(kDuplicateId);
  }
  *place = std::move(found);
}

void CardReader::Reference(const DirectiveRow& row) {
  StoreReference(row.Pile, Field(0), Field(1));
}

void CardReader::ReferenceInPlayerDeck(const DirectiveRow& row) {
  if (ReadDeckNumber(Field(0))) StoreReference(row.Pile, Field(1), Field(2));
}

void CardReader::DeckRules(const DirectiveRow&) { State().DeckRules = SharedField(0); }

void CardReader::TraitAction(const DirectiveRow& row) {
  Card* card = NewPreparedCard(row.Pile, row.Neutral);
  if (card != nullptr) card->Name = Field(0);
}

void CardReader::Tokens(const DirectiveRow&) {
  player_.Tokens = ReadWholeNumber(Field(0), "the number of tokens", kLeast, kMost);
}

void CardReader::NameOfDeck(const DirectiveRow&) {
  // Only the player's own file may name the player's decks, not those that it includes.
  if (&player_ != &State().Players[1] || State().ReadDepth != 1) return;
  const int current = deckNumber_;
  if (ReadDeckNumber(Field(0)) && !Field(1).empty()) {
    State().Decks[deckNumber_].DeckName = FreeTextOf(Field(1));
  }
  deckNumber_ = current;
}

void CardReader::TemplateData(const DirectiveRow& row) {
  Table<Template>& templates = State().Templates;
  const int last = LastPosition(kTemplatePile);
  if (!templates.Holds(last)) {
    Problem(Joined("there is no template for ", row.Word));
    return;
  }
  templates[last].BackImage = SharedField(0);
  templates[last].MiniBorder = SharedField(1);
  templates[last].BorderColor = ReadWholeNumber(Field(2), "the border colour", kLeast, kMost);
}

void CardReader::Nothing(const DirectiveRow&) {}

void CardReader::BeginRulesCard(const DirectiveRow&) {
  InitCard(State().RulesCard, 1, 1);
  State().RulesCard.Name = "RulesCard";
  pile_ = kRulesPile;
}

void CardReader::BeginCostCard(const DirectiveRow&) {
  State().CostCard.Name = "CostCard";
  pile_ = kCostPile;
}

void CardReader::Trait(const DirectiveRow& row) {
  Card* card = CurrentCard(row);
  if (card == nullptr) return;
  const std::string_view text = Field(0);
  if (text.empty()) {
    Problem("a trait has no name");
    return;
  }
  if (card->Traits.UpperBound() >= limits::kCardItems) {
    Problem(Joined("the trait \"", text, "\" is left out: the card has ", limits::kCardItems));
    return;
  }
  SpendWorkOnSearch(static_cast<std::size_t>(card->Traits.UpperBound()) / kTraitsOfItem);
  DropBonusBase(*card, text);
  SetTrait(*card, text, "", 1);
  if (pile_ == kRulesPile && FieldAt(text, 1, ':') == "TRAITGRAPHIC") {
    AddTraitGraphic(FieldAt(text, 2, ':'), FieldAt(text, 3, ':'), FieldAt(text, 5, ':'),
                    FieldAt(text, 4, ':'), ByteOf(FieldAt(text, 6, ':')),
                    ByteOf(FieldAt(text, 7, ':')));
  }
}

void CardReader::Effect(const DirectiveRow& row) {
  Card* card = CurrentCard(row);
  if (card == nullptr) return;
  if (card->Effects.UpperBound() >= limits::kCardItems) {
    Problem(Joined("an action is left out: the card has ", limits::kCardItems));
    return;
  }
  const int target = TargetTypeCode(Field(0));
  const auto known = [this](const TargetTypeRow& type) { return type.Word == Field(0); };
  if (target == kTargetCard && std::ranges::none_of(kTargetTypeRows, known)) {
    Problem(Joined("\"", Field(0), "\" is no target; a card that the player picks is taken"));
  }
  AddEffect(*card, SharedField(2), target, SharedField(1), pile_ == kTraitActionPile ? 1 : 0,
            SharedField(0));
}

void CardReader::ExtraData(const DirectiveRow& row) {
  Card* card = CurrentCard(row);
  if (card == nullptr) return;
  card->Rarity = static_cast<std::uint8_t>(ReadWholeNumber(Field(0), "the rarity", 0, kByte));
  if (pile_ == kRulesPile || pile_ == kCostPile) return;
  card->ActivateOn = SharedField(1);
  card->EntryScripts = SharedField(2);
}

void CardReader::MissingTrait(const Card& card) {
  const std::string message = Joined("Error in reading cards: ", card.Name, " references trait ",
                                     Field(0), " but does not have it.");
  Problem(message);
  // A script that creates cards does not stop for a message.
  const bool shown = pile_ == kDeckPile && State().RunDepth == 0;
  if (shown && messages_++ < kMessagesPerFile) Desktop().MessageBox(message);
}

void CardReader::TraitActionDesc(const DirectiveRow& row) {
  if (pile_ == kTraitActionPile || pile_ == kCostPile) return;
  Card* card = CurrentCard(row);
  if (card == nullptr) return;
  const int item = Field(0).empty() ? 0 : TraitSlot(*card, Field(0));
  if (item == 0) {
    MissingTrait(*card);
    return;
  }
  if (!card->TraitCaptions.Holds(item)) card->TraitCaptions.Resize(card->Traits.UpperBound());
  card->TraitCaptions.Edit(item) = SharedField(1);
}

void CardReader::Duplicate(const DirectiveRow& row) {
  if (options_.NoDuplicates) return;
  if (pile_ != kDeckPile && pile_ != kTablePile && pile_ != kPlayerDeckPile) return;
  if (CurrentCard(row) == nullptr) return;
  const double count = std::max(1.0, NumericPrefix(Field(0)));
  for (int copy = 1; copy <= count && !WorkIsSpent(); ++copy) {
    const int original = LastPosition(pile_);
    Card* card = NewCard(pile_);
    if (card == nullptr) return;
    *card = CardsOf(pile_)[original];
    card->GlobalID = RollDie(kDuplicateId);
  }
}

}  // namespace brindlemoor
