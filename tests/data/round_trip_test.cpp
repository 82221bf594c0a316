// What the program writes comes back whole, and is written again byte for byte.
#include <functional>

#include "core/replacing.h"
#include "core/strings.h"
#include "data/card_file_writer.h"
#include "data/card_writer.h"
#include "data/opponent_files.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

std::vector<std::string> Split(std::string_view texts) {
  std::vector<std::string> all;
  for (FieldWalker walker(texts, '|'); !walker.AtEnd();) all.emplace_back(walker.Next());
  return all;
}
/// Texts that files hold to the letter in every field.
const std::vector<std::string> kExactTexts = Split(
    "Goblin|Fire, Ice|\xC3\x89mile \xE2\x82\xAC \xE6\xBC\xA2| leading|\tleading|trailing \t|x,|"
    "two\r\nlines|two\nlines, and\r\n\r\nfour|a, #TRAIT, STOLEN|a,\n#TOKENS, 5|#CARD|*****|-1|007|"
    "&quot &amp; 'single' $MYNAME {}\\");
/// Texts with double quotes, which a quoted field cannot hold.
const std::vector<std::string> kQuotedTexts =
    Split("The \"Big\" One|\"Front\" first|a, \"b\", c|a,\"#TRAIT, b|\"|two\n\"lines");

/// A card that carries a text in every place that files keep.
Card CardHolding(const std::string& text) {
  Card card = MakeCard(text, 1);
  card.UniqueID = card.SourceFile = card.Picture = card.Thumb = card.NameColor = text;
  card.Description = card.ActivateOn = card.EntryScripts = text;
  card.Rarity = 255;
  SetTrait(card, text + "1", Text(text), 1);
  card.TraitCaptions.Edit(1) = text;
  AddEffect(card, text, kTargetAll, text, 0, "ALL");
  AddEffect(card, "ECHO:" + text, kTargetSelf, "MENU:PHASE1:" + text, 0, "SELF");
  AddEffect(card, "ECHO:x", kTargetGidCard, "COST", 0, "GIDCARD:" + text);
  return card;
}

class RoundTripTest : public SessionTest {
 protected:
  RoundTripTest() { State().CurrentDeck = 2; }
  static void EmptyOwnPiles() {
    State().Collection.Reset(1);
    for (DeckRec& deck : State().Decks) deck.Cards.Reset(1);
    State().Templates.Resize(0);
    State().CostCard = Card{};
    for (int side = 1; side <= 2; ++side) InitPlayer(State().Players[side], side);
  }
  /// A card as it comes back from a file of its own.
  Card Returned(Card card) {
    WriteFile("one.txt", CardToText(card, "INDECK"));
    EmptyOwnPiles();
    ReadInOrder("one.txt", State().Players[1]);
    const Pile& deck = State().Players[1].Deck;
    EXPECT_EQ(deck.UpperBound(), 2);
    return deck[deck.UpperBound()];
  }
};

TEST_F(RoundTripTest, EveryFieldKeepsWhatBreaksTheStructure) {
  for (const std::string& text : kExactTexts) {
    EXPECT_EQ(Described(Returned(CardHolding(text))), Described(CardHolding(text)));
  }
  std::string story;
  while (story.size() < (1 << 20)) story += "An \"endless\" story, line by line\r\n";
  for (const std::string& text : kQuotedTexts) {
    Card card = CardHolding(text);
    card.Description = text.size() == 1 ? story : text;
    const std::string written = CardToText(card, "INDECK");
    Card back = Returned(card);
    EXPECT_TRUE(CardToText(back, "INDECK") == written) << text;
    EXPECT_TRUE(back.Description == ReplacedCopy(card.Description, "\"", "&quot")) << text;
    const std::string escaped = ReplacedCopy(text, "\"", "&quot");
    EXPECT_EQ(back.TraitCaptions[1], escaped);
    EXPECT_EQ(back.Effects[1].Script, escaped);
    EXPECT_EQ(back.Effects.UpperBound(), 3);
  }
  EXPECT_EQ(Returned(CardHolding("The \"Big\" One")).Name, "The \"Big\" One");
  for (const Problem& problem : State().Problems) {
    EXPECT_NE(problem.Message.find("stands where field"), std::string::npos) << problem.Message;
  }
}

TEST_F(RoundTripTest, BonusTraitsDoNotMultiply) {
  Card card = MakeCard("Elf", 1, {"BONUSHP:2", "FLYING"});
  EXPECT_EQ(Described(Returned(card)), Described(card));
}

/// Fills everything that files are saved from.
void OwnEveryKindOfCard() {
  Session& session = State();
  session.Collection.Reset(0);
  session.Templates.Resize(0);
  for (const auto& texts : {kExactTexts, kQuotedTexts}) {
    for (const std::string& text : texts) {
      Card card = CardHolding(text);
      // Player files are sorted by name: a number in front keeps the order.
      card.Name = Joined("Card ", 10 + session.Collection.UpperBound(), " ", text);
      session.Collection.Append(card);
      for (DeckRec& deck : session.Decks) deck.Cards.Append(card);
      session.Templates.Append({card, text, text, -2147483647 - 1});
    }
  }
  session.Decks[2].Cards.Append(MakeCard("Duke, the", 1, {"PLAYER"}));
  session.CostCard = MakeCard("CostCard", 1, {"BASE:2"});
  AddEffect(session.CostCard, "MODTRAIT:a, \"b\"", kTargetSelf, "MENU:PHASE1:x", 0, "SELF");
  session.Players[1].Tokens = -2147483647 - 1;
}

TEST_F(RoundTripTest, EveryFileOfTheProgramIsSavedTheSameAfterARead) {
  const auto toDeck = [] { State().Decks[2].Cards = State().Players[2].Deck; };
  const auto toCollection = [] { State().Collection = State().Players[1].Deck; };
  const std::tuple<int, std::function<void()>, std::function<void()>> files[] = {
      {1, [] { WritePlayerFile("saved"); }, [] {}},
      {1, [] { SaveCardFile("saved", "COLLECTION", "", 0); }, [] {}},
      {1, [] { SaveCardFile("saved", "#CARDINDECK", "a, \"store\"", 0); }, toCollection},
      {1, [] { SaveCardFile("saved", "#CARDINDECK", "#start, deck", 1); }, toCollection},
      {2, [] { WriteOpponentFile("saved", "Duke"); }, toDeck},
  };
  for (const auto& [side, save, afterRead] : files) {
    EmptyOwnPiles();
    OwnEveryKindOfCard();
    save();
    const std::string first = ReadFile("saved");
    ASSERT_GT(first.size(), 5000U);
    EmptyOwnPiles();
    State().Players[1].Tokens = 1;
    ReadInOrder("saved", State().Players[side]);
    afterRead();
    save();
    EXPECT_EQ(ReadFile("saved"), first);
  }
}

TEST_F(RoundTripTest, AStrayByteDoesNotChangeTheOtherCharacters) {
  Card card = MakeCard("K\xC3\xA4se", 1);
  card.Picture = "caf\xE9.jpg";
  State().Collection[1] = card;
  WritePlayerFile("saved.plr");
  ReadInOrder("saved.plr", State().Players[1]);
  EXPECT_EQ(State().Collection[1].Name, "K\xC3\xA4se");
  EXPECT_EQ(State().Collection[1].Picture, "caf\xC3\xA9.jpg");
}

}  // namespace
}  // namespace brindlemoor
