// The reference for authors: every word of every table has an example that shows it, the checker
// has nothing against the example, and the page tells of all of them.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "check/game_check.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/program_traits.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "reference/notes.h"
#include "reference/reference_page.h"
#include "tests/reference/word_tables.h"
#include "text/quoting.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const fs::path kSource(BRINDLEMOOR_SOURCE_DIR);

bool HasField(std::string_view text, std::string_view word, char delimiter) {
  FieldWalker fields(text, delimiter);
  for (bool more = true; more; more = !fields.AtEnd()) {
    if (fields.Next() == word) return true;
  }
  return false;
}

bool Shows(const std::string& kind, const ActionExample& example) {
  if (kind == "trigger") return example.Trigger.starts_with(example.Word);
  if (kind == "target") return FieldAt(example.Target, 1, ':') == example.Word;
  return HasField(example.Script, example.Word, ':');
}

/// "DIV#" is shown by "DIV2", "R#Die#" by "R2Die6".
bool ShowsValue(const TextExample& example) {
  const std::string_view stem = example.Word.substr(0, example.Word.find('#'));
  if (stem == example.Word) return HasField(example.Text, stem, '/');
  FieldWalker fields(example.Text, '/');
  for (bool more = true; more; more = !fields.AtEnd()) {
    const std::string_view field = fields.Next();
    if (field.starts_with(stem) && field.size() > stem.size()) return true;
  }
  return false;
}

bool Shows(const std::string& kind, const TextExample& example) {
  if (kind == "value") return ShowsValue(example);
  const std::size_t at = example.Text.find(example.Word);
  if (at == std::string_view::npos) return false;
  const std::string_view behind = example.Text.substr(at + example.Word.size());
  if (kind == "mark") return example.Word.front() != '#' || behind.empty() || behind[0] != 'A';
  return behind.empty() || behind[0] == ',' || behind[0] == '\n' || behind[0] == '"' ||
         behind[0] == ':';
}

TEST(ReferenceExamples, EveryWordOfEveryTableIsShownByOne) {
  std::size_t words = 0;
  for (const WordTable& table : Tables()) {
    std::multiset<std::string> shown;
    const auto take = [&](const auto& rows) {
      for (const auto& example : rows) {
        EXPECT_TRUE(Shows(table.Kind, example)) << table.Kind << " " << example.Word;
        shown.insert(std::string(example.Word));
      }
    };
    take(table.Actions);
    take(table.Texts);
    EXPECT_EQ(shown, std::multiset<std::string>(table.All.begin(), table.All.end())) << table.Kind;
    words += table.All.size();
  }
  EXPECT_GT(words, 240U);
}

constexpr std::string_view kCard =
    "#CARD, INDECK, \"Bat\", \"YW-Bat\", , , , #FFFFFF, \"\"\n#TRAIT, SINGER:1\n";

/// The line of a card file that holds an example of actions, values or messages.
std::string LineOf(const ActionExample& example) { return EffectLine(example) + "\n"; }
std::string LineOf(const std::string& kind, const TextExample& example) {
  const std::string command = kind == "value" ? "MODTRAIT:HP:" : "ECHO:";
  return Joined("#EFFECT, SELF, PHASE1, \"", command, example.Text, "\"\n");
}

class CheckedExamplesTest : public ::testing::Test {
 protected:
  CheckedExamplesTest() {
    State() = Session{};
    auto files = std::make_unique<OverlayFileSystem>([](const std::string&) { return false; });
    files_ = files.get();
    State().Desktop = std::make_shared<HeadlessPlatform>(std::move(files));
  }
  ~CheckedExamplesTest() override { State() = Session{}; }

  /// What the checker says of a card file among the shipped ones, each with its line.
  std::map<int, std::string> FindingsOf(const std::string& text) {
    const std::string path = (kSource / "games/Example.txt").generic_string();
    files_->Write(path, text);
    std::map<int, std::string> lines;
    for (const Finding& finding : CheckPaths({path}).Findings) {
      lines[finding.Place.Line] += finding.Text;
    }
    return lines;
  }

  OverlayFileSystem* files_;
};

