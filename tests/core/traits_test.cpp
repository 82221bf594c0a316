// The trait store: reading, writing, changing and removing traits.
#include "core/traits.h"

#include "core/limits.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class TraitsTest : public SessionTest {
 protected:
  /// Changes a trait of a card that nobody else acts on.
  static void Change(Card& card, std::string_view name, double amount) {
    ModTrait(card, name, amount, card, 0, "");
  }
  /// A card whose loss of HP is taken by another trait.
  static Card Shielded(const std::string& shield) {
    Card card = MakeCard("Knight", 1, {"HP:20", shield});
    card.InPlay = 1;  // reactions run on cards in play only
    AddEffect(card, "REDIRECTTRAIT:SHIELD", 7, "BEFORETRAITCHANGE:hp", 0, "SELF");
    return card;
  }
};

TEST_F(TraitsTest, ReadsValuesBonusesAndBareTraits) {
  struct Case {
    std::vector<std::string> Items;
    const char* Name;
    const char* Printed;
    double Number;
  };
  const Case cases[] = {
      {{"HP:5"}, "HP", "5", 5},
      {{"HP:5"}, "hp", "5", 5},
      {{"hp:5"}, "HP", "5", 5},
      {{"HP:5", "BONUSHP:2"}, "HP", "7", 7},
      {{"HP:5", "BONUSHP:-2"}, "HP", "5", 5},
      {{"HP:5", "bonushp:2", "BONUSHP:3"}, "HP", "8", 8},
      {{"HP:5", "BONUSHP:3", "BONUSHP:-1"}, "HP", "5", 5},
      {{"FLYING"}, "FLYING", "1", 1},
      {{"FLYING:0"}, "FLYING", "0", 0},
      {{"COLOR:RED"}, "COLOR", "RED", 0},
      {{"HP:5", "HP:6"}, "HP", "6", 6},
      {{"HP:5"}, "MANA", "", 0},
      {{"HPMAX:5"}, "HP", "", 0},
      {{"A:B:C"}, "A", "B", 0},
      {{"HP:BONUS", "BONUSHP:4"}, "HP", "4", 4},
      {{}, "#ANY#", "1", 1},
      {{"HP:5"}, "", "NONE", 0},
      {{"\xC3\xA9lan:3"}, "\xC3\x89LAN", "3", 3},
  };
  for (const Case& row : cases) {
    Card card;
    card.Name = "Goblin";
    for (const std::string& item : row.Items) card.Traits.Append(item);
    EXPECT_EQ(GetTrait(card, row.Name).Str(), row.Printed) << row.Name;
    EXPECT_EQ(TraitNumber(card, row.Name), row.Number) << row.Name;
    card.Name = Text();
    EXPECT_TRUE(GetTrait(card, row.Name).IsText("NONE")) << "on a dead card: " << row.Name;
    EXPECT_EQ(TraitNumber(card, row.Name), 0);
  }
}

TEST_F(TraitsTest, ABonusIsAnExpressionOverTheCard) {
  Card card = MakeCard("Goblin", 1, {"HP:5", "POWER:3"});
  SetTrait(card, "BONUSHP", "SRCTRAIT/POWER", 1);
  EXPECT_EQ(TraitNumber(card, "HP"), 8);
}

TEST_F(TraitsTest, BonusesThatReadOneAnotherComeToAnEnd) {
  Card card = MakeCard("Goblin", 1, {"HP:5"});
  SetTrait(card, "BONUSHP", "SRCTRAIT/HP", 1);
  SetTrait(card, "BONUSPOWER", "SRCTRAIT/HP", 1);
  EXPECT_GE(TraitNumber(card, "POWER"), 5);
  EXPECT_NE(State().PhaseBanner, "");
  EXPECT_EQ(State().BonusDepth, 0);
}

