// Card files, stores and starter decks, to the byte.
#include "data/card_file_writer.h"

#include "data/card_reader.h"
#include "script/target_types.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kStars = "*****************************************";

class CardFileWriterTest : public SessionTest {
 protected:
  CardFileWriterTest() {
    State().Players[1].Tokens = 500;
    State().Collection[1] = MakeCard("Elf", 1, {"HP:1"});
    State().Collection.Append({});
    State().Collection.Append(MakeCard("Orc", 1));
    State().CostCard = MakeCard("CostCard", 1);
    AddEffect(State().CostCard, "MODTRAIT:COST:1", kTargetSelf, "COST", 0, "SELF");
    State().Templates.Append({MakeCard("Hero", 1), "C:\\art\\back.jpg", "art/border.jpg", 255});
    State().Templates.Append({{}, "unused.jpg", "", 0});
  }
  static std::string CardText(std::string_view location, std::string_view name,
                              std::string_view lines = "") {
    return Joined(kStars, " ", name, "\r\n#CARD, ", location, ", \"", name,
                  "\", \"\", , , , #FFFFFF, \"\"\r\n", lines, "#EXTRADATA, 0, , , , \r\n\r\n\r\n");
  }
  static std::string Head() {
    return Joined(kStars, "\r\n***********  CARD DATA FILE *************\r\n", kStars,
                  "\r\n\r\n#TOKENS, 500\r\n\r\n");
  }
  /// Cost card, template and cards, as a file without an include ends.
  static std::string OwnCards(std::string_view location) {
    return Joined("*** Card Cost Calculator ***\r\n",
                  CardText("#COSTCARD", "CostCard", "#EFFECT, SELF, COST, \"MODTRAIT:COST:1\"\r\n"),
                  "\r\n", CardText("#TEMPLATE", "Hero"),
                  "#TEMPLATEDATA, back.jpg, border.jpg, 255\r\n\r\n\r\n",
                  CardText(location, "Elf", "#TRAIT, \"HP:1\", \r\n"), CardText(location, "Orc"));
  }
};

constexpr std::string_view kStarterHead =
    "#NEUTRALCARD, Goblins, , , #FFFFFF, , ,\r\n"
    "#TRAIT, STORE\r\n"
    "#EFFECT, ALL, OTHERENTERSPLAY, REQNOTRAIT:STORE:DESTROY\r\n"
    "#EFFECT, ALL, GAMESTART, ECHO:Your new starter deck contains the following cards.  Click on "
    "the menu above to save your new deck.:BOOSTER:80\"\r\n\r\n";
constexpr std::string_view kStoreHead =
    "#NEUTRALCARD, Goblins, , , #FFFFFF, , ,\r\n"
    "#TRAIT, STORE\r\n"
    "#EFFECT, ALL, OTHERENTERSPLAY, REQNOTRAIT:STORE:DESTROY\r\n"
    "#EFFECT, SELF, MENU:TURNSTART:Purchase a booster of 8 new cards from the Goblins set (5 "
    "tokens), \"MODTOKENS:-5:ECHO:You tear open a pack of boosters!<br>The following cards have "
    "been added to your collection.:BOOSTER:8\"\r\n\r\n";

TEST_F(CardFileWriterTest, WritesEveryKindOfFileToTheByte) {
  const std::string gameFile = "\r\n#GAMEFILE, rules.txt\r\n\r\n";
  const std::string include = "#INCLUDE, /sets/Own, cards.txt\r\n\r\n";
  const std::string quoted = "#INCLUDE, \"/sets/Own, cards.txt\"\r\n\r\n";
  const struct {
    std::string_view GameFile;
    std::string_view CardFile;
    std::string_view DeckName;
    int Starter;
    std::string Expected;
  } cases[] = {
      {"", "", "", 0, Head() + OwnCards("COLLECTION")},
      {"rules.txt", "", "", 0, Head() + gameFile + OwnCards("COLLECTION")},
      {"", "/sets/cards.txt", "", 0, Head() + OwnCards("COLLECTION")},
      {"", "", "Goblins", 1, Joined(Head(), kStarterHead, "\r\n", OwnCards("COLLECTION"))},
      {"", "", "Goblins", 0, Joined(Head(), kStoreHead, "\r\n", OwnCards("COLLECTION"))},
      {"rules.txt", "C:\\sets\\cards.txt", "Goblins", 0,
       Joined(Head(), gameFile, kStoreHead, "\r\n#INCLUDE, C:\\sets\\cards.txt\r\n\r\n")},
      {"", "/sets/Own, cards.txt", "Goblins", 1, Joined(Head(), kStarterHead, "\r\n", quoted)},
      {"", "/sets/OUT.txt", "Goblins", 0,
       Joined(Head(), kStoreHead, "\r\n", OwnCards("COLLECTION"))},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(Joined(c.CardFile, " ", c.DeckName, " ", c.Starter));
    State().GameFileName = c.GameFile;
    State().CardFile = c.CardFile;
    EXPECT_TRUE(SaveCardFile("out.txt", "COLLECTION", c.DeckName, c.Starter));
    EXPECT_EQ(ReadFile("out.txt"), c.Expected);
  }
  EXPECT_EQ(State().Templates[1].BackImage, "back.jpg");
  EXPECT_EQ(State().Templates[1].MiniBorder, "border.jpg");
}

