// Message expansion: templates and the page text that they become.
#include "script/messages.h"

#include <chrono>
#include <set>
#include <string>
#include <vector>

#include "core/limits.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/card_pages.h"

namespace brindlemoor {
namespace {

class MessagesTest : public SessionTest {
 protected:
  MessagesTest()
      : player_(PutPlayerCard(1)),
        enemy_(PutPlayerCard(2)),
        goblin_(PutInPlay(MakeCard(
            "Goblin", 1, {"HP:4", "COLOR:RED", "FLYING", "NOTE:has #TRAIT/HP# and #TOKENS#"}))),
        ogre_(PutInPlay(MakeCard("Ogre", 2, {"HP:9"}))),
        stone_(PutInPlay(MakeCard("Stone", 0))) {
    goblin_.GlobalID = 101;
    ogre_.GlobalID = 202;
    State().LastValue = -3;
    State().Players[1].Tokens = 500;
  }

  std::string Expanded(std::string text, Card& source, Card& target) {
    ExpandMessage(source, target, text, "<mine>", "<yours>");
    return text;
  }
  std::string Expanded(std::string text) { return Expanded(std::move(text), goblin_, ogre_); }

  static void AddCustomString(std::string_view key, const std::vector<std::string>& values) {
    CustomStringRec entry;
    entry.Key = key;
    for (const std::string& value : values) entry.Values.Append(value);
    State().CustomStrings.Append(entry);
  }
  static void SetCaption(Card& card, std::string_view trait, std::string_view caption) {
    card.TraitCaptions.Edit(TraitSlot(card, trait)) = caption;
  }

