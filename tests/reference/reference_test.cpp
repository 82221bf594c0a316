// The reference for authors: every word of every table has an example that shows it, the checker
// has nothing against the example, and carried out it does what its line says.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <sstream>
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
#include "reference/notes.h"
#include "reference/reference_page.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_text.h"
#include "script/command_table.h"
#include "script/messages.h"
#include "script/reaction_check.h"
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
//   {effect:WORD}  a trigger's example as the line of a card file
//   {text:WORD} {mark:WORD} {line:WORD} {place:WORD}  texts
//   {asked:WORD} {instead:WORD}  a requirement that calls actions off, and what to write instead
//   {me} {foe}     the sides: each file is carried out for both, except for scenarios whose names
//                  begin with "For the player"
//   {other-edge}   the edge of the report at which {foe} speaks
//   {foe-plays}    "play" where {foe} is the player; the computer plays what it has by itself
// A card with actions is written into a card file first and read from there.

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
std::string AsLine(const ActionExample& e) {
  return Joined("#EFFECT, ", e.Target, ", ", e.Trigger, ", \"", e.Script, '"');
}
std::string AsScript(const ActionExample& e) { return std::string(e.Script); }

constexpr Form kForms[] = {
    {"action", "command", AsAction}, {"cells", "command", AsCells},
    {"script", "command", AsScript}, {"do-trigger", "trigger", AsAction},
    {"trigger", "trigger", AsCells}, {"do-target", "target", AsAction},
    {"target", "target", AsCells},   {"text", "value", nullptr},
    {"mark", "mark", nullptr},       {"line", "directive", nullptr},
    {"place", "location", nullptr},  {"effect", "trigger", AsLine},
};

std::string AsAsked(const CancellingWord& row) {
  return Joined(row.Word, ":", row.Trait, row.Value.empty() ? "" : ":", row.Value);
}

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::vector<ScenarioToken> TokensOf(const std::string& line) {
  std::vector<ScenarioToken> tokens;
  SplitScenarioLine(line, tokens);
  return tokens;
}

/// A "card" line and the "effect" lines behind it as a card file and a card that is read from it.
std::string FromFile(const std::string& card, const std::vector<std::string>& effects) {
  const std::vector<ScenarioToken> tokens = TokensOf(card);
  const std::string handle = tokens[1].Text;
  const bool named = tokens.size() > 2 && tokens[2].Quoted;
  const std::string name = named ? tokens[2].Text : handle;
  std::string text =
      Joined("file ", handle, ".txt\n#CARD, INDECK, \"", name, "\", , , , , #FFFFFF, \"\"\n");
  for (const std::string& effect : effects) {
    const std::vector<ScenarioToken> words = TokensOf(effect);
    text += Joined("#EFFECT, ", words[1].Text, ", ", words[2].Text, ", \"", words[3].Text, "\"\n");
  }
  const std::size_t rest = card.find(handle) + handle.size() + (named ? name.size() + 3 : 0);
  return text + Joined("end\ncard ", handle, " \"", name, "\" from ", handle, ".txt",
                       card.substr(rest), "\n");
}

/// The text with every card that has actions read from a file.
std::string ThroughFiles(const std::string& text) {
  const std::vector<std::string> lines = LinesOf(text);
  std::string out;
  for (std::size_t at = 0; at < lines.size(); ++at) {
    std::vector<std::string> effects;
    while (lines[at].starts_with("card ") && at + effects.size() + 1 < lines.size() &&
           lines[at + effects.size() + 1].starts_with("  effect ")) {
      effects.push_back(lines[at + effects.size() + 1]);
    }
    out += effects.empty() ? lines[at] + "\n" : FromFile(lines[at], effects);
    at += effects.size();
  }
  return out;
}

/// The text without the scenarios that only the player can carry out.
std::string ForBothSides(const std::string& text) {
  std::string out;
  bool kept = true;
  for (const std::string& line : LinesOf(text)) {
    if (line.starts_with("scenario ")) kept = !line.starts_with("scenario For the player");
    if (kept) out += line + "\n";
  }
  return out;
}

std::string Contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

/// Fills the places of proofs in and keeps which words they proved.
class Proofs {
 public:
  /// The proofs of a file for the side that acts.
  std::string ForSide(int side, const std::string& text) {
    side_ = side;
    return ThroughFiles(Filled(side == 1 ? text : ForBothSides(text)));
  }
  bool Proved(int side, const std::string& kind, const std::string& word) const {
    return proved_.contains(Joined(side, kind, " ", word));
  }

