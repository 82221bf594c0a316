// The deck manager: pictures that are hovered and clicked, its buttons and its closing.
#include <algorithm>
#include <set>

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
#include "language/traits.h"
#include "pages/card_pages.h"
#include "pages/page_files.h"
#include "script/run_action.h"
#include "script/stored_cards.h"
#include "text/addresses.h"
#include "text/fold.h"
#include "text/one_line.h"
#include "ui/card_description.h"
#include "ui/deck_manager.h"
#include "ui/editor_door.h"
#include "ui/test_position.h"

namespace brindlemoor {

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
    int Step;  // cards scrolled
  };
  constexpr int kWholeList = 1'000'000;
  // Up and down come only where no picture lies that way.
  constexpr std::array<Row, 6> kKeys = {{{PictureKey::kUp, -kColumns},
                                         {PictureKey::kDown, kColumns},
                                         {PictureKey::kPageUp, -kPictures},
                                         {PictureKey::kPageDown, kPictures},
                                         {PictureKey::kHome, -kWholeList},
                                         {PictureKey::kEnd, kWholeList}}};
  const auto* row = std::find_if(kKeys.begin(), kKeys.end(),
                                 [key](const Row& entry) { return entry.Key == key; });
  if (row == kKeys.end()) return false;
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

namespace {

bool FoldsBefore(const std::string& one, const std::string& other) {
  return FoldUpper(one) < FoldUpper(other);
}

bool AnyHasTrait(const Pile& pile, std::string_view trait) {
  for (const Card& card : pile) {
    if (!IsFree(card) && HasTrait(card, trait)) return true;
  }
  return false;
}

}  // namespace

void DeckManager::OfferTraits() {
  std::set<std::string, decltype(&FoldsBefore)> names(&FoldsBefore);
  const auto add = [&names](const Pile& pile) {
    for (const Card& card : pile) {
      for (const TraitItem& item : card.Traits) {
        if (!IsFree(card) && !item.empty()) names.insert(std::string(item.Name()));
      }
    }
  };
  add(State().Collection);
  for (const DeckRec& deck : State().Decks) add(deck.Cards);
  Text1.Items = std::vector<std::string>(names.begin(), names.end());
}

void DeckManager::Command1_Click(int index) {
  const std::string trait = Text1.Text.Get();
  if (index == 0 && !trait.empty() && !AnyHasTrait(State().Collection, trait)) {
    Desktop().MessageBox(Joined("No card of your collection has the trait ", OneLine(trait), "."));
    return;
  }
  SortDeck(State().CurrentDeck);
  CompactCollection();
  if (index == 0) {
    SortCollectionByTrait(trait);
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

void DeckManager::NoteDecks() {
  for (std::size_t deck = 0; deck < decks_.size(); ++deck) {
    decks_[deck].clear();
    for (const Card& card : State().Decks[static_cast<int>(deck) + 1].Cards) {
      if (!IsFree(card)) decks_[deck].push_back(card);
    }
  }
}

namespace {

/// Cards get another number whenever they come into the collection.
bool IsSameCard(const Card& one, const Card& other) {
  return one.Name == other.Name && one.UniqueID == other.UniqueID &&
         one.EntryScripts == other.EntryScripts && one.Picture == other.Picture;
}

}  // namespace

void DeckManager::PutDecksBack() {
  Session& state = State();
  for (DeckRec& deck : state.Decks) {
    for (Card& card : deck.Cards) {
      if (IsFree(card)) continue;
      AddToCollection(card);
      FreeCard(card);
    }
  }
  for (std::size_t deck = 0; deck < decks_.size(); ++deck) {
    for (const Card& before : decks_[deck]) {
      for (Card& card : state.Collection) {
        if (IsFree(card) || !IsSameCard(card, before)) continue;  // it may have been sold
        AddToDeck(card, static_cast<int>(deck) + 1);
        FreeCard(card);
        break;
      }
    }
  }
  TidyDecks();
  CompactCollection();
  ForgetPreviews();
}

bool DeckManager::MayClose() {
  const Session& state = State();
  std::string missing;
  if (state.DeckManagerInGame == 0) {
    for (const std::string& line : MissedMinimums(state.CurrentDeck, state.DeckRules)) {
      missing += line + "\n";
    }
  }
  if (missing.empty()) return true;
  const std::vector<std::string> captions = {"Back to the List", "Stay and Mend"};
  const std::size_t chosen = Desktop().AskChoice(
      Joined(missing,
             "\nStay here and mend the deck?  At the list of games your decks are as they were "
             "before."),
      captions);
  if (chosen == 1) return false;
  PutDecksBack();
  GaveUp = true;
  return true;
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
  const bool closes = MayClose();
  WritePlayerFile(OwnPlayerFileName(), Saving::kByItself);
  UpdateDecks();
  return !closes;
}

}  // namespace brindlemoor
