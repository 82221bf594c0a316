// Everything that is saved, with every call on files failing in turn, and with the program killed
// between any two of them: a file is the old one or the new one, a failure is told, and the program
// goes on.
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <sys/wait.h>
#include <unistd.h>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/random.h"
#include "core/state.h"
#include "data/profiles.h"
#include "editor/card_edit.h"
#include "editor/editor_forms.h"
#include "editor/program_session.h"
#include "game/kept_matches.h"
#include "game/match_start.h"
#include "game/player_files.h"
#include "game/player_saving.h"
#include "game/program_start.h"
#include "language/traits.h"
#include "platform/headless/headless_platform.h"
#include "script/card_setup.h"
#include "script/trait_changes.h"
#include "tests/faults/system_calls.h"
#include "tests/support/played_pictures.h"
#include "ui/forms.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Files = std::map<std::string, std::string>;

constexpr std::string_view kRules = "#GAMERULES, Small, , , small,\n#RULESCARD\n";
constexpr std::string_view kStarter =
    "#STARTERDECK\n#CARD, #PLAYERCARD, Chest, S-3, , , , #FFFFFF, \"\"\n"
    "#CARD, INDECK, Imp, S-1, , , , , \"\"\n"
    "#RULESCARD\n#EFFECT, SELF, GAMESTART, BOOSTERCARD:Imp:2\n";

/// One way of saving something. Version 1 makes the old files, version 2 the new ones.
struct Saving {
  const char* Name;
  void (*Prepare)(HeadlessPlatform& desktop, const std::string& folder, int version);
  void (*Save)(const std::string& folder, int version);
};

void OwnCards(int version) {
  Session& session = State();
  for (int number = 0; number < 40 * version; ++number) {
    Card card;
    InitCard(card, 1, 0);
    card.Name = Joined("Card ", number);
    card.UniqueID = Joined("C-", number);
    SetTrait(card, "HP", version, 1);
    session.Collection.Append(card);
    if (number % 10 == 0) session.Decks[1].Cards.Append(card);
  }
  session.Players[1].Tokens = 100 * version;
}

/// As if the player had been read before.
void OwnSome(HeadlessPlatform&, const std::string&, int version) {
  OwnCards(version);
  const std::string path = InProgramFolder("Ann_Small.plr");
  NotePlayerRead(path, Desktop().Files().Read(path).value_or(""));
}

/// Another program has written the player file since.
void OwnElsewhere(HeadlessPlatform& desktop, const std::string&, int version) {
  OwnCards(version);
  desktop.YesNoAnswers = {true, true};  // asked again when it changes meanwhile
}

/// A set of cards in the editor, and what its dialogs are answered with.
void LoadIntoEditor(HeadlessPlatform& desktop, const std::string& folder, int version) {
  std::string text = "CARD DATA FILE\r\n";
  for (int number = 0; number < 5 * version; ++number) {
    text +=
        Joined("#CARD, COLLECTION, \"Card ", number, "\", \"C-", number, "\", , , , , \"\"\r\n");
  }
  const std::string made = folder + "/made.txt";
  std::ofstream(made, std::ios::binary) << text;
  desktop.FileAnswers.emplace_back(made);
  TheCardEdit().Form_Load();
  TheCardEdit().loaddeckmen.Click();
  fs::remove(made);
  State().CardFile = folder + "/set.txt";
  desktop.FileAnswers.emplace_back(folder + "/other.txt");
  desktop.TextAnswers.emplace_back(Joined("Shop ", version));
  desktop.YesNoAnswers = {true, true, true};
}

void OpenDeckManager(HeadlessPlatform& desktop, const std::string&, int version) {
  OwnCards(version);
  TheDeckManager().Form_Load();
  desktop.TextAnswers.emplace_back("Rival");
  desktop.YesNoAnswers = {true, true, true};
}

void ComposeImage(HeadlessPlatform&, const std::string&, int version) {
  CardEdit& form = TheCardEdit();
  form.Form_Load();
  auto picture = std::make_shared<Raster>(100, 150);
  picture->SetPixel(5, 5, version);
  form.Image.Show({.Drawing = picture}, {.Drawing = picture});
}

/// In a match that has been kept before and has taken so many turns, with its report.
void PlayMatch(HeadlessPlatform&, const std::string& folder, int version) {
  Session& session = State();
  std::ofstream(folder + "/small.txt") << kRules;
  std::ofstream(folder + "/LastDiplayed.html") << "After turn " << version;
  session.Games[1].RulesFile = session.Match.RulesFile = "small.txt";
  session.Match.Files = {{"small.txt", ""}};
  session.Match.Turns = version;
  OwnCards(version);
}

