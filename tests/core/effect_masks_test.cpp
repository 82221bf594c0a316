// The masks that refuse a script run before it is read, and the words of targets and triggers.
#include "script/effect_masks.h"

#include "script/target_types.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class EffectMasksTest : public SessionTest {
 protected:
  EffectMasksTest() {
    for (const char* name : {"X", "Y", "Z", "V"}) TraitBitFor(name);
  }
  /// The named traits whose bits a mask holds.
  static std::string Names(const TraitWords& mask) {
    std::string names;
    for (const TraitBitName& known : State().TraitBitNames) {
      const TraitBit bit = TraitBitFor(known.Name);
      if (bit.Word != -1 && (mask[bit.Word] & bit.BitValue) != 0) names += known.Name;
    }
    return names;
  }
  static CardEffect Built(std::string_view script, int owner = 1, const char* trigger = "PHASE1") {
    Card card = MakeCard("Goblin", owner);
    AddEffect(card, script, 2, trigger, 0, "ALL");
    return card.Effects[1];
  }
};

TEST_F(EffectMasksTest, LeadingRequirementsGoIntoTheirMasks) {
  struct Case {
    const char* Script;
    const char* NeedTarget;
    const char* ForbidTarget;
    const char* NeedMy;
    const char* ForbidMy;
    int Owners;
  };
  const Case cases[] = {
      {"REQTRAIT:X:REQMYTRAIT:Y:DESTROYME", "X", "", "Y", "", 255},
      {"TRAIT:V:1:REQTRAIT:X", "X", "", "", "", 255},
      {"REQTRAITIS:X:V:REQTRAIT:Y", "XY", "", "", "", 255},
      {"REQTRAITMORE:X:V:REQTRAITEQUALS:Y:V:REQTRAIT:Z", "XYZ", "", "", "", 255},
      {"REQNOTTRAIT:X:REQNOTRAIT:Y:REQMYNOTRAIT:Z", "", "XY", "", "Z", 255},
      {"REQMYTRAITMORE:X:V:REQMYTRAITEQUALS:Y:V:REQMYTRAITIS:Z:V", "", "", "XYZ", "", 255},
      {"REQALLY:REQTRAIT:X", "X", "", "", "", 1},
      {"REQENEMY:REQTRAIT:X", "X", "", "", "", 2},
      {"REQCHANCE:50:REQTRAIT:X", "", "", "", "", 255},  // its value ends the scan
      {"REQINPLAY:REQTRAIT:X", "X", "", "", "", 255},
      {"DESTROY:REQTRAIT:X", "", "", "", "", 255},
      {"REQTRAIT:X::REQTRAIT:Y", "X", "", "", "", 255},
      {"REQTRAIT", "", "", "", "", 255},
      {"reqtrait:X", "", "", "", "", 255},
      {"", "", "", "", "", 255},
  };
  for (const Case& row : cases) {
    const CardEffect effect = Built(row.Script);
    EXPECT_EQ(Names(effect.NeedTargetBits), row.NeedTarget) << row.Script;
    EXPECT_EQ(Names(effect.ForbidTargetBits), row.ForbidTarget) << row.Script;
    EXPECT_EQ(Names(effect.NeedMyBits), row.NeedMy) << row.Script;
    EXPECT_EQ(Names(effect.ForbidMyBits), row.ForbidMy) << row.Script;
    EXPECT_EQ(effect.OwnerMask, row.Owners) << row.Script;
  }
}

TEST_F(EffectMasksTest, SidesAreThoseOfTheCardsOwner) {
  EXPECT_EQ(Built("REQALLY:DESTROY", 2).OwnerMask, 2);
  EXPECT_EQ(Built("REQENEMY:DESTROY", 2).OwnerMask, 1);
  for (const int neutral : {0, 3}) {
    EXPECT_EQ(Built("REQENEMY:DESTROY", neutral).OwnerMask, 255);
    EXPECT_EQ(Built("REQALLY:DESTROY", neutral).OwnerMask, 255);
  }
}

TEST_F(EffectMasksTest, CounterActionsHaveNone) {
  const CardEffect effect = Built("REQENEMY:REQTRAIT:X", 1, "COUNTER");
  EXPECT_EQ(Names(effect.NeedTargetBits), "");
  EXPECT_EQ(effect.OwnerMask, 0);
}