  Card& player_;
  Card& enemy_;
  Card& goblin_;
  Card& ogre_;
  Card& stone_;
};

TEST_F(MessagesTest, Templates) {
  const std::string goblin = ColoredName(goblin_);
  const std::string ogre = ColoredName(ogre_);
  ASSERT_NE(goblin.find("Goblin"), std::string::npos);
  const Rows<std::string, std::string> cases = {
      {"$MYNAME hits $TARGETNAME, $MYNAME grins",
       goblin + " hits " + ogre + ", " + goblin + " grins"},
      {"$SRCCARD/$TARGETCARD", goblin + "/" + ogre},
      {"$MYOWNER's", ColoredName(player_) + "'s"},
      {"$OWNER's", ColoredName(enemy_) + "'s"},
      {"for $AMT!", "for <font color=\"#FFFF00\">3</font>!"},
      {"$LASTAMT $LASTVAL", "3 3"},
      {"$TRAITX$EFFSTR", "X()"},
      {"#TOKENS# tokens", "500 tokens"},
      {"#MYTRAIT/HP#-#TRAIT/HP#", "4-9"},
      {"#MYTRAIT/COLOR# #MYTRAIT/FLYING#", "RED 1"},
      {"#TRANSVAL/SRCTRAIT/HP/TRAITPLUS2#", "8"},
      {"#CARD/MYGID# meets #CARD/TARGETGID#", goblin + " meets " + ogre},
      {"#CARD/303#", "(Dead Card)"},
      {"#IMG/nowhere.jpg#", "<img src=\"\" align=default></img>"},
      // A "#" that opens no field, and words that are no keywords.
      {"#trait/HP#", "#trait/HP#"},
      {"color=#FF0000> #MYTRAIT/HP#", "color=#FF0000> 4"},
      // The closing "#" of the field goes with it, so that it can't end the tokens' mark as well.
      {"#TOKENS#MYTRAIT/HP#", "#TOKENS4"},
      // An early replacement can bring in a later mark, and a field a further field.
      {"#MYTRAIT/NOTE#", "has 9 and 500"},
      {"#TRANSVAL/SRCTRAIT/#TRAIT/HP##", "0TRAIT/HP##"},
      {"$&col", "$:"}};
  for (const auto& [text, page] : cases) EXPECT_EQ(Expanded(text), page) << text;
  EXPECT_TRUE(State().LimitsReported.empty());
}

TEST_F(MessagesTest, GidCardIsTheCardThatTheLastValueNames) {
  State().LastValue = 202;
  EXPECT_EQ(Expanded("$GIDCARD"), ColoredName(ogre_));
  FreeCard(ogre_);
  EXPECT_EQ(Expanded("$GIDCARD", goblin_, goblin_), "$GIDCARD");
  EXPECT_EQ(Expanded("#CARD/202#", goblin_, goblin_), "(Dead Card)");
}

TEST_F(MessagesTest, OwnersOfNeutralCards) {
  EXPECT_EQ(Expanded("$MYOWNER $OWNER", stone_, ogre_), "$MYOWNER $OWNER");
  EXPECT_EQ(Expanded("$MYOWNER, $OWNER", ogre_, stone_), ColoredName(enemy_) + ", $OWNER");
  State().Players[1].PlayerCard = 0;
  EXPECT_EQ(Expanded("$MYOWNER $OWNER", goblin_, ogre_), "$MYOWNER $OWNER");
}

TEST_F(MessagesTest, PicturesOfFiles) {
  WriteFile("fire.jpg", "x");
  EXPECT_EQ(Expanded("#IMG/fire.jpg#"), "<img src=\"file:///game/fire.jpg\" align=default></img>");
}

TEST_F(MessagesTest, CaptionsOfTraits) {
  SetCaption(goblin_, "HP", "$MYNAME bites $TARGETNAME for #MYTRAIT/HP#");
  SetCaption(ogre_, "HP", "$TARGETNAME fears $MYNAME");
  const std::string goblin = ColoredName(goblin_);
  const std::string ogre = ColoredName(ogre_);
  const Rows<const char*, std::string> cases = {
      {"#MYTRAITACTIONDESC/HP#", ogre + " bites " + goblin + " for 4"},
      {"#MYTRAITACTIONDESCREVERSE/hp#", goblin + " bites " + ogre + " for 4"},
      {"#TARGETTRAITACTIONDESC/HP#", goblin + " fears " + ogre},
      {"#TARGETTRAITACTIONDESCREVERSE/HP#", ogre + " fears " + goblin},
      {"(#MYTRAITACTIONDESC/COLOR#)(#MYTRAITACTIONDESC/GONE#)", "()()"}};
  for (const auto& [text, page] : cases) EXPECT_EQ(Expanded(text), page) << text;

  SetCaption(goblin_, "HP", "OVERRIDE");
  EXPECT_EQ(TraitCaptionText(goblin_, "HP"), "OVERRIDE");
  EXPECT_EQ(TraitCaptionText(goblin_, "HP"), "") << "read once";
  SetCaption(goblin_, "HP", "override");
  for (int time = 1; time <= 2; ++time) EXPECT_EQ(TraitCaptionText(goblin_, "HP"), "override");
}

TEST_F(MessagesTest, CustomStringsReplaceTheirKeysEverywhere) {
  AddCustomString("", {"never"});
  AddCustomString("COLOR", {"red", "blue"});
  std::set<std::string> picked;
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    State().Random.State = seed;
    const std::string pick = CustomStringPick("COLOR");
    State().Random.State = seed;
    EXPECT_EQ(Expanded("COLOR and DISCOLORED, Color"), pick + " and DIS" + pick + "ED, Color");
    picked.insert(pick);
  }
  EXPECT_EQ(picked, (std::set<std::string>{"blue", "red"}));
  EXPECT_EQ(CustomStringPick("colour"), "(STRING NOT FOUND)");
  EXPECT_EQ(CustomStringPick(""), "(STRING NOT FOUND)");
}

TEST_F(MessagesTest, CustomStringsOfCustomStrings) {
  AddCustomString("INNER", {"core"});
  AddCustomString("OUTER", {"(INNER)"});
  AddCustomString("THIRD", {"[OUTER]"});
  AddCustomString("SELF", {"<SELF>"});
  AddCustomString("HOLLOW", {});
  EXPECT_EQ(Expanded("OUTER"), "(core)");
  EXPECT_EQ(Expanded("THIRD"), "[(INNER)]");  // two passes, no more
  EXPECT_EQ(Expanded("aHOLLOWb"), "ab");
  EXPECT_EQ(Expanded("SELF SELF"), "<<SELF>> <<SELF>>");
}

TEST_F(MessagesTest, FieldsThatHoldThemselvesEndQuickly) {
  const std::string self = "#MYTRAIT/X#";
  const Rows<const char*, const char*, std::size_t> cases = {
      {"(#MYTRAIT/X#)", "", 20},
      {"#MYTRAIT/X##MYTRAIT/X#", "", 40},
      {"#MYTRAIT/Y#", "#MYTRAIT/X#", 40},
      {"#MYTRAIT/Y##MYTRAIT/Y#", "#MYTRAIT/X##MYTRAIT/X#", 2 * limits::kNestedTextBytes},
      {"#MYTRAIT/Y#.", "#MYTRAIT/X#.", 4 * limits::kExpansions},
      {"x#MYTRAIT/", "", 40}};
  for (const auto& [x, y, longest] : cases) {
    SetTrait(goblin_, "X", x, 1);
    SetTrait(goblin_, "Y", y, 1);
    const auto start = std::chrono::steady_clock::now();
    const std::string page = Expanded(self + "X#" + self);
    EXPECT_LT(page.size(), longest + 60) << x;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
  EXPECT_FALSE(State().LimitsReported.empty());
  EXPECT_EQ((SetTrait(goblin_, "X", "(#MYTRAIT/X#)", 1), Expanded("#MYTRAIT/X#$MYIMG")),
            "(#MYTRAIT/X#)<mine>");
}

TEST_F(MessagesTest, HugeTextsEndInOrder) {
  // Custom strings that multiply one another would reach 10 to the 12th bytes.
  for (int level = 1; level <= 12; ++level) {
    std::string value;
    for (int i = 0; i < 10; ++i) value += Joined("<K", level + 1, ">");
    AddCustomString(Joined("<K", level, ">"), {value});
  }
  EXPECT_LE(Expanded("<K1>").size(), static_cast<std::size_t>(limits::kTextBytes));
  EXPECT_FALSE(State().LimitsReported.empty());
}

}  // namespace
}  // namespace brindlemoor
