// The masks that refuse a script run before it is read, and the words of targets and triggers.
#include "script/effect_masks.h"

#include "script/target_types.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class EffectMasksTest : public SessionTest {
 protected:
  /// The named traits whose bits a mask holds.
  static std::string Names(const TraitWords& mask) {
    std::string names;
    for (const char* name : {"X", "Y", "Z", "V"}) {
      const TraitBit bit = TraitBitFor(name);
      if ((mask[bit.Word] & bit.BitValue) != 0) names += name;
    }
    return names;
  }
  /// Traits needed and forbidden of the target, of the own card, and the owners.
  static std::string Masks(const CardEffect& e) {
    return Joined(Names(e.NeedTargetBits), "|", Names(e.ForbidTargetBits), "|", Names(e.NeedMyBits),
                  "|", Names(e.ForbidMyBits), "|", e.OwnerMask);
  }
  static CardEffect Built(std::string_view script, int owner = 1, const char* trigger = "PHASE1") {
    Card card = MakeCard("Goblin", owner);
    AddEffect(card, script, 2, trigger, 0, "ALL");
    return card.Effects[1];
  }
};

TEST_F(EffectMasksTest, LeadingRequirementsGoIntoTheirMasks) {
  const std::pair<const char*, const char*> cases[] = {
      {"REQTRAIT:X:REQMYTRAIT:Y:DESTROYME", "X||Y||255"},
      {"TRAIT:V:1:REQTRAIT:X", "X||||255"},
      {"REQTRAITMORE:X:V:REQTRAITEQUALS:Y:V:REQTRAIT:Z", "XYZ||||255"},
      {"REQNOTTRAIT:X:REQNOTRAIT:Y:REQMYNOTRAIT:Z", "|XY||Z|255"},
      {"REQMYTRAITMORE:X:V:REQMYTRAITEQUALS:Y:V:REQMYTRAITIS:Z:V", "||XYZ||255"},
      {"REQENEMY:REQTRAIT:X", "X||||2"},
      {"REQCHANCE:50:REQTRAIT:X", "||||255"},  // its value ends the scan
      {"REQINPLAY:REQTRAIT:X", "X||||255"},
      {"DESTROY:REQTRAIT:X", "||||255"},
      {"REQTRAIT:X::REQTRAIT:Y", "X||||255"},
      {"reqtrait:X", "||||255"},
  };
  for (const auto& [script, masks] : cases) EXPECT_EQ(Masks(Built(script)), masks) << script;
  EXPECT_EQ(Masks(Built("REQENEMY:REQTRAIT:X", 1, "COUNTER")), "||||0") << "counters have none";
  EXPECT_EQ(Built("REQALLY:DESTROY", 2).OwnerMask, 2);
  EXPECT_EQ(Built("REQENEMY:DESTROY", 2).OwnerMask, 1);
  EXPECT_EQ(Built("REQENEMY:DESTROY", 0).OwnerMask, 255) << "neutral cards have no side";
  EXPECT_EQ(Built("REQALLY:DESTROY", 3).OwnerMask, 255);
}

TEST_F(EffectMasksTest, RebuiltMasksFollowTheScriptAndRefuseWhoLacksATrait) {
  Card card = MakeCard("Goblin", 1, {"X"});
  AddEffect(card, "REQTRAIT:Y", 2, "PHASE1", 0, "ALL");
  const Card before = card;
  card.Effects.Edit(1).Script = "REQENEMY:REQMYTRAIT:X";
  BuildEffectMasks(card, 0);
  EXPECT_EQ(Masks(card.Effects[1]), "||X||2");
  EXPECT_FALSE(MasksRefuse(card.Effects[1], card, MakeCard("Orc", 2)));
  EXPECT_TRUE(MasksRefuse(card.Effects[1], card, card));
  EXPECT_TRUE(MasksRefuse(before.Effects[1], card, card)) << "a copy keeps its masks";
}

TEST(TargetTypesTest, WordsAndCodesMatch) {
  const std::pair<const char*, int> targets[] = {
      {"TARGETCARD", 0},  {"CARDTARGET", 0},     {"RANDOM", 1},     {"ALL", 2},
      {"RANDOMENEMY", 3}, {"RANDOMALLY", 4},     {"OWNER", 5},      {"ENEMYPLAYER", 6},
      {"SELF", 7},        {"TRIGGERINGCARD", 8}, {"NEWESTCARD", 8}, {"COUNTER", 9},
      {"COLLECTION", 10}, {"GIDCARD:MYGID", 11}, {"GIDCARD", 11},   {"self", 0}};
  for (const auto& [word, code] : targets) EXPECT_EQ(TargetTypeCode(word), code) << word;
  EXPECT_EQ(TargetTypeName(0), "TARGETCARD");
  EXPECT_EQ(TargetTypeName(8), "TRIGGERINGCARD");
  EXPECT_EQ(TargetTypeName(12), "");

  const std::pair<const char*, int> triggers[] = {
      {"TURNSTART", 16},   {"PHASE1", 1},     {"PHASE10", 10},         {"TURNEND", 11},
      {"ONDEATH", 13},     {"ENTERPLAY", 14}, {"OTHERENTERSPLAY", 15}, {"ENTERSPLAY", 0},
      {"COST", 0},         {"GAMESTART", 0},  {"phase1", 0},           {"PHASE11", 0},
      {"MENU:PHASE1:x", 0}};
  for (const auto& [word, code] : triggers) {
    EXPECT_EQ(TriggerCode(word), code) << word;
    EXPECT_EQ(TriggerName(code), code == 0 ? "" : word) << code;
  }
  for (const int code : {12, 17, -1}) EXPECT_EQ(TriggerName(code), "") << code;
}

}  // namespace
}  // namespace brindlemoor
