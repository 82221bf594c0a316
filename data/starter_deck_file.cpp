// Writing of starter deck files.
#include "data/starter_deck_file.h"

#include <string>
#include <vector>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_file_writer.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "language/traits.h"

namespace brindlemoor {

namespace {

/// A card of the deck and how often it lies there.
struct Copies {
  const Card* Model;
  int Count;
};

std::vector<Copies> DifferentCards(const Pile& deck) {
  std::vector<Copies> different;
  for (const Card& card : deck) {
    if (IsFree(card)) continue;
    auto known = different.begin();
    while (known != different.end() && known->Model->Name != card.Name) ++known;
    if (known == different.end()) {
      different.push_back({&card, 1});
    } else {
      ++known->Count;
    }
  }
  return different;
}

/// The line of the game list: the deck's player card, or its first card, under the deck's name.
std::string Portrait(const std::vector<Copies>& cards, std::string_view deckName) {
  const Card* model = cards.front().Model;
  for (const Copies& copies : cards) {
    if (HasTrait(*copies.Model, "PLAYER")) {
      model = copies.Model;
      break;
    }
  }
  Card portrait = *model;
  portrait.Name = deckName;
  return CardToText(portrait, "#PLAYERCARD");
}

/// The rules card of the file deals the cards out, each by its name.
std::string Dealing(const std::vector<Copies>& cards) {
  std::string script;
  for (const Copies& copies : cards) {
    script += Joined("BOOSTERCARD:", copies.Model->Name, ":", copies.Count, ":");
  }
  return Joined("#RULESCARD", kLineEnd, "#EFFECT, SELF, GAMESTART, ", QuotedField(script),
                kLineEnd);
}

std::string StarterDeckText(const std::vector<Copies>& cards, std::string_view deckName) {
  // The head deals no booster: the cards are known.
  std::string out = Joined("#STARTERDECK", kLineEnd, kLineEnd, Portrait(cards, deckName), kLineEnd,
                           StarterDeckHead(deckName, 0));
  for (const Copies& copies : cards) {
    Card card = *copies.Model;
    out += CardToText(card, "#CARDINDECK");
    out += kLineEnd;
  }
  return out + Dealing(cards);
}

}  // namespace

bool WriteStarterDeckFile(std::string_view fileName, std::string_view deckName) {
  const Session& session = State();
  if (!session.Decks.Holds(session.CurrentDeck)) return false;
  const auto cards = DifferentCards(session.Decks[session.CurrentDeck].Cards);
  if (cards.empty()) return false;
  for (const Copies& copies : cards) {
    if (copies.Model->Name.View().find(':') == std::string_view::npos) continue;
    // The script that deals the cards would end the name there.
    Desktop().MessageBox(
        Joined("\"", copies.Model->Name, "\" can't be in a starter deck: its name has a colon."));
    return false;
  }
  return SaveOrTell(InCurrentFolder(fileName), fileName, StarterDeckText(cards, deckName));
}

}  // namespace brindlemoor
