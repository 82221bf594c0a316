// The trait store: reading, writing, changing and removing traits.
#include "language/traits.h"

#include "core/limits.h"
#include "core/strings.h"
#include "script/card_setup.h"
#include "script/parsed_script.h"
#include "script/trait_changes.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class TraitsTest : public SessionTest {
 protected:
  /// Changes a trait of a card that nobody else acts on.
  static void Change(Card& card, std::string_view name, double amount) {
    ModTrait(card, name, amount, card, 0, "");
  }
  /// A card that answers the loss of HP with a script.
  static Card Reacting(const std::string& shield, const char* script) {
    Card card = MakeCard("Knight", 1, {"HP:20", shield});
    card.InPlay = 1;  // reactions run on cards in play only
    AddEffect(card, script, 7, "BEFORETRAITCHANGE:hp", 0, "SELF");
    return card;
  }
  static std::string TraitsOf(const Card& card) {
    std::string all;
    for (const Text& trait : card.Traits) all += Joined("[", trait, "]");
    return all;
  }
  static bool HasBit(const Card& card, std::string_view name) {
    const TraitBit bit = TraitBitFor(name);
    return (card.TraitBits[bit.Word] & bit.BitValue) != 0;
  }
};

TEST_F(TraitsTest, ReadsValuesBonusesAndBareTraits) {
  // The items of a card, the name that is asked for, and what is printed.
  for (const std::string_view row :
       {"HP:5>hp>5", "hp:5>HP>5", "HP:5|BONUSHP:2>HP>7", "HP:5|BONUSHP:-2>HP>5",
        "HP:5|bonushp:2|BONUSHP:3>HP>8", "HP:5|BONUSHP:3|BONUSHP:-1>HP>5", "FLYING>FLYING>1",
        "FLYING:0>FLYING>0", "COLOR:RED>COLOR>RED", "HP:5|HP:6>HP>6", "HPMAX:5>HP>", "A:B:C>A>B",
        "HP:BONUS|BONUSHP:4>HP>4", "HP:5>#ANY#>1", "HP:5>>NONE", "\xC3\xA9lan:3>\xC3\x89LAN>3",
        "HP:5|P:3|BONUSHP:SRCTRAIT/P>HP>8"}) {
    const std::string items = GetDS(row, 1, ">");
    const std::string name = GetDS(row, 2, ">");
    const std::string printed = GetDS(row, 3, ">");
    Card card;
    card.Name = "Goblin";
    for (FieldWalker walker(items, '|'); !walker.AtEnd();) card.Traits.Append(walker.Next());
    EXPECT_EQ(GetTrait(card, name).Str(), printed) << row;
    EXPECT_EQ(TraitNumber(card, name), NumericPrefix(printed)) << row;
    card.Name = Text();
    EXPECT_TRUE(GetTrait(card, name).IsText("NONE")) << "on a dead card: " << name;
  }
  Card card = MakeCard("Goblin", 1, {"HP:5"});
  SetTrait(card, "BONUSHP", "SRCTRAIT/HP", 1);
  EXPECT_GE(TraitNumber(card, "HP"), 5) << "a bonus that reads itself comes to an end";
  EXPECT_NE(State().PhaseBanner, "");
}