TEST_F(CardFileWriterTest, TheCardsThatWereSavedKeepWhatTraitsBrought) {
  AddEffect(State().Collection[1], "TRAIT:TRAITEFFECT:HP:ECHO:x", kTargetSelf, "PHASE1", 0, "SELF");
  SaveCardFile("out.txt", "COLLECTION", "", 0);
  EXPECT_EQ(ReadFile("out.txt").find("TRAITEFFECT"), std::string::npos);
  EXPECT_EQ(State().Collection[1].Effects[1].Script, "TRAIT:TRAITEFFECT:HP:ECHO:x");
}

TEST_F(CardFileWriterTest, AFailedSaveSaysWhyAndKeepsTheOldFile) {
  WriteFile("out.txt", "old");
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save out.txt: no space"};
  EXPECT_FALSE(SaveCardFile("out.txt", "COLLECTION", "", 0));
  EXPECT_EQ(ReadFile("out.txt"), "old");
}

TEST_F(CardFileWriterTest, AStoreReadBackSellsBoosters) {
  State().CardFile = "/elsewhere/cards.txt";
  SaveCardFile("cards.txt", "COLLECTION", "", 0);
  for (const std::string_view deckName : {"Goblins", "Goblins, Trolls and #TRAIT"}) {
    SaveCardFile("store.txt", "#CARDINDECK", deckName, 0);
    State().CardTable.Reset(1);
    State().GameDeck = PlayerState{};
    InitPlayer(State().GameDeck, 4);
    ReadInOrder("store.txt", State().GameDeck);
    ASSERT_EQ(State().CardTable.UpperBound(), 2);
    const Card& store = State().CardTable[2];
    EXPECT_EQ(store.Name, deckName);
    EXPECT_EQ(store.Owner, 0);
    EXPECT_EQ(store.NameColor, "#FFFFFF");
    EXPECT_TRUE(HasTrait(store, "STORE", ""));
    ASSERT_EQ(store.Effects.UpperBound(), 2);
    EXPECT_EQ(store.Effects[1].Script, "REQNOTRAIT:STORE:DESTROY");
    EXPECT_EQ(store.Effects[2].Trigger, "TURNSTART");
    EXPECT_EQ(store.Effects[2].MenuCaption,
              Joined("Purchase a booster of 8 new cards from the ", deckName, " set (5 tokens)"));
    EXPECT_EQ(store.Effects[2].Script,
              "MODTOKENS:-5:ECHO:You tear open a pack of boosters!<br>The following cards have "
              "been added to your collection.:BOOSTER:8");
    EXPECT_EQ(Described(State().Collection).find("[Elf]"), 0U) << "the included cards are there";
  }
  EXPECT_TRUE(State().Problems.empty());
}

TEST_F(CardFileWriterTest, AStarterDeckReadBackDealsItsCards) {
  SaveCardFile("starter.txt", "#CARDINDECK", "Goblins", 1);
  const std::string cost = Described(State().CostCard);
  State().CostCard = Card{};
  State().Templates.Resize(0);
  ReadInOrder("starter.txt", State().GameDeck);
  const Card& starter = State().CardTable[2];
  ASSERT_EQ(starter.Effects.UpperBound(), 2);
  EXPECT_EQ(starter.Effects[2].TargetType, kTargetAll);
  EXPECT_EQ(starter.Effects[2].Trigger, "GAMESTART");
  EXPECT_TRUE(starter.Effects[2].Script.View().ends_with("save your new deck.:BOOSTER:80\""));
  EXPECT_EQ(Described(State().CostCard), cost);
  EXPECT_EQ(State().Templates[1].Card.Name, "Hero");
  EXPECT_EQ(State().GameDeck.Deck[2].Name, "Elf");
  EXPECT_EQ(State().GameDeck.Deck[3].Name, "Orc");
}

TEST_F(CardFileWriterTest, StampingNamesTheCardsAndTheirFile) {
  State().Collection[3].UniqueID = "Orc77";
  State().Collection[3].SourceFile = "older.txt";
  StampCards("C:\\sets\\cards.txt", 0);
  const auto stamps = [] {
    std::string all;
    for (const Card& card : State().Collection) {
      all += Joined(card.UniqueID, "@", card.SourceFile, " ");
    }
    return all;
  };
  EXPECT_EQ(stamps(), "Elf1@cards.txt 2@cards.txt Orc77@older.txt ");
  StampCards("/sets/new.txt", 1);
  EXPECT_EQ(stamps(), "Elf1@new.txt 2@new.txt Orc77@new.txt ");
}

}  // namespace
}  // namespace brindlemoor
