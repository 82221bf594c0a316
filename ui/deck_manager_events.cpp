// The deck manager: pictures that are hovered and clicked, its buttons and its closing.
#include <algorithm>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "game/card_sorting.h"
#include "game/deck_rules.h"
#include "game/leaving.h"
#include "game/looking.h"
#include "game/player_file_names.h"
#include "game/player_saving.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "script/run_action.h"
#include "script/stored_cards.h"
#include "text/addresses.h"
#include "ui/card_description.h"
#include "ui/deck_manager.h"
#include "ui/editor_door.h"
#include "ui/test_position.h"

namespace brindlemoor {

namespace {}  // namespace

void DeckManager::ForgetPreviews() { PreviewedCard = PreviewedDeckCard = 0; }

void DeckManager::Picture_MouseMove(CardList list, int index) {
  const bool isDeck = list == CardList::kDeck;
  const int position = PositionOf(list, index);
  std::int32_t& previewed = isDeck ? PreviewedDeckCard : PreviewedCard;
  if (position == 0 || position == previewed) return;
  previewed = position;
  // The other list's preview is gone from the view now.
  (isDeck ? PreviewedCard : PreviewedDeckCard) = 0;
  Session& state = State();
  state.PickedCard = position;
  state.PickedPile = isDeck ? state.CurrentDeck : 0;
  const Card card = Cards(list)[position];
  if (!IsFree(card)) Preview(card);
}

namespace {

/// The card as it will enter play.
std::string EnteringPage(Card card) {
  const Looking looking;
  RunEntryScripts(card);
  const std::string summary = CardSummary(card, 1);
  return Joined("<img src=\"", PageAddress(ResolvePath(card.Picture, 0)), "\"></img><br>", summary);
}

}  // namespace

void DeckManager::Preview(const Card& card) {
  Session& state = State();
  state.PageText.clear();
  if (state.SaleMode == 1) {
    AppendPage(Joined("The ephemeral powers that be offer you <font color=#FFFF00>",
                      SellValue(card),
                      " Tokens</font> for this card.<br>Just click to make the sale..."));
  } else {
    AppendPage(EnteringPage(card));
  }
  ShowPage();
}

void DeckManager::ShowPage() {
  WritePage("Display.html", "#000000");
  ShowInView(WB, "Display.html");
}

void DeckManager::Picture_MouseUp(CardList list, int index) {
  const int position = PositionOf(list, index);
  if (position == 0 || IsFree(Cards(list)[position])) return;
  State().PickedCard = position;
  if (State().PickingCard == 1) {
    PickCard(list, position);
  } else if (ChangingImage == 1) {
    ChangeImage(list, position);
  } else if (State().SaleMode == 1) {
    Sell(list, position);
  } else {
    MoveCard(list, position);
  }
}

void DeckManager::PickCard(CardList list, int position) {
  Session& state = State();
  state.PickedCard = position;
  state.PickedPile = list == CardList::kDeck ? state.CurrentDeck : 0;
  Desktop().HideForm(*this);
}

void DeckManager::ChangeImage(CardList list, int position) {
  ChangingImage = 0;
  TheEditorDoor().EditCardImage(Cards(list)[position]);
  ForgetThumbs();
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::Sell(CardList list, int position) {
  constexpr std::int32_t kMost = 2'000'000'000;
  std::int32_t& tokens = State().Players[1].Tokens;
  tokens = std::min(tokens, kMost) + SellValue(Cards(list)[position]);
  Remove(list, position);
  StorePlayer();
  // What was previewed counts as seen, so that the answer stays until the pointer goes elsewhere.
  State().PageText = "<font color=#FF3311>Ha ha ha!  It's mine now!</font>";
  ShowPage();
}

void DeckManager::MoveCard(CardList list, int position) {
  Session& state = State();
  const Card card = Cards(list)[position];
  if (list == CardList::kCollection) {
    if (CheckDeckRules(card, state.CurrentDeck, state.DeckRules, state.FailReason) ==
        kLimitBroken) {
      Desktop().MessageBox(state.FailReason);
      return;
    }
    AddToDeck(card, state.CurrentDeck);
  } else if (state.DeckManagerMode == kOwnCards) {
    AddToCollection(card);
  }
  ForgetPreviews();
  Remove(list, position);
}

void DeckManager::Remove(CardList list, int position) {
  const bool copies = State().DeckManagerMode != kOwnCards;
  if (list == CardList::kDeck || !copies) FreeCard(Cards(list)[position]);
  TidyDecks();
  UpdateDecks();
}

void DeckManager::ScrollTo(CardList list, int top) {
  ScrollBar& bar = *VScroll1[static_cast<std::size_t>(list)];
  bar.Value = std::clamp(top, 0, std::max(Count(list) - kPictures, 0));
  VScroll1_Change(list);
}

bool DeckManager::Picture_KeyDown(CardList list, int index, PictureKey key) {
  struct Row {
    PictureKey Key;
    int Step;            // cards scrolled
    bool OnlyAtTheEdge;  // in the list's first or last row; else the key goes among the pictures
  };
  constexpr int kWholeList = 1'000'000;
  constexpr std::array<Row, 6> kKeys = {{{PictureKey::kUp, -kColumns, true},
                                         {PictureKey::kDown, kColumns, true},
                                         {PictureKey::kPageUp, -kPictures, false},
                                         {PictureKey::kPageDown, kPictures, false},
                                         {PictureKey::kHome, -kWholeList, false},
                                         {PictureKey::kEnd, kWholeList, false}}};
  const auto* row = std::find_if(kKeys.begin(), kKeys.end(),
                                 [key](const Row& entry) { return entry.Key == key; });
  if (row == kKeys.end()) return false;
  const int edge = row->Step < 0 ? 0 : kPictures - kColumns;
  if (row->OnlyAtTheEdge && index / kColumns != edge / kColumns) return false;
  const int before = Top(list);
  ScrollTo(list, before + row->Step);
  if (Top(list) == before) return false;
  Picture_MouseMove(list, index);
  return true;
}

void DeckManager::VScroll1_Change(CardList list) {
  Top(list) = VScroll1[static_cast<std::size_t>(list)]->Value;
  UpdateDecks();
}

void DeckManager::SearchText_Change() {
  CollectionTop = 0;
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::Text1_Change() { UpdateDecks(); }

void DeckManager::Option1_Click(int index) {
  SelectDeck(index + 1);
  SortDeck(State().CurrentDeck);
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::Command1_Click(int index) {
  SortDeck(State().CurrentDeck);
  CompactCollection();
  if (index == 0) {
    SortCollectionByTrait(Text1.Text.Get());
  } else {
    SortCollection();
  }
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::Command6_Click() {
  ShuffleCards(State().Collection);
  ForgetPreviews();
  UpdateDecks();
}

void DeckManager::Command4_Click(int index) {
  const auto name = Desktop().AskText("New name for deck?");
  if (!name) return;
  State().Decks[index + 1].DeckName = *name;
  ShowDeckNames();
}

void DeckManager::ClearDeck_Click() {
  Session& state = State();
  for (Card& card : state.Decks[state.CurrentDeck].Cards) {
    if (IsFree(card)) continue;
    if (state.DeckManagerMode == kOwnCards) AddToCollection(card);
    FreeCard(card);
  }
  ForgetPreviews();
  TidyDecks();
  UpdateDecks();
}

void DeckManager::AddAll_Click() {
  Session& state = State();
  for (int place = 1; place <= Count(CardList::kCollection); ++place) {
    Card& card = state.Collection[PositionAt(CardList::kCollection, place)];
    if (IsFree(card)) continue;
    std::string refusal;
    if (CheckDeckRules(card, state.CurrentDeck, state.DeckRules, refusal) == kLimitBroken) continue;
    AddToDeck(card, state.CurrentDeck);
    if (state.DeckManagerMode == kOwnCards) FreeCard(card);
  }
  ForgetPreviews();
  TidyDecks();
  if (state.DeckManagerMode == kOwnCards) CompactCollection();
  UpdateDecks();
}

void DeckManager::Command3_Click() {
  ChangingImage = 1;
  UpdateDecks();
}

void DeckManager::Command5_Click() {
  Session& state = State();
  if (state.SaleMode == 0 && SaleHelpShown == 0) {
    Desktop().MessageBox(
        "Click here to switch into sale mode.  Click again to return to normal mode.  To sell a "
        "card in sale mode, simply click on it.");
    SaleHelpShown = 1;
  }
  state.SaleMode = state.SaleMode == 0 ? 1 : 0;
  ForgetPreviews();
  UpdateDecks();
}

bool DeckManager::DeckIsReady() {
  Session& state = State();
  const auto verdict = CheckDeckRules(Card(), state.CurrentDeck, state.DeckRules, state.FailReason);
  if (verdict != kMinimumMissed || state.DeckManagerInGame == 1) return true;
  Desktop().MessageBox(state.FailReason);
  return false;
}

void DeckManager::Command2_Click() {
  if (State().DeckManagerMode == kTestPosition) {
    StartTestPosition();
    return;
  }
  if (!DeckIsReady()) return;
  WritePlayerFile(OwnPlayerFileName(), Saving::kByItself);
  Desktop().HideForm(*this);
}

void DeckManager::backmen_Click() {
  State().SaleMode = 0;
  WritePlayerFile(OwnPlayerFileName(), Saving::kByItself);
  // The list shows the player as before the choice of a deck.
  if (!MayLeavePlayer(Leaving::kAsksFirst)) return;
  GaveUp = true;
  Desktop().HideForm(*this);
}

bool DeckManager::Form_QueryClose() {
  Session& state = State();
  state.SaleMode = 0;
  if (state.PickingCard == 1) {
    state.PickedCard = 0;  // a card that was only hovered is not picked
    return false;
  }
  if (state.DeckManagerMode == kTestPosition) {
    TheEditorDoor().BackToCardEditor();
    return false;
  }
  if (state.DeckManagerMode != kOwnCards) return false;
  const bool ready = DeckIsReady();
  WritePlayerFile(OwnPlayerFileName(), Saving::kByItself);
  UpdateDecks();
  return !ready;
}

}  // namespace brindlemoor
