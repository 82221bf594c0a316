// The layout of player files.
#include "game/owned_text.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/card_writer.h"
#include "data/field_stream.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "text/hash.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void AppendCards(std::vector<std::string>& cards, const Pile& pile, std::string_view location) {
  for (const Card& stored : pile) {
    if (IsFree(stored)) continue;
    // The writer blanks what traits brought; the stored card keeps it.
    Card card = stored;
    cards.push_back(TextAsSaved(Joined(CardToText(card, location), kLineEnd)));
  }
}

std::vector<std::string> TextsOfCards() {
  const Session& session = State();
  std::vector<std::string> cards;
  for (int deck = 1; deck <= session.Decks.UpperBound(); ++deck) {
    AppendCards(cards, session.Decks[deck].Cards, Joined("INPLAYERDECK:", deck));
  }
  AppendCards(cards, session.Collection, "COLLECTION");
  return cards;
}

/// Only decks that the player has named have a line.
std::string LinesOfDeckNames() {
  const FixedTable<DeckRec, kDecks>& decks = State().Decks;
  std::string out;
  for (int deck = 1; deck <= decks.UpperBound(); ++deck) {
    const Text& name = decks[deck].DeckName;
    if (name.empty() || name == DefaultDeckName(deck)) continue;
    out += Joined("#DECKNAME, ", deck, ", ", FreeTextField(name), kLineEnd);
  }
  return out.empty() ? out : Joined(out, kLineEnd);
}

}  // namespace

OwnedText TextOfOwned() {
  const std::string head =
      TextAsSaved(Joined("#PLAYERDECK", kLineEnd, kLineEnd, kLineEnd, "#TOKENS, ",
                         State().Players[1].Tokens, kLineEnd, kLineEnd, LinesOfDeckNames()));
  std::vector<std::string> cards = TextsOfCards();
  OwnedText owned{.File = head, .Hash = ""};
  for (const std::string& card : cards) owned.File += card;
  std::ranges::sort(cards);
  Hash hash;
  hash.Add(head);
  for (const std::string& card : cards) hash.Add(card);
  owned.Hash = hash.Text();
  return owned;
}

std::string ContentsOf(std::string_view text) {
  using Limits = std::numeric_limits<std::int32_t>;
  FieldStream stream{std::string(text)};
  int cards = 0;
  int tokens = 0;
  for (std::string field; stream.Read(field);) {
    if (field == "#CARD") ++cards;
    if (field == "#TOKENS" && stream.Read(field)) {
      const double count = std::clamp<double>(NumericPrefix(field), Limits::min(), Limits::max());
      tokens = static_cast<int>(count);
    }
  }
  return Joined(CountText(cards, "card"), " and ", CountText(tokens, "token"));
}

}  // namespace brindlemoor
