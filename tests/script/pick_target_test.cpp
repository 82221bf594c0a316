// Target selection: what is preferred, what is left out, and that a search changes nothing.
#include <set>

#include "core/random.h"
#include "script/triggers.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class PickTargetTest : public SessionTest {
 protected:
  PickTargetTest() {
    PutPlayerCard(1);
    PutPlayerCard(2);
    for (const char* name : {"Ann", "Bob", "Cid"}) PutInPlay(MakeCard(name, 2, {"MARK"}));
    PutInPlay(MakeCard("Friend", 1));
  }
  struct Picked {
    std::set<std::string> Names;
    std::set<int> Qualities;
  };
  /// Picks over many seeds.
  static Picked PickOften(Card& source, int effect, int type, const Text& script = {}) {
    Picked picked;
    for (int seed = 1; seed <= 80; ++seed) {
      SeedFromText("PICK", seed);
      int quality = 99;
      const int slot = PickTarget(source, effect, type, script, quality);
      picked.Names.insert(slot == 0 ? "" : State().CardTable[slot].Name.Str());
      picked.Qualities.insert(quality);
    }
    return picked;
  }
  static Card& PutSeeker(std::string_view script, int owner = 1,
                         const std::vector<std::string>& traits = {}) {
    Card card = MakeCard("Seeker", owner, traits);
    GiveAction(card, "PHASE1", "RANDOM", script);
    return PutInPlay(card);
  }
};

using Names = std::set<std::string>;

TEST_F(PickTargetTest, CleanTargetsComeBeforePartialOnes) {
  struct Case {
    const char* Script;
    int Type;
    Names Expected;
    int Quality;
  };
  SetTrait(State().CardTable[4], "BEST", 1, 0);
  const Case cases[] = {
      {"REQTRAIT:MARK:MODTRAIT:HP:1", kTargetRandom, {"Ann", "Bob", "Cid"}, kCleanTarget},
      {"REQTRAIT:MARK:AIREQTRAIT:BEST:MODTRAIT:HP:1", kTargetRandom, {"Bob"}, kCleanTarget},
      {"REQTRAIT:MARK:AIREQTRAIT:ABSENT:MODTRAIT:HP:1",
       kTargetRandom,
       {"Ann", "Bob", "Cid"},
       kPartialTarget},
      {"REQTRAIT:ABSENT:MODTRAIT:HP:1", kTargetRandom, {""}, kNoTarget},
      {"SUBTRAIT:ABSENT:1", kTargetRandom, {""}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetRandomEnemy, {"Ann", "Bob", "Cid", "Player 2"}, kCleanTarget},
      {"REQNOTME:MODTRAIT:HP:1", kTargetRandomAlly, {"Friend", "Player 1"}, kCleanTarget},
      {"REQTRAIT:MARK", kTargetCard, {"Ann", "Bob", "Cid"}, kCleanTarget},
      {"MODTRAIT:HP:1", kTargetSelf, {"Seeker"}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetOwner, {"Player 1"}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetEnemyPlayer, {"Player 2"}, kNoTarget},
  };
  for (const Case& row : cases) {
    Card& seeker = PutSeeker(row.Script);
    const Picked picked = PickOften(seeker, 1, row.Type);
    EXPECT_EQ(picked.Names, row.Expected) << row.Script << " for type " << row.Type;
    EXPECT_EQ(picked.Qualities, std::set<int>{row.Quality}) << row.Script;
    FreeCard(seeker);
  }
}

TEST_F(PickTargetTest, PlayerCardsOfNeutralSeekers) {
  Card& seeker = PutSeeker("MODTRAIT:HP:1", 0);
  EXPECT_EQ(PickOften(seeker, 1, kTargetOwner).Names, Names{""});
  EXPECT_EQ(PickOften(seeker, 1, kTargetEnemyPlayer).Names, Names{"Player 2"});
}

