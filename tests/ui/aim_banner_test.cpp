// Aiming: what waits for a target says so, shows what would do, and can be taken back.
#include "ui/aim_banner.h"

#include "scenario/state_digest.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"
#include "ui/forms.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

class AimBannerTest : public SessionTest {
 protected:
  AimBannerTest() {
    PutPlayerCard(1, {"HP:9", "MANA:0"});
    PutPlayerCard(2, {"HP:9"});
    State().CurrentGame = 1;
    crab_ = &PutInPlay(MakeCard("Crab", 2, {"CREATURE", "HP:2"}));
    eel_ = &PutInPlay(MakeCard("Eel", 2, {"CREATURE", "HP:2"}));
    lamp_ = &PutInPlay(MakeCard("Lamp", 1));
    GiveAction(*lamp_, "MENU:PHASE1:Burn", "TARGETCARD",
               "REQMYOWNERTRAITMORE:MANA:1:REQTRAIT:CREATURE:MODTRAIT:HP:-1");
    for (const int position : {1, 2}) {
      State().Players[1].Hand[position] = MakeCard(position == 1 ? "Bolt" : "Bread", 1);
    }
    Card& bolt = State().Players[1].Hand[1];
    GiveAction(bolt, "ENTERPLAY", "TARGETCARD", "AIREQTRAIT:SLOW:REQTRAIT:CREATURE:MODTRAIT:HP:-1");
    State().Links = {.Cards = {crab_->GlobalID, eel_->GlobalID, lamp_->GlobalID},
                     .DescribedCard = lamp_->GlobalID};
    UpdateHand();
  }
  void ClickHand(std::size_t position) { window_.Picture2[position]->MouseUp(MouseButton::kLeft); }
  static void ClickCard(const Card& card) { WB_BeforeNavigate(Joined("CARD", card.GlobalID)); }
  void ClickMenu() const {
    CardDescWB_BeforeNavigate(Joined("MENUACTION:", lamp_->GlobalID, ":1"));
  }
  /// What is said, and the names of the cards that are outlined.
  std::string Told() const {
    std::string told = window_.Aim.Words.Caption.Get();
    EXPECT_EQ(window_.Aim.Stop.Visible.Get(), !told.empty());
    for (const std::string& link : window_.WB.OutlinedLinks.Get()) {
      for (const Card& card : State().CardTable) {
        if (link == Joined("CARD", card.GlobalID)) told += Joined(" [", card.Name, "]");
      }
    }
    return told;
  }
  std::string Plan() const { return window_.Plan.Lines.Items.Get().front(); }

  MainWindow& window_ = TheMainWindow();
  Card* crab_;
  Card* eel_;
  Card* lamp_;
};

constexpr const char* kBoltAwaits = "Choose a target for Bolt.  Esc stops. [Crab] [Eel]";
constexpr const char* kBurnAwaits = "Choose a target for Lamp: Burn.  Esc stops. [Crab] [Eel]";
constexpr const char* kNothing = "Nothing yet: click a card of your hand to plan it.";

TEST_F(AimBannerTest, APlaySaysWhatItAwaitsUntilItIsAimedOrGivenUp) {
  const std::uint64_t dice = State().Random.State;
  ClickHand(2);
  EXPECT_EQ(Told(), "") << "bread needs no target";
  ClickHand(2);
  ClickHand(1);
  EXPECT_EQ(Told(), kBoltAwaits) << "what only the computer looks for does not count";
  window_.Aim.Stop.Click();
  EXPECT_EQ(Told() + Plan(), kNothing);
  ClickHand(1);
  ClickHand(1);
  EXPECT_EQ(Told() + Plan(), kNothing) << "the second click takes it back, too";

  ClickHand(1);
  const std::string table = StateDigest();
  ClickCard(*crab_);
  EXPECT_EQ(Told() + Plan(), "Play Bolt on Crab");
  EXPECT_EQ(crab_->Traits[2], "HP:2");
  window_.Plan.AimAnew.Click();
  EXPECT_EQ(Told(), kBoltAwaits);
  EXPECT_EQ(StateDigest(), table) << "as if it had not been aimed";
  ClickCard(*lamp_);
  EXPECT_EQ(Plan(), "Play Bolt on Lamp  -  It does nothing to that, so it picks a target itself.");
  EXPECT_EQ(State().Random.State, dice);

  FreeCard(*crab_);
  FreeCard(*eel_);
  window_.Plan.AimAnew.Click();
  EXPECT_EQ(Told(), "Bolt finds no target now.  Esc stops.");
  State().GameOver = 1;
  HideHand();
  EXPECT_EQ(Told(), "");
  EXPECT_FALSE(window_.Aim.Words.Visible);
}

/// A card that was clicked before, perhaps only to look at it, is what the next play is aimed at.
TEST_F(AimBannerTest, ACardThatWasLookedAtIsNotTakenSilently) {
  ClickCard(*eel_);
  ClickHand(1);
  EXPECT_EQ(Told(),
            "Bolt is aimed at Eel, the card that you clicked before.  Esc takes the aim back. "
            "[Eel]");
  EXPECT_EQ(Plan(), "Play Bolt on Eel");
  window_.Aim.Stop.Click();
  EXPECT_EQ(Told(), kBoltAwaits);
  EXPECT_EQ(State().PlayTarget[1], 0);
  EXPECT_EQ(State().Players[1].Hand[1].StoredTarget, 0);
  window_.Aim.Stop.Click();
  EXPECT_EQ(Told() + Plan(), kNothing);

  ClickCard(*eel_);
  ClickHand(2);
  EXPECT_EQ(Told() + Plan(), "Play Bread on Eel  -  It needs no target.");
  window_.Plan.AimAnew.Click();
  EXPECT_EQ(State().PlayTarget[1], 0);
}

TEST_F(AimBannerTest, AMenuActionShowsItsTargetsAndASecondClickTakesItBack) {
  ClickMenu();
  EXPECT_EQ(Told(), kBurnAwaits) << "the oil may come in time";
  ClickMenu();
  EXPECT_EQ(Told() + Plan(), kNothing);
  EXPECT_EQ(State().SelectedSlot, 0) << "the next play is not aimed at the lamp";
  ClickMenu();
  window_.Aim.Stop.Click();
  EXPECT_EQ(Told() + Plan(), kNothing);

  ClickMenu();
  ClickCard(*eel_);
  EXPECT_EQ(Told(), "");
  EXPECT_TRUE(Plan().starts_with("Lamp: Burn, on Eel")) << Plan();
  window_.Plan.AimAnew.Click();
  EXPECT_EQ(Told(), kBurnAwaits);
  EXPECT_EQ(int{lamp_->Effects[1].MenuState}, int{kMenuAction});
  ClickCard(*crab_);
  EXPECT_EQ(lamp_->Effects[1].ChosenTarget, crab_->Slot);
}

}  // namespace
}  // namespace brindlemoor