TEST_F(EffectMasksTest, RebuildingAllClearsWhatWasThere) {
  Card card = MakeCard("Goblin", 1);
  AddEffect(card, "REQTRAIT:X", 2, "PHASE1", 0, "ALL");
  AddEffect(card, "REQTRAIT:Y", 2, "PHASE1", 0, "ALL");
  const Card before = card;
  card.Effects.Edit(1).Script = "REQMYTRAIT:Z";
  BuildEffectMasks(card, 0);
  EXPECT_EQ(Names(card.Effects[1].NeedTargetBits), "");
  EXPECT_EQ(Names(card.Effects[1].NeedMyBits), "Z");
  EXPECT_EQ(Names(card.Effects[2].NeedTargetBits), "Y");
  EXPECT_EQ(Names(before.Effects[1].NeedTargetBits), "X") << "a copy keeps its masks";
  BuildEffectMasks(card, 9);
}

TEST_F(EffectMasksTest, RefuseExactlyThePairsThatLackSomething) {
  struct Case {
    const char* Script;
    std::vector<std::string> Source;
    std::vector<std::string> Target;
    bool Refused;
  };
  const Case cases[] = {
      {"REQTRAIT:X:DESTROY", {}, {"X:1"}, false},  {"REQTRAIT:X:DESTROY", {"X:1"}, {}, true},
      {"REQNOTRAIT:X:DESTROY", {}, {"X:1"}, true}, {"REQMYTRAIT:X:DESTROY", {"X:1"}, {}, false},
      {"REQMYTRAIT:X:DESTROY", {}, {"X:1"}, true}, {"REQMYNOTRAIT:X:DESTROY", {"X:1"}, {}, true},
      {"REQENEMY:DESTROY", {}, {}, false},         {"REQALLY:DESTROY", {}, {}, true},
  };
  for (const Case& row : cases) {
    const Card source = MakeCard("Goblin", 1, row.Source);
    const Card target = MakeCard("Orc", 2, row.Target);
    EXPECT_EQ(MasksRefuse(Built(row.Script), source, target), row.Refused) << row.Script;
  }
}

TEST(TargetTypesTest, WordsAndCodesMatch) {
  const std::pair<const char*, int> targets[] = {
      {"TARGETCARD", 0},  {"CARDTARGET", 0},
      {"RANDOM", 1},      {"ALL", 2},
      {"RANDOMENEMY", 3}, {"RANDOMALLY", 4},
      {"OWNER", 5},       {"ENEMYPLAYER", 6},
      {"SELF", 7},        {"TRIGGERINGCARD", 8},
      {"NEWESTCARD", 8},  {"COUNTER", 9},
      {"COLLECTION", 10}, {"GIDCARD:MYGID", 11},
      {"GIDCARD", 11},    {"self", 0},
      {"ALL:2", 0},       {"", 0},
  };
  for (const auto& [word, code] : targets) EXPECT_EQ(TargetTypeCode(word), code) << word;
  EXPECT_EQ(TargetTypeName(0), "TARGETCARD");
  EXPECT_EQ(TargetTypeName(8), "TRIGGERINGCARD");
  EXPECT_EQ(TargetTypeName(12), "");

  const std::pair<const char*, int> triggers[] = {
      {"TURNSTART", 16}, {"PHASE1", 1},        {"PHASE10", 10},         {"TURNEND", 11},
      {"ONDEATH", 13},   {"ENTERPLAY", 14},    {"OTHERENTERSPLAY", 15}, {"ENTERSPLAY", 0},
      {"COST", 0},       {"GAMESTART", 0},     {"phase1", 0},           {"PHASE11", 0},
      {"", 0},           {"MENU:PHASE1:x", 0},
  };
  for (const auto& [word, code] : triggers) {
    EXPECT_EQ(TriggerCode(word), code) << word;
    if (code != 0) {
      EXPECT_EQ(TriggerName(code), word) << code;
    }
  }
  for (const int code : {0, 12, 17, -1}) EXPECT_EQ(TriggerName(code), "") << code;
}

}  // namespace
}  // namespace brindlemoor
