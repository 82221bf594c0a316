// Words that lay a scenario out: files, rules, named texts, answers and values of the session.
#include <array>
#include <filesystem>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reader.h"
#include "game/kept_matches.h"
#include "game/program_start.h"
#include "saving/saved_match.h"
#include "scenario/scenario_fields.h"
#include "scenario/scenario_library.h"
#include "scenario/scenario_words.h"
#include "scenario/scene.h"
#include "text/text.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

namespace fs = std::filesystem;

constexpr int kSides = 3;
constexpr std::size_t kAnswers = 1000;

/// A path as it is seen from the file of the line; "" when there can be none.
std::string SeenFromFile(const Scene& scene, const std::string& name) {
  const std::string& here = scene.Text.Files[static_cast<std::size_t>(scene.Line->Place.File)];
  std::error_code failure;
  std::string path = fs::absolute(fs::path(here).parent_path() / name, failure)
                         .lexically_normal()
                         .generic_string();
  while (path.size() > 1 && path.back() == '/') path.pop_back();
  return failure ? "" : path;
}

void Folder(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a folder");
  if (!line.Ends()) return;
  const std::string path = SeenFromFile(scene, name);
  if (path.empty() || !scene.Files->FolderExists(path)) {
    scene.Stop(Joined("There is no folder ", ShownText(path), "."));
    return;
  }
  State().ProgramFolder = path;
  scene.Files->KeepTo(path);
  State().CurrentFolder = path;
}

void WriteOwnFile(Scene& scene, WordReader& line) {
  const std::string name = line.Take("the name of a file");
  if (!line.Ends()) return;
  scene.OwnFiles = true;
  scene.Files->Write(InProgramFolder(name), FilledIn(scene, scene.Line->Block));
}

void Rules(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a rules file");
  if (!line.Ends()) return;
  const std::string path = FindGameFile(name);
  if (path.empty() || !scene.Library.ReadRules(scene, path)) {
    scene.Stop(Joined("There is no file ", ShownText(name), "."));
  }
  scene.Pristine = false;
  scene.Changed = true;
}

void SavedMatchGoesOn(Scene& scene, WordReader& line) {
  const std::string name = line.Take("the file of a match");
  if (!line.Ends()) return;
  const auto bytes = scene.Library.Machine().ReadNamed(SeenFromFile(scene, name));
  if (!bytes) {
    scene.Stop(Joined("There is no file ", ShownText(name), "."));
    return;
  }
  State().Profile.PlayerName = "Player";
  NewGame();
  MatchRead read = ReadMatch(*bytes, ShownText(name));
  if (read.Match == nullptr) {
    scene.Stop(std::move(read.Problem));
  } else if (GameOfMatch(read.Match->Head) == 0) {
    scene.Stop(Joined("The game of the match is not in the folder: there is no ",
                      ShownText(read.Match->Head.RulesFile), "."));
  } else {
    scene.Desktop->SetClock(read.Match->Head.Clock);
    ShowSavedMatch(std::move(*read.Match), Owned::kAsSaved);
    scene.Handles.clear();
    scene.Aside = Pile();
    scene.Pristine = false;
    scene.Changed = false;
  }
}

void ReadFile(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a card file");
  const int side = line.TakeIf("side") ? line.TakeWhole("a side", 1, kSides) : 1;
  if (!line.Ends()) return;
  const std::string path = FindGameFile(name);
  if (path.empty()) {
    scene.Stop(Joined("There is no file ", ShownText(name), "."));
    return;
  }
  scene.Pristine = false;
  scene.Changed = true;
  const OwnSequence sequence;
  PlayerState& player = State().Players[side];
  State().ReadDepth = 1;  // without the shuffle at the end of a read
  ReadCards(path, player, 0, "", 1);
  State().ReadDepth = 0;
  State().FilesRead = 0;
  CopyDeck(player);
}

void Let(Scene& scene, WordReader& line) {
  const std::string name = line.Take("a name");
  const std::string text = line.Take("a text");
  if (line.Good() && !IsScenarioName(name)) {
    scene.Stop(Joined("\"", ShownText(name), "\" can't be the name of a text."));
  }
  if (line.Ends()) scene.Texts[name] = text;
}

void CustomString(Scene& scene, WordReader& line) {
  const std::string key = line.Take("a key");
  scene.Pristine = false;
  do {
    const std::string text = line.Take("a text");
    if (!line.Good()) return;
    if (!AddCustomString(key, text)) scene.Stop("There are too many custom strings.");
  } while (!line.AtEnd() && line.Good());
}

void SetSessionValue(Scene& scene, WordReader& line, const SessionValueRow& row) {
  const double value = line.TakeNumber("a value");
  if (!line.Ends()) return;
  scene.Pristine = false;
  if (value < row.Least || value > row.Most) {
    scene.Stop(Joined("\"", row.Word, "\" goes from ", row.Least, " to ", row.Most, "."));
    return;
  }
  row.Write(value);
}

void Set(Scene& scene, WordReader& line) {
  if (const SessionValueRow* row = FindSessionValue(line.Peek()); row != nullptr) {
    line.Take("");
    SetSessionValue(scene, line, *row);
    return;
  }
  const PlacedCard card = line.TakeCard("a card, or a value of the session,");
  const std::string word = line.Take("a field of the card");
  const std::string text = line.Take("a value");
  if (!line.Ends()) return;
  const CardFieldRow* row = FindCardField(word);
  if (row == nullptr || row->Write == nullptr) {
    scene.Stop(Joined("\"", ShownText(word), "\" can't be set."));
  } else if (!row->Write(*card.Record, text)) {
    scene.Stop(Joined("\"", ShownText(text), "\" is no value for ", word, "."));
  } else {
    scene.Changed = true;
  }
}

