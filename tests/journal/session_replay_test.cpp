// Sessions that are recorded without a display and played again.
#include <random>

#include "platform/headless/memory_archives.h"
#include "tests/journal/recorded_session.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  const std::size_t place = text.find(from);
  EXPECT_NE(place, text.npos) << from;
  return text.replace(place, from.size(), to);
}

constexpr int kEvents = 15;  // of PlayAWhile and the choice of the player

using SessionReplayTest = RecordedSession;

TEST_F(SessionReplayTest, PlaysAgainFromTheStateBeforeTheSession) {
  const std::string journal = Record([this] { PlayAWhile(); });
  const std::string saved = ReadBytes(root_ / "game/Ann_Wickwater.plr");
  ASSERT_NE(saved, "");
  for (const char* folder : {"game", "moved"}) {
    if (folder == std::string("moved")) fs::rename(root_ / "game", root_ / "moved");
    const ReplayResult result = Replay(journal, (root_ / folder).string());
    EXPECT_EQ(result.Problem + result.Difference, "");
    EXPECT_FALSE(result.CutOff);
    EXPECT_EQ(result.Events, kEvents);
    EXPECT_GT(result.Texts, 10);
    EXPECT_TRUE(fileDifferences_.empty()) << fileDifferences_[0];
    EXPECT_EQ(ReadBytes(root_ / folder / "Ann_Wickwater.plr"), saved) << "nothing is touched";
  }
}

TEST_F(SessionReplayTest, BeginsWithThePlayersOfTheJournal) {
  Record([this] { PlayAWhile(); });
  const std::string second = Record([this] {
    desktop_->ModalForms.emplace_back([this](Form& decks) { Do(decks, {.Control = "Command2"}); });
    desktop_->ChoiceAnswers = {"Continue", "Save and Leave", "New Match"};
    Link("GAME:1:4");
    TakeTurn();
    Menu("newgamemen");
    Link("GAME:1:4");
    TakeTurn();
  });
  fs::remove(root_ / "game/Ann_Wickwater.plr");
  fs::remove(root_ / "game/Ann_Wickwater.match");
  WriteBytes(root_ / "game/PlayerProfiles.txt", "nobody");
  WriteBytes(root_ / "game/Debug.on", "");
  EXPECT_EQ(Replay(second).Difference, "");
}

TEST_F(SessionReplayTest, SaysWhereAChangedAnswerLeads) {
  const std::string journal = Record([this] { PlayAWhile(); });
  const struct {
    const char* From;
    const char* To;
    std::vector<std::string> Said;
  } cases[] = {
      {"input \"New Player Name?\" Ann",
       "input \"New Player Name?\" Bob",
       {"event 1 (click ProfileMenu Command1(0))", "PlayerProfiles.txt differs in line 1, byte",
        "Ann", "Bob"}},
      {"press MainWindow Picture2(1) 0",
       "press MainWindow Picture2(1) 1",
       {"event 11 (press MainWindow Picture2(1))", "Discard "}},
      {"clock 12", "clock 1200", {"Display.html differs in line"}},
      {"click MainWindow Command1", "click MainWindow Command7", {"MainWindow has no"}},
      {"click MainWindow Command1", "click HelpForm Command1", {"no form HelpForm was shown"}},
      {"show CardDescWB", "show InPlayWB", {"the program shows CardDescWB"}},
  };
  for (const auto& row : cases) {
    const ReplayResult result = Replay(Replaced(journal, row.From, row.To));
    EXPECT_EQ(result.Problem, "") << row.To;
    EXPECT_NE(result.Difference, "") << row.To;
    for (const std::string& word : row.Said) {
      EXPECT_NE(result.Difference.find(word), std::string::npos) << result.Difference;
    }
  }
}

TEST_F(SessionReplayTest, NamesTheFilesThatAreNotThoseOfTheJournal) {
  const std::string journal = Record([this] { PlayAWhile(); });
  const fs::path cards = root_ / "game/wickwater/WickwaterCards.txt";
  WriteBytes(cards, Replaced(ReadBytes(cards), "#TRAIT", "#TRAIT,NEW:1\n#TRAIT"));
  WriteBytes(root_ / "game/more.txt", "x");
  fs::remove(root_ / "game/wickwater/8_Wick_Shop.txt");
  fs::remove(root_ / "game/art/gull-roost.jpg");
  EXPECT_NE(Replay(journal).Difference, "");
  EXPECT_EQ(fileDifferences_,
            (std::vector<std::string>{"more.txt is new", "wickwater/WickwaterCards.txt has changed",
                                      "wickwater/8_Wick_Shop.txt is gone",
                                      "other files came or went in art/"}));
}

TEST_F(SessionReplayTest, AJournalThatWasCutOffReplaysUpToThere) {
  const std::string journal = Record([this] { PlayAWhile(); }, false);
  const std::size_t start = journal.find("\nstart\n") + 7;
  ASSERT_NE(start, journal.npos + 7);
  int events = 0;
  for (int part = 0; part <= 8; ++part) {
    const std::size_t length = start + (journal.size() - start) * part / 8;
    const ReplayResult result = Replay(journal.substr(0, length));
    EXPECT_EQ(result.Problem + result.Difference, "") << part;
    EXPECT_TRUE(result.CutOff);
    EXPECT_GE(result.Events, events);
    events = result.Events;
  }
  EXPECT_EQ(events, kEvents);
}

