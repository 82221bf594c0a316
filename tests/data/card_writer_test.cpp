// The text of a card, to the byte.
#include "data/card_writer.h"

#include "data/card_reader.h"
#include "script/target_types.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class CardWriterTest : public SessionTest {
 protected:
  static Card Goblin() {
    Card card = MakeCard("Goblin", 1, {"HP:3", "CHARACTER"});
    card.UniqueID = "Goblin4217";
    card.SourceFile = "cards.txt";
    card.Picture = "Card-Goblin4217.jpg";
    card.Thumb = "Card-Goblin4217-mini.jpg";
    card.NameColor = "#FF0000";
    card.Description = "A \"small\" one.";
    card.TraitCaptions.Edit(1) = "Its health";
    card.Rarity = 50;
    card.ActivateOn = "TURNSTART";
    AddEffect(card, "REQENEMY:DESTROY:", kTargetCard, "TURNSTART", 0, "TARGETCARD");
    return card;
  }
};

constexpr std::string_view kStars = "*****************************************";

TEST_F(CardWriterTest, WritesEveryLineToTheByte) {
  Card card = Goblin();
  EXPECT_EQ(CardToText(card, "COLLECTION"),
            Joined(kStars,
                   " Goblin\r\n"
                   "#CARD, COLLECTION, \"Goblin\", \"Goblin4217\", cards.txt, Card-Goblin4217.jpg, "
                   "Card-Goblin4217-mini.jpg, #FF0000, \"A &quotsmall&quot one.\"\r\n"
                   "#TRAIT, \"HP:3\", #TRAIT, \"CHARACTER\", \r\n"
                   "#TRAITACTIONDESC, HP, \"Its health\"\r\n"
                   "#EFFECT, TARGETCARD, TURNSTART, \"REQENEMY:DESTROY:\"\r\n"
                   "#EXTRADATA, 50, TURNSTART, , , \r\n"
                   "\r\n"));
  Card bare = MakeCard("Bare", 1);
  EXPECT_EQ(CardToText(bare, "INDECK"),
            Joined(kStars,
                   " Bare\r\n#CARD, INDECK, \"Bare\", \"\", , , , #FFFFFF, \"\"\r\n"
                   "#EXTRADATA, 0, , , , \r\n\r\n"));
  for (const std::string_view location : {"#PLAYERCARD", "PLAYERCARD"}) {
    EXPECT_EQ(CardToText(card, location),
              Joined(kStars, " Goblin\r\n#CARD, ", location,
                     ", \"Goblin\", \"Goblin4217\", cards.txt, Card-Goblin4217.jpg, "
                     "Card-Goblin4217-mini.jpg, #FF0000, \"A &quotsmall&quot one.\"\r\n\r\n"));
  }
}

TEST_F(CardWriterTest, WhatTraitsBroughtIsNeitherWrittenNorKept) {
  Card card = Goblin();
  AddEffect(card, "TRAIT:TRAITEFFECT:HP:ECHO:x", kTargetSelf, "PHASE1", 0, "SELF");
  EXPECT_EQ(CardToText(card, "INDECK").find("TRAITEFFECT"), std::string::npos);
  EXPECT_EQ(card.Effects[2].Script, "");
}

TEST_F(CardWriterTest, LongFormsComeBackWhole) {
  Card card = Goblin();
  AddEffect(card, "ECHO:a \"word\", two", kTargetGidCard, "MENU:PHASE2:Heal, or not", 0,
            "GIDCARD:MYGID");
  AddEffect(card, "ECHO:b", kTargetSelf, "MENU:PHASE3:Rest", 0, "SELF");
  const std::string text = CardToText(card, "#CARDINDECK");
  EXPECT_NE(text.find("#EFFECT, SELF, MENU:PHASE3:Rest, \"ECHO:b\"\r\n"), std::string::npos);
  WriteFile("saved.txt", text);
  State().ReadDepth = 1;
  ReadCards("saved.txt", State().Players[1], 0, "", 1);
  State().ReadDepth = 0;
  Card back = State().Players[1].Deck[2];
  ASSERT_EQ(back.Effects.UpperBound(), 3);
  EXPECT_EQ(back.Effects[2].Trigger, "PHASE2");
  EXPECT_EQ(back.Effects[2].MenuCaption, "Heal, or not");
  EXPECT_EQ(back.Effects[2].TargetText, "GIDCARD:MYGID");
  EXPECT_EQ(back.Effects[2].Script, "ECHO:a &quotword&quot, two");
  EXPECT_EQ(CardToText(back, "#CARDINDECK"), text);
}

}  // namespace
}  // namespace brindlemoor
