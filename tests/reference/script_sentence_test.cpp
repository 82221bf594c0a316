// The sentence that tells an author what a script does.
#include "reference/script_sentence.h"

#include <gtest/gtest.h>

#include "reference/examples.h"
#include "script/command_table.h"

namespace brindlemoor {
namespace {

TEST(ScriptSentence, SaysTheScriptInItsOrder) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"", ""},
      {"NONSENSE:3", ""},
      {"DESTROY", "The target dies at the end of the script."},
      {"REQTRAIT:UNDEAD:REQENEMY:SUBTRAIT:HP:2:ECHO:Ouch.",
       "If the target has UNDEAD and the cards have different owners: takes 2 from the target's "
       "HP, "
       "says \"Ouch.\"."},
      {"MODTRAIT:HP:1:REQTRAITMORE:HP:5:CHANCE:50:DESTROYME",
       "Adds 1 to the target's HP, then if the target's HP is 5 or more and only in 50 of 100 "
       "cases: the acting card dies at the end of the script."},
      {"AIREQTRAIT:SINGER:REQALLY:ECHO:",
       "Best if the target has SINGER and if both cards have the same owner: says (nothing)."},
      {"REQISMORE:SRCTRAIT/HP:3:WINGAME",
       "If SRCTRAIT/HP is greater than 3: the acting card's side wins."},
      // Words that say the same as another speak with its clause; what follows is theirs as well.
      {"REQNOTTRAIT:VALUE:RETARGET:SELF:MODTRAIT:VALUE:TRAIT",
       "If the target does not have VALUE: all that follows runs on the acting card itself: adds "
       "TRAIT to the target's VALUE."},
      {"ADDEFFECT:TRAITCHANGE:HP:SELF:DESTROY",
       "Gives the target a new action, at TRAITCHANGE:HP on the acting card itself, which is all "
       "that follows: the target dies at the end of the script."},
      {"MODTRAIT:HP", "Adds VALUE to the target's HP."},
      // What a script goes on at is one card, whatever an action of this target would run on.
      {"RETARGET:ALL:DESTROY",
       "All that follows runs on a random card: the target dies at the end of the script."},
      {"RETARGET:GIDCARD:DESTROY",
       "All that follows runs on the card of the action's own Global ID: the target dies at the "
       "end "
       "of the script."},
      {"ADDEFFECT:TURNEND:GIDCARD:MYGID:DESTROY",
       "Gives the target a new action, at TURNEND on the card with the Global ID MYGID, which is "
       "all "
       "that follows: the target dies at the end of the script."},
      // The mark makes wishes of requirements on the target alone.
      {"AIREQMYTRAITMORE:STRIKE:5:DESTROY",
       "If the acting card's STRIKE is 5 or more: the target dies at the end of the script."},
      {"AIREQISMORE:1:5:DESTROY", "The target dies at the end of the script."},
      // Below 0 the edges of a line come true.
      {"SUBTRAIT:HP:-5",
       "Takes -5 from the target's HP; if it has the trait, and a value below 0 "
       "takes nothing."},
  };
  for (const auto& [script, sentence] : cases) EXPECT_EQ(SentenceOfScript(script), sentence);
}

TEST(ScriptSentence, EveryArgumentOfEveryCommandStandsInItsClause) {
  for (const ActionExample& example : CommandExamples()) {
    const std::string sentence = SentenceOfScript(example.Script);
    EXPECT_TRUE(sentence.ends_with('.')) << example.Word;
    // An example gives all arguments, so that no name of one is left over.
    for (const ArgumentRow& row : ArgumentRows()) {
      EXPECT_EQ((" " + sentence).find(" " + std::string(row.Name) + " "), std::string::npos)
          << example.Word << ": " << sentence;
    }
  }
}

TEST(ScriptSentence, StaysShortForLongTextsAndCutsNoCharacterApart) {
  std::string text;
  for (int count = 0; count < 100; ++count) text += "\xC3\xBC";
  const std::string sentence = SentenceOfScript("ECHO:" + text);
  EXPECT_LT(sentence.size(), 90u);
  EXPECT_NE(sentence.find("\xC3\xBC...\""), std::string::npos) << sentence;
}

}  // namespace
}  // namespace brindlemoor
