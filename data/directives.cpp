// The tables of directives and locations.
#include "data/directives.h"

#include <algorithm>

#include "data/card_reading.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using R = CardReader;
constexpr std::string_view kShortLine = "name, picture, thumb, colour, extra text, description";
constexpr std::string_view kReference = "name, file";

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

bool IsColor(std::string_view text) {
  return text.size() == 7 &&
         std::all_of(text.begin() + 1, text.end(), [](char c) { return c >= 'A' && c <= 'F'; });
}

bool IsDirectiveCase(std::string_view text) {
  return std::all_of(text.begin() + 1, text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

}  // namespace

// clang-format off
const std::array<DirectiveRow, 29> kDirectiveRows = {{
    {"#INCLUDE", 2, &R::Include, kNoPile, false, "file, location",
     "reads another file; the location, when not empty, replaces that of its ordinary cards"},
    {"#STARTERDECK", 0, &R::StarterDeck, kNoPile, false, "",
     "the file is a starter deck or a card store"},
    {"#GAMEFILE", 1, &R::GameFile, kNoPile, false, "name", "the rules file of this card set"},
    {"#CUSTOMSTRING", 2, &R::CustomString, kNoPile, false, "key, value",
     "adds a text to those of which one is picked for the key"},
    {"#CARD", 8, &R::FullCard, kNoPile, false,
     "location, name, unique ID, source file, picture, thumb, colour, description",
     "a card at a location"},
    {"#CARDINDECK", 6, &R::ShortCard, kDeckPile, false, kShortLine, "a card in the draw pile"},
    {"#REFINDECK", 2, &R::Reference, kDeckPile, false, kReference,
     "a copy of another file's card in the draw pile"},
    {"#CARDINPLAYERDECK", 7, &R::CardInPlayerDeck, kPlayerDeckPile, false,
     "deck number, name, picture, thumb, colour, extra text, description",
     "a card in one of the player's three decks"},
    {"#REFINPLAYERDECK", 3, &R::ReferenceInPlayerDeck, kPlayerDeckPile, false,
     "deck number, name, file", "a copy of another file's card in one of the player's decks"},
    {"#CARDINPLAY", 6, &R::ShortCard, kTablePile, false, kShortLine, "a card in the table"},
    {"#REFINPLAY", 2, &R::Reference, kTablePile, false, kReference,
     "a copy of another file's card in the table"},
    {"#DECKRULES", 1, &R::DeckRules, kNoPile, false, "script", "what a deck must fulfil"},
    {"#TRAITACTION", 1, &R::TraitAction, kTraitActionPile, true, "trait name",
     "the actions behind it belong to every card with the trait"},
    {"#SIDEBOARDCARD", 6, &R::ShortCard, kSideboardPile, true, kShortLine,
     "a card beside the game, for scripts to take"},
    {"#COLLECTION", 6, &R::ShortCard, kCollectionPile, false, kShortLine,
     "a card of the player's collection"},
    {"#REFCOLLECTION", 2, &R::Reference, kCollectionPile, false, kReference,
     "a copy of another file's card in the collection"},
    {"#TOKENS", 1, &R::Tokens, kNoPile, false, "number", "the player's tokens"},
    {"#DECKNAME", 2, &R::NameOfDeck, kNoPile, false, "deck number, name",
     "what the player has called one of their decks; counts in the player's own file"},
    {"#TEMPLATE", 6, &R::ShortCard, kTemplatePile, false, kShortLine, "a template of the editor"},
    {"#TEMPLATEDATA", 3, &R::TemplateData, kNoPile, false,
     "background, thumbnail border, border colour", "the pictures of the last template"},
    {"#NEUTRALCARD", 6, &R::ShortCard, kTablePile, true, kShortLine,
     "a card in the table that belongs to no side"},
    {"#PLAYERCARD", 0, &R::Nothing, kNoPile, false, "", "how the game list finds an opponent"},
    {"#RULESCARD", 0, &R::BeginRulesCard, kRulesPile, false, "", "the rules of the game follow"},
    {"#COSTCARD", 0, &R::BeginCostCard, kCostPile, false, "", "the editor's cost rules follow"},
    {"#TRAIT", 1, &R::Trait, kNoPile, false, "NAME or NAME:VALUE", "a trait of the card before"},
    {"#EFFECT", 3, &R::Effect, kNoPile, false, "target, trigger, script",
     "an action of the card before"},
    {"#EXTRADATA", 5, &R::ExtraData, kNoPile, false,
     "rarity, enters play during, permanent modifications, empty, empty",
     "more about the card before"},
    {"#TRAITACTIONDESC", 2, &R::TraitActionDesc, kNoPile, false, "trait name, caption",
     "what the card before says of a trait; OVERRIDE keeps the trait's actions away"},
    {"#DUPLICATE", 1, &R::Duplicate, kNoPile, false, "count", "copies of the card before"},
}};

const std::array<ForeignDirectiveRow, 4> kForeignDirectiveRows = {{
    {"#GAMERULES", "name, banner, table colour, folder of the opponents, help page",
     "makes the file a game of the list"},
    {"#GAME", "name of a game",
     "the file, which lies beside the game's rules file, is an opponent of that game"},
    {"#PLAYERDECK", "", "begins a player's file and keeps it out of the list of games"},
    {"#PLAYERPROFILE", "name, files, empty, empty, empty",
     "a player, in the list that the program keeps"},
}};

const std::array<LocationRow, 12> kLocationRows = {{
    {"INDECK", kDeckPile, 0, kReadingSide, true, "the draw pile"},
    {"PLAYERDECK", kPlayerDeckPile, 0, kReadingSide, true,
     "one of the player's decks; INPLAYERDECK:2 names the second"},
    {"INPLAY", kTablePile, 1, kReadingSide, false, "the table"},
    {"NEUTRAL", kTablePile, 1, 3, true, "the table, belonging to no side"},
    {"COLLECTION", kCollectionPile, 0, kReadingSide, true, "the player's collection"},
    {"SIDEBOARD", kSideboardPile, 0, kReadingSide, true, "beside the game"},
    {"PLAYER", kPlayerCardPile, 1, kReadingSide, true, "the table, as the side's player card"},
    {"PLAYERCARD", kNoPile, 0, kReadingSide, false, "nowhere: the game list reads it"},
    {"TEMPLATE", kTemplatePile, 0, kReadingSide, false, "the editor's templates"},
    {"TRAITACTION", kTraitActionPile, 0, kReadingSide, false, "the trait actions"},
    // The two words that card files are saved with.
    {"CARDINDECK", kDeckPile, 0, kReadingSide, false, "the draw pile"},
    {"COSTCARD", kCostPile, 0, kReadingSide, false, "the editor's cost rules"},
}};
// clang-format on

const DirectiveRow* FindDirective(std::string_view word) {
  const auto row = std::ranges::find(kDirectiveRows, word, &DirectiveRow::Word);
  return row == kDirectiveRows.end() ? nullptr : &*row;
}

const LocationRow* FindLocation(std::string_view word) {
  const auto row = std::ranges::find(kLocationRows, word, &LocationRow::Word);
  return row == kLocationRows.end() ? nullptr : &*row;
}

std::string ProblemOfWord(std::string_view word) {
  std::size_t end = 1;
  while (end < word.size() && IsLetter(word[end])) ++end;
  const std::string_view letters = word.substr(0, end);
  const bool whole = end == word.size();
  if (end < 3 || IsForeignDirective(letters)) return "";
  if (!whole) {
    return FindDirective(letters) == nullptr ? "" : Joined("a comma is missing behind ", letters);
  }
  const std::string folded = FoldUpper(letters);
  if (FindDirective(folded) != nullptr) {
    return Joined("\"", word, "\" is no directive; \"", folded, "\" is written in capitals");
  }
  return IsDirectiveCase(word) && !IsColor(word) ? Joined("\"", word, "\" is no directive") : "";
}

bool IsForeignDirective(std::string_view word) {
  return std::ranges::find(kForeignDirectiveRows, word, &ForeignDirectiveRow::Word) !=
         kForeignDirectiveRows.end();
}

}  // namespace brindlemoor