TEST_F(TraitsTest, HasTraitSeesItemsAndTheScriptsOwnTraits) {
  const Card card = MakeCard("Goblin", 1, {"FLYING:0", "HP:5"});
  struct Case {
    const char* Name;
    const char* Script;
    bool Has;
  };
  const Case cases[] = {
      {"FLYING", "", true},
      {"flying", "", true},
      {"FLY", "", false},
      {"FLYINGS", "", false},
      {"BITE", "TRAIT:BITE:1:DESTROY", true},
      {"bite", "TRAIT:BITE:1:DESTROY", true},
      {"BITE", "TRAIT:bite:1:DESTROY", false},  // a script's trait in lower case is never met
      {"BITE", "REQALLY:TRAIT:BITE:1", true},
      {"BITE", "ADDEFFECT:TRAIT:BITE:1", false},
      {"BITE", "REQALLY::TRAIT:BITE:1", false},
      {"BITE", "TRAIT:X:TRAIT:BITE:1", true},
      {"BITE", "TRAIT:BITE:NONE", false},
      {"BITE", "TRAIT:BITE", true},
  };
  for (const Case& row : cases) {
    EXPECT_EQ(HasTrait(card, row.Name, row.Script), row.Has) << row.Name << " in " << row.Script;
  }
  EXPECT_EQ(TraitSlot(card, "hp"), 2);
  EXPECT_EQ(TraitSlot(card, "MANA"), 0);
}

TEST_F(TraitsTest, AScriptsTraitValueIsFoundByItsExactName) {
  const std::string_view script = "REQALLY:TRAIT:TRAITEFFECT:Fear:TRAIT:X:TRAIT:Y:2:DESTROY";
  EXPECT_EQ(ScriptTraitValue(script, "TRAITEFFECT"), "Fear");
  EXPECT_EQ(ScriptTraitValue(script, "traiteffect"), "NONE");
  EXPECT_EQ(ScriptTraitValue(script, "Y"), "2");
  EXPECT_EQ(ScriptTraitValue("", "Y"), "NONE");
  EXPECT_TRUE(ScriptHasField(script, "DESTROY"));
  EXPECT_FALSE(ScriptHasField(script, "destroy"));
  EXPECT_FALSE(ScriptHasField("A::DESTROY", "DESTROY")) << "the walk ends at an empty field";
}

TEST_F(TraitsTest, WritingFillsFreeItemsAndMarksTheChange) {
  Card card = MakeCard("Goblin", 1);
  card.Traits.Resize(3);
  card.TraitCaptions.Resize(3);
  card.Traits.Edit(2) = "FLYING:1";
  SetTrait(card, "flying", 2, 0);
  EXPECT_EQ(card.Traits[2], "flying:2") << "the writer's case is kept";
  SetTrait(card, "HP", 5, 0);
  EXPECT_EQ(card.Traits[1], "HP:5");
  EXPECT_EQ(State().HpReport, 1);
  SetTrait(card, "COLOR", "RED", 0);
  SetTrait(card, "SWIFT", "", 0);
  ASSERT_EQ(card.Traits.UpperBound(), 4);
  EXPECT_EQ(card.TraitCaptions.UpperBound(), 4);
  EXPECT_EQ(card.Traits[3], "COLOR:RED");
  EXPECT_EQ(card.Traits[4], "SWIFT");
  EXPECT_EQ(card.ChangedTraits, "flying:HP:COLOR:SWIFT:");
  const TraitBit bit = TraitBitFor("COLOR");
  EXPECT_NE(card.TraitBits[bit.Word] & bit.BitValue, 0U);
}

TEST_F(TraitsTest, WritingTheValueThatIsThereDoesNothing) {
  Card card = MakeCard("Goblin", 1, {"SWIFT"});
  SetTrait(card, "HP", 5, 0);
  card.ChangedTraits = Text();
  card.TraitActionsApplied = 1;
  const Card before = card;
  SetTrait(card, "HP", 5, 0);
  SetTrait(card, "HP", "5", 0);
  SetTrait(card, "SWIFT", "", 0);
  EXPECT_EQ(card.ChangedTraits, "");
  EXPECT_EQ(card.TraitActionsApplied, 1);
  EXPECT_TRUE(card.Traits.SharesStorageWith(before.Traits));
  SetTrait(card, "HP", "5.0", 0);
  EXPECT_EQ(card.ChangedTraits, "HP:") << "another text is another value";
}

