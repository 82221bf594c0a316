// Card files, stores and starter decks, to the byte.
#include "data/card_file_writer.h"

#include "data/card_writer.h"
#include "language/target_types.h"
#include "script/card_setup.h"
#include "tests/support/saved_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

std::string ElfHead(std::string_view location) {
  return Joined(kStars, " Elf\r\n#CARD, ", location,
                ", \"Elf\", \"Elf42\", elves.txt, Elf42.jpg, Elf42-mini.jpg, #FF0000, "
                "\"A &quotsmall&quot one.\"\r\n");
}

class CardFileWriterTest : public SessionTest {
 protected:
  CardFileWriterTest() {
    State().Players[1].Tokens = 500;
    Card elf = MakeCard("Elf", 1, {"HP:1", "CHARACTER"});
    elf.UniqueID = "Elf42";
    elf.SourceFile = "elves.txt";
    elf.Picture = "Elf42.jpg";
    elf.Thumb = "Elf42-mini.jpg";
    elf.NameColor = "#FF0000";
    elf.Description = "A \"small\" one.";
    elf.TraitCaptions.Edit(1) = "Its health";
    elf.Rarity = 50;
    elf.ActivateOn = "TURNSTART";
    AddEffect(elf, "REQENEMY:DESTROY:", kTargetCard, "TURNSTART", 0, "TARGETCARD");
    AddEffect(elf, "ECHO:a, b", kTargetSelf, "MENU:PHASE3:Rest", 0, "SELF");
    AddEffect(elf, "TRAIT:TRAITEFFECT:HP:ECHO:x", kTargetSelf, "PHASE1", 0, "SELF");
    State().Collection[1] = elf;
    State().Collection.Append({});
    State().Collection.Append(MakeCard("Orc", 1));
    State().CostCard = MakeCard("CostCard", 1);
    AddEffect(State().CostCard, "MODTRAIT:COST:1", kTargetSelf, "COST", 0, "SELF");
    State().Templates.Append({MakeCard("Hero", 1), "C:\\art\\back.jpg", "art/border.jpg", 255});
    State().Templates.Append({{}, "unused.jpg", "", 0});
  }
};

TEST_F(CardFileWriterTest, WritesEveryKindOfFileToTheByte) {
  const std::string head = Joined(kStars, "\r\n***********  CARD DATA FILE *************\r\n",
                                  kStars, "\r\n\r\n#TOKENS, 500\r\n\r\n");
  const std::string own =
      Joined("*** Card Cost Calculator ***\r\n",
             CardLines("#COSTCARD", "CostCard", "#EFFECT, SELF, COST, \"MODTRAIT:COST:1\"\r\n"),
             "\r\n", CardLines("#TEMPLATE", "Hero"),
             "#TEMPLATEDATA, back.jpg, border.jpg, 255\r\n\r\n\r\n", ElfHead("COLLECTION"),
             "#TRAIT, \"HP:1\", #TRAIT, \"CHARACTER\", \r\n#TRAITACTIONDESC, HP, \"Its health\"\r\n"
             "#EFFECT, TARGETCARD, TURNSTART, \"REQENEMY:DESTROY:\"\r\n"
             "#EFFECT, SELF, MENU:PHASE3:Rest, \"ECHO:a, b\"\r\n"
             "#EXTRADATA, 50, TURNSTART, , , \r\n\r\n\r\n",
             CardLines("COLLECTION", "Orc"));
  const std::string goblins =
      "#NEUTRALCARD, Goblins, , , #FFFFFF, , ,\r\n#TRAIT, STORE\r\n"
      "#EFFECT, ALL, OTHERENTERSPLAY, REQNOTRAIT:STORE:DESTROY\r\n";
  const std::string starter =
      goblins +
      "#EFFECT, ALL, GAMESTART, ECHO:Your new starter deck contains the following cards.  Click on "
      "the menu above to save your new deck.:BOOSTER:80\"\r\n\r\n";
  const std::string store =
      goblins +
      "#EFFECT, SELF, MENU:TURNSTART:Purchase a booster of 8 new cards from the Goblins set (5 "
      "tokens), \"MODTOKENS:-5:ECHO:You tear open a pack of boosters!<br>The following cards have "
      "been added to your collection.:BOOSTER:8\"\r\n\r\n";
  const std::string game = "\r\n#GAMEFILE, rules.txt\r\n\r\n";
  const std::string include = "\r\n#INCLUDE, cards.txt\r\n\r\n";
  const std::string quoted = "\r\n#INCLUDE, \"Own, cards.txt\"\r\n\r\n";
  const struct {
    std::string_view GameFile, CardFile, DeckName;
    int Starter;
    std::string Expected;
  } cases[] = {
      {"", "", "", 0, head + own},
      {"rules.txt", "", "", 0, head + game + own},
      {"", "", "Goblins", 1, head + starter + "\r\n" + own},
      {"", "", "Goblins", 0, head + store + "\r\n" + own},
      {"rules.txt", "C:\\sets\\cards.txt", "Goblins", 0, head + game + store + include},
      {"", "/sets/Own, cards.txt", "Goblins", 1, head + starter + quoted},
      {"", "/sets/OUT.txt", "Goblins", 0, head + store + "\r\n" + own},
  };
  for (const auto& c : cases) {
    State().GameFileName = c.GameFile;
    State().CardFile = c.CardFile;
    EXPECT_TRUE(SaveCardFile("out.txt", "COLLECTION", c.DeckName, c.Starter));
    EXPECT_EQ(ReadFile("out.txt"), c.Expected);
  }
  EXPECT_EQ(State().Templates[1].BackImage, "back.jpg");
  Card& elf = State().Collection[1];
  EXPECT_NE(elf.Effects[3].Script, "") << "only a copy loses what traits brought";
  for (const std::string_view location : {"#PLAYERCARD", "PLAYERCARD"}) {
    EXPECT_EQ(CardToText(elf, location), ElfHead(location) + "\r\n");
  }
}

