// The page that a run leaves: messages, pictures, colours and frames, to the letter.
#include "core/text.h"
#include "tests/script/run_test.h"
#include "ui/battlefield.h"
#include "ui/card_pages.h"

namespace brindlemoor {
namespace {

class DisplayTest : public RunTest {
 protected:
  /// The page of an outermost run of a human's card with this text.
  static std::string HumanPage(std::string_view text) {
    return Joined(
        "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\">"
        "<p align=left>",
        text, "</font></p></table></tr></td>");
  }
  std::string PageOf(std::string_view script, const RunOptions& options = {}) {
    RunScript(script, options);
    return TakeBanner();
  }
};

TEST_F(DisplayTest, TheSideOfARunDecidesItsParagraphFontAndFrame) {
  const std::string human = HumanPage("x<br><br>");
  const std::string computer =
      "<table width=100%><tr><td bgcolor = #220000 ><font color=\"FF5511\"><p align=right>"
      "x<br><br></font></p></table></tr></td>";
  const std::string neutral =
      "<table width=100%><tr><td bgcolor = #111111 ><font color=\"AAAAAA\"><p align=center>"
      "x<br><br></font></p></table></tr></td>";
  const std::string framed =
      "<table width=100%><tr><td bgcolor = #123456><font color=\"55FF55\"><p align=left>"
      "x<br><br></font></p></table></tr></td>";
  const Rows<std::uint8_t, std::uint8_t, const char*, std::string> cases = {
      {1, 2, "ECHO:x", human},
      {2, 1, "ECHO:x", computer},
      {0, 1, "ECHO:x", neutral},
      {1, 2, "REVERSECOLOR:ECHO:x", computer},
      {3, 1, "ECHO:x:REVERSECOLOR", human},
      {1, 2, "REVERSECOLOR:ECHO:x:REVERSECOLOR", human},
      {1, 2, "TARGETCOLOR:ECHO:x", computer},
      {1, 1, "TARGETCOLOR:ECHO:x", human},
      {1, 0, "TARGETCOLOR:ECHO:x", neutral},
      {1, 2, "TARGETCOLOR:REVERSECOLOR:ECHO:x", human},
      {1, 2, "FRAMECOLOR:#123456:ECHO:x", framed}};
  for (const auto& [sourceOwner, targetOwner, script, page] : cases) {
    ada.Owner = sourceOwner;
    bob.Owner = targetOwner;
    EXPECT_EQ(PageOf(script), page)
        << script << " of " << int{sourceOwner} << " on " << int{targetOwner};
  }
  ada.Owner = 1;
  ada.Name = "RulesCard";
  EXPECT_EQ(PageOf("ECHO:x"), neutral);
}

TEST_F(DisplayTest, ARunWithoutAMessageLeavesNoTrace) {
  for (const char* script :
       {"", "REVERSECOLOR", "FRAMECOLOR:red", "ECHOTRAIT:x", "REQTRAIT:GONE"}) {
    EXPECT_EQ(PageOf(script), "") << script;
  }
  EXPECT_EQ(PageOf("ECHO:x:ECHOFAIL:y:REQTRAIT:GONE", {.TestRun = 1}), "");
}

TEST_F(DisplayTest, PicturesStandBeforeTheMessageInTheOutermostRun) {
  ada.Thumb = "ada.jpg";
  bob.Thumb = "bob.jpg";
  const std::string mine = CardPictureHtml(ada, -1, 1);
  const std::string other = CardPictureHtml(bob, -1, 1);
  ASSERT_NE(mine, "");
  const std::string both = HumanPage(mine + other + "x<br><br>");
  EXPECT_EQ(PageOf("ECHO:x"), both);
  EXPECT_EQ(PageOf("ECHOLOCKED:x"), both);
  EXPECT_EQ(PageOf("ECHOMINOR:x$MYIMG"), HumanPage("x<br><br>"));
  EXPECT_EQ(PageOf("ECHOONCE:x$TARGETIMG"), HumanPage(mine + "x" + other + "<br><br>"));
  EXPECT_EQ(PageOf("CHANGETHUMB:new.jpg:ECHO:x"), both) << "those of the start of the run";

  bob.Owner = 1;
  const std::string facing = CardPictureHtml(bob, -1, 2);
  const std::string now = CardPictureHtml(ada, -1, 1);
  ASSERT_NE(facing, CardPictureHtml(bob, -1, 1));
  EXPECT_EQ(PageOf("MINDCONTROL:ECHO:x"), HumanPage(now + facing + "x<br><br>"));
  RunOn(ada, ada, "ECHO:x");
  EXPECT_EQ(TakeBanner(), HumanPage(now + "x<br><br>"));

  State().RunDepth = 1;
  EXPECT_EQ(PageOf("ECHO:x"), "<font color=\"55FF55\"><p align=left>x<br><br></font></p>");
}

TEST_F(DisplayTest, TheHpSentenceSpeaksOfTheCardThatChanged) {
  SetTrait(ada, "HP", "9", 1);
  SetTrait(bob, "HP", "9", 1);
  const auto ofTarget = [this] {
    return Joined("x<br>(<font color=\"#FFFFFF\">Bob</font> has ", HPText(bob, 0),
                  "<font color=#FFFF00> HP</font> left.)<br><br><br>");
  };
  std::string page = PageOf("MODTRAIT:HP:-2:ECHO:x");
  EXPECT_EQ(page, HumanPage(ofTarget()));
  page = PageOf("MODMYTRAIT:HP:1:ECHO:x");
  EXPECT_EQ(page,
            HumanPage(Joined("x<br>(<font color=\"#FFFFFF\">Ada</font> now has ", HPText(ada, 0),
                             "<font color=#FFFF00> HP</font>.)"
                             "<br><br><br>")));
  page = PageOf("SUBMYTRAIT:HP:1:ECHO:x");
  EXPECT_EQ(page, HumanPage(ofTarget()));
  EXPECT_EQ(PageOf("ECHO:x:MODTRAIT:HP:-2"), HumanPage("x<br><br>"));
  EXPECT_EQ(State().HpReport, 1) << "the sentence waits";
  page = PageOf("MODTRAIT:HP:-1:ECHOMINOR:x:ECHOMINOR:y");
  EXPECT_EQ(page, HumanPage(ofTarget() + "y<br><br>"));
}

TEST_F(DisplayTest, EchoFailShowsOnlyWhenTheRunFailsBeforeTheNextMessage) {
  const std::string start =
      "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\"><p align=left>"
      "</font></p><p>no";
  const std::string end = "<br><br></p></table></tr></td>";
  EXPECT_EQ(PageOf("ECHOFAIL:no $MYNAME:REQTRAIT:GONE"),
            start + " <font color=\"#FFFFFF\">Ada</font>" + end);
  EXPECT_EQ(PageOf("FAILECHO:no:CHANCE:0"), start + end);
  EXPECT_EQ(PageOf("ECHOFAIL:no"), HumanPage(""));
  for (const char* echo : {"ECHO", "ECHOLOCKED", "ECHOMINOR", "ECHOONCE"}) {
    EXPECT_EQ(PageOf(Joined("ECHOFAIL:no:", echo, ":yes:REQTRAIT:GONE")), HumanPage("yes<br><br>"));
  }
}

TEST_F(DisplayTest, EchoOnceShowsOncePerFiringAndNotInNestedRuns) {
  EXPECT_EQ(PageOf("ECHOONCE:x:ECHOONCE:y"), HumanPage("x<br><br>"));
  EXPECT_EQ(PageOf("ECHOONCE:x"), "");
  State().EchoedOnce = 0;
  EXPECT_EQ(PageOf("ECHOONCE:x", {.Nested = 1}), "");
  EXPECT_EQ(State().EchoedOnce, 1);

  State().EchoedOnce = 0;
  RunScript("ECHOONCE:x", {.TestRun = 1, .Nested = 1});
  EXPECT_EQ(State().EchoedOnce, 0) << "the search for a target must not silence the action";
}

TEST_F(DisplayTest, AnOverrideOrACardsOwnWordingReplacesTheMessage) {
  SetTrait(ada, "BURN", "1", 1);
  ada.TraitCaptions.Edit(TraitSlot(ada, "BURN")) = "$MYNAME scorches";
  const std::string wording = "<font color=\"#FFFFFF\">Ada</font> scorches<br><br>";
  const std::string burn = "TRAIT:TRAITEFFECT:BURN:";
  const Rows<std::string, const char*, std::string> cases = {
      {burn + "ECHO:x", "", wording},
      {burn + "ECHOONCE:x", "", wording},
      {burn + "ECHOMINOR:x", "", "x<br><br>"},
      {burn + "ECHOONCE:x", " ", " <br><br>"},
      {"TRAIT:TRAITEFFECT:FREEZE:ECHO:x", "", "x<br><br>"},
      {"ECHOONCE:x", " ", " <br><br>"},
      {"ECHO:x", " ", "x<br><br>"}};
  for (const auto& [script, echoOverride, text] : cases) {
    State().EchoedOnce = 0;
    EXPECT_EQ(PageOf(script, {.EchoOverride = echoOverride}), HumanPage(text)) << script;
  }
}

}  // namespace
}  // namespace brindlemoor