 private:
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
  std::string SideValue(const std::string& place) const {
    if (place == "me") return std::to_string(side_);
    if (place == "foe") return std::to_string(3 - side_);
    if (place == "other-edge") return side_ == 1 ? "right" : "left";
    if (place == "foe-plays") return side_ == 1 ? "#" : "play";
    return "";
  }
  static std::string QuietValue(const std::string& name, const std::string& word) {
    const auto words = CancellingWords();
    const auto row = std::ranges::find(words, word, &CancellingWord::Word);
    if (row == words.end()) return "";
    return name == "asked" ? AsAsked(*row) : row->Instead(row->Trait, row->Value, true);
  }

  /// "" for what is no place of ours.
  std::string ValueOf(const std::string& place) {
    if (place == "games") return (kSource / "games").generic_string();
    const std::size_t colon = place.find(':');
    const std::string name = place.substr(0, colon);
    if (colon == std::string::npos) return SideValue(place);
    if (name == "asked" || name == "instead") return QuietValue(name, place.substr(colon + 1));
    const auto* form = std::ranges::find(kForms, name, &Form::Name);
    if (form == std::end(kForms)) return "";
    const std::string word = place.substr(colon + 1);
    for (const WordTable& table : tables_) {
      if (table.Kind != form->Kind) continue;
      proved_.insert(Joined(side_, table.Kind, " ", word));
      const ActionExample* action = FindExample(table.Actions, word);
      const TextExample* text = FindExample(table.Texts, word);
      if (action != nullptr) return form->OfAction(*action);
      if (text != nullptr) return std::string(text->Text);
    }
    ADD_FAILURE() << "no example for " << place;
    return "";
  }

  const std::vector<WordTable> tables_ = Tables();
  int side_ = 1;
  std::set<std::string> proved_;
};

/// Carries a file of proofs out for a side; the findings are failures.
void CarryOut(Proofs& proofs, int side, const fs::path& proof, const fs::path& folder) {
  const fs::path file = folder / Joined(side, "_", proof.filename().string());
  std::ofstream(file) << proofs.ForSide(side, Contents(proof));
  ScenarioLibrary library;
  ScenarioReport report;
  RunScenarioFile(file.generic_string(), library, report);
  for (const ScenarioFinding& finding : report.Findings) {
    ADD_FAILURE() << ScenarioFindingLine(finding);
  }
  EXPECT_GT(report.Expectations, 0) << file;
}

TEST(ReferenceProofs, EveryExampleDoesWhatItsLineSaysForBothSides) {
  Proofs proofs;
  const fs::path folder =
      fs::path(testing::TempDir()) / Joined("brindlemoor_proofs_", static_cast<int>(::getpid()));
  fs::create_directories(folder);
  for (const int side : {1, 2}) {
    for (const auto& entry : fs::directory_iterator(kSource / "tests/reference/proofs")) {
      CarryOut(proofs, side, entry.path(), folder);
    }
  }
  if (!HasFailure()) fs::remove_all(folder);
  // A player's files and the list of games are read by other readers than those of scenarios.
  const std::set<std::string> elsewhere = {"directive #PLAYERPROFILE"};
  // The player's stored cards, tokens and clicks, and what only the computer is asked.
  const std::set<std::string> oneSided = {"command BOOSTER",       "command BOOSTERWITHREQS",
                                          "command BOOSTERCARD",   "command PERMANENT",
                                          "command ADDMOD",        "command SAVECARD",
                                          "command MODTOKENS",     "command RETARGETCOLLECTION",
                                          "command SETCARDTARGET", "command SUBTOKENS",
                                          "trigger MENU:",         "trigger AIREQ",
                                          "target COLLECTION"};
  for (const WordTable& table : Tables()) {
    for (const std::string& word : table.All) {
      const std::string name = Joined(table.Kind, " ", word);
      EXPECT_NE(proofs.Proved(1, table.Kind, word), elsewhere.contains(name)) << name;
      if (elsewhere.contains(name)) continue;
      EXPECT_NE(proofs.Proved(2, table.Kind, word), oneSided.contains(name))
          << name << " on side 2";
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
