// What helps the author of a card: quiet lines, the preview and the search.
#include <chrono>

#include "core/desktop.h"
#include "editor/card_find.h"
#include "editor/script_hints.h"
#include "script/card_setup.h"
#include "tests/editor/card_edit_test.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

TEST(ScriptHintsTest, NamesTheFirstProblemOfAnAction) {
  struct Case {
    EffectRow Row;
    std::string_view Part;  // of the hint; "" for none
  };
  const Case cases[] = {
      {{}, ""},
      {{"COST", "SELF", "MODTRAIT:HP:1"}, ""},
      {{"COST", "SELF", "MODTRIAT:HP:1"}, "\"MODTRIAT\" is no command. Did you mean MODTRAIT?"},
      {{"COTS", "SLEF", "MODTRIAT:HP:1"}, "\"COTS\" is no trigger"},
      {{"COST", "SLEF", "MODTRIAT:HP:1"}, "\"SLEF\" is no target"},
      {{"COTS", "", ""}, "\"COTS\" is no trigger"},
      {{"(Choose a Trigger)", "(Choose a Target Type)", ""}, ""},
      {{"(Choose a Trigger)", "SELF", "DESTROY"}, "The trigger is missing"},
      {{"COST", "", "DESTROY"}, "The target is missing"},
      {{"COUNTER", "", "MODTRAIT:HP:1"}, ""},
      {{"TURNSTART", "COUNTER", "MODTRIAT:HP:1"}, "MODTRIAT"},
      {{"MENU:PHASE1:Go", "ALL", "TRAIT:TRAITEFFECT:FLYING:MODTRAIT:HP:1"}, ""},
      {{"COST", "ALL", "TRAIT:TRAITEFFECT:FLYING:MODTRIAT:HP:1"}, "MODTRIAT"},
      {{"COST", "SELF", "MODTRAIT:HP:1:REQENEMY:ECHO:x"}, "REQENEMY"},
      {{"COST", "SELF", "MODTRAIT:HP:1:REQENEMY:MODTRIAT:HP:1"}, "MODTRIAT"},
      {{"TARGETED", "SELF", "TRAIT:TRAITEFFECT:SHY:REQMYTRAITMORE:HP:3:CANCEL"},
       "REQISMORE:SRCTRAIT/HP:2"},
      {{"TARGETED", "SELF", "REQMYTRAITMORE:HP:3:MODTRIAT:HP:1"}, "MODTRIAT"},
  };
  for (const Case& entry : cases) {
    const std::string hint = HintForAction(entry.Row);
    EXPECT_TRUE(entry.Part.empty() ? hint.empty() : hint.find(entry.Part) != std::string::npos)
        << entry.Row.Trigger << "|" << entry.Row.Target << "|" << entry.Row.Script << ": " << hint;
  }
  for (const char* kept : {"", "Plain", "A, b", "Say \"hi\""}) EXPECT_EQ(HintForName(kept), "");
  EXPECT_NE(HintForName("Say \"hi\", twice").find("Say &quothi&quot, twice"), std::string::npos);
}

TEST_F(CardEditTest, HintsFollowTheRowsAndNeverChangeThem) {
  const auto hint = [this](int row) { return form_.ScriptHint[row].Caption.Get(); };
  ChooseText(form_.TargetCombo[1], "SELF");
  ChooseText(form_.TriggerCombo[1], "COST");
  EXPECT_EQ(hint(1), "");
  Type(form_.EffText[1], "MODTRIAT:HP:1");
  const std::string told = hint(1);
  EXPECT_NE(told, "");
  EXPECT_EQ(form_.ScriptHint[1].ToolTip.Get(), told) << "the line may be too short for it";
  EXPECT_EQ(form_.EffText[1].Text.Get(), "MODTRIAT:HP:1");
  Scroll(form_.EffScroll, 2);
  EXPECT_EQ(hint(0), told);
  EXPECT_EQ(hint(1), "");
  form_.TriggerCombo[0].Text = "COTS";
  form_.TriggerCombo[0].Change();
  EXPECT_NE(hint(0), told);
  Type(form_.CardText[0], "\"a\", b");
  EXPECT_NE(form_.NameHint.Caption.Get(), "");
  form_.LoadCardIntoForm(MakeCard("Plain", 1, {"HP:1"}));
  EXPECT_EQ(hint(0) + form_.NameHint.Caption.Get(), "");
}

