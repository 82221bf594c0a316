// DeckManager: the form between the collection and a match.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "core/records.h"
#include "platform/controls.h"

namespace brindlemoor {

/// The two lists of cards on the form; their scroll bars have these numbers.
enum class CardList { kDeck = 0, kCollection = 1 };

/// What DeckManagerMode stands for.
enum DeckManagerModes : std::uint8_t { kOwnCards = 0, kNewOpponent = 1, kTestPosition = 2 };

/// The player moves cards between the collection and three decks, sells cards, renames decks and
/// presses "PLAY!". By State().DeckManagerInGame, PickingCard and DeckManagerMode the same form
/// serves in mid-game, for picking one card, for a new opponent and for a test position.
struct DeckManager : Form {
  DeckManager();

  static constexpr int kPictures = 18;  ///< of each list
  static constexpr int kColumns = 3;    ///< of pictures, or a multiple; a list scrolls by so many

  std::array<std::unique_ptr<PictureBox>, kPictures> CollectPic;
  std::array<std::unique_ptr<PictureBox>, kPictures> DeckPic;
  std::array<std::unique_ptr<ScrollBar>, 2> VScroll1;
  std::array<std::unique_ptr<OptionButton>, kDecks> Option1;
  std::array<std::unique_ptr<Button>, kDecks> Command4;
  std::array<std::unique_ptr<Button>, 2> Command1;
  Button ClearDeck{"ClearDeck"};
  ComboBox Text1{"Text1"};
  Button Command6{"Command6"};
  Button Command5{"Command5"};
  Button Command3{"Command3"};
  Button Command2{"Command2"};
  Button UndoSale{"UndoSale"};  ///< shown as long as there is a sale to take back
  Label Cardcount{"Cardcount"};
  Label Label1{"Label1"};
  Label NothingSaved{"NothingSaved"};  ///< shown in debug mode
  BrowserView WB{"WB"};
  TextBox SearchText{"SearchText"};  ///< filters what CollectPic shows
  Button AddAll{"AddAll"};           ///< puts what CollectPic goes through into the deck
  Label SearchCount{"SearchCount"};  ///< how many cards it leaves
  Label HintLabel{"HintLabel"};      ///< what a click on a card does
  BarChart DeckDrawing{"DeckDrawing"};

  MenuItem filemen{"filemen", "File"};
  MenuItem savedeckmen{"savedeckmen", "Save Player"};
  MenuItem saveasopponent{"saveasopponent", "Save Current Deck as New Opponent"};
  MenuItem loadoppmen{"loadoppmen", "Load Existing Opponent"};
  MenuItem savestarterdeckmen{"savestarterdeckmen", "Save Current Deck as Starter Deck"};
  MenuItem loadplrmen{"loadplrmen", "Load Player"};
  MenuItem backmen{"backmen", "Back to Game List"};
  MenuItem quitmen{"quitmen", "Quit"};
  MenuItem helpmen{"helpmen", "Help"};

  std::int32_t DeckTop = 0;            ///< deck cards scrolled past
  std::int32_t CollectionTop = 0;      ///< collection cards scrolled past
  std::uint8_t ChangingImage = 0;      ///< 1 the next card clicked goes to the card editor
  std::uint8_t SaleHelpShown = 0;      ///< 1 once the sale help has been shown
  std::int32_t PreviewedCard = 0;      ///< position last previewed in the collection
  std::int32_t PreviewedDeckCard = 0;  ///< and in the deck
  bool GaveUp = false;                 ///< the player went back to the game list

  void Form_Load();
  void Form_Activate();
  void Form_Resize();
  bool Form_QueryClose();

  /// Redraws both lists, the counters and the drawing.
  void UpdateDecks();

  void Text1_Change();
  void Picture_MouseMove(CardList list, int index);
  void Picture_MouseUp(CardList list, int index);
  bool Picture_KeyDown(CardList list, int index, PictureKey key);
  void VScroll1_Change(CardList list);
  void SearchText_Change();

  void Option1_Click(int index);
  void Command1_Click(int index);
  void Command2_Click();
  void Command3_Click();
  void Command4_Click(int index);
  void Command5_Click();
  void Command6_Click();
  void ClearDeck_Click();
  void AddAll_Click();
  void UndoSale_Click();

  void savedeckmen_Click();
  void saveasopponent_Click();
  void loadoppmen_Click();
  void savestarterdeckmen_Click();
  void loadplrmen_Click();
  void backmen_Click();
  void helpmen_Click();

 private:
  void NameControls();
  void NameMenus();
  void SelectDeck(int deck);
  static Pile& Cards(CardList list);
  std::int32_t& Top(CardList list);
  /// How many cards a list can show: its upper bound, or what the search leaves of it.
  int Count(CardList list) const;
  /// The position in its pile of the card that a picture shows, 0 behind the end of the list.
  int PositionOf(CardList list, int index);
  /// The position of the card at a 1-based place of what the list goes through.
  int PositionAt(CardList list, int place) const;
  /// Everything that puts other cards under the pointer forgets what was previewed.
  void ForgetPreviews();
  void ScrollTo(CardList list, int top);

  void ShowDeckNames();
  void ShowHint();
  void SearchCollection();
  void UpdateList(CardList list);
  const std::string& ThumbPath(const Text& thumb);
  /// Files were written: another may have the name of one that is shown.
  void ForgetThumbs();

  void Preview(const Card& card);
  void ShowPage();
  void Sell(CardList list, int position);
  void ShowLastSale();
  void ChangeImage(CardList list, int position);
  void MoveCard(CardList list, int position);
  void Remove(CardList list, int position);
  void PickCard(CardList list, int position);
  /// False, with a message, when the deck misses a minimum that holds the player back.
  bool DeckIsReady();
  /// The same for closing: the player may leave as well, with the decks as they were.
  bool MayClose();
  void NoteDecks();
  /// The box for a trait lists those of the player's cards.
  void OfferTraits();
  void PutDecksBack();

  std::vector<int> matches_;  // positions that the search leaves
  bool searching_ = false;
  struct Sale {
    Card Sold;
    std::uint8_t Pile = 0;  // 0 the collection, else the deck
    int Price = 0;
  };
  std::vector<Sale> sales_;                                  // since the form was opened
  std::array<std::vector<Card>, kDecks> decks_;              // what lay in them then
  std::unordered_map<std::string, std::string> thumbPaths_;  // found since the form was opened
};

/// Lets the player choose and change decks; returns when that is done. False when the player
/// would rather go back to the game list.
bool ShowDeckManager();

/// Lets the player pick one of the own cards: PickedPile and PickedCard. False when none was
/// picked.
bool PickOwnedCard();

/// The deck manager during a match: what armed menu actions aim at in the collection stays aimed
/// at, wherever the cards have gone.
void ShowDeckManagerInGame();

}  // namespace brindlemoor
