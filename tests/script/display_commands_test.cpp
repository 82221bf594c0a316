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
  struct Case {
    int SourceOwner;
    int TargetOwner;
    const char* Script;
    std::string Page;
  };
  const Case cases[] = {
      {1, 2, "ECHO:x", human},
      {2, 1, "ECHO:x", computer},
      {0, 1, "ECHO:x", neutral},
      {3, 1, "ECHO:x", neutral},
      {1, 2, "REVERSECOLOR:ECHO:x", computer},
      {2, 1, "ECHO:x:REVERSECOLOR", human},
      {3, 1, "ECHO:x:REVERSECOLOR", human},
      {1, 2, "REVERSECOLOR:ECHO:x:REVERSECOLOR", human},
      {1, 2, "TARGETCOLOR:ECHO:x", computer},
      {1, 1, "TARGETCOLOR:ECHO:x", human},
      {1, 0, "TARGETCOLOR:ECHO:x", neutral},
      {1, 2, "TARGETCOLOR:REVERSECOLOR:ECHO:x", human},
      {0, 1, "TARGETCOLOR:ECHO:x", neutral},
      {1, 2, "FRAMECOLOR:#123456:ECHO:x",
       "<table width=100%><tr><td bgcolor = #123456><font color=\"55FF55\"><p align=left>"
       "x<br><br></font></p></table></tr></td>"},
  };
  for (const Case& run : cases) {
    ada.Owner = static_cast<std::uint8_t>(run.SourceOwner);
    bob.Owner = static_cast<std::uint8_t>(run.TargetOwner);
    EXPECT_EQ(PageOf(run.Script), run.Page)
        << run.Script << " of " << run.SourceOwner << " on " << run.TargetOwner;
  }
  ada.Owner = 1;
  ada.Name = "RulesCard";
  EXPECT_EQ(PageOf("ECHO:x"), neutral);
  EXPECT_EQ(PageOf("TARGETCOLOR:ECHO:x"), neutral);
}

TEST_F(DisplayTest, ARunWithoutAMessageLeavesNoTrace) {
  for (const char* script :
       {"", "REVERSECOLOR", "FRAMECOLOR:red", "ECHOTRAIT:x", "REQTRAIT:GONE"}) {
    EXPECT_EQ(PageOf(script), "") << script;
  }
  EXPECT_EQ(PageOf("ECHO:x:ECHOFAIL:y:REQTRAIT:GONE", TestOptions()), "");
}

TEST_F(DisplayTest, PicturesStandBeforeTheMessageInTheOutermostRun) {
  ada.Thumb = "ada.jpg";
  bob.Thumb = "bob.jpg";
  const std::string mine = CardPictureHtml(ada, -1, 1);
  const std::string other = CardPictureHtml(bob, -1, 1);
  ASSERT_NE(mine, "");
  EXPECT_EQ(PageOf("ECHO:x"), HumanPage(mine + other + "x<br><br>"));
  EXPECT_EQ(PageOf("ECHOLOCKED:x"), HumanPage(mine + other + "x<br><br>"));
  EXPECT_EQ(PageOf("ECHOMINOR:x$MYIMG"), HumanPage("x<br><br>"));
  EXPECT_EQ(PageOf("ECHOONCE:x$TARGETIMG"), HumanPage(mine + "x" + other + "<br><br>"));
  EXPECT_EQ(PageOf("CHANGETHUMB:new.jpg:ECHO:x"), HumanPage(mine + other + "x<br><br>"))
      << "the pictures are those of the start of the run";

  bob.Owner = 1;
  const std::string facing = CardPictureHtml(bob, -1, 2);
  ASSERT_NE(facing, CardPictureHtml(bob, -1, 1));
  EXPECT_EQ(PageOf("MINDCONTROL:ECHO:x"),
            HumanPage(CardPictureHtml(ada, -1, 1) + facing + "x<br><br>"));
  RunOptions onItself;
  onItself.ScriptOverride = "ECHO:x";
  RunAction(ada, ada, 1, onItself);
  EXPECT_EQ(TakeBanner(), HumanPage(CardPictureHtml(ada, -1, 1) + "x<br><br>"));

  State().RunDepth = 1;
  EXPECT_EQ(PageOf("ECHO:x"), "<font color=\"55FF55\"><p align=left>x<br><br></font></p>");
}

