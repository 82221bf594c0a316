// The tutorial and the small game that it builds: what the page shows is what the files hold, and
// the game is as small as the page says and can be played.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "simulation/automatic_match.h"

namespace brindlemoor {
namespace {

namespace fs = std::filesystem;

const fs::path kGames = fs::path(BRINDLEMOOR_SOURCE_DIR) / "games";

std::string Contents(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

std::vector<fs::path> GameFiles() {
  std::vector<fs::path> files = {kGames / "Yawnwood.txt"};
  for (const auto& entry : fs::directory_iterator(kGames / "yawnwood")) {
    files.push_back(entry.path());
  }
  return files;
}

/// The lines of a text that are neither empty nor remarks.
std::multiset<std::string> Lines(const std::string& text) {
  std::multiset<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && !line.starts_with("***")) lines.insert(line);
  }
  return lines;
}

/// What stands in the page's listings, as a reader copies it.
std::string Listings(std::string_view page) {
  constexpr std::string_view kOpen = "<pre class=\"listing\">";
  std::string text;
  for (std::size_t at = page.find(kOpen); at != std::string_view::npos; at = page.find(kOpen, at)) {
    at += kOpen.size();
    text += Joined(page.substr(at, page.find("</pre>", at) - at), "\n");
  }
  ReplaceAll(text, "&lt;", "<");
  ReplaceAll(text, "&gt;", ">");
  return text;
}

TEST(TutorialTest, ShowsWhatTheFilesHold) {
  std::multiset<std::string> files;
  for (const fs::path& file : GameFiles()) files.merge(Lines(Contents(file)));
  const std::multiset<std::string> listed =
      Lines(Listings(Contents(kGames / "help/Tutorial.html")));
  for (const std::string& line : listed) {
    EXPECT_TRUE(files.contains(line)) << "only in the tutorial: " << line;
  }
  for (const std::string& line : files) {
    EXPECT_GE(listed.count(line), std::size_t{1}) << "not in the tutorial: " << line;
  }
  EXPECT_GT(listed.size(), 60U);
}

TEST(TutorialTest, TheGameHasTenCardsInShortFiles) {
  std::set<std::string> cards;
  for (const fs::path& file : GameFiles()) {
    const std::string text = Contents(file);
    EXPECT_LT(std::count(text.begin(), text.end(), '\n'), 60) << file;
    EXPECT_NE(text.find("***  YAWNWOOD"), std::string::npos) << file << " says what it is";
    for (const std::string& line : Lines(text)) {
      if (line.starts_with("#CARD, INDECK")) cards.insert(std::string(FieldAt(line, 4, '"')));
    }
  }
  EXPECT_EQ(cards.size(), 10U);
}

TEST(TutorialTest, TheGameIsWonAndLost) {
  std::set<MatchWinner> winners;
  for (std::uint64_t seed = 1; seed <= 12; ++seed) {
    std::ostringstream said;
    const auto result = AutomaticMatch({kGames.string(), "", seed, 60, 1, "Yawnwood"}, said);
    EXPECT_EQ(result.Error, "");
    EXPECT_LT(result.Turns, 30) << said.str();
    EXPECT_TRUE(State().Problems.empty());
    winners.insert(result.Winner);
  }
  EXPECT_EQ(winners, (std::set<MatchWinner>{MatchWinner::kPlayer, MatchWinner::kEnemy}));
  State() = Session{};
}

}  // namespace
}  // namespace brindlemoor