constexpr Saving kSavings[] = {
    {"save_player", OwnSome, [](const std::string&, int) { TheMainWindow().saveplrmen.Click(); }},
    {"save_over_change", OwnElsewhere,
     [](const std::string&, int) { TheMainWindow().saveplrmen.Click(); }},
    {"save_profiles", [](HeadlessPlatform&, const std::string&, int) {},
     [](const std::string&, int version) {
       LoadProfiles();
       State().Profile.RulesFile = Joined("rules", version, ".txt");
       SaveProfiles();
     }},
    {"end_of_game", OwnSome, [](const std::string&, int) { EndGame(); }},
    {"keep_match", PlayMatch,
     [](const std::string&, int) {
       const std::string problem = KeepMatch();
       if (!problem.empty()) Desktop().MessageBox(problem);
     }},
    {"save_cards", LoadIntoEditor,
     [](const std::string&, int) { TheCardEdit().savedeckmen.Click(); }},
    {"save_cards_as", LoadIntoEditor,
     [](const std::string&, int) { TheCardEdit().savedeckasmen.Click(); }},
    {"store", LoadIntoEditor, [](const std::string&, int) { TheCardEdit().Cardstoremen.Click(); }},
    {"opponent", OpenDeckManager,
     [](const std::string&, int) { TheDeckManager().saveasopponent.Click(); }},
    {"starter_deck", OpenDeckManager,
     [](const std::string&, int) { TheDeckManager().savestarterdeckmen.Click(); }},
    {"composed_images", ComposeImage,
     [](const std::string& folder, int) {
       TheCardEdit().Image.SaveImage(folder + "/Card-C-1.jpg");
       TheCardEdit().Image.SaveMini(folder + "/Card-C-1-mini.jpg");
     }},
};

class SavingFaultsTest : public testing::TestWithParam<Saving> {
 protected:
  SavingFaultsTest() {
    std::string pattern = (fs::temp_directory_path() / "brindlemoor-faults-XXXXXX").string();
    // The folder above is searched as well: it holds nothing else.
    root_ = ::mkdtemp(pattern.data());
    folder_ = root_ + "/games";
    fs::create_directory(folder_);
  }
  ~SavingFaultsTest() override {
    State() = Session{};
    std::error_code ignored;
    fs::remove_all(root_, ignored);
  }

  /// The folder holds these files and no others.
  void PutFiles(const Files& files) const {
    for (const auto& entry : fs::directory_iterator(folder_)) fs::remove_all(entry.path());
    for (const auto& [name, bytes] : files) {
      std::ofstream(folder_ + "/" + name, std::ios::binary) << bytes;
    }
  }
  Files FilesThere() const {
    Files files;
    for (const auto& entry : fs::directory_iterator(folder_)) {
      std::ifstream stream(entry.path(), std::ios::binary);
      files[entry.path().filename().string()] =
          std::string(std::istreambuf_iterator<char>(stream), {});
    }
    return files;
  }
  /// A fresh program in the folder, in a game.
  HeadlessPlatform& Begin() const {
    auto desktop = std::make_shared<HeadlessPlatform>(std::make_unique<LocalFileSystem>());
    desktop->AcceptMessages = true;
    HeadlessPlatform& kept = *desktop;
    OpenProgramSession(std::move(desktop), folder_);
    State().Profile.PlayerName = "Ann";
    NewGame();
    State().Games.Reset(1);
    State().Games[1].Name = "Small";
    State().CurrentGame = 1;
    SeedFromText("1", 0);
    return kept;
  }
  /// Saves a version in a fresh program with a fault at a call. Returns the number of calls.
  int Save(int version, int call, Fault fault, std::vector<std::string>* told = nullptr) const {
    HeadlessPlatform& desktop = Begin();
    GetParam().Prepare(desktop, folder_, version);
    desktop.Messages.clear();
    ArmFault(call, fault);
    GetParam().Save(folder_, version);
    const int calls = DisarmFault();
    if (told != nullptr) *told = desktop.Messages;
    return calls;
  }

  std::string root_;
  std::string folder_;
};

bool IsPage(const std::string& name) { return name.ends_with(".html"); }
bool IsLock(const std::string& name) { return name.ends_with(".lock"); }
bool IsLeftOver(const std::string& name) { return name.ends_with(".part~"); }

/// Every file is the old one or the new one. The number of those that are neither new.
int CountOld(const Files& files, const Files& before, const Files& after, bool killed) {
  int old = 0;
  for (const auto& [name, bytes] : files) {
    if (IsPage(name) || IsLock(name) || (killed && IsLeftOver(name))) continue;
    const auto was = before.find(name);
    const auto is = after.find(name);
    const bool isOld = was != before.end() && was->second == bytes;
    const bool isNew = is != after.end() && is->second == bytes;
    EXPECT_TRUE(isOld || isNew) << name << " is neither the old file nor the new one";
    if (!isNew) ++old;
  }
  for (const auto& [name, bytes] : before) {
    EXPECT_TRUE(files.contains(name) || IsPage(name)) << name << " is gone";
  }
  for (const auto& [name, bytes] : after) old += files.contains(name) ? 0 : 1;
  return old;
}

