// Writing of whole card data files.
#include "data/card_file_writer.h"

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kStarterCards = 80;
constexpr int kStoreCards = 8;
constexpr int kStorePrice = 5;
constexpr std::string_view kStars = "*****************************************";

/// Adds a record; each one ends its line.
template <class... Pieces>
void AddRecord(std::string& out, const Pieces&... pieces) {
  out += Joined(pieces..., kLineEnd);
}

void AddCard(std::string& out, const Card& stored, std::string_view location) {
  // The writer blanks what traits brought; the stored card keeps it.
  Card card = stored;
  AddRecord(out, CardToText(card, location));
}

void AddHead(std::string& out) {
  const Session& session = State();
  AddRecord(out, kStars);
  AddRecord(out, "***********  CARD DATA FILE *************");
  AddRecord(out, kStars);
  AddRecord(out, kLineEnd, "#TOKENS, ", session.Players[1].Tokens, kLineEnd);
  if (session.GameFileName.empty()) return;
  AddRecord(out, kLineEnd, "#GAMEFILE, ", PlainField(session.GameFileName), kLineEnd);
}

void AddCostCard(std::string& out) {
  if (IsFree(State().CostCard)) return;
  AddRecord(out, "*** Card Cost Calculator ***");
  AddCard(out, State().CostCard, "#COSTCARD");
  AddRecord(out);
}

void AddTemplates(std::string& out) {
  for (Template& entry : State().Templates) {
    if (IsFree(entry.Card)) continue;
    AddCard(out, entry.Card, "#TEMPLATE");
    entry.BackImage = FileNameOf(entry.BackImage);
    entry.MiniBorder = FileNameOf(entry.MiniBorder);
    AddRecord(out, "#TEMPLATEDATA, ", PlainField(entry.BackImage), ", ",
              PlainField(entry.MiniBorder), ", ", entry.BorderColor, kLineEnd, kLineEnd);
  }
}

/// An include of the file that is written would leave the cards in no file at all. Files are
/// included by their names, whatever their folders.
bool CanIncludeCardFile(std::string_view filename) {
  const Text& cardFile = State().CardFile;
  return !cardFile.empty() && !FoldEquals(FileNameOf(cardFile), FileNameOf(filename));
}

/// What stores and starter decks begin with: the neutral card with the traits and actions of both.
std::string NeutralCard(std::string_view deckName) {
  return Joined("#NEUTRALCARD, ", PlainField(deckName), ", , , #FFFFFF, , ,", kLineEnd,
                "#TRAIT, STORE", kLineEnd,
                "#EFFECT, ALL, OTHERENTERSPLAY, REQNOTRAIT:STORE:DESTROY", kLineEnd);
}

}  // namespace

/// Stores and starter decks include the editor's own file instead of repeating its cards.
bool IncludesCardFile(std::string_view filename, std::string_view deckName, int starterFlag) {
  return (starterFlag != 0 || !deckName.empty()) && CanIncludeCardFile(filename);
}

/// What makes the game list show a store and its match begin: with an empty rules card, since in a
/// store nothing else happens.
std::string StoreOpening(std::string_view filename, std::string_view deckName, int starterFlag,
                         std::string_view game) {
  Card portrait;
  for (const Card& card : State().Collection) {
    if (!IsFree(card) && portrait.Thumb.empty()) portrait = card;
  }
  portrait.Name = deckName;
  portrait.Description = starterFlag != 0 ? "A starter deck." : "A card store.";
  std::string out = Joined("#STARTERDECK", kLineEnd);
  if (!game.empty()) out += Joined("#GAME, ", PlainField(game), kLineEnd);
  out += CardToText(portrait, "#PLAYERCARD");
  if (IncludesCardFile(filename, deckName, starterFlag)) {
    const std::string cards = FileNameOf(State().CardFile);
    out += Joined("#INCLUDE, ", PlainField(cards), ", INDECK", kLineEnd);
  }
  return out + Joined("#RULESCARD", kLineEnd);
}

std::string CardFileText(std::string_view filename, std::string_view location,
                         std::string_view deckName, int starterFlag) {
  std::string out;
  AddHead(out);
  const bool starter = starterFlag != 0;
  if (starter) {
    AddRecord(out, StarterDeckHead(deckName, kStarterCards));
  } else if (!deckName.empty()) {
    AddRecord(out, CardStoreHead(deckName, kStoreCards, kStorePrice));
  }
  if (IncludesCardFile(filename, deckName, starterFlag)) {
    AddRecord(out, "#INCLUDE, ", PlainField(FileNameOf(State().CardFile)));
    // The empty location of the include.
    AddRecord(out);
    return out;
  }
  AddCostCard(out);
  AddTemplates(out);
  for (const Card& card : State().Collection) {
    if (!IsFree(card)) AddCard(out, card, location);
  }
  return out;
}

std::string StarterDeckHead(std::string_view deckName, int boosterSize) {
  // The script's quote is closed and never opened: starter files of existing games have these
  // bytes, and BOOSTER reads the number before it.
  return Joined(NeutralCard(deckName),
                "#EFFECT, ALL, GAMESTART, ECHO:Your new starter deck contains the following cards. "
                " Click on the menu above to save your new deck.:BOOSTER:",
                boosterSize, '"', kLineEnd, kLineEnd);
}

std::string CardStoreHead(std::string_view deckName, int boosterSize, int price) {
  const std::string trigger = Joined("MENU:TURNSTART:Purchase a booster of ", boosterSize,
                                     " new cards from the ", deckName, " set (", price, " tokens)");
  return Joined(NeutralCard(deckName), "#EFFECT, SELF, ", PlainField(trigger), ", \"MODTOKENS:-",
                price,
                ":ECHO:You tear open a pack of boosters!<br>The following cards have been added to "
                "your collection.:BOOSTER:",
                boosterSize, '"', kLineEnd, kLineEnd);
}

bool SaveCardFile(std::string_view filename, std::string_view location, std::string_view deckName,
                  int starterFlag) {
  return SaveOrTell(InCurrentFolder(filename), filename,
                    CardFileText(filename, location, deckName, starterFlag));
}

bool SaveStoreFile(std::string_view filename, std::string_view deckName, int starterFlag,
                   std::string_view game) {
  const std::string text = CardFileText(filename, "#CARDINDECK", deckName, starterFlag) +
                           StoreOpening(filename, deckName, starterFlag, game);
  return SaveOrTell(InCurrentFolder(filename), filename, text);
}

void StampCards(std::string_view filename, int force) {
  const Text source = FileNameOf(filename);
  Pile& cards = State().Collection;
  for (int index = 1; index <= cards.UpperBound(); ++index) {
    Card& card = cards[index];
    if (card.UniqueID.empty()) card.UniqueID = Joined(card.Name, index);
    if (card.SourceFile.empty() || force != 0) card.SourceFile = source;
  }
}

}  // namespace brindlemoor