TEST_F(CardEditTest, ThePreviewShowsTheRowsAndDisturbsNothing) {
  const auto page = [] {
    return Desktop().Files().Read(std::string(kFolder) + "/CardPreview.html").value_or("");
  };
  const auto shows = [&page](std::string_view text) {
    return page().find(text) != std::string::npos;
  };
  TheMainWindow().Picture1.Picture = "before.png";
  State().PageText = "half a page";
  Card card = MakeCard("Gull", 1, {"HP:1"});
  card.Description = "$MYNAME sings";
  card.Picture = "gull.jpg";
  form_.LoadCardIntoForm(card);
  EXPECT_TRUE(shows("Gull</font> sings"));
  EXPECT_TRUE(form_.PreviewWB.Url.Get().ends_with("CardPreview.html"));
  EXPECT_FALSE(form_.PreviewTimer.Enabled);
  Type(form_.DescText, "It dives");
  Type(form_.CardText[0], "Tern");
  EXPECT_FALSE(shows("It dives")) << "the author still types";
  ASSERT_TRUE(form_.PreviewTimer.Enabled);
  form_.PreviewTimer.Tick();
  EXPECT_TRUE(shows("It dives") && shows("Tern"));
  EXPECT_FALSE(form_.PreviewTimer.Enabled);
  WriteFile("CardPreview.html", "");
  Scroll(form_.TraitScroll, 2);
  form_.PreviewTimer.Tick();
  EXPECT_EQ(page(), "") << "nothing new to show";
  EXPECT_EQ(Edited().UniqueID, card.UniqueID);
  EXPECT_EQ(TheMainWindow().Picture1.Picture.Get(), "before.png");
  EXPECT_EQ(State().PageText, "half a page");
  EXPECT_TRUE(form_.PreviewWB.BeforeNavigate("CARD1"));
}

TEST_F(CardEditTest, FindGoesRoundTheCards) {
  Card harbour = MakeCard("Harbour", 1, {"SIZE:3"});
  AddEffect(harbour, "MODTRAIT:HP:1", 7, "MENU:PHASE2:Row out", 0, "SELF");
  Card gull = MakeCard("Gull", 1, {"HP:1"});
  AddEffect(gull, "ECHO:a=b", 2, "ONDEATH", 0, "ALL");
  LoadCards({gull, harbour, MakeCard("Tern", 1, {"HP:4"})});
  struct Case {
    const char* Words;
    int From;
    int Found;
  };
  for (const Case& entry : {Case{"gull", 1, 1},
                            {"HP>0", 1, 3},
                            {"HP>0", 3, 1},
                            {"hp", 1, 2},
                            {"modtrait:hp", 3, 2},
                            {"echo:A=b", 0, 1},
                            {"ondeath", 2, 1},
                            {"self", 0, 2},
                            {"row OUT", 0, 2},
                            {"phase2", 0, 2},
                            {"xyz", 0, 0},
                            {"  ", 0, 0},
                            {"tern", 99, 3}}) {
    EXPECT_EQ(FindNextCard(State().Collection, entry.From, entry.Words), entry.Found)
        << entry.Words;
  }
  Choose(1);
  Type(form_.DescText, "typed before");
  Type(form_.FindText, "ern");
  form_.FindText.Enter();
  EXPECT_EQ(form_.CardCombo.Selected, 3);
  EXPECT_EQ(Edited().Name, "Tern");
  EXPECT_EQ(Stored(1).Description, "typed before");
  form_.FindNext.Click();
  EXPECT_EQ(form_.FindNote.Caption.Get(), "No other card.");
  Type(form_.FindText, "xyz");
  EXPECT_EQ(form_.FindNote.Caption.Get(), "");
  form_.FindNext.Click();
  EXPECT_EQ(form_.FindNote.Caption.Get(), "Nothing found.");
  EXPECT_EQ(form_.Lists.Place(), 3);
}

}  // namespace
}  // namespace brindlemoor
