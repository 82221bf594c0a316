// The masks that refuse a script run before it is read, and the words of targets and triggers.
#include "script/effect_masks.h"

#include "language/target_types.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
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
  static bool Refuses(const CardEffect& effect, const Card& source, const Card& target) {
    return MasksRefuse(effect, source, target, State());
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
      {"REQTRAITMORE:X:1:REQTRAITEQUALS:Y:-2:REQTRAIT:Z", "XYZ||||255"},
      {"REQNOTTRAIT:X:REQNOTRAIT:Y:REQMYNOTRAIT:Z", "|XY||Z|255"},
      {"REQMYTRAITMORE:X:2:REQMYTRAITEQUALS:Y:1:REQMYTRAITIS:Z:V", "||XYZ||255"},
      {"REQTRAITIS:X:red:REQTRAITIS:Y:5:REQTRAITIS:Z:not now", "XYZ||||255"},
      // A card without the trait can meet these.
      {"REQTRAITMORE:X:0:REQTRAITMORE:Y:-1:REQTRAITEQUALS:Z:0", "||||255"},
      {"REQTRAITMORE:X:SRCTRAIT/Y:REQTRAITEQUALS:Y:R1Die6:REQTRAITEQUALS:Z:word", "||||255"},
      {"REQTRAITIS:X::REQTRAITIS:Y: :REQTRAITIS:Z:none", "||||255"},
      {"REQTRAITIS:X:$MYNAME:REQTRAITIS:Y:TOKENS:REQMYTRAITIS:Z:SRCTRAIT/X", "||||255"},
      {"REQTRAITMORE:#ANY#:1:REQTRAIT:X", "X||||255"},
      // What looks like a requirement is the name that another one asks for.
      {"REQNAME:REQENEMY:REQTRAIT:X", "||||255"},
      {"REQNOTME:REQISPLAYER:REQTRAIT:X", "X||||255"},
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
  EXPECT_FALSE(Refuses(card.Effects[1], card, MakeCard("Orc", 2)));
  EXPECT_TRUE(Refuses(card.Effects[1], card, card));
  EXPECT_TRUE(Refuses(before.Effects[1], card, card)) << "a copy keeps its masks";
}

TEST_F(EffectMasksTest, BitsThatDoNotTellWhatACardHasRefuseNobody) {
  std::vector<TraitBit> bits(1);
  for (int name = 1; name <= 250; ++name) bits.push_back(TraitBitFor(Joined("N", name)));
  EXPECT_EQ(bits[63].Word, bits[32].Word);
  EXPECT_EQ(bits[63].BitValue, bits[32].BitValue);
  EXPECT_EQ(bits[241].Word, -1);
  Card actor = MakeCard("Actor", 1);
  for (const char* script : {"REQTRAIT:N32", "REQNOTRAIT:N63", "REQTRAIT:n5", "REQNOTRAIT:n7",
                             "REQTRAIT:N40", "REQNOTRAIT:N41", "REQTRAIT:n245"}) {
    AddEffect(actor, script, 2, "PHASE1", 0, "ALL");
  }
  Card target = MakeCard("Target", 2, {"N32", "N63", "N5", "N245"});
  RemoveTrait(target, "N63");  // takes the bit that N32 has, too
  EXPECT_FALSE(Refuses(actor.Effects[1], actor, target));
  EXPECT_FALSE(Refuses(actor.Effects[2], actor, target));
  EXPECT_FALSE(Refuses(actor.Effects[3], actor, target)) << "the case does not matter";
  EXPECT_FALSE(Refuses(actor.Effects[4], actor, MakeCard("Other", 2, {"N7"})))
      << "the script refuses it, the filter can't tell";
  EXPECT_TRUE(Refuses(actor.Effects[5], actor, target));
  EXPECT_TRUE(Refuses(actor.Effects[6], actor, MakeCard("Other", 2, {"N41"})));
  EXPECT_FALSE(Refuses(actor.Effects[7], actor, target)) << "a name without a bit";
}

TEST_F(EffectMasksTest, NamesThatAreNumberedAnewReachEveryRecordThatLivesOn) {
  TraitBitFor("FIRST");
  Session& session = State();
  session.CostCard = MakeCard("CostCard", 1);
  AddEffect(session.CostCard, "REQTRAIT:X:REQMYTRAIT:Y", 2, "PHASE1", 0, "ALL");
  session.Collection[1] = MakeCard("Owned", 1, {"X"});
  session.Templates.Resize(1);
  session.Templates[1].Card = MakeCard("Template", 1, {"Y"});
  const Card before = session.CostCard;
  ForgetTraitBits();
  TraitBitFor("OTHER");
  TraitBitFor("Z");
  RenumberAllTraitBits();
  EXPECT_NE(session.CostCard.Effects[1].NeedTargetBits, before.Effects[1].NeedTargetBits);
  EXPECT_EQ(Masks(session.CostCard.Effects[1]), "X||Y||255");
  EXPECT_EQ(Names(session.Collection[1].TraitBits), "X");
  EXPECT_EQ(Names(session.Templates[1].Card.TraitBits), "Y");
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