/// What the machine answers about files outside of the folder, and failures, come out of the
/// journal.
TEST_F(SessionReplayTest, NeedsNothingOfTheMachineItWasRecordedOn) {
  const fs::path other = root_ / "elsewhere";
  fs::create_directories(other);
  fs::copy_file(root_ / "game/wickwater/3_Oona_Ebb.txt", other / "enemy.txt");
  const std::string journal = Record(
      [&] {
        PlayAWhile();
        desktop_->ModalForms.emplace_back([&](Form& decks) {
          desktop_->FileAnswers = {(other / "enemy.txt").string(), (other / "no/deck.txt").string(),
                                   std::nullopt, (other / "saved.txt").string()};
          for (const char* item : {"loadoppmen", "savedeckmen", "savedeckmen", "savedeckmen"}) {
            Do(decks, {.Kind = UserEventKind::kMenu, .Control = item});
          }
          Do(decks, {.Kind = UserEventKind::kClose});
        });
        Menu("deckmanagermen");
      },
      false);
  EXPECT_NE(journal.find("failed write"), journal.npos);
  EXPECT_NE(journal.find("outside read"), journal.npos);
  const std::string saved = ReadBytes(other / "saved.txt");
  EXPECT_NE(saved, "");
  fs::remove_all(other);
  const ReplayResult result = Replay(journal);
  EXPECT_EQ(result.Problem + result.Difference, "");
  EXPECT_FALSE(fs::exists(other));
}

/// Journals of strangers: whatever a line says, the replay ends and the machine's files stay.
TEST_F(SessionReplayTest, AnArchiveThatWasOpenedIsOpenedAgain) {
  std::string archive;
  MemoryArchiveLibrary().Write({{{"Goblins.txt", "#GAMERULES, Goblins, , #102030, goblins, \n"},
                                 {"Wickwater.txt", "#GAMERULES, Wickwater, , #102030, w, \n"},
                                 {"art/gull-roost.jpg", "other picture"},
                                 {"goblins/Cards.txt", "cards"}}},
                               archive);
  WriteBytes(root_ / "Goblins.zip", archive);
  const std::string journal = Record([this] {
    desktop_->FileAnswers = {(root_ / "Goblins.zip").string()};
    desktop_->ModalForms.emplace_back([this](Form& form) { Do(form, {.Control = "ReplaceMine"}); });
    Menu("openarchivemen");
    Link("GAME:1:1");
  });
  EXPECT_EQ(ReadBytes(root_ / "game/goblins/Cards.txt"), "cards");
  EXPECT_TRUE(fs::exists(root_ / "game/art/gull-roost.jpg.old~"));
  fs::remove(root_ / "Goblins.zip");
  fs::remove_all(root_ / "game");
  fs::copy(std::string(BRINDLEMOOR_SOURCE_DIR) + "/games", root_ / "game",
           fs::copy_options::recursive);
  const ReplayResult again = Replay(journal);
  EXPECT_EQ(again.Problem + again.Difference, "");
  EXPECT_EQ(again.Events, 4);
}

TEST_F(SessionReplayTest, MutatedJournalsDoNoHarm) {
  const std::string journal = Record([this] { PlayAWhile(); });
  std::vector<std::string> lines;
  for (std::size_t begin = 0; begin < journal.size();) {
    const std::size_t end = journal.find('\n', begin);
    lines.push_back(journal.substr(begin, end - begin + 1));
    begin = end + 1;
  }
  std::mt19937 random(1);  // NOLINT: the same every time
  const auto below = [&](std::size_t bound) { return random() % bound; };
  const char* const numbers[] = {"-1", "99999999999999999999", "2147483647", "\"\"", "17.99+"};
  int different = 0;
  for (int round = 0; round < 60; ++round) {
    std::vector<std::string> changed = lines;
    for (std::size_t change = 0; change <= below(3); ++change) {
      std::string& line = changed[below(changed.size())];
      const std::size_t blank = line.find(' ', line.empty() ? 0 : below(line.size()));
      switch (below(4)) {
        case 0:
          line.clear();
          break;
        case 1:
          line = changed[below(changed.size())];
          break;
        case 2:
          if (blank != line.npos) line = line.substr(0, blank + 1) + numbers[below(5)] + "\n";
          break;
        default:
          if (!line.empty()) line[below(line.size())] = static_cast<char>(below(256));
      }
    }
    std::string bytes;
    for (const std::string& line : changed) bytes += line;
    const ReplayResult result = Replay(bytes);
    if (!result.Difference.empty() || !result.Problem.empty()) ++different;
  }
  EXPECT_GT(different, 30) << "most mutations say something else";
}

}  // namespace
}  // namespace brindlemoor