TEST_F(PickTargetTest, GidCardFollowsTheExpressionOfTheAction) {
  State().CardTable[5].GlobalID = 777;
  Card& seeker = PutSeeker("MODTRAIT:HP:1", 1, {"AIM:777"});
  seeker.Effects.Edit(1).TargetText = "GIDCARD:SRCTRAIT/AIM";
  EXPECT_EQ(PickOften(seeker, 1, kTargetGidCard).Names, Names{"Cid"});
}

TEST_F(PickTargetTest, CardsNotInPlayAndFreeSlotsAreLeftOut) {
  Card& seeker = PutSeeker("REQTRAIT:MARK:MODTRAIT:HP:1");
  State().CardTable[3].InPlay = 0;
  FreeCard(State().CardTable[4]);
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom).Names, Names{"Cid"});
}

TEST_F(PickTargetTest, AGivenScriptReplacesTheActionsAndItsMasks) {
  Card& seeker = PutSeeker("REQTRAIT:ABSENT:DESTROY");
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom, "REQNAME:Bob").Names, Names{"Bob"});
  EXPECT_EQ(PickOften(seeker, 99, kTargetRandom, "REQNAME:Bob").Names, Names{"Bob"});
}

TEST_F(PickTargetTest, AFailedRequirementOnTheSourceEndsTheSearch) {
  Card& seeker = PutSeeker("REQMYTRAITMORE:MANA:5:MODTRAIT:HP:1", 1, {"MANA:1"});
  const double tried = State().StatNotMasked;
  int quality = 99;
  EXPECT_EQ(PickTarget(seeker, 1, kTargetRandom, Text(), quality), 0);
  EXPECT_EQ(quality, kNoTarget);
  EXPECT_EQ(State().StatNotMasked - tried, 1) << "one candidate was enough";
  EXPECT_EQ(State().CancelState, 0) << "what comes next must not be cancelled";
}

// The masks spare a refused candidate its copies; nothing else may tell that they did.
TEST_F(PickTargetTest, MaskedCandidatesLeaveTheTracesOfARefusedRun) {
  Card& seeker = PutSeeker("REQTRAIT:ABSENT:MODTRAIT:HP:1");
  Session& session = State();
  session.FailReason = "old";
  session.RedirectTarget = 3;
  session.RedirectScript = "old";
  session.CancelState = 2;
  session.HpReport = 1;
  session.LastValue = 12;
  const double masked = session.StatMasked;
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom).Names, Names{""});
  EXPECT_EQ(session.StatMasked - masked, 80 * 7);
  EXPECT_EQ(session.FailReason, "");
  EXPECT_EQ(session.RedirectTarget, 0);
  EXPECT_TRUE(session.RedirectScript.empty());
  EXPECT_EQ(session.CancelState, 0);
  EXPECT_EQ(session.HpReport, 0);
  EXPECT_EQ(session.LastValue, 12);
  EXPECT_EQ(session.RunDepth, 0);
}

TEST_F(PickTargetTest, AFinishedGameAndADeepRunPickNothing) {
  Card& seeker = PutSeeker("REQTRAIT:ABSENT:MODTRAIT:HP:1");
  const double masked = State().StatMasked;
  State().GameOver = 1;
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom).Names, Names{""});
  State().GameOver = 0;
  State().RunDepth = 10;
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom).Names, Names{""});
  State().RunDepth = 0;
  EXPECT_EQ(State().StatMasked, masked);
}

TEST_F(PickTargetTest, ASearchChangesNoCard) {
  Card& seeker = PutSeeker(
      "MODTRAIT:HP:-3:SETMYTRAIT:TIRED:1:CHANGENAME:Gone:DESTROY:DESTROYME:MINDCONTROL:"
      "ADDEFFECT:PHASE1:SELF:DESTROYME");
  const std::string before = Dump(State().CardTable);
  EXPECT_EQ(PickOften(seeker, 1, kTargetRandom).Qualities, std::set<int>{kCleanTarget});
  EXPECT_EQ(Dump(State().CardTable), before);
  EXPECT_TRUE(State().PendingEffectText.empty());
  EXPECT_EQ(State().PhaseBanner, "");
}

}  // namespace
}  // namespace brindlemoor
