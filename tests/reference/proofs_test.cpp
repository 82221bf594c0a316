// The examples of the reference do what their lines say, from card files and for both sides.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <unistd.h>
#include <vector>

#include "lint/reaction_check.h"
#include "scenario/scenario_run.h"
#include "scenario/scenario_text.h"
#include "tests/reference/word_tables.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const fs::path kSource(BRINDLEMOOR_SOURCE_DIR);

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
std::string AsScript(const ActionExample& e) { return std::string(e.Script); }

constexpr Form kForms[] = {
    {"action", "command", AsAction}, {"cells", "command", AsCells},
    {"script", "command", AsScript}, {"do-trigger", "trigger", AsAction},
    {"trigger", "trigger", AsCells}, {"do-target", "target", AsAction},
    {"target", "target", AsCells},   {"text", "value", nullptr},
    {"mark", "mark", nullptr},       {"line", "directive", nullptr},
    {"place", "location", nullptr},  {"effect", "trigger", EffectLine},
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
    EXPECT_FALSE(lines[at].starts_with("  effect ")) << "not from a file: " << lines[at];
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
  const std::set<std::string> elsewhere = {"directive #PLAYERPROFILE", "directive #DECKNAME"};
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

}  // namespace
}  // namespace brindlemoor
