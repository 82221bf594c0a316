// What is left out of matches that nobody looks at: never a text that rolls dice, brings in others,
// or costs more than is counted for it.
#include "pages/unread_texts.h"

#include "core/state.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class UnreadTextsTest : public SessionTest {
 protected:
  UnreadTextsTest() { State().Quiet = true; }
};

TEST_F(UnreadTextsTest, OnlyWhatSaysSomethingAndDoesNothingElseIsLeftOut) {
  const std::string longText(5000, 'x');
  const struct {
    std::string Message;
    std::vector<std::string> Traits;
    bool LeftOut;
  } cases[] = {
      {"$MYNAME hits $TARGETNAME for $AMT&col ouch", {"HP:5"}, true},
      {"luck #MYTRAIT/LUCK# and #TRAIT/HP#", {"LUCK:2"}, true},
      {"&#8288;<b>#MYTRAIT/LUCK#</b>", {"LUCK:2"}, true},
      {"You have #TOKENS# tokens", {}, true},
      {"#TRANSVAL/R1Die06#", {}, false},
      {"#CARD/MYGID#", {}, false},
      {"#TRANS#MYTRAIT/GONE#VAL/R1Die06#", {}, false},
      {"#MYTRAIT/TALE#", {"TALE:#TRANSVAL/R1Die06#"}, false},
      {"no field", {"TALE:#TRANSVAL/R1Die06#"}, true},
      {"$MYOWNER", {}, false},
      {"$GIDCARD", {}, false},
      {"it may show HP", {"BONUSHP:3"}, true},
      {"it may show HP", {"BONUSHP:R1Die06"}, false},
      {"it may show HP", {"bonushpmax:NAMECOUNT/Imp"}, false},
      {longText, {}, false},
      {"#MYTRAIT/TALE#", {"TALE:" + longText}, false},
  };
  const Card other = MakeCard("Other", 2);
  for (const auto& sample : cases) {
    const Card card = MakeCard("Imp", 1, sample.Traits);
    const int before = State().Work.LeftOut;
    EXPECT_EQ(LeavesOutMarks(card, other, sample.Message), sample.LeftOut) << sample.Message;
    EXPECT_EQ(State().Work.LeftOut - before, sample.LeftOut ? 1 : 0) << "each is counted";
    if (sample.Message.find("MYTRAIT") == std::string::npos) {
      EXPECT_EQ(LeavesOutMarks(other, card, sample.Message), sample.LeftOut) << sample.Message;
    }
  }
  State().Quiet = false;
  EXPECT_FALSE(LeavesOutMarks(other, other, "plain"));
  EXPECT_FALSE(LeavesOutReport());
}

TEST_F(UnreadTextsTest, PicturesWithNamesThatCostMuchToLookForAreNotLeftOut) {
  Card card = MakeCard("Imp", 1);
  card.Picture = "imp.jpg";
  EXPECT_TRUE(LeavesOutPicture(card));
  card.Picture = std::string(5000, 'x');
  EXPECT_FALSE(LeavesOutPicture(card));
}

TEST_F(UnreadTextsTest, AReportWhoseBadgesOrBonusesRollDiceIsComposed) {
  PutInPlay(MakeCard("Imp", 1, {"LUCK:2"}));
  const auto withLabel = [](std::string_view label) {
    State().TraitGraphics.Reset(1);
    State().TraitGraphics[1].TraitName = "LUCK";
    State().TraitGraphics[1].Label = label;
    return LeavesOutReport();
  };
  EXPECT_TRUE(withLabel("#MYTRAIT/LUCK#"));
  EXPECT_FALSE(withLabel("#TRANSVAL/R1Die06#"));
  State().CustomStrings.Resize(1);
  State().CustomStrings[1].Key = "%WORD%";
  EXPECT_FALSE(withLabel("%WORD%"));
  PutInPlay(MakeCard("Odd", 1, {"TALE:#TRANSVAL/R1Die06#"}));
  EXPECT_TRUE(withLabel("luck"));
  EXPECT_FALSE(withLabel("#MYTRAIT/LUCK#"));
  PutInPlay(MakeCard("Dice", 1, {"BONUSHP:R1Die06"}));
  EXPECT_FALSE(withLabel("luck"));
}

}  // namespace
}  // namespace brindlemoor
