// Journals of the computer's own matches.
#include "journal/match_journal.h"

#include <fstream>
#include <sstream>

#include "simulation/stage.h"
#include "tests/journal/recorded_session.h"

namespace brindlemoor {
namespace {

class MatchJournalTest : public RecordedSession {
 protected:
  /// What a writer writes meanwhile.
  template <class Action>
  std::string Recorded(Action action) {
    const std::filesystem::path path = root_ / "match.journal";
    std::filesystem::remove(path);
    JournalWriter writer;
    EXPECT_EQ(writer.Open(path.string()), "");
    action(writer);
    return ReadBytes(path);
  }
  std::string RecordedMatch() {
    return Recorded([this](JournalWriter& writer) {
      AutomaticMatchOptions options;
      options.Folder = Folder();
      options.Game = "Wickwater";
      options.Seed = 7;
      options.MaximumTurns = 4;
      RecordMatch(writer, options);
      std::ostringstream unseen;
      RecordResult(writer, AutomaticMatch(options, unseen));
    });
  }
  std::string RecordedSimulation(bool decksMeet) {
    return Recorded([&](JournalWriter& writer) {
      SimulationOptions options;
      options.Folder = Folder();
      options.Game = "Yawnwood";
      options.Matches = 4;
      options.Seed = 3;
      options.DecksMeet = decksMeet;
      Stage stage;
      SimulationSetup setup;
      EXPECT_EQ(PrepareSimulation(options, stage, setup), "");
      SimulationRecorder recorder(writer);
      recorder.Begin(options);
      stage.HashPages();
      Totals totals;
      EXPECT_EQ(PlayMatches(
                    setup, {}, stage, totals, [] {}, &recorder),
                "");
      writer.End();
    });
  }
  static Journal Read(const std::string& bytes) {
    Journal journal;
    EXPECT_EQ(ReadJournal(bytes, journal), "");
    return journal;
  }
  ReplayOptions Here(const std::string& folder) const { return {.Folder = folder}; }
  /// The journal with another text in place of one that it holds.
  static Journal ReadChanged(std::string bytes, std::string_view from, std::string_view to) {
    const std::size_t place = bytes.find(from);
    EXPECT_NE(place, bytes.npos) << from;
    return Read(bytes.replace(place, from.size(), to));
  }
};

TEST_F(MatchJournalTest, AMatchIsPlayedAgainAndItsPagesCompared) {
  const std::string bytes = RecordedMatch();
  EXPECT_EQ(bytes.find("\nkeep "), bytes.npos) << "no player's file belongs to it";
  std::filesystem::rename(root_ / "game", root_ / "moved");
  const std::string folder = (root_ / "moved").string();
  const ReplayResult same = ReplayMatch(Read(bytes), Here(folder));
  EXPECT_EQ(same.Problem + same.Difference, "");
  EXPECT_EQ(same.Texts, 5);
  EXPECT_FALSE(same.CutOff);

  const auto differs = [&](std::string_view from, std::string_view to) {
    return ReplayMatch(ReadChanged(bytes, from, to), Here(folder)).Difference;
  };
  EXPECT_NE(differs("option seed 7", "option seed 8").find("turn-000.html differs"),
            std::string::npos);
  EXPECT_NE(differs("option game Wickwater", "option game Yawnwood").find("turn-000.html differs"),
            std::string::npos);
  EXPECT_NE(differs("option turns 4", "option turns 3").find("has the result"), std::string::npos);
  EXPECT_NE(differs("option turns 4", "option turns 5").find("turn-005.html"), std::string::npos);
  const ReplayResult cut =
      ReplayMatch(Read(bytes.substr(0, bytes.find("write turn-002"))), Here(folder));
  EXPECT_EQ(cut.Difference, "");
  EXPECT_TRUE(cut.CutOff);
  EXPECT_EQ(cut.Texts, 2);
}

TEST_F(MatchJournalTest, AMatchThatWentOnIsPlayedAgainWithoutItsFile) {
  const std::string path = (root_ / "m.match").string();
  AutomaticMatchOptions first;
  first.Folder = Folder();
  first.Game = "Wickwater";
  first.Seed = 7;
  first.MaximumTurns = 2;
  first.SaveTo = path;
  std::ostringstream unseen;
  ASSERT_EQ(AutomaticMatch(first, unseen).Error, "");
  const std::string bytes = Recorded([&](JournalWriter& writer) {
    AutomaticMatchOptions options;
    options.Folder = Folder();
    options.Continue = path;
    options.MaximumTurns = 5;
    RecordMatch(writer, options);
    RecordResult(writer, AutomaticMatch(options, unseen));
  });
  std::filesystem::remove(path);
  std::filesystem::rename(root_ / "game", root_ / "moved");
  const std::string folder = (root_ / "moved").string();
  std::ofstream(root_ / "moved" / "Wickwater.txt", std::ios::app) << "*** a remark\n";
  const ReplayResult same = ReplayMatch(Read(bytes), Here(folder));
  EXPECT_EQ(same.Problem + same.Difference, "");
  EXPECT_EQ(same.Texts, 4) << "turns 2 to 5";
  const Journal damaged = ReadChanged(bytes, "Brindlemoor match 2", "Brindlemoor match x");
  EXPECT_EQ(ReplayMatch(damaged, Here(folder)).Problem, "The match of the journal is damaged.");
}

TEST_F(MatchJournalTest, ASimulationIsPlayedAgainMatchByMatch) {
  const std::string bytes = RecordedSimulation(false);
  const std::string ofDecks = RecordedSimulation(true);
  std::filesystem::rename(root_ / "game", root_ / "moved");
  const std::string folder = (root_ / "moved").string();
  const ReplayResult same = ReplaySimulation(Read(bytes), Here(folder));
  EXPECT_EQ(same.Problem + same.Difference, "");
  EXPECT_EQ(same.Events, 4);
  EXPECT_EQ(same.Texts, 4);
  EXPECT_EQ(ReplaySimulation(Read(ofDecks), Here(folder)).Difference, "");
  const Journal ofOpponents = ReadChanged(ofDecks, "option decks 1", "option decks 0");
  EXPECT_NE(ReplaySimulation(ofOpponents, Here(folder)).Difference, "");

  // The hash is the last field of a match: other pages than those of the journal.
  const std::size_t hash = bytes.find('\n', bytes.find("\nplayed ") + 1) - 16;
  const ReplayResult other = ReplaySimulation(
      ReadChanged(bytes, bytes.substr(hash, 16), "0123456789abcdef"), Here(folder));
  EXPECT_NE(other.Difference.find("match 0 of pairing 0: events or pages"), std::string::npos)
      << other.Difference;

  // A match that crashed has no result; it is played all the same.
  const ReplayResult cut =
      ReplaySimulation(Read(bytes.substr(0, bytes.rfind("played "))), Here(folder));
  EXPECT_EQ(cut.Problem + cut.Difference, "");
  EXPECT_EQ(cut.Events, 4);
  EXPECT_EQ(cut.Texts, 3);

  for (const char* line : {"playing 99 0 0", "playing 0 2 0", "playing 0 0 4", "playing -1 0 0"}) {
    const Journal journal = ReadChanged(bytes, "playing 0 0 0", line);
    EXPECT_NE(ReplaySimulation(journal, Here(folder)).Problem, "") << line;
  }
}

}  // namespace
}  // namespace brindlemoor