TEST_P(SavingFaultsTest, LosesNothing) {
  PutFiles({{"PlayerProfiles.txt",
             "\"#PLAYERPROFILE\",\"Ann\",\":\",\"\",\"\",\"\"\r\n"
             "\"#PLAYERPROFILE\",\"Bob\",\"Bob_Small.plr:rules.txt\",\"\",\"\",\"\"\r\n"}});
  Save(1, 0, Fault::kNone);
  const Files before = FilesThere();
  const int calls = Save(2, 0, Fault::kNone);
  const Files after = FilesThere();
  ASSERT_NE(before, after) << "nothing was saved";
  ASSERT_GT(calls, 4);
  RecordProperty("calls", calls);
  for (const Fault fault :
       {Fault::kNoSpace, Fault::kPartWritten, Fault::kNoRights, Fault::kInputError}) {
    for (int call = 1; call <= calls; ++call) {
      SCOPED_TRACE(testing::Message()
                   << "fault " << static_cast<int>(fault) << " at call " << call);
      PutFiles(before);
      std::vector<std::string> told;
      Save(2, call, fault, &told);
      if (CountOld(FilesThere(), before, after, false) > 0) {
        EXPECT_FALSE(told.empty()) << "nobody was told of a file that stayed as it was";
      }
      Save(2, 0, Fault::kNone);
      EXPECT_EQ(CountOld(FilesThere(), before, after, false), 0) << "the program does not go on";
      if (HasFailure()) return;
    }
  }
}

TEST_P(SavingFaultsTest, SurvivesBeingKilled) {
  Save(1, 0, Fault::kNone);
  const Files before = FilesThere();
  const int calls = Save(2, 0, Fault::kNone);
  const Files after = FilesThere();
  for (int call = 1; call <= calls; ++call) {
    SCOPED_TRACE(testing::Message() << "killed before call " << call);
    PutFiles(before);
    const pid_t child = ::fork();
    if (child == 0) {
      Save(2, call, Fault::kKill);
      ::_exit(0);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    CountOld(FilesThere(), before, after, true);
    Save(2, 0, Fault::kNone);
    EXPECT_EQ(CountOld(FilesThere(), before, after, true), 0);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Everything, SavingFaultsTest, testing::ValuesIn(kSavings),
                         [](const auto& row) { return std::string(row.param.Name); });

/// A player's cards are read, some more are won, and the end of the game saves them: with any read
/// failing, no card that was owned is missing afterwards.
class ReadingFaultsTest : public SavingFaultsTest {};

TEST_P(ReadingFaultsTest, AFileThatCannotBeReadIsNotSavedOver) {
  const auto play = [this](int call, Fault fault) {
    HeadlessPlatform& desktop = Begin();
    desktop.Messages.clear();
    ArmFault(call, fault);
    NewGame();
    ChooseGame(1, 2);
    if (State().CurrentGame != 0) EndGame();
    NewGame();
    const int calls = DisarmFault();
    return calls;
  };
  Files before{{"small.txt", std::string(kRules)}};
  PutFiles(before);
  Begin();
  OwnCards(1);
  EndGame();
  before = FilesThere();
  const auto begin = [&] {
    PutFiles(before);
    fs::create_directory(folder_ + "/small");
    std::ofstream(folder_ + "/small/starter.txt") << kStarter;
  };
  const auto cards = [this] {
    std::ifstream stream(folder_ + "/Ann_Small.plr", std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    int count = 0;
    for (auto at = text.find("#CARD"); at != std::string::npos; at = text.find("#CARD", at + 1)) {
      ++count;
    }
    return count;
  };
  begin();
  const int owned = cards();
  const int calls = play(0, Fault::kNone);
  ASSERT_EQ(cards(), owned + 2) << "the starter deck gives two cards";
  RecordProperty("calls", calls);
  for (int call = 1; call <= calls; ++call) {
    begin();
    play(call, GetParam().Name[0] == 'n' ? Fault::kNoRights : Fault::kInputError);
    EXPECT_GE(cards(), owned) << "cards are lost by a fault at call " << call;
  }
}

INSTANTIATE_TEST_SUITE_P(Both, ReadingFaultsTest,
                         testing::Values(Saving{"no_rights", nullptr, nullptr},
                                         Saving{"input_error", nullptr, nullptr}),
                         [](const auto& row) { return std::string(row.param.Name); });

}  // namespace
}  // namespace brindlemoor
