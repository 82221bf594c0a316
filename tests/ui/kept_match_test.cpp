// A match is left and goes on, and its turns are looked at and taken back, by the main window.
#include <regex>

#include "game/kept_matches.h"
#include "game/match_results.h"
#include "scenario/state_digest.h"
#include "tests/support/shipped_games.h"
#include "ui/kept_match_panel.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

constexpr const char* kFile = "Ann_Wickwater.match";

/// Files of which one can't be written.
class FullDisk : public MemoryFileSystem {
 public:
  std::string Full;

  std::string Write(const std::string& path, std::string_view bytes) override {
    return path == Full ? "no space left" : MemoryFileSystem::Write(path, bytes);
  }
};

/// In the third turn of a match, with a card planned.
class KeptMatchTest : public ShippedGamesTest {
 protected:
  KeptMatchTest() {
    OpenStarterChest();
    Begin();
    TakeTurn();
    TakeTurn();
    PlanFirstCard();
  }
  void Begin() {
    ExpectWholeDeck();
    PlayOpponent(1, OpponentNamed("Oona Ebb"));
  }
  void TakeTurn() { window_.Command1.Click(); }
  void PlanFirstCard() {
    for (int position = 1; position <= kHandPositions; ++position) {
      if (IsFree(State().Players[1].Hand[position])) continue;
      window_.Picture2[static_cast<std::size_t>(position)]->MouseUp(MouseButton::kLeft);
      return;
    }
  }
  void Leave(const std::string& answer) {
    desktop_->ChoiceAnswers = {answer};
    window_.newgamemen.Click();
    EXPECT_EQ(State().CurrentGame, 0);
  }
  /// What the panel above the list offers.
  std::string Offered() const {
    std::string captions;
    for (const auto& button : window_.Kept.Buttons) {
      if (window_.Kept.Panel.Visible && button->Visible) captions += button->Caption.Get() + "|";
    }
    return captions;
  }
  void Continue() { window_.Kept.Buttons[0]->Click(); }
  bool IsKept() const { return files_->Contents.contains(std::string("/game/") + kFile); }
  std::string Shown() const { return desktop_->Pages["WB"]; }
  /// Numbers of cards come from the clock once a match has ended.
  static std::string WithoutNumbers(const std::string& page) {
    return std::regex_replace(page, std::regex("CARD[0-9]+"), "CARD");
  }

  MainWindow& window_ = TheMainWindow();
};

TEST_F(KeptMatchTest, AMatchThatWasSavedGoesOnWhereItWas) {
  EXPECT_EQ(Offered(), "") << "the panel belongs to the list of games";
  const std::string report = Shown();
  const std::string plan = desktop_->Pages["InPlayWB"];
  Leave("Save and Leave");
  EXPECT_EQ(Offered(), "Continue: Oona Ebb, turn 2|");
  Continue();
  EXPECT_EQ(Shown(), report);
  EXPECT_EQ(desktop_->Pages["InPlayWB"], plan);
  EXPECT_NE(plan.find("Play "), std::string::npos);
  EXPECT_EQ(Offered(), "");
  const std::string digest = StateDigest();

  // The turn that comes is the one that would have come; a kill loses no more than the plan.
  TakeTurn();
  const std::string third = Shown();
  const std::string kept = ReadFile(kFile);
  WriteFile(kFile, kept);
  NewGame();
  EXPECT_EQ(Offered(), "Continue: Oona Ebb, turn 3|");
  Continue();
  EXPECT_EQ(Shown(), third);
  EXPECT_NE(digest, StateDigest());
}