TEST_F(DisplayTest, TheHpSentenceSpeaksOfTheCardThatChanged) {
  const std::string target = "<br>(<font color=\"#FFFFFF\">Bob</font> has ";
  const std::string source = "<br>(<font color=\"#FFFFFF\">Ada</font> now has ";
  const std::string targetEnd = "<font color=#FFFF00> HP</font> left.)<br><br><br>";
  const std::string sourceEnd = "<font color=#FFFF00> HP</font>.)<br><br><br>";
  SetTrait(ada, "HP", "9", 1);
  SetTrait(bob, "HP", "9", 1);
  const auto page = [this](std::string_view script) {
    RunScript(script);
    return TakeBanner();
  };
  std::string banner = page("MODTRAIT:HP:-2:ECHO:x");
  EXPECT_EQ(banner, HumanPage(Joined("x", target, HPText(bob, 0), targetEnd)));
  banner = page("MODMYTRAIT:HP:1:ECHO:x");
  EXPECT_EQ(banner, HumanPage(Joined("x", source, HPText(ada, 0), sourceEnd)));
  banner = page("SUBMYTRAIT:HP:1:ECHO:x");
  EXPECT_EQ(banner, HumanPage(Joined("x", target, HPText(bob, 0), targetEnd)));
  banner = page("ECHO:x:MODTRAIT:HP:-2");
  EXPECT_EQ(banner, HumanPage("x<br><br>"));
  EXPECT_EQ(State().HpReport, 1) << "the sentence waits";
  banner = page("MODTRAIT:HP:-1:ECHOMINOR:x:ECHOMINOR:y");
  EXPECT_EQ(banner, HumanPage(Joined("x", target, HPText(bob, 0), targetEnd, "y<br><br>")));
}

TEST_F(DisplayTest, EchoFailShowsOnlyWhenTheRunFailsBeforeTheNextMessage) {
  EXPECT_EQ(PageOf("ECHOFAIL:no $MYNAME:REQTRAIT:GONE"),
            "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\"><p align=left>"
            "</font></p><p>no <font color=\"#FFFFFF\">Ada</font><br><br></p></table></tr></td>");
  EXPECT_EQ(PageOf("FAILECHO:no:CHANCE:0"),
            "<table width=100%><tr><td bgcolor = #001100 ><font color=\"55FF55\"><p align=left>"
            "</font></p><p>no<br><br></p></table></tr></td>");
  EXPECT_EQ(PageOf("ECHOFAIL:no"), HumanPage(""));
  for (const char* echo : {"ECHO", "ECHOLOCKED", "ECHOMINOR", "ECHOONCE"}) {
    State().EchoedOnce = 0;
    EXPECT_EQ(PageOf(Joined("ECHOFAIL:no:", echo, ":yes:REQTRAIT:GONE")), HumanPage("yes<br><br>"));
  }
}

TEST_F(DisplayTest, EchoOnceShowsOncePerFiringAndNotInNestedRuns) {
  EXPECT_EQ(PageOf("ECHOONCE:x:ECHOONCE:y"), HumanPage("x<br><br>"));
  EXPECT_EQ(PageOf("ECHOONCE:x"), "");
  State().EchoedOnce = 0;
  RunOptions nested;
  nested.Nested = 1;
  EXPECT_EQ(PageOf("ECHOONCE:x", nested), "");
  EXPECT_EQ(State().EchoedOnce, 1);

  State().EchoedOnce = 0;
  nested.TestRun = 1;
  RunScript("ECHOONCE:x", nested);
  EXPECT_EQ(State().EchoedOnce, 0) << "the search for a target must not silence the action";
}

TEST_F(DisplayTest, AnOverrideOrACardsOwnWordingReplacesTheMessage) {
  RunOptions options;
  options.EchoOverride = " ";
  EXPECT_EQ(PageOf("ECHOONCE:x", options), HumanPage(" <br><br>"));
  EXPECT_EQ(PageOf("ECHO:x", options), HumanPage("x<br><br>"));

  SetTrait(ada, "BURN", "1", 1);
  ada.TraitCaptions.Edit(TraitSlot(ada, "BURN")) = "$MYNAME scorches";
  const std::string wording = "<font color=\"#FFFFFF\">Ada</font> scorches<br><br>";
  const struct {
    const char* Echo;
    std::string Text;
  } cases[] = {{"ECHO", wording},
               {"ECHOONCE", wording},
               {"ECHOLOCKED", "x<br><br>"},
               {"ECHOMINOR", "x<br><br>"}};
  for (const auto& row : cases) {
    State().EchoedOnce = 0;
    EXPECT_EQ(PageOf(Joined("TRAIT:TRAITEFFECT:BURN:", row.Echo, ":x")), HumanPage(row.Text))
        << row.Echo;
  }
  EXPECT_EQ(PageOf("TRAIT:TRAITEFFECT:FREEZE:ECHO:x"), HumanPage("x<br><br>"));
  State().EchoedOnce = 0;
  EXPECT_EQ(PageOf("TRAIT:TRAITEFFECT:BURN:ECHOONCE:x", options), HumanPage(" <br><br>"));
}

}  // namespace
}  // namespace brindlemoor