TEST_F(CheckedExamplesTest, TheCheckerHasNothingAgainstActionsValuesAndMessages) {
  for (const WordTable& table : Tables()) {
    std::string file(kCard);
    Words words;
    for (const ActionExample& example : table.Actions) {
      // A word that no action can be kept under, and one whose actions never run.
      if (example.Word == "ENTERSPLAY" || example.Word == "COUNTER") continue;
      file += LineOf(example);
      words.emplace_back(example.Word);
    }
    for (const TextExample& example : table.Texts) {
      if (table.Kind != "value" && table.Kind != "mark") continue;
      file += LineOf(table.Kind, example);
      words.emplace_back(example.Word);
    }
    for (const auto& [line, text] : FindingsOf(file)) {
      ADD_FAILURE() << table.Kind << " " << words[static_cast<std::size_t>(line - 3)] << ": "
                    << text;
    }
  }
}

TEST_F(CheckedExamplesTest, TheCheckerHasNothingAgainstLinesOfFiles) {
  for (const WordTable& table : Tables()) {
    if (table.Kind != "directive" && table.Kind != "location") continue;
    for (const TextExample& example : table.Texts) {
      for (const auto& [line, text] : FindingsOf(Joined(kCard, example.Text, "\n"))) {
        ADD_FAILURE() << table.Kind << " " << example.Word << ": " << text;
      }
    }
  }
}
TEST(ReferencePageTest, TellsOfEveryWordWithItsExample) {
  const std::string page = ReferencePage();
  for (const WordTable& table : Tables()) {
    for (const std::string& word : table.All) {
      EXPECT_NE(page.find(HtmlText(word.substr(0, word.find_last_not_of('#') + 1))),
                std::string::npos)
          << word;
    }
    const auto holds = [&page](const auto& rows, auto shown) {
      for (const auto& example : rows) {
        EXPECT_NE(page.find(HtmlText(shown(example))), std::string::npos) << example.Word;
      }
    };
    holds(table.Actions, [](const ActionExample& e) { return std::string(e.Script); });
    holds(table.Texts, [](const TextExample& e) { return std::string(e.Text); });
  }
  EXPECT_NE(
      page.find("<dt id=\"SUBTRAIT\"><code>SUBTRAIT:TRAIT:VALUE</code></dt>\n<dd>takes VALUE from"),
      std::string::npos);
  EXPECT_EQ(page.find("<pre></pre>"), std::string::npos) << "a word without its example";
}

/// The names of traits that a line of the engine's own code asks for.
std::vector<std::string> TraitsAskedFor(const std::string& line) {
  static const std::regex call(
      "(HasTrait|GetTrait|TraitNumber|SetTrait|DeclaredTrait|TraitName [A-Za-z]+)"
      "\\([^\"]*\"([A-Z]+)\"");
  std::vector<std::string> names;
  for (std::sregex_iterator found(line.begin(), line.end(), call), end; found != end; ++found) {
    names.push_back((*found)[2]);
  }
  return names;
}

TEST(ReferencePageTest, TellsOfEveryTraitThatTheProgramAsksFor) {
  const std::string page = ReferencePage();
  std::set<std::string> asked;
  for (const char* folder : {"data", "game", "language", "pages", "script", "ui"}) {
    for (const auto& file : fs::directory_iterator(kSource / folder)) {
      std::ifstream stream(file.path());
      for (std::string line; std::getline(stream, line);) {
        for (const std::string& name : TraitsAskedFor(line)) asked.insert(name);
      }
    }
  }
  EXPECT_GT(asked.size(), 10U);
  for (const std::string& name : asked) {
    const ProgramTrait* row = FindProgramTrait(name);
    ASSERT_NE(row, nullptr) << name;
    EXPECT_NE(page.find(Joined("<dt id=\"trait-", row->Name, "\">")), std::string::npos) << name;
  }
  EXPECT_EQ(FindProgramTrait("bonusglow"), FindProgramTrait("BONUS"));
  EXPECT_EQ(FindProgramTrait("GLOW"), nullptr);
}

TEST(ReferencePageTest, EveryNoteStandsWithItsWord) {
  const std::string page = ReferencePage();
  for (const ReferenceNote& note : ReferenceNotes()) {
    EXPECT_EQ(std::ranges::count(note.Text, '`') % 2, 0) << note.Text;
    for (FieldWalker anchors(note.Anchors, ' '); !anchors.AtEnd();) {
      const std::string anchor(anchors.Next());
      EXPECT_NE(page.find(Joined("<dt id=\"", anchor, "\">")), std::string::npos) << anchor;
    }
  }
  EXPECT_NE(page.find("<p>Only cards get PHASE10."), std::string::npos);
  EXPECT_NE(page.find("<code>REQISMORE:SRCTRAIT/HP:2</code> instead of "
                      "<code>REQMYTRAITMORE:HP:3</code> only ends the reaction"),
            std::string::npos);
}

}  // namespace
}  // namespace brindlemoor
