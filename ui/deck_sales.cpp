// The deck manager: selling cards, and taking a sale back.
#include <algorithm>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/state.h"
#include "core/strings.h"
#include "game/card_sorting.h"
#include "game/match_outcome.h"
#include "game/player_saving.h"
#include "language/traits.h"
#include "script/stored_cards.h"
#include "text/one_line.h"
#include "ui/deck_manager.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPlayerTrait = "PLAYER";
constexpr std::int32_t kMostTokens = 2'000'000'000;

int PlayerCardsIn(const Pile& pile) {
  int count = 0;
  for (const Card& card : pile) count += !IsFree(card) && HasTrait(card, kPlayerTrait) ? 1 : 0;
  return count;
}

/// Without this card no deck of the player could have a player card.
bool IsLastPlayerCard(const Card& card) {
  if (!HasTrait(card, kPlayerTrait)) return false;
  int count = PlayerCardsIn(State().Collection);
  for (const DeckRec& deck : State().Decks) count += PlayerCardsIn(deck.Cards);
  return count == 1;
}

bool WantsToSell(const Card& card, int price) {
  if (!Desktop().AskYesNo(
          Joined("Sell ", OneLine(card.Name), " for ", CountText(price, "token"), "?"))) {
    return false;
  }
  return !IsLastPlayerCard(card) ||
         Desktop().AskYesNo(Joined(OneLine(card.Name), " is your last card with the trait ",
                                   kPlayerTrait,
                                   ": without one a deck has no player card.  Sell it all the "
                                   "same?"));
}

/// Tokens of a sale are none that a match in progress has brought.
void AddTokens(int price) {
  std::int32_t& tokens = State().Players[1].Tokens;
  tokens = std::min(tokens, kMostTokens) + price;
  CountTokensAsOld(price);
}

}  // namespace

void DeckManager::Sell(CardList list, int position) {
  const Card card = Cards(list)[position];
  const int price = SellValue(card);
  if (!WantsToSell(card, price)) return;
  AddTokens(price);
  const bool isDeck = list == CardList::kDeck;
  sales_.push_back({card, isDeck ? State().CurrentDeck : std::uint8_t{0}, price});
  Remove(list, position);
  StorePlayer();
  ShowLastSale();
  // What was previewed counts as seen, so that the answer stays until the pointer goes elsewhere.
  State().PageText = "<font color=#FF3311>Ha ha ha!  It's mine now!</font>";
  ShowPage();
}

void DeckManager::UndoSale_Click() {
  if (sales_.empty()) return;
  const Sale sale = sales_.back();
  sales_.pop_back();
  AddTokens(-sale.Price);
  if (sale.Pile == 0) {
    AddToCollection(sale.Sold);
  } else {
    AddToDeck(sale.Sold, sale.Pile);
  }
  ForgetPreviews();
  TidyDecks();
  UpdateDecks();
  StorePlayer();
  ShowLastSale();
}

void DeckManager::ShowLastSale() {
  UndoSale.Visible = !sales_.empty();
  if (sales_.empty()) return;
  const Sale& last = sales_.back();
  UndoSale.ToolTip =
      Joined("Gives ", CountText(last.Price, "token"), " back for ", OneLine(last.Sold.Name), ".");
}

}  // namespace brindlemoor