void Seed(Scene& scene, WordReader& line) {
  SetSessionValue(scene, line, *FindSessionValue("seed"));
}

void BeginAtSeed(Scene& scene, WordReader&) {
  State().Random.State = static_cast<std::uint64_t>(scene.Seed);
}

void PickOwned(Scene& scene, WordReader& line) {
  const PlacedCard card = line.TakeCard();
  if (!line.Good()) return;
  const std::string_view place = card.Place != nullptr ? card.Place->Word : "";
  const bool isDeck = place.starts_with("deck");
  if (!isDeck && place != "collection") {
    scene.Stop("That card is not one of the player's own.");
    return;
  }
  const auto pile = static_cast<std::uint8_t>(isDeck ? place.back() - '0' : 0);
  scene.Desktop->ModalForms.emplace_back([index = card.Index, pile](Form&) {
    State().PickedCard = index;
    State().PickedPile = pile;
  });
}

struct AnswerRow {
  std::string_view Word;
  void (*Carry)(Scene& scene, WordReader& line);
};
constexpr std::array<AnswerRow, 10> kAnswerRows = {{
    {"yes", [](Scene& scene, WordReader&) { scene.Desktop->YesNoAnswers.push_back(true); }},
    {"no", [](Scene& scene, WordReader&) { scene.Desktop->YesNoAnswers.push_back(false); }},
    {"text",
     [](Scene& scene, WordReader& line) {
       scene.Desktop->TextAnswers.emplace_back(line.Take("a text"));
     }},
    {"notext",
     [](Scene& scene, WordReader&) { scene.Desktop->TextAnswers.emplace_back(std::nullopt); }},
    {"file",
     [](Scene& scene, WordReader& line) {
       scene.Desktop->FileAnswers.emplace_back(line.Take("a path"));
     }},
    {"nofile",
     [](Scene& scene, WordReader&) { scene.Desktop->FileAnswers.emplace_back(std::nullopt); }},
    {"message",
     [](Scene& scene, WordReader& line) {
       scene.Desktop->ExpectedMessages.push_back(line.Take("a text"));
     }},
    {"pick", PickOwned},
    {"deck",
     [](Scene& scene, WordReader&) {
       scene.Desktop->ModalForms.emplace_back([](Form&) { TheDeckManager().Command2_Click(); });
     }},
    {"close",
     [](Scene& scene, WordReader&) { scene.Desktop->ModalForms.emplace_back([](Form&) {}); }},
}};

void Answer(Scene& scene, WordReader& line) {
  const std::string word = line.Take("an answer");
  if (!line.Good()) return;
  if (scene.Desktop->ModalForms.size() + scene.Desktop->ExpectedMessages.size() > kAnswers) {
    scene.Stop("There are too many answers.");
    return;
  }
  for (const AnswerRow& row : kAnswerRows) {
    if (row.Word != word) continue;
    row.Carry(scene, line);
    line.Ends();
    return;
  }
  scene.Stop(Joined("\"", ShownText(word), "\" is no answer."));
}

// clang-format off
constexpr std::array<ScenarioWord, 14> kWords = {{
    {"scenario", WordKind::kScenario, nullptr, "scenario NAME",
     "begins a scenario; the lines before the first one are carried out at the start of each"},
    {"include", WordKind::kInclude, nullptr, "include FILE", "the lines of another scenario file stand here; it holds no scenarios"},
    {"folder", WordKind::kSetUp, Folder, "folder PATH", "the program's folder, seen from the scenario file; without it the file's own"},
    {"file", WordKind::kBlock, WriteOwnFile, "file NAME", "the lines up to \"end\" are a file of the program's folder, in memory"},
    {"let", WordKind::kSetUp, Let, "let NAME TEXT", "from here on {NAME} stands for the text"},
    {"rules", WordKind::kSetUp, Rules, "rules FILE", "reads a rules file as the start of a match does"},
    {"match", WordKind::kSetUp, SavedMatchGoesOn, "match FILE", "a match that was saved goes on, with its luck and its cards as they were then; the file is seen from the scenario file, its game lies in the program's folder"},
    {"read", WordKind::kSetUp, ReadFile, "read FILE [side N]", "reads a card file for a side, its cards in the order of the file"},
    {"seed", WordKind::kSetUp, Seed, "seed N", "where the random source begins; without it at 0"},
    {"random", WordKind::kSeeds, BeginAtSeed, "random seeds N", "in place of \"seed\": carries the scenario out N times, with the random source at 1, 2 and so on; the first seed that fails is told and ends it"},
    {"string", WordKind::kSetUp, CustomString, "string KEY TEXT...", "a custom string and its values"},
    {"set", WordKind::kSetUp, Set, "set [CARD] WORD VALUE", "sets a field of a card, or a value of the session"},
    {"answer", WordKind::kSetUp, Answer, "answer yes | no | text TEXT | notext | file PATH | nofile | message TEXT | pick CARD | deck | close",
     "what the user answers when a dialog comes: a question, an input box, a file dialog, a message box with this text (a blank may stand for a line end), the choice of an owned card, the deck manager (\"deck\" plays, \"close\" shuts it)"},
    {"end", WordKind::kSetUp, [](Scene& scene, WordReader&) { scene.Stop("\"end\" ends no file."); }, "end", "ends the lines of a file"},
}};
// clang-format on

}  // namespace

std::span<const ScenarioWord> LayOutWords() { return kWords; }

}  // namespace brindlemoor