TEST_F(KeptMatchTest, AnotherMatchTakesItsPlaceOnlyByAnAnswer) {
  Leave("Save and Leave");
  desktop_->ChoiceAnswers = {"Cancel"};
  PlayOpponent(1, OpponentNamed("Oona Ebb"));
  EXPECT_EQ(State().CurrentGame, 0);
  PlayOpponent(1, OpponentNamed("Starter Chest"));  // a visit takes nobody's place
  window_.newgamemen.Click();
  EXPECT_EQ(Offered(), "Continue: Oona Ebb, turn 2|");

  desktop_->ChoiceAnswers = {"New Match"};
  desktop_->ModalForms.emplace_back([](Form&) { TheDeckManager().backmen.Click(); });
  PlayOpponent(1, OpponentNamed("Oona Ebb"));
  EXPECT_EQ(Offered(), "Continue: Oona Ebb, turn 2|");
  desktop_->ChoiceAnswers = {"New Match"};
  Begin();
  EXPECT_EQ(State().Match.Turns, 0);
  Leave("Save and Leave");
  EXPECT_EQ(Offered(), "Continue: Oona Ebb|");
  desktop_->ChoiceAnswers = {"Continue"};
  PlayOpponent(1, OpponentNamed("Oona Ebb"));
  EXPECT_EQ(State().CurrentGame, 1);
  Leave("Give Up");
  EXPECT_EQ(Offered(), "");
  EXPECT_FALSE(IsKept());
}

TEST_F(KeptMatchTest, AnEndedMatchIsNotOffered) {
  AddEffect(State().RulesCard, "LOSEGAME", 7, "TURNSTART", 0, "SELF");
  TakeTurn();
  ASSERT_EQ(State().GameOver, 1);
  EXPECT_FALSE(IsKept());
  TakeTurn();
  EXPECT_EQ(Offered(), "");
}

TEST_F(KeptMatchTest, WhatStandsInTheWayIsAsked) {
  Leave("Save and Leave");
  const std::string cards = ReadFile("wickwater/WickwaterCards.txt");
  WriteFile("wickwater/WickwaterCards.txt", cards + "\r\n");
  desktop_->ChoiceAnswers = {"Not Now"};
  Continue();
  EXPECT_EQ(State().CurrentGame, 0);
  EXPECT_NE(desktop_->Choices.back().find("wickwater/WickwaterCards.txt has changed"),
            std::string::npos);
  desktop_->ChoiceAnswers = {"Go On"};
  Continue();
  EXPECT_EQ(State().Match.Turns, 2);
  Leave("Save and Leave");

  WriteFile(kFile, ReadFile(kFile).substr(0, 5000));
  NewGame();
  EXPECT_EQ(Offered(), "Continue: Wickwater|");
  desktop_->YesNoAnswers = {false, true};
  Continue();
  EXPECT_TRUE(IsKept());
  Continue();
  EXPECT_EQ(desktop_->YesNoQuestions.back(),
            "Ann_Wickwater.match is damaged.  Remove the saved match?");
  EXPECT_EQ(Offered(), "");
  EXPECT_FALSE(IsKept());
}

TEST_F(KeptMatchTest, AFullDiskIsToldOfOnceAndKeepsThePlayerHere) {
  const std::string before = ReadFile(kFile);
  auto files = std::make_unique<FullDisk>();
  files->Contents = files_->Contents;
  files->Full = std::string("/game/") + kFile;
  files_ = files.get();
  auto desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  desktop_ = desktop.get();
  State().Desktop = desktop;
  const std::string told = "Can't save Ann_Wickwater.match: no space left";
  desktop_->ExpectedMessages = {told};
  TakeTurn();
  TakeTurn();
  EXPECT_EQ(ReadFile(kFile), before);
  desktop_->ExpectedMessages = {told};
  desktop_->ChoiceAnswers = {"Save and Leave"};
  window_.newgamemen.Click();
  EXPECT_EQ(State().CurrentGame, 1) << "it has not been saved";
}

TEST_F(KeptMatchTest, InDebugModeTheKeptMatchStaysAsItIs) {
  const std::string before = ReadFile(kFile);
  window_.debugmen.Click();
  TakeTurn();
  desktop_->YesNoAnswers = {true};
  window_.newgamemen.Click();
  EXPECT_EQ(ReadFile(kFile), before);
}

