// Target selection over many seeds: what is preferred and what is left out.
#include <set>

#include "core/random.h"
#include "script/trait_changes.h"
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
  static Picked PickOften(Card& source, int type) {
    Picked picked;
    for (int seed = 1; seed <= 80; ++seed) {
      SeedFromText("PICK", seed);
      int quality = 99;
      const int slot = PickTarget(source, 1, type, Text(), quality);
      picked.Names.insert(slot == 0 ? "" : State().CardTable[slot].Name.Str());
      picked.Qualities.insert(quality);
    }
    return picked;
  }
  static Card& PutSeeker(std::string_view script) {
    Card card = MakeCard("Seeker", 1);
    GiveAction(card, "PHASE1", "RANDOM", script);
    return PutInPlay(card);
  }
};

using Names = std::set<std::string>;

TEST_F(PickTargetTest, CleanTargetsComeBeforePartialOnes) {
  SetTrait(State().CardTable[4], "BEST", 1, 0);
  const Names marked = {"Ann", "Bob", "Cid"};
  const Rows<const char*, int, Names, int> cases = {
      {"REQTRAIT:MARK:MODTRAIT:HP:1", kTargetRandom, marked, kCleanTarget},
      {"REQTRAIT:MARK:AIREQTRAIT:BEST:MODTRAIT:HP:1", kTargetRandom, {"Bob"}, kCleanTarget},
      {"REQTRAIT:MARK:AIREQTRAIT:ABSENT:MODTRAIT:HP:1", kTargetRandom, marked, kPartialTarget},
      {"REQTRAIT:ABSENT:MODTRAIT:HP:1", kTargetRandom, {""}, kNoTarget},
      {"SUBTRAIT:ABSENT:1", kTargetRandom, {""}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetRandomEnemy, {"Ann", "Bob", "Cid", "Player 2"}, kCleanTarget},
      {"REQNOTME:MODTRAIT:HP:1", kTargetRandomAlly, {"Friend", "Player 1"}, kCleanTarget},
      {"REQTRAIT:MARK", kTargetCard, marked, kCleanTarget},
      {"MODTRAIT:HP:1", kTargetSelf, {"Seeker"}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetOwner, {"Player 1"}, kNoTarget},
      {"MODTRAIT:HP:1", kTargetEnemyPlayer, {"Player 2"}, kNoTarget}};
  for (const auto& [script, type, names, quality] : cases) {
    Card& seeker = PutSeeker(script);
    const Picked picked = PickOften(seeker, type);
    EXPECT_EQ(picked.Names, names) << script << " for type " << type;
    EXPECT_EQ(picked.Qualities, std::set<int>{quality}) << script;
    FreeCard(seeker);
  }
  PutSeeker("REQTRAIT:MARK");
  State().CardTable[3].InPlay = 0;
  FreeCard(State().CardTable[4]);
  EXPECT_EQ(PickOften(State().CardTable[7], kTargetRandom).Names, Names{"Cid"});
}

}  // namespace
}  // namespace brindlemoor
