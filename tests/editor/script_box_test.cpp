// What the box of an action's script shows and offers.
#include <gtest/gtest.h>
#include <random>

#include "editor/card_rows.h"
#include "editor/script_hints.h"
#include "editor/script_parts.h"
#include "editor/script_suggestions.h"
#include "language/target_types.h"
#include "reference/examples.h"
#include "reference/reference_page.h"
#include "tests/support/session_test.h"

namespace brindlemoor {
namespace {

class ScriptBoxTest : public SessionTest {
 protected:
  /// The words that are offered at the "|" of a script.
  std::string Offered(std::string_view marked) {
    const std::size_t caret = marked.find('|');
    std::string script(marked);
    script.erase(caret, 1);
    const TextSuggestions all =
        SuggestForScript(script, caret, {.Traits = traits_, .Cards = cards_});
    std::string words;
    for (const TextSuggestion& item : all.Items) words += (words.empty() ? "" : " ") + item.Text;
    return words;
  }

  std::vector<std::string> traits_{"HP", "HUM", "SINGER"};
  std::vector<std::string> cards_{"Hob", "Goblin", "Zed: Lord/Fire"};
};

TEST_F(ScriptBoxTest, OffersWhatThePlaceAsksFor) {
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"MODT|", "MODTOKENS: MODTRAIT:"},
      {"modt|", "MODTOKENS: MODTRAIT:"},
      {"MODTRA|:HP:2", "MODTRAIT"},
      {"AIREQENE|", "AIREQENEMY"},
      {"MODTRAIT:H|", "HP HUM"},
      {"MODTRAIT:|:2", "HP HUM SINGER"},
      {"MODTRAIT:HP:SRC|", "SRCTRAIT/"},
      {"MODTRAIT:HP:SRCTRAIT/H|", "HP HUM"},
      {"MODTRAIT:HP:2/DI|", "DIV"},
      {"MODTRAIT:HP:NAMECOUNT/G|", "Goblin"},
      {"REQNAME:|", "Goblin Hob"},
      {"RETARGET:RANDOM|:DESTROY", "RANDOM RANDOMALLY RANDOMENEMY"},
      {"ADDEFFECT:TRAITC|", "TRAITCHANGE:"},
      {"ADDEFFECT:TRAITCHANGE:S|", "SINGER"},
      {"ADDEFFECT:TRAITCHANGE:HP:SE|", "SELF"},
      {"ADDEFFECT:TURNEND:SELF:DEST|", "DESTROY DESTROYME"},
      {"ECHO:MODT|", ""},
      {"RETARGET:GID|", ""},  // names no card there
      {"ADDEFFECT:MENU:TRAITC|", ""},
      {"ADDEFFECT:MENU:TURNS|", "TURNSTART"},
      {"DESTROY::MODT|", ""},  // nothing behind an empty field is read
  };
  for (const auto& [marked, words] : cases) {
    EXPECT_EQ(Offered(marked), words) << marked;
  }
  EXPECT_NE(Offered("|").find("REQTRAIT: "), std::string::npos);
}

TEST_F(ScriptBoxTest, PutsTheWordInPlaceOfTheOneBegun) {
  const TextSuggestions all = SuggestForScript("DESTROY:REQTR:HP", 10, {});
  EXPECT_EQ(all.Offset, 8u);
  EXPECT_EQ(all.Length, 5u);
  EXPECT_FALSE(all.IsOpen);
  // The number of an operator is no part of its word.
  EXPECT_EQ(SuggestForScript("MODTRAIT:HP:1/PLU3", 17, {}).Length, 3u);
  // Where any text may be stored, none is chosen beforehand.
  EXPECT_TRUE(SuggestForScript("SETTRAIT:SIZE:M", 15, {}).IsOpen);
}