TEST_F(KeptMatchTest, APlannedActionWithoutATargetIsToldOf) {
  State().SelectedSlot = static_cast<std::int16_t>(State().Players[1].PlayerCard);
  State().AwaitingMenuTarget = 1;
  State().MenuEffect = 1;
  TakeTurn();
  EXPECT_NE(window_.Story.Lines.Text.Get().find("(no target was chosen)"), std::string::npos);
}

TEST_F(KeptMatchTest, EarlierReportsAreOnlyLookedAt) {
  const std::string now = Shown();
  EXPECT_TRUE(window_.History.Back.Enabled && !window_.History.Forward.Enabled);
  window_.History.Back.Click();
  window_.History.Back.Click();
  EXPECT_FALSE(window_.History.Back.Enabled);
  EXPECT_NE(Shown(), now);
  EXPECT_EQ(window_.Story.Lines.Text.Get().substr(0, 35), "This is the report of the beginning");
  const std::string digest = StateDigest();
  WB_BeforeNavigate(Joined("file:///game/CARD", State().CardTable[1].GlobalID));
  EXPECT_EQ(StateDigest(), digest) << "nothing is aimed at on an old page";
  window_.History.Forward.Click();
  window_.History.Forward.Click();
  EXPECT_EQ(Shown(), now);

  window_.History.Back.Click();
  TakeTurn();
  EXPECT_FALSE(window_.History.LooksBack()) << "a new report is shown at once";
  for (int turn = 4; turn < 20; ++turn) {
    State().LastTurn.Turn = turn;
    UpdateHand();
  }
  int steps = 0;
  for (; window_.History.Back.Enabled; ++steps) window_.History.Back.Click();
  EXPECT_EQ(steps, 9);
  Leave("Save and Leave");
  EXPECT_FALSE(window_.History.Back.Visible);
}

TEST_F(KeptMatchTest, ATurnThatIsTakenBackComesAgainAndPaysNothing) {
  EXPECT_FALSE(window_.History.TakeTurnBack.Enabled);
  window_.History.Allowed.Click();
  EXPECT_FALSE(window_.History.TakeTurnBack.Enabled) << "the last turn was not noted";
  AddEffect(State().RulesCard, "MODTOKENS:40:WINGAME", 7, "TURNSTART", 0, "SELF");
  const std::int32_t tokens = State().Players[1].Tokens;
  const std::string plan = desktop_->Pages["InPlayWB"];
  const std::string report = Shown();
  TakeTurn();
  const std::string won = Shown();
  EXPECT_TRUE(State().GameOver == 1 && State().Players[1].Tokens == tokens + 40);
  const int oona = OpponentNamed("Oona Ebb");
  EXPECT_EQ(ResultsAgainst(1, oona).Won, 1);
  const std::string changed = "wickwater/WickwaterCards.txt";
  WriteFile(changed, ReadFile(changed) + "***");

  desktop_->YesNoAnswers = {false, true};
  window_.History.TakeTurnBack.Click();
  EXPECT_EQ(State().GameOver, 1);
  window_.History.TakeTurnBack.Click();
  EXPECT_EQ(Shown(), report);
  EXPECT_EQ(desktop_->Pages["InPlayWB"], plan);
  EXPECT_TRUE(State().GameOver == 0 && State().Match.Turns == 2);
  EXPECT_FALSE(window_.End.Panel.Visible || window_.History.TakeTurnBack.Enabled);
  EXPECT_NE(ReadFile("Ann_Wickwater.plr").find(Joined("#TOKENS, ", tokens)), std::string::npos);
  EXPECT_TRUE(IsKept());
  EXPECT_EQ(KeptMatchOf(1)->ChangedFiles.size(), 1U) << "the change is not forgotten";

  TakeTurn();
  EXPECT_EQ(ResultsAgainst(1, oona).Played(), 0);
  EXPECT_TRUE(State().GameOver == 1 && State().Players[1].Tokens == tokens);
  EXPECT_EQ(WithoutNumbers(Shown()), WithoutNumbers(won)) << "the same luck";
}

}  // namespace
}  // namespace brindlemoor
