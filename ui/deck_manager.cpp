// The deck manager: its arrangement, its opening and what its lists show.
#include "ui/deck_manager.h"

#include <algorithm>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "game/card_sorting.h"
#include "game/leaving.h"
#include "pages/page_files.h"
#include "platform/arrangement.h"
#include "text/encoding.h"
#include "ui/card_search.h"
#include "ui/card_words.h"
#include "ui/deck_chart.h"
#include "ui/forms.h"
#include "ui/nothing_saved.h"
#include "ui/owned_targets.h"

namespace brindlemoor {

namespace {

constexpr int kChartHeight = 110;

std::string Indexed(std::string_view name, int index) { return Joined(name, "(", index, ")"); }

/// Pictures in rows, with their scroll bar beside them.
template <class Pictures>
Layout Grid(const Pictures& pictures, ScrollBar& bar) {
  std::vector<Layout> cells;
  cells.reserve(pictures.size());
  for (const auto& picture : pictures) cells.push_back(Cell(*picture));
  return Row({GridOf(std::move(cells), DeckManager::kColumns, 1), Cell(bar)}, 1);
}

Layout Arrange(DeckManager& form) {
  std::vector<Layout> deck;
  for (std::size_t index = 0; index < form.Option1.size(); ++index) {
    deck.push_back(Row({Cell(*form.Option1[index], 1), Cell(*form.Command4[index])}));
  }
  deck.push_back(Grid(form.DeckPic, *form.VScroll1[0]));
  deck.push_back(Row({Cell(form.Cardcount, 1), Cell(form.ClearDeck)}));
  Layout left = Titled("Deck", Column(std::move(deck), 3));

  Layout middle =
      Column({Row({Cell(form.SearchText, 1), Cell(form.SearchCount)}),
              Grid(form.CollectPic, *form.VScroll1[1]),
              Row({Cell(form.Text1, 1), Cell(*form.Command1[0])}),
              Row({Cell(*form.Command1[1], 1), Cell(form.Command6), Cell(form.AddAll)})},
             3);
  middle.Title = "Collection";

  Layout right = Column({Cell(form.NothingSaved), Cell(form.HintLabel), Cell(form.WB, 1),
                         Cell(form.DeckDrawing, 0, 0, kChartHeight),
                         Cell(form.UndoSale),  // of its own row: it comes where room is short
                         Row({Cell(form.Label1, 0, 130),
                              {.Direction = Layout::Kind::kControl, .Stretch = 1},
                              Cell(form.Command5),
                              Cell(form.Command3)}),
                         Cell(form.Command2, 0, 0, 40)},
                        4);
  return Row({std::move(left), std::move(middle), std::move(right)});
}

struct HintRow {
  bool (*Holds)(const DeckManager& form);
  std::string_view Text;
};
/// What a click on a card does: the first row that holds.
constexpr std::array<HintRow, 6> kHints = {{
    {[](const DeckManager&) { return State().PickingCard == 1; },
     "Click the card that you choose."},
    {[](const DeckManager& form) { return form.ChangingImage == 1; },
     "Click the card that is to get another image."},
    {[](const DeckManager&) { return State().SaleMode == 1; },
     "Sale mode: a click sells the card."},
    {[](const DeckManager&) { return State().DeckManagerMode == kNewOpponent; },
     "Click a card to put a copy of it into the enemy's deck."},
    {[](const DeckManager&) { return State().DeckManagerMode == kTestPosition; },
     "Click a card to put a copy of it into the chosen place."},
    {[](const DeckManager&) { return true; },
     "Click or drag a card to move it between your deck and your collection."},
}};

/// The places of a test position stand where the decks' names stand else.
constexpr std::array<std::string_view, kDecks> kTestPlaces = {
    "In Player's Hand", "In Play for Player 1 (you)", "In Play for Player 2 (enemy)"};

}  // namespace

DeckManager::DeckManager() : Form("DeckManager") {
  Caption = "Deck Manager";
  for (const CardList list : {CardList::kDeck, CardList::kCollection}) {
    const bool isDeck = list == CardList::kDeck;
    auto& pictures = isDeck ? DeckPic : CollectPic;
    for (int index = 0; index < kPictures; ++index) {
      auto& picture = pictures[static_cast<std::size_t>(index)];
      picture = std::make_unique<PictureBox>(Indexed(isDeck ? "DeckPic" : "CollectPic", index));
      picture->DragGroup = isDeck ? "deck" : "collection";
      picture->MouseMove = [this, list, index] { Picture_MouseMove(list, index); };
      picture->MouseUp = [this, list, index](MouseButton) { Picture_MouseUp(list, index); };
      picture->KeyDown = [this, list, index](PictureKey key) {
        return Picture_KeyDown(list, index, key);
      };
    }
    const int number = static_cast<int>(list);
    auto& bar = VScroll1[static_cast<std::size_t>(number)];
    bar = std::make_unique<ScrollBar>(Indexed("VScroll1", number));
    bar->Spoken = list == CardList::kDeck ? "More of the deck" : "More of the collection";
    bar->SmallStep = kColumns;
    bar->LargeStep = kPictures;
    bar->Change = [this, list] { VScroll1_Change(list); };
  }
  for (int index = 0; index < kDecks; ++index) {
    auto& option = Option1[static_cast<std::size_t>(index)];
    option = std::make_unique<OptionButton>(Indexed("Option1", index));
    option->Caption = Joined("Deck ", index + 1);
    option->ToolTip =
        "You can have up to three decks for each game.  Click on these buttons to switch between "
        "them.";
    option->Click = [this, index] { Option1_Click(index); };
    auto& rename = Command4[static_cast<std::size_t>(index)];
    rename = std::make_unique<Button>(Indexed("Command4", index));
    rename->Caption = "Rename";
    rename->ToolTip = "Click here to rename this deck.";
    rename->Click = [this, index] { Command4_Click(index); };
  }
  for (int index = 0; index < 2; ++index) {
    auto& sort = Command1[static_cast<std::size_t>(index)];
    sort = std::make_unique<Button>(Indexed("Command1", index));
    sort->Click = [this, index] { Command1_Click(index); };
  }
  Command1[0]->Caption = "Sort by Trait";
  Command1[0]->ToolTip = "Click here to sort your cards by a particular trait (specified above).";
  Command1[1]->Caption = "Sort Collection by Name";
  Command1[1]->ToolTip = "Click here to sort all of your cards by name.";
  NameControls();
  NameMenus();
  Maximised = true;
  Width = 1240;
  Height = 760;
  Arrangement = Arrange(*this);
  Activate = [this] { Form_Activate(); };
  Resize = [this] { Form_Resize(); };
  QueryClose = [this] { return Form_QueryClose(); };
}

void DeckManager::NameControls() {
  ClearDeck.Caption = "Clear Deck";
  ClearDeck.ToolTip = "Click here to put all cards in this deck back in your collection.";
  ClearDeck.Click = [this] { ClearDeck_Click(); };
  Text1.ToolTip = "Enter a trait name here for sorting.";
  Text1.Placeholder = "Trait";
  Text1.Editable = true;
  Text1.Spoken = "Trait";
  WB.Spoken = "The card that was pointed at";
  Text1.Change = [this] { Text1_Change(); };
  Text1.Enter = [this] { Command1_Click(0); };
  Command6.Caption = "UN-sort";
  Command6.Click = [this] { Command6_Click(); };
  Command5.Caption = "Sell Cards";
  Command5.Click = [this] { Command5_Click(); };
  UndoSale.Caption = "Undo Sale";
  UndoSale.Click = [this] { UndoSale_Click(); };
  Command3.Caption = "Change Card Image";
  Command3.ToolTip = "Click here to change the image one of your cards uses.";
  Command3.Click = [this] { Command3_Click(); };
  Command2.Caption = "PLAY!";
  Command2.ToolTip = "Start the game with the currently selected deck.";
  Command2.Click = [this] { Command2_Click(); };
  Cardcount.Caption = "Cards:";
  NothingSaved.Caption = std::string(kNothingSaved);
  Label1.Caption = "Tokens";
  Label1.ToolTip =
      "This is how many tokens you have.  Tokens are used to purchase and enhance new cards at the "
      "card shop.";
  SearchText.Placeholder = "Search";
  SearchText.Spoken = "Search";
  SearchText.ToolTip =
      "Shows only the cards with these words in their name, traits or description.  A word such as "
      "HP>=3 asks for the value of a trait (also <=, >, < and =).";
  AddAll.Caption = "Add All";
  AddAll.ToolTip =
      "Puts every card of the collection into the deck, or every card that the search has found, "
      "as "
      "far as the game's rules allow it.";
  AddAll.Click = [this] { AddAll_Click(); };
  SearchText.Change = [this] { SearchText_Change(); };
}

void DeckManager::NameMenus() {
  savedeckmen.Click = [this] { savedeckmen_Click(); };
  saveasopponent.Click = [this] { saveasopponent_Click(); };
  loadoppmen.Click = [this] { loadoppmen_Click(); };
  savestarterdeckmen.Click = [this] { savestarterdeckmen_Click(); };
  loadplrmen.Click = [this] { loadplrmen_Click(); };
  backmen.Click = [this] { backmen_Click(); };
  quitmen.Click = [] {
    if (MayLeaveMatch() && MayLeavePlayer(Leaving::kAsksFirst)) Desktop().EndProgram();
  };
  helpmen.Click = [this] { helpmen_Click(); };
  helpmen.Shortcut = "F1";
  filemen.Items = {&savedeckmen, &saveasopponent, &loadoppmen, &savestarterdeckmen,
                   &loadplrmen,  &backmen,        &quitmen};
  Menus = {&filemen, &helpmen};
}

void DeckManager::Form_Load() {
  Session& state = State();
  state.SaleMode = 0;
  const bool plays = state.PickingCard == 0 && state.DeckManagerMode != kNewOpponent;
  Command2.Visible = plays;
  Command5.Visible = plays;
  for (Control* control : {static_cast<Control*>(&AddAll), static_cast<Control*>(&ClearDeck),
                           static_cast<Control*>(&Command3)}) {
    control->Visible = state.PickingCard == 0;
  }
  // The editor's cards are no player's, and the places of a test position are no decks.
  const bool own = state.DeckManagerMode == kOwnCards;
  const bool decks = state.DeckManagerMode != kTestPosition;
  if (!own) Command3.Visible = false;
  NothingSaved.Visible = own && state.DebugMode == 1;
  savedeckmen.Visible = own;
  loadplrmen.Visible = own && state.PickingCard == 0;
  saveasopponent.Visible = decks;
  savestarterdeckmen.Visible = decks;
  for (const auto& rename : Command4) rename->Visible = decks;
  // Only the choice of a deck for a match leads back to the list of games.
  backmen.Visible = plays && own && state.DeckManagerInGame == 0;
  GaveUp = false;
  ChangingImage = 0;
  SearchText.Text = "";
  thumbPaths_.clear();
  sales_.clear();
  ShowLastSale();
  SelectDeck(1);
  NoteDecks();
  OfferTraits();
  TidyDecks();
  SortDeck(1);
  CollectionTop = 0;
  ForgetPreviews();
  if (!WB.Url.Get().empty()) ShowInView(WB, "blank.htm");
  ShowDeckNames();
  UpdateDecks();
}

void DeckManager::Form_Activate() {
  SelectDeck(1);
  loadoppmen.Visible = State().DeckManagerMode != kOwnCards;
  UpdateDecks();
}

// The view takes the room that is left by its arrangement.
void DeckManager::Form_Resize() { UpdateDecks(); }

void DeckManager::SelectDeck(int deck) {
  State().CurrentDeck = static_cast<std::uint8_t>(deck);
  for (int index = 0; index < kDecks; ++index) {
    Option1[static_cast<std::size_t>(index)]->Value = index + 1 == deck;
  }
  DeckTop = 0;
}

namespace {

/// A deck's name as far as there is room for it.
std::string Shortened(std::string_view name) {
  constexpr int kCharacters = 30;
  std::size_t end = 0;
  for (int count = 0; count < kCharacters && end < name.size(); ++count) NextCodePoint(name, end);
  return end < name.size() ? Joined(name.substr(0, end), "...") : std::string(name);
}

}  // namespace

void DeckManager::ShowDeckNames() {
  for (int index = 0; index < kDecks; ++index) {
    const auto place = static_cast<std::size_t>(index);
    Option1[place]->Caption = State().DeckManagerMode == kTestPosition
                                  ? std::string(kTestPlaces[place])
                                  : Shortened(State().Decks[index + 1].DeckName);
  }
}

void DeckManager::ShowHint() {
  const auto row = std::find_if(kHints.begin(), kHints.end(),
                                [this](const HintRow& hint) { return hint.Holds(*this); });
  HintLabel.Caption = std::string(row->Text);
}

Pile& DeckManager::Cards(CardList list) {
  Session& state = State();
  return list == CardList::kDeck ? state.Decks[state.CurrentDeck].Cards : state.Collection;
}

std::int32_t& DeckManager::Top(CardList list) {
  return list == CardList::kDeck ? DeckTop : CollectionTop;
}

int DeckManager::Count(CardList list) const {
  return list == CardList::kCollection && searching_ ? static_cast<int>(matches_.size())
                                                     : Cards(list).UpperBound();
}

int DeckManager::PositionOf(CardList list, int index) {
  const int place = index + 1 + Top(list);
  return place > Count(list) ? 0 : PositionAt(list, place);
}

int DeckManager::PositionAt(CardList list, int place) const {
  return list == CardList::kCollection && searching_ ? matches_[static_cast<std::size_t>(place) - 1]
                                                     : place;
}

void DeckManager::SearchCollection() {
  const CardSearch search(SearchText.Text.Get());
  searching_ = !search.Empty();
  SearchCount.Visible = searching_;
  matches_.clear();
  if (!searching_) return;
  const Pile& cards = State().Collection;
  for (int position = 1; position <= cards.UpperBound(); ++position) {
    if (!IsFree(cards[position]) && search.Matches(cards[position])) matches_.push_back(position);
  }
  SearchCount.Caption = Joined(matches_.size(), " found");
}

namespace {

int CardsIn(const Pile& pile) {
  int count = 0;
  for (const Card& card : pile) count += IsFree(card) ? 0 : 1;
  return count;
}

}  // namespace

void DeckManager::UpdateDecks() {
  const WorkAccount account;  // of looking for thumbnails
  SearchCollection();
  UpdateList(CardList::kDeck);
  UpdateList(CardList::kCollection);
  Label1.Caption = Joined("Tokens: ", State().Players[1].Tokens);
  Cardcount.Caption = Joined("Cards: ", CardsIn(Cards(CardList::kDeck)));
  const DeckChart chart = ChartOfDeck(Cards(CardList::kDeck), Text1.Text.Get());
  DeckDrawing.Caption = chart.Caption;
  DeckDrawing.Bars = chart.Bars;
  ShowHint();
}

namespace {

/// How many cards of each name a pile holds.
std::unordered_map<std::string_view, int> CountCopies(const Pile& cards) {
  std::unordered_map<std::string_view, int> copies;
  for (const Card& card : cards) {
    if (!IsFree(card)) ++copies[card.Name.View()];
  }
  return copies;
}

}  // namespace

void DeckManager::UpdateList(CardList list) {
  const bool isDeck = list == CardList::kDeck;
  ScrollBar& bar = *VScroll1[static_cast<std::size_t>(list)];
  bar.Maximum = std::max(Count(list) - kPictures, isDeck ? 1 : 0);
  Top(list) = std::clamp(Top(list), 0, bar.Maximum.Get());
  bar.Value = Top(list);
  const Pile& cards = Cards(list);
  const auto copies = isDeck ? decltype(CountCopies(cards)){} : CountCopies(cards);
  auto& pictures = isDeck ? DeckPic : CollectPic;
  for (int index = 0; index < kPictures; ++index) {
    PictureBox& box = *pictures[static_cast<std::size_t>(index)];
    const int position = PositionOf(list, index);
    const bool shown = position != 0 && !IsFree(cards[position]);
    if (shown) {
      const Card& card = cards[position];
      box.Picture = ThumbPath(card.Thumb);
      box.Caption = card.Name.Str();
      const auto copy = copies.find(card.Name.View());
      const int count = copy == copies.end() ? 1 : copy->second;
      box.Badge = count > 1 ? Joined(count) : std::string();
      box.Told = Joined(isDeck ? "in the deck, " : "in the collection, ", TraitsInWords(card));
    }
    box.Visible = shown;
  }
}

const std::string& DeckManager::ThumbPath(const Text& thumb) {
  const auto [entry, isNew] = thumbPaths_.try_emplace(thumb.Str());
  if (isNew) entry->second = ResolvePath(thumb, 0);
  return entry->second;
}

void DeckManager::ForgetThumbs() {
  thumbPaths_.clear();
  for (auto* pictures : {&DeckPic, &CollectPic}) {
    for (const auto& picture : *pictures) picture->Picture = "";
  }
}

namespace {

void OpenDeckManager() {
  DeckManager& form = TheDeckManager();
  form.Form_Load();
  Desktop().ShowForm(form, true);
}

}  // namespace

bool ShowDeckManager() {
  OpenDeckManager();
  return !TheDeckManager().GaveUp;
}

bool PickOwnedCard() {
  Session& state = State();
  state.PickingCard = 1;
  state.PickedCard = 0;
  const OwnedTargets targets;  // of other actions: the form may sort
  OpenDeckManager();
  state.PickingCard = 0;
  targets.PutBack();
  return state.PickedCard != 0;
}

void ShowDeckManagerInGame() {
  Session& state = State();
  state.DeckManagerInGame = 1;
  state.DeckManagerMode = kOwnCards;
  state.PickingCard = 0;
  const OwnedTargets targets;
  OpenDeckManager();
  state.DeckManagerInGame = 0;
  targets.PutBack();
}

}  // namespace brindlemoor