TEST_F(ScriptBoxTest, MarksTheVeryWordThatIsNotUnderstood) {
  const auto noted = [](const EffectRow& row) {
    std::string words;
    for (const TextRun& run : RunsOfAction(row)) {
      if (!run.Note.empty()) words += row.Script.substr(run.Offset, run.Length) + "|";
    }
    return words;
  };
  const std::pair<std::string, std::string> cases[] = {
      {"MODTRAIT:HP:2:DESTORY", "DESTORY|"},
      {"MODTRAIT:HP:2/DVI2:DESTROY", "DVI2|"},
      {"DESTROY:MODTRAIT:HP", "MODTRAIT|"},  // the word lacks something
      {"DESTROY:MODTRAIT:HP:", "MODTRAIT|"},
      {"REQNAME:A \"quoted\" word", "\"quoted\"|"},
      {"DESTROY::REQALLY", "DESTROY|"},
      {"TRAIT:TRAITEFFECT:BITE:DESTORY", "DESTORY|"},
      {"DESTROY", ""},
  };
  for (const auto& [script, words] : cases) {
    EXPECT_EQ(noted({"TURNSTART", "SELF", script}), words) << script;
  }
  // A reaction that calls the answered action off is told of only where it is one.
  const std::string script = "REQMYTRAITMORE:HP:2:MODTRAIT:HP:1";
  EXPECT_EQ(noted({"TARGETED", "SELF", script}), "REQMYTRAITMORE|");
  EXPECT_EQ(noted({"TURNSTART", "SELF", script}), "");
  // What is right and does nothing is marked as well.
  EXPECT_EQ(noted({"TURNSTART", "SELF", "CANCEL"}), "CANCEL|");
}

TEST_F(ScriptBoxTest, TellsWhatAnActionOfATraitDoesBehindTheTrait) {
  EXPECT_EQ(SentenceForAction({"TURNEND", "SELF", "TRAIT:TRAITEFFECT:BITE:DESTROYME"}),
            "The acting card dies at the end of the script.");
}

/// Whatever stands in the box, its colours cover it in order and lie inside.
TEST_F(ScriptBoxTest, ColoursLieInsideAnyText) {
  std::mt19937 random(7);
  const std::vector<std::string> pieces = {
      ":",  "/",   "MODTRAIT", "ADDEFFECT", "HP", "\xC3\xBC", "2",    "TRAITCHANGE", "GIDCARD",
      "\"", "<b>", "AI",       "NAMECOUNT", " ",  "R2Die6",   "MENU", "\n"};
  for (int round = 0; round < 3000; ++round) {
    EffectRow row{"TARGETED", "SELF", ""};
    for (unsigned count = random() % 12; count > 0; --count) {
      row.Script += pieces[random() % pieces.size()];
    }
    std::size_t end = 0;
    for (const TextRun& run : RunsOfAction(row)) {
      ASSERT_GT(run.Length, 0u) << row.Script;
      ASSERT_LE(run.Offset + run.Length, row.Script.size()) << row.Script;
      if (!run.Note.empty()) continue;
      ASSERT_GE(run.Offset, end) << row.Script;
      end = run.Offset + run.Length;
    }
    const std::size_t caret = random() % (row.Script.size() + 1);
    const TextSuggestions all = SuggestForScript(row.Script, caret, {});
    ASSERT_LE(all.Offset + all.Length, row.Script.size()) << row.Script;
    ASSERT_FALSE(ReferenceAnchor(row.Script, caret).empty());
  }
}

TEST_F(ScriptBoxTest, HelpLeadsToTheWordsPlaceOnThePage) {
  const std::string page = ReferencePage();
  const auto stands = [&page](const std::string& anchor) {
    return page.find("id=\"" + anchor + "\"") != std::string::npos;
  };
  for (const ActionExample& example : CommandExamples()) {
    for (std::size_t caret = 0; caret <= example.Script.size(); ++caret) {
      const std::string anchor = ReferenceAnchor(example.Script, caret);
      ASSERT_TRUE(stands(anchor)) << example.Script << " at " << caret << ": " << anchor;
    }
  }
  const std::pair<std::string_view, std::string_view> cases[] = {
      {"MODTRAIT:HP:2", "MODTRAIT"},
      {"AIREQENEMY", "REQENEMY"},
      {"MODTRAIT:HP:2/DIV2", "value-DIV#"},
      {"MODTRAIT:HP:R2Die6", "value-R#Die#"},
      {"RETARGET:RANDOMALLY", "target-RANDOMALLY"},
      {"ADDEFFECT:TRAITCHANGE", "trigger-TRAITCHANGE"},
      {"DESTORY", "scripts"},
  };
  for (const auto& [script, anchor] : cases) {
    EXPECT_EQ(ReferenceAnchor(script, script.size()), anchor) << script;
  }
}

}  // namespace
}  // namespace brindlemoor