TEST_F(TraitsTest, HasTraitSeesItemsAndTheScriptsOwnTraits) {
  const Card card = MakeCard("Goblin", 1, {"FLYING:0", "HP:5"});
  for (const char* name : {"flying", "HP"}) EXPECT_TRUE(HasTrait(card, name)) << name;
  for (const char* name : {"FLY", "FLYINGS"}) EXPECT_FALSE(HasTrait(card, name)) << name;
  const std::pair<const char*, bool> cases[] = {
      {"TRAIT:BITE:1:DESTROY", true},   {"TRAIT:bite:1:DESTROY", false},
      {"REQALLY:TRAIT:BITE:1", true},   {"ADDEFFECT:TRAIT:BITE:1", false},
      {"REQALLY::TRAIT:BITE:1", false}, {"TRAIT:X:TRAIT:BITE:1", true},
      {"TRAIT:BITE:NONE", false},       {"TRAIT:BITE", true}};
  for (const auto& [script, has] : cases) {
    EXPECT_EQ(HasTrait(card, "BITE", script), has) << script;
    EXPECT_EQ(HasTrait(card, "bite", script), has) << script;
  }
  const ParsedScript script("REQALLY:TRAIT:TRAITEFFECT:Fear:TRAIT:X:TRAIT:Y:2:DESTROY");
  EXPECT_EQ(script.DeclaredTrait("TRAITEFFECT"), "Fear");
  EXPECT_EQ(script.DeclaredTrait("traiteffect"), "NONE");
  EXPECT_FALSE(script.HasField("destroy"));
  EXPECT_TRUE(script.HasField("DESTROY"));
  EXPECT_FALSE(ParsedScript("A::DESTROY").HasField("DESTROY")) << "walks end at an empty field";
}

TEST_F(TraitsTest, NamesAreFoundHoweverTheyAreWritten) {
  const std::string longName(200, 'x');
  const std::string longer = longName + std::string(128, 'x');
  const Card card = MakeCard(
      "Goblin", 1,
      {"HASTE:1", "Haven", "STRASSE:2", "maß:3", "BONUSmaß:4", longName + ":5", "K:6", "[a:7"});
  const std::pair<std::string, int> slots[] = {
      {"haste", 1}, {"HASTA", 0}, {"HAVEN", 2},  {"HAVEN:1", 0}, {"HASTE:1", 0},
      {"MAß", 4},   {"MASS", 0},  {longName, 6}, {longer, 0},    {"K", 0},
      {"k", 7},     {"{A", 0},    {"[A", 8},     {"ſtrasse", 3}};
  for (const auto& [name, slot] : slots) EXPECT_EQ(TraitSlot(card, name), slot) << name;
  EXPECT_EQ(TraitNumber(card, "MAß"), 7) << "a bonus for a name that is not ASCII counts, too";
  EXPECT_EQ(TraitNumber(card, "haven"), 1) << "a trait without a value";
}

TEST_F(TraitsTest, WritingFillsFreeItemsAndMarksTheChange) {
  Card card = MakeCard("Goblin", 1);
  card.Traits.Resize(3);
  card.TraitCaptions.Resize(3);
  card.Traits.Edit(2) = "FLYING:1";
  SetTrait(card, "flying", 2, 0);
  SetTrait(card, "HP", 5, 0);
  SetTrait(card, "COLOR", "RED", 0);
  SetTrait(card, "SWIFT", "", 0);
  EXPECT_EQ(TraitsOf(card), "[HP:5][flying:2][COLOR:RED][SWIFT]") << "the writer's case is kept";
  EXPECT_EQ(card.TraitCaptions.UpperBound(), 4);
  EXPECT_EQ(card.ChangedTraits, "flying:HP:COLOR:SWIFT:");
  EXPECT_TRUE(HasBit(card, "COLOR"));

  card.ChangedTraits = Text();
  SetTrait(card, "HP", 5, 0);
  SetTrait(card, "HP", "5", 0);
  SetTrait(card, "SWIFT", "", 0);
  EXPECT_EQ(card.ChangedTraits, "") << "the value that is there already";
  SetTrait(card, "HP", "5.0", 0);
  EXPECT_EQ(card.ChangedTraits, "HP:") << "another text is another value";
}

TEST_F(TraitsTest, WholeNumbersReadAsTheyAreWrittenInFiles) {
  for (const auto& [items, change, all] :
       std::initializer_list<std::tuple<std::vector<std::string>, double, const char*>>{
           {{"HP:5", "NEW:1"}, 2, "[HP:7][NEW:1]"},
           {{"HP:005"}, 0, "[HP:5]"},
           {{"HP:5"}, -5, "[HP:0]"},
           {{"HP:1.50"}, 0.5, "[HP:2]"},
           {{"HP:5"}, -1e-3, "[HP:4.999]"},
           {{"HP:5"}, 1e18, "[HP:1000000000000000000]"},
           {{"HP"}, 4, "[HP:5]"},
           {{"hp:5"}, 1, "[HP:6]"}}) {
    Card card = MakeCard("Goblin", 1, items);
    Change(card, "HP", change);
    EXPECT_EQ(TraitsOf(card), all);
  }
  // A trait without a name keeps its place.
  Card card = MakeCard("Goblin", 1, {":5", "OLD:1"});
  Change(card, "", 2);
  SetTrait(card, "NEW", 1, 0);
  EXPECT_EQ(TraitsOf(card), "[:2][OLD:1][NEW:1]");
}

