// The mask filter is never wrong: whatever cards, sides, traits and leading requirements there are,
// an action does the same with the filter as without it.
#include <array>
#include <random>

#include "data/card_reader.h"
#include "script/card_setup.h"
#include "script/effect_masks.h"
#include "script/run_action.h"
#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

constexpr int kTables = 400;
constexpr int kRunsOfTable = 500;
constexpr int kCards = 10;
constexpr int kNames = 200;

class MaskFilterTest : public SessionTest {
 protected:
  int Below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
  template <class List>
  std::string OneOf(const List& list) {
    return std::string(list[static_cast<std::size_t>(Below(static_cast<int>(std::size(list))))]);
  }

  /// Most tables know few names, so that cards meet; some more than there are bits for.
  std::string Name() {
    std::string name = Joined(OneOf(std::array{"N", "n", "BONUSn", "é", "É"}), Below(names_));
    return Below(40) == 0 ? "#ANY#" : name;
  }
  std::string ValueText() {
    static constexpr std::array kValues = {
        "0", "1",  "-1", "2",       "1.50",   "007",    "",      "NONE", "none", "RED", "red",
        " ", " 2", "R",  "$MYNAME", "$TRAIT", "TOKENS", "MYGID", "word", "1e2",  "+1",  "PAINT"};
    if (Below(6) == 0) return Joined(Below(2) == 0 ? "SRCTRAIT/" : "2/TARGTRAIT/", Name());
    return OneOf(kValues);
  }

  std::string Requirement() {
    static constexpr std::array kTraitWords = {"REQTRAIT",   "REQNOTTRAIT",  "REQNOTRAIT",
                                               "REQMYTRAIT", "REQMYNOTRAIT", "REQNOMYTRAIT"};
    static constexpr std::array kValueWords = {
        "REQTRAITIS",   "REQTRAITMORE",   "REQTRAITEQUALS",   "REQTRAITLESS",
        "REQMYTRAITIS", "REQMYTRAITMORE", "REQMYTRAITEQUALS", "REQMYTRAITLESS"};
    static constexpr std::array kPlainWords = {"REQALLY",     "REQENEMY",     "REQNOTME",
                                               "REQISPLAYER", "REQNOTPLAYER", "REQUNKNOWN"};
    static constexpr std::array kNameWords = {"REQNAME", "REQNONAME", "REQNOTRAITTARGET",
                                              "REQNOMYNAME"};
    switch (Below(8)) {
      case 0:
      case 1:
        return Joined(OneOf(kTraitWords), ":", Name());
      case 2:
        return Joined("TRAIT:", Name(), ":", ValueText());
      case 3:
      case 4:
        return OneOf(kPlainWords);
      case 5:
        return Joined(OneOf(kNameWords), ":",
                      OneOf(std::array{"REQENEMY", "REQALLY", "REQTRAIT", "TRAIT", "Card 1"}));
      default:
        return Joined(OneOf(kValueWords), ":", Name(), ":", ValueText());
    }
  }
  std::string Script() {
    std::string script;
    for (int count = Below(4); count > 0; --count) script += Requirement() + ":";
    return script + OneOf(std::array{"MODTRAIT:HIT:1", "SETMYTRAIT:HIT:2", "CHANCE:50"});
  }

  /// A table of cards whose traits and sides have a history.
  void DealTable() {
    names_ = Below(3) == 0 ? kNames : 3 + Below(6);
    State().CardTable.Reset(1);
    ForgetTraitBits();
    State().CustomStrings.Reset(0);
    State().StringsCanVanish = false;
    for (int number = 1; number <= kCards; ++number) {
      Card& card = PutInPlay(MakeCard(Joined("Card ", number), Below(4)));
      for (int action = 0; action < 4; ++action) AddEffect(card, Script(), 2, "PHASE1", 0, "ALL");
      for (int change = Below(12); change > 0; --change) ChangeTrait(card);
      ChangeSide(card);
    }
    if (Below(4) == 0) AddCustomString("PAINT", OneOf(std::array{"red", "", "$TRAIT", "blue"}));
    if (Below(4) == 0) RenumberNames();
  }
  void ChangeTrait(Card& card) {
    if (Below(3) == 0) {
      RemoveTrait(card, Name());
    } else {
      SetTrait(card, Name(), Text(ValueText()), Below(2));
    }
  }
  void ChangeSide(Card& card) {
    static constexpr std::array kScripts = {"MINDCONTROL", "MINDCONTROLME", "DEFECT", "DEFECTME",
                                            "JOIN:1",      "JOIN:2",        "JOIN:0", "MEJOIN:3",
                                            "MEJOIN:2",    "MEJOIN:1",      ""};
    Card& other = State().CardTable[1 + Below(State().CardTable.UpperBound())];
    const std::string script = OneOf(kScripts);
    if (script.empty()) return;
    RunAction(card, other, 1, RunOptions{.NoCounters = 1, .ScriptOverride = script});
  }
  static void RenumberNames() {
    ForgetTraitBits();
    RenumberAllTraitBits();
  }

  std::mt19937 random_{20251};
  int names_ = kNames;
};

/// What a run on scratch copies gives: its result and what it made of the cards.
std::string Outcome(const Card& source, const Card& target, int effect, const Text& script) {
  const bool same = &source == &target;
  Card actor = source;
  Card victim = target;
  const int result = RunAction(same ? victim : actor, victim, effect,
                               RunOptions{.TestRun = 1, .ScriptOverride = script});
  std::string text = Joined(result);
  for (const Card* card : {&actor, &victim}) {
    for (const TraitItem& item : card->Traits) text += Joined("|", item.View());
  }
  return text;
}

TEST_F(MaskFilterTest, AnActionDoesTheSameWithAndWithoutIt) {
  double masked = 0;
  for (int table = 0; table < kTables; ++table) {
    DealTable();
    for (int run = 0; run < kRunsOfTable; ++run) {
      const Pile& cards = State().CardTable;
      const Card& source = cards[1 + Below(kCards)];
      const Card& target = cards[1 + Below(kCards)];
      const int effect = 1 + Below(4);
      State().StatMasked = 0;
      const std::string filtered = Outcome(source, target, effect, Text());
      masked += State().StatMasked;
      ASSERT_EQ(filtered, Outcome(source, target, effect, source.Effects[effect].Script))
          << source.Effects[effect].Script.View() << " from owner " << int{source.Owner} << " on "
          << int{target.Owner} << ", table " << table;
    }
  }
  EXPECT_GT(masked, kTables * kRunsOfTable / 10) << "the filter must refuse something at all";
}

}  // namespace
}  // namespace brindlemoor