TEST_F(TraitsTest, ABonusBringsTheBaseThatItNeeds) {
  Card card = MakeCard("Goblin", 1);
  SetTrait(card, "bonusHP", 2, 0);
  EXPECT_EQ(card.Traits[1], "bonusHP:2");
  EXPECT_EQ(card.Traits[2], "HP:BONUS");
  EXPECT_EQ(TraitNumber(card, "HP"), 2);
  // As files write it, the value stands in the name.
  Card fromFile = MakeCard("Goblin", 1, {"BONUSHP:2"});
  EXPECT_EQ(fromFile.Traits[2], "HP:BONUS");
  Card withBase = MakeCard("Goblin", 1, {"HP:5", "BONUSHP:2"});
  EXPECT_EQ(withBase.Traits.UpperBound(), 2);
  SetTrait(card, "BONUS", 1, 0);
  std::string endless;
  for (int n = 0; n < 100000; ++n) endless += "BONUS";
  SetTrait(card, endless, 1, 0);
  EXPECT_LT(card.Traits.UpperBound(), 10);
}

TEST_F(TraitsTest, RemovingTakesExactNamesOnly) {
  Card card = MakeCard("Goblin", 1, {"FLYING:1", "HP:5", "FLYING:2"});
  card.TraitCaptions.Edit(1) = "caption";
  card.ChangedTraits = Text();
  card.TraitActionsApplied = 1;
  RemoveTrait(card, "flying");
  EXPECT_EQ(card.Traits[1], "FLYING:1");
  EXPECT_EQ(card.TraitActionsApplied, 0);
  RemoveTrait(card, "FLYING");
  EXPECT_EQ(card.Traits[1], "");
  EXPECT_EQ(card.TraitCaptions[1], "");
  EXPECT_EQ(card.Traits[2], "HP:5");
  EXPECT_EQ(card.Traits[3], "");
  const TraitBit bit = TraitBitFor("FLYING");
  EXPECT_EQ(card.TraitBits[bit.Word] & bit.BitValue, 0U);
  EXPECT_EQ(card.ChangedTraits, "");
  SetTrait(card, "NEW", 1, 1);
  EXPECT_EQ(card.Traits[1], "NEW:1") << "the next new trait takes the first free item";
}

TEST_F(TraitsTest, ANameInsideTheCardsOwnTextMayBeWritten) {
  Card card = MakeCard("Goblin", 1, {"A_RATHER_LONG_TRAIT_NAME:1"});
  const std::string_view name = card.Traits[1].View().substr(0, 24);
  SetTrait(card, name, 2, 0);
  EXPECT_EQ(card.Traits[1], "A_RATHER_LONG_TRAIT_NAME:2");
  RemoveTrait(card, card.Traits[1].View().substr(0, 24));
  EXPECT_EQ(card.Traits[1], "");
}

TEST_F(TraitsTest, RelativeChangesAddUpWithoutAClamp) {
  Card card = MakeCard("Goblin", 1, {"HP:5", "BONUSHP:2"});
  Change(card, "HP", -10);
  EXPECT_EQ(card.Traits[1], "HP:-3") << "the reading that the change starts from holds the bonus";
  EXPECT_EQ(State().LastValue, 10);
  Change(card, "MANA", 2.5);
  EXPECT_EQ(TraitNumber(card, "MANA"), 2.5);
  Change(card, "COLOR", 0);
  EXPECT_EQ(GetTrait(card, "COLOR").Str(), "0") << "a trait that was not there is created";
}

