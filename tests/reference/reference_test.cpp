// The reference for authors: every word of every table has an example that shows it, the checker
// has nothing against the example, and carried out it does what its line says.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <unistd.h>
#include <vector>

#include "check/game_check.h"
#include "core/quoting.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/directives.h"
#include "platform/headless/headless_platform.h"
#include "platform/headless/overlay_files.h"
#include "reference/examples.h"
#include "reference/reference_page.h"
#include "scenario/scenario_run.h"
#include "script/command_table.h"
#include "script/messages.h"
#include "script/target_types.h"
#include "script/values.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const fs::path kSource(BRINDLEMOOR_SOURCE_DIR);

using Words = std::vector<std::string>;

/// One table of words: how its examples are shown and how they show their words.
struct WordTable {
  std::string Kind;
  Words All;
  std::vector<ActionExample> Actions;
  std::vector<TextExample> Texts;
};

template <class Rows, class Member>
Words WordsOf(const Rows& rows, Member member) {
  Words words;
  for (const auto& row : rows) words.emplace_back(row.*member);
  return words;
}

std::vector<ActionExample> Copied(std::span<const ActionExample> rows) {
  return {rows.begin(), rows.end()};
}
std::vector<TextExample> Copied(std::span<const TextExample> rows) {
  return {rows.begin(), rows.end()};
}

std::vector<WordTable> Tables() {
  Words commands;
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) commands.emplace_back(row.Word);
  }
  Words directives = WordsOf(kDirectiveRows, &DirectiveRow::Word);
  for (const ForeignDirectiveRow& row : kForeignDirectiveRows) directives.emplace_back(row.Word);
  return {
      {"command", commands, Copied(CommandExamples()), {}},
      {"trigger", WordsOf(kTriggerRows, &TriggerRow::Word), Copied(TriggerExamples()), {}},
      {"target", WordsOf(kTargetTypeRows, &TargetTypeRow::Word), Copied(TargetExamples()), {}},
      {"value", WordsOf(ValueKeywords(), &ValueKeyword::Word), {}, Copied(ValueExamples())},
      {"mark", WordsOf(MessageMarks(), &MessageMark::Mark), {}, Copied(MessageExamples())},
      {"directive", directives, {}, Copied(DirectiveExamples())},
      {"location", WordsOf(kLocationRows, &LocationRow::Word), {}, Copied(LocationExamples())},
  };
}

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
std::string LineOf(const ActionExample& example) {
  return Joined("#EFFECT, ", example.Target, ", ", example.Trigger, ", \"", example.Script, "\"\n");
}
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
      // The one word that no action can be kept under.
      if (example.Word == "ENTERSPLAY") continue;
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

// The proofs are scenario files with places for the examples. A place names the form that the
// example takes there and its word:
//   {action:WORD}  an action's three texts for "effect"      {cells:WORD}  the same as table cells
//   {script:WORD}  its script alone                          {games}       the shipped games
//   {trigger:WORD} {target:WORD}  as {cells:WORD}, of these tables, and {do-…} as {action:…}
//   {text:WORD} {mark:WORD} {line:WORD} {place:WORD}  texts

struct Form {
  std::string_view Name;
  std::string_view Kind;
  std::string (*OfAction)(const ActionExample& example);
};

std::string AsAction(const ActionExample& e) {
  return Joined('"', e.Target, "\" \"", e.Trigger, "\" \"", e.Script, '"');
}
std::string AsCells(const ActionExample& e) {
  return Joined(e.Target, " | ", e.Trigger, " | ", e.Script);
}
std::string AsScript(const ActionExample& e) { return std::string(e.Script); }

constexpr Form kForms[] = {
    {"action", "command", AsAction}, {"cells", "command", AsCells},
    {"script", "command", AsScript}, {"do-trigger", "trigger", AsAction},
    {"trigger", "trigger", AsCells}, {"do-target", "target", AsAction},
    {"target", "target", AsCells},   {"text", "value", nullptr},
    {"mark", "mark", nullptr},       {"line", "directive", nullptr},
    {"place", "location", nullptr},
};

std::string Contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// Fills the places of proofs in and keeps which words they proved.
class Proofs {
 public:
  std::string Filled(const std::string& text) {
    std::string filled;
    std::size_t from = 0;
    while (true) {
      const std::size_t open = text.find('{', from);
      filled += text.substr(from, open - from);
      if (open == std::string::npos) return filled;
      const std::size_t close = text.find('}', open);
      const std::string place = text.substr(open + 1, close - open - 1);
      const std::string value = ValueOf(place);
      filled += value.empty() ? text.substr(open, close + 1 - open) : value;
      from = close + 1;
    }
  }
  bool Proved(const std::string& kind, const std::string& word) const {
    return proved_.contains(kind + " " + word);
  }

 private:
  /// "" for what is no place of ours.
  std::string ValueOf(const std::string& place) {
    if (place == "games") return (kSource / "games").generic_string();
    const std::size_t colon = place.find(':');
    const std::string name = place.substr(0, colon);
    const auto* form = std::ranges::find(kForms, name, &Form::Name);
    if (colon == std::string::npos || form == std::end(kForms)) return "";
    const std::string word = place.substr(colon + 1);
    for (const WordTable& table : tables_) {
      if (table.Kind != form->Kind) continue;
      proved_.insert(table.Kind + " " + word);
      const ActionExample* action = FindExample(table.Actions, word);
      const TextExample* text = FindExample(table.Texts, word);
      if (action != nullptr) return form->OfAction(*action);
      if (text != nullptr) return std::string(text->Text);
    }
    ADD_FAILURE() << "no example for " << place;
    return "";
  }

  const std::vector<WordTable> tables_ = Tables();
  std::set<std::string> proved_;
};

TEST(ReferenceProofs, EveryExampleDoesWhatItsLineSays) {
  Proofs proofs;
  const fs::path folder =
      fs::path(testing::TempDir()) / Joined("brindlemoor_proofs_", static_cast<int>(::getpid()));
  fs::create_directories(folder);
  for (const auto& entry : fs::directory_iterator(kSource / "tests/reference/proofs")) {
    const fs::path file = folder / entry.path().filename();
    std::ofstream(file) << proofs.Filled(Contents(entry.path()));
    ScenarioLibrary library;
    ScenarioReport report;
    RunScenarioFile(file.generic_string(), library, report);
    for (const ScenarioFinding& finding : report.Findings) {
      ADD_FAILURE() << ScenarioFindingLine(finding);
    }
    EXPECT_GT(report.Expectations, 0) << entry.path();
  }
  if (!HasFailure()) fs::remove_all(folder);
  // A player's files and the list of games are read by other readers than those of scenarios.
  const std::set<std::string> elsewhere = {"directive #PLAYERPROFILE"};
  for (const WordTable& table : Tables()) {
    for (const std::string& word : table.All) {
      EXPECT_NE(proofs.Proved(table.Kind, word), elsewhere.contains(table.Kind + " " + word))
          << table.Kind << " " << word << " is not proved";
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
  EXPECT_NE(page.find("<dt id=\"SUBTRAIT\"><code>SUBTRAIT:TRAIT:VALUE</code></dt>\n<dd>takes from"),
            std::string::npos);
  EXPECT_EQ(page.find("<pre></pre>"), std::string::npos) << "a word without its example";
}

}  // namespace
}  // namespace brindlemoor
