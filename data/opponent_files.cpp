// Writing of opponent files.
#include "data/opponent_files.h"

#include <string>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "data/saving.h"
#include "language/traits.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPortrait = "#PLAYERCARD";

/// The first card of a deck that is a player card, nullptr when there is none.
const Card* PlayerCardOf(const Pile& cards) {
  for (const Card& card : cards) {
    if (!IsFree(card) && HasTrait(card, "PLAYER")) return &card;
  }
  return nullptr;
}

std::string OpponentText(const Pile& cards, std::string_view name) {
  const Card* player = PlayerCardOf(cards);
  Card portrait = player != nullptr ? *player : Card{};
  if (!name.empty()) portrait.Name = name;
  std::string out;
  if (player != nullptr) out += CardToText(portrait, kPortrait);
  for (const Card& stored : cards) {
    if (IsFree(stored)) continue;
    Card card = stored;
    out += CardToText(card, "INDECK");
    out += kLineEnd;
  }
  if (player == nullptr) out += CardToText(portrait, kPortrait);
  return out;
}

}  // namespace

bool WriteOpponentFile(std::string_view fileName, std::string_view name) {
  const Session& session = State();
  if (!session.Decks.Holds(session.CurrentDeck)) return false;
  return SaveOrTell(InCurrentFolder(fileName), fileName,
                    OpponentText(session.Decks[session.CurrentDeck].Cards, name));
}

}  // namespace brindlemoor