TEST_F(TraitsTest, ReactionsAlterAChange) {
  Card card = MakeCard("Goblin", 1, {"HP:20"});
  card.InPlay = 1;
  AddEffect(card, "MODVAL:-3", 7, "BEFORETRAITCHANGE:hp", 0, "SELF");
  AddEffect(card, "SETVAL:-1", 7, "BEFORETRAITCHANGE:MANA", 0, "SELF");
  double amount = -10;
  ModTrait(card, "HP", amount, card, 0, "");
  EXPECT_EQ(amount, -7) << "the caller sees what became of the change";
  EXPECT_EQ(TraitNumber(card, "HP"), 13);
  EXPECT_EQ(State().LastValue, 7);
}

TEST_F(TraitsTest, ALossGoesToTheTraitThatAReactionNames) {
  struct Case {
    const char* Shield;
    double Amount;
    const char* ShieldLeft;
    double HpLeft;
  };
  const Case cases[] = {
      {"SHIELD:4", -10, "0", 14}, {"SHIELD:11", -10, "1", 20}, {"SHIELD:10", -10, "0", 20},
      {"SHIELD:0", -10, "0", 10}, {"OTHER:1", -10, "", 10},    {"SHIELD:4", 10, "4", 30},
  };
  for (const Case& row : cases) {
    Card card = Shielded(row.Shield);
    Change(card, "HP", row.Amount);
    EXPECT_EQ(GetTrait(card, "SHIELD").Str(), row.ShieldLeft) << row.Shield << row.Amount;
    EXPECT_EQ(TraitNumber(card, "HP"), row.HpLeft) << row.Shield << row.Amount;
  }
}

TEST_F(TraitsTest, TraitsThatPassALossToEachOtherComeToAnEnd) {
  Card card = Shielded("SHIELD:20");
  AddEffect(card, "REDIRECTTRAIT:HP", 7, "BEFORETRAITCHANGE:SHIELD", 0, "SELF");
  Change(card, "HP", -1);
  EXPECT_EQ(TraitNumber(card, "HP") + TraitNumber(card, "SHIELD"), 39);
  EXPECT_NE(State().PhaseBanner, "");
  EXPECT_EQ(State().TraitRedirectDepth, 0);
}

TEST_F(TraitsTest, ACancelledChangeLeavesTheRestOfTheReactionsOut) {
  Card card = MakeCard("Goblin", 1, {"HP:20"});
  card.InPlay = 1;
  // A requirement on the acting card that fails cancels what it answers.
  AddEffect(card, "REQMYTRAITLESS:HP:5", 7, "BEFORETRAITCHANGE:HP", 0, "SELF");
  AddEffect(card, "SETTRAIT:SEEN:1", 7, "BEFORETRAITCHANGE:HP", 0, "SELF");
  Change(card, "HP", -10);
  EXPECT_EQ(TraitNumber(card, "HP"), 20);
  EXPECT_FALSE(HasTrait(card, "SEEN", ""));
}

TEST_F(TraitsTest, NamesBeyondTheBitTableWorkWithoutABit) {
  for (int n = 1; n <= limits::kTraitBitNames; ++n) {
    const TraitBit bit = TraitBitFor(Joined("T", n));
    ASSERT_EQ(bit.Word, n / 32 + 1) << n;
    ASSERT_EQ(bit.BitValue, 1U << ((n % 31 == 0 ? 31 : n % 31) - 1)) << n;
  }
  EXPECT_EQ(TraitBitFor("T7:5").Word, 1) << "what stands behind the name is cut";
  EXPECT_EQ(TraitBitFor("NEW").Word, -1);
  EXPECT_EQ(TraitBitFor("t1").Word, -1) << "names differ by case here";
  EXPECT_EQ(State().TraitBitNames.UpperBound(), limits::kTraitBitNames);
  Card card = MakeCard("Goblin", 1, {"NEW:3"});
  EXPECT_EQ(TraitNumber(card, "NEW"), 3);
  EXPECT_EQ(card.TraitBits, TraitWords());
}

}  // namespace
}  // namespace brindlemoor
