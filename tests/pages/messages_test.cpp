// Custom strings by chance, and messages that never end; tests/scenarios/messages.txt has the rest.
#include "pages/messages.h"

#include <chrono>
#include <set>
#include <string>
#include <vector>

#include "core/limits.h"
#include "script/trait_changes.h"
#include "tests/support/action_cards.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class MessagesTest : public SessionTest {
 protected:
  std::string Expanded(std::string text) {
    ExpandMessage(goblin_, ogre_, text, "<mine>", "<yours>");
    return text;
  }

  static void AddCustomString(std::string_view key, const std::vector<std::string>& values) {
    CustomStringRec entry;
    entry.Key = key;
    for (const std::string& value : values) entry.Values.Append(value);
    State().CustomStrings.Append(entry);
  }

  Card& goblin_ = PutInPlay(MakeCard("Goblin", 1));
  Card& ogre_ = PutInPlay(MakeCard("Ogre", 2, {"HP:9"}));
};

TEST_F(MessagesTest, CustomStringsReplaceTheirKeysEverywhere) {
  AddCustomString("", {"never"});
  AddCustomString("COLOR", {"red", "blue"});
  std::set<std::string> picked;
  for (std::uint64_t seed = 1; seed <= 40; ++seed) {
    State().Random.State = seed;
    const std::string pick = CustomStringPick("COLOR");
    State().Random.State = seed;
    EXPECT_EQ(Expanded("COLOR and DISCOLORED, Color"), pick + " and DIS" + pick + "ED, Color");
    picked.insert(pick);
  }
  EXPECT_EQ(picked, (std::set<std::string>{"blue", "red"}));
  EXPECT_EQ(CustomStringPick("colour"), "(STRING NOT FOUND)");
  EXPECT_EQ(CustomStringPick(""), "(STRING NOT FOUND)");
  AddCustomString("HOLLOW", {});
  EXPECT_EQ(Expanded("aHOLLOWb"), "ab");
}

TEST_F(MessagesTest, FieldsThatHoldThemselvesEndQuickly) {
  const std::string self = "#MYTRAIT/X#";
  const Rows<const char*, const char*, std::size_t> cases = {
      {"(#MYTRAIT/X#)", "", 20},
      {"#MYTRAIT/X##MYTRAIT/X#", "", 40},
      {"#MYTRAIT/Y#", "#MYTRAIT/X#", 40},
      {"#MYTRAIT/Y##MYTRAIT/Y#", "#MYTRAIT/X##MYTRAIT/X#", 2 * limits::kNestedTextBytes},
      {"#MYTRAIT/Y#.", "#MYTRAIT/X#.", 4 * limits::kExpansions},
      {"x#MYTRAIT/", "", 40}};
  for (const auto& [x, y, longest] : cases) {
    SetTrait(goblin_, "X", x, 1);
    SetTrait(goblin_, "Y", y, 1);
    const auto start = std::chrono::steady_clock::now();
    const std::string page = Expanded(self + "X#" + self);
    EXPECT_LT(page.size(), longest + 60) << x;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
  }
  EXPECT_FALSE(State().LimitsReported.empty());
  EXPECT_EQ((SetTrait(goblin_, "X", "(#MYTRAIT/X#)", 1), Expanded("#MYTRAIT/X#$MYIMG")),
            "(#MYTRAIT/X#)<mine>");
}

TEST_F(MessagesTest, HugeTextsEndInOrder) {
  // Custom strings that multiply one another would reach 10 to the 12th bytes.
  for (int level = 1; level <= 12; ++level) {
    std::string value;
    for (int i = 0; i < 10; ++i) value += Joined("<K", level + 1, ">");
    AddCustomString(Joined("<K", level, ">"), {value});
  }
  EXPECT_LE(Expanded("<K1>").size(), static_cast<std::size_t>(limits::kTextBytes));
  EXPECT_FALSE(State().LimitsReported.empty());
}

}  // namespace
}  // namespace brindlemoor