TEST_F(TraitsTest, ABonusBringsTheBaseThatItNeeds) {
  Card card = MakeCard("Goblin", 1);
  SetTrait(card, "bonusHP", 2, 0);
  EXPECT_EQ(TraitsOf(card), "[bonusHP:2][HP:BONUS]");
  EXPECT_EQ(TraitNumber(card, "HP"), 2);
  EXPECT_EQ(TraitsOf(MakeCard("Elf", 1, {"BONUSHP:2"})), "[BONUSHP:2][HP:BONUS]") << "as in files";
  EXPECT_EQ(TraitsOf(MakeCard("Elf", 1, {"HP:5", "BONUSHP:2"})), "[HP:5][BONUSHP:2]");
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
  EXPECT_EQ(TraitsOf(card), "[][HP:5][]");
  EXPECT_EQ(card.TraitCaptions[1], "");
  EXPECT_FALSE(HasBit(card, "FLYING"));
  EXPECT_EQ(card.ChangedTraits, "");
  SetTrait(card, "NEW", 1, 1);
  EXPECT_EQ(card.Traits[1], "NEW:1") << "the first free item is taken";
}

TEST_F(TraitsTest, ChangesAddUpAndReactionsAlterAndRedirectThem) {
  Card card = MakeCard("Goblin", 1, {"HP:5", "BONUSHP:2"});
  Change(card, "HP", -10);
  Change(card, "MANA", 2.5);
  Change(card, "COLOR", 0);
  EXPECT_EQ(TraitsOf(card), "[HP:-3][BONUSHP:2][MANA:2.5][COLOR:0]") << "from what HP reads";
  EXPECT_EQ(State().LastValue, 0);

  card = Reacting("OTHER", "MODVAL:-3");
  AddEffect(card, "SETVAL:-1", 7, "BEFORETRAITCHANGE:MANA", 0, "SELF");
  double amount = -10;
  ModTrait(card, "HP", amount, card, 0, "");
  EXPECT_EQ(amount, -7) << "the caller sees what became of the change";
  EXPECT_EQ(TraitNumber(card, "HP"), 13);

  card = Reacting("SHIELD:20", "REDIRECTTRAIT:SHIELD");
  AddEffect(card, "REDIRECTTRAIT:HP", 7, "BEFORETRAITCHANGE:SHIELD", 0, "SELF");
  Change(card, "HP", -1);
  EXPECT_EQ(TraitNumber(card, "HP") + TraitNumber(card, "SHIELD"), 39) << "comes to an end";
  EXPECT_NE(State().PhaseBanner, "");
}

TEST_F(TraitsTest, NamesBeyondTheBitTableWorkWithoutABit) {
  for (int n = 1; n <= limits::kTraitBitNames; ++n) {
    const TraitBit bit = TraitBitFor(Joined("T", n));
    ASSERT_EQ(bit.Word, n / 32 + 1) << n;
    ASSERT_EQ(bit.BitValue, 1U << ((n % 31 == 0 ? 31 : n % 31) - 1)) << n;
  }
  EXPECT_EQ(TraitBitFor("T7:5").Word, 1) << "what stands behind the name is cut";
  EXPECT_EQ(TraitBitFor("t1").Word, -1) << "names differ by case here";
  const Card card = MakeCard("Goblin", 1, {"NEW:3"});
  EXPECT_EQ(TraitNumber(card, "NEW"), 3);
  EXPECT_EQ(card.TraitBits, TraitWords());
}

}  // namespace
}  // namespace brindlemoor