TEST_F(CardFileWriterTest, AStoreReadBackSellsBoosters) {
  State().CardFile = "/elsewhere/cards.txt";
  SaveCardFile("cards.txt", "COLLECTION", "", 0);
  SaveCardFile("store.txt", "#CARDINDECK", "Orcs, Trolls and #TRAIT", 0);
  ReadInOrder("store.txt", State().GameDeck);
  ASSERT_EQ(State().CardTable.UpperBound(), 2);
  EXPECT_EQ(State().CardTable[2].Owner, 0);
  EXPECT_EQ(
      Described(State().CardTable[2]),
      "[Orcs, Trolls and #TRAIT][][][][][#FFFFFF][][][]\ntrait [STORE][]\n"
      "action [2][ALL][OTHERENTERSPLAY][0][][REQNOTRAIT:STORE:DESTROY]\n"
      "action [7][SELF][TURNSTART][1][Purchase a booster of 8 new cards from the Orcs, Trolls "
      "and #TRAIT set (5 tokens)][MODTOKENS:-5:ECHO:You tear open a pack of boosters!<br>The "
      "following cards have been added to your collection.:BOOSTER:8]\nrarity 0\n");
  EXPECT_EQ(State().Collection[1].Name, "Elf") << "the included cards are there";
  EXPECT_TRUE(State().Problems.empty());
  files_->WriteError = "no space";
  desktop_->ExpectedMessages = {"Can't save cards.txt: no space"};
  EXPECT_FALSE(SaveCardFile("cards.txt", "COLLECTION", "Goblins", 0));
  EXPECT_NE(ReadFile("cards.txt").find("Elf"), std::string::npos) << "the old file stays";
}

TEST_F(CardFileWriterTest, StampingNamesTheCardsAndTheirFile) {
  const auto stamped = [](std::string_view file, int all) {
    StampCards(file, all);
    std::string stamps;
    for (const Card& card : State().Collection) {
      stamps += Joined(card.UniqueID, "@", card.SourceFile, " ");
    }
    return stamps;
  };
  EXPECT_EQ(stamped("C:\\sets\\cards.txt", 0), "Elf42@elves.txt 2@cards.txt Orc3@cards.txt ");
  EXPECT_EQ(stamped("/sets/new.txt", 1), "Elf42@new.txt 2@new.txt Orc3@new.txt ");
}

}  // namespace
}  // namespace brindlemoor
