// A match that is saved behind any of its turns and goes on in a fresh session is the match that it
// would have been, page for page.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <sstream>
#include <unistd.h>

#include "core/state.h"
#include "game/kept_matches.h"
#include "platform/files.h"
#include "platform/headless/headless_platform.h"
#include "simulation/automatic_match.h"
#include "tests/simulation/tool_shell.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;
using Pages = std::map<std::string, std::string>;

constexpr int kMostTurns = 60;

std::string FileNow() {
  auto& desktop = static_cast<HeadlessPlatform&>(*State().Desktop);
  const MatchFileBytes file = ComposeMatchFile(desktop.Clock());
  EXPECT_TRUE(file.Problem.empty() || State().GameOver == 1) << file.Problem;
  return file.Bytes;
}

AutomaticMatchOptions OptionsOf(const std::string& game, std::uint64_t seed) {
  return {.Folder = std::string(BRINDLEMOOR_SOURCE_DIR) + "/games",
          .PagesFolder = "",
          .Seed = seed,
          .MaximumTurns = kMostTurns,
          .Opponent = 1 + static_cast<int>(seed % 2),
          .Game = game};
}

/// Plays a match and tells its result; pages go into a map, and told gets each one's turn.
template <class Told>
std::string Play(AutomaticMatchOptions options, Pages& pages, Told told) {
  options.OnPage = [&](const std::string& name, const std::string& page) {
    pages[name] = page;
    told();
  };
  std::ostringstream said;
  const AutomaticMatchResult result = AutomaticMatch(options, said);
  return Joined(result.Error, " ", VerdictOf(result.Winner), " ", result.Turns);
}

class SavedSimulationTest : public testing::Test {
 protected:
  ~SavedSimulationTest() override {
    State() = Session{};
    fs::remove_all(folder_);
  }
  const fs::path folder_ = fs::path(testing::TempDir()) / Joined("brindlemoor_saved_", ::getpid());
};

TEST_F(SavedSimulationTest, GoesOnAsIfNothingHadBeenBetween) {
  fs::create_directories(folder_);
  const std::string path = (folder_ / "m.match").string();
  std::size_t largest = 0;
  int turns = 0;
  for (const char* game : {"Wickwater", "Yawnwood"}) {
    for (std::uint64_t seed = 1; seed <= 2; ++seed) {
      Pages unwatched;
      const std::string result = Play(OptionsOf(game, seed), unwatched, [] {});
      Pages whole;
      std::vector<std::string> files;
      EXPECT_EQ(Play(OptionsOf(game, seed), whole, [&] { files.push_back(FileNow()); }), result);
      EXPECT_EQ(whole, unwatched) << "saving changes the match";
      for (const std::string& file : files) {
        if (file.empty()) continue;  // behind the end
        largest = std::max(largest, file.size());
        ASSERT_EQ(LocalFileSystem().Write(path, file), "");
        State() = Session{};
        Pages pages;
        std::string again;
        AutomaticMatchOptions options = OptionsOf("", 1);
        options.Opponent = 1;
        options.Continue = path;
        EXPECT_EQ(Play(options, pages,
                       [&] {
                         if (again.empty()) again = FileNow();
                       }),
                  result);
        EXPECT_TRUE(again == file) << "what was read is saved otherwise";
        for (const auto& [name, page] : pages) {
          ASSERT_TRUE(page == whole[name]) << game << " " << seed << " from file " << turns << name;
        }
        ++turns;
      }
    }
  }
  EXPECT_GT(turns, 20);
  RecordProperty("turns", turns);
  RecordProperty("largest", static_cast<int>(largest));
}

}  // namespace
}  // namespace brindlemoor
