// A match that is kept: whatever becomes of its files meanwhile, it goes on as it was or says why
// not, and what the player owns is neither lost nor doubled.
#include "game/kept_matches.h"

#include <algorithm>

#include "game/player_saving.h"
#include "game/players.h"
#include "game/turn.h"
#include "scenario/state_digest.h"
#include "simulation/automatic_player.h"
#include "tests/support/shipped_games.h"
#include "ui/link_protocol.h"

namespace brindlemoor {
namespace {

constexpr const char* kMatch = "Ann_Wickwater.match";
constexpr const char* kOwnFile = "Ann_Wickwater.plr";
constexpr const char* kCards = "wickwater/WickwaterCards.txt";
constexpr const char* kNoFile = "(no such file)";

/// The names of all cards that the player owns, and the tokens.
std::string Owned() {
  std::vector<std::string> names;
  const auto add = [&names](const Pile& pile) {
    for (const Card& card : pile) {
      if (!IsFree(card)) names.push_back(card.Name.Str());
    }
  };
  add(State().Collection);
  for (const DeckRec& deck : State().Decks) add(deck.Cards);
  std::ranges::sort(names);
  std::string owned = Joined(State().Players[1].Tokens);
  for (const std::string& name : names) owned += Joined("|", name);
  return owned;
}

/// Ann has kept a match behind its second turn and is back at the list of games.
class KeptMatchesTest : public ShippedGamesTest {
 protected:
  KeptMatchesTest() {
    OpenStarterChest();
    ExpectWholeDeck();
    ChooseGame(1, OpponentNamed("Oona Ebb"));
    for (int turn = 0; turn < 2; ++turn) {
      PlanAutomaticPlays();
      TakeTurn(0);
    }
    StorePlayer();
    EXPECT_EQ(KeepMatch(), "");
    atKeeping_ = StateDigest();
    owned_ = Owned();
    NewGame();
  }
  std::string Path(const std::string& name) const { return Joined(kFolder, "/", name); }
  void ExpectSameMatch() const { EXPECT_EQ(FirstDifference(atKeeping_, StateDigest()), ""); }
  /// What the player file gives to a program that is started now.
  static std::string OwnedByFile() {
    NewGame();
    State().Collection.Reset(1);
    for (DeckRec& deck : State().Decks) deck.Cards.Reset(1);
    EXPECT_TRUE(ReadPlayerFile(kOwnFile));
    return Owned();
  }

  std::string atKeeping_;
  std::string owned_;
};

TEST_F(KeptMatchesTest, ChangedFilesAreNamedAndTheMatchGoesOnAsItWas) {
  const auto lines = [] { return KeptMatchOf(1).value().ChangedFiles; };
  EXPECT_EQ(KeptMatchOf(1)->Problem, "");
  EXPECT_EQ(KeptMatchOf(1)->Opponent, "Oona Ebb");
  EXPECT_EQ(KeptMatchOf(1)->Turns, 2);
  EXPECT_EQ(lines(), std::vector<std::string>{});
  WriteFile("wickwater/More.txt", "#CARD, INDECK, Newt, N-1, , , , , \"\"\n");
  EXPECT_EQ(lines(), std::vector<std::string>{}) << "no card of the match comes from a new file";
  WriteFile(kCards, "***  all cards are gone");
  files_->Contents.erase(Path("wickwater/3_Oona_Ebb.txt"));
  WriteFile("Wickwater.txt", ReadFile("Wickwater.txt") + "\n#EFFECT, ALL, PHASE1, DESTROYME\n");
  NewGame();
  const std::vector<std::string> changed = {"Wickwater.txt has changed",
                                            "wickwater/3_Oona_Ebb.txt is gone",
                                            Joined(kCards, " has changed")};
  EXPECT_EQ(lines(), changed);
  ASSERT_EQ(ContinueMatch(1), "");
  ExpectSameMatch();
  EXPECT_NE(ReadFile("Display.html").find("Oona Ebb"), std::string::npos);
  TakeTurn(0);
  EXPECT_EQ(State().Match.Turns, 3);
  ASSERT_EQ(KeepMatch(), "");
  EXPECT_EQ(lines(), std::vector<std::string>{}) << "one who goes on is not asked again";
}

TEST_F(KeptMatchesTest, WhatIsOwnedIsNeitherLostNorDoubled) {
  ASSERT_EQ(ContinueMatch(1), "");
  ExpectSameMatch();
  EXPECT_EQ(OwnedByFile(), owned_);

  // Won elsewhere meanwhile: another chest, and tokens spent.
  OpenStarterChest();
  State().Players[1].Tokens -= 70;
  StorePlayer();
  const std::string since = Owned();
  ASSERT_NE(since, owned_);
  ASSERT_EQ(ContinueMatch(1), "");
  EXPECT_EQ(Owned(), since);
  EXPECT_FALSE(PlayerIsUnsaved());
  TakeTurn(0);
  EndGame();
  EXPECT_EQ(OwnedByFile(), since);

  // The player file is lost: what the match knows of it comes back.
  files_->Contents.erase(Path(kOwnFile));
  State().StoredPlayer = {};
  NewGame();
  ASSERT_EQ(ContinueMatch(1), "");
  EndGame();
  EXPECT_EQ(OwnedByFile(), owned_);
}

TEST_F(KeptMatchesTest, APlayersMatchHasTheFateOfThePlayer) {
  WriteFile("Ann_B_Wickwater.match", "of the player Ann_B");
  State().Profiles.Append({"Ann_B", "", ""});
  WriteFile("PlayerProfiles.txt", ReadFile("PlayerProfiles.txt") +
                                      "\"#PLAYERPROFILE\",\"Ann_B\",\":\",\"\",\"\",\"\"\r\n");
  ASSERT_EQ(RenamePlayer("Ann", "Zoe"), "");
  EXPECT_EQ(ReadFile(kMatch), kNoFile);
  State().Profile = {"Zoe", "Zoe_Wickwater.plr", "Wickwater.txt"};
  ASSERT_EQ(ContinueMatch(1), "");
  ExpectSameMatch();
  State().Players[1].Tokens += 5;
  EXPECT_TRUE(StorePlayer());
  EXPECT_EQ(ReadFile(kOwnFile), kNoFile) << "saved under the name of before";
  NewGame();
  ASSERT_EQ(DeletePlayer("Zoe"), "");
  EXPECT_EQ(ReadFile("Zoe_Wickwater.match"), kNoFile);
  EXPECT_EQ(ReadFile("Ann_B_Wickwater.match"), "of the player Ann_B");
}

TEST_F(KeptMatchesTest, AStrangersMatchShowsNoMoreThanAReport) {
  ASSERT_EQ(ContinueMatch(1), "");
  WriteFile("LastDiplayed.html", "<script>x()</script><b>Turn</b> <a href=\"GAME:1:3\">more</a>");
  State().Links.Games = true;
  ASSERT_EQ(KeepMatch(), "");
  NewGame();
  ASSERT_EQ(ContinueMatch(1), "");
  EXPECT_NE(ReadFile("Display.html").find("<b>Turn</b>"), std::string::npos);
  EXPECT_EQ(ReadFile("Display.html").find("<script"), std::string::npos);
  WB_BeforeNavigate("file:///game/GAME:1:3");
  EXPECT_EQ(State().Match.Opponent, "Oona Ebb") << "a link of the file began another match";
}

TEST_F(KeptMatchesTest, WhatCannotGoOnSaysWhyAndChangesNothing) {
  const std::string bytes = ReadFile(kMatch);
  const auto expectRefusal = [](int game, const std::string& sentence) {
    const std::string digest = StateDigest();
    ASSERT_TRUE(KeptMatchOf(game)) << sentence;
    EXPECT_EQ(KeptMatchOf(game)->Problem, sentence);
    EXPECT_EQ(ContinueMatch(game), sentence);
    EXPECT_EQ(FirstDifference(digest, StateDigest()), "") << sentence;
  };
  EXPECT_FALSE(KeptMatchOf(2)) << "of a game without one";
  WriteFile("Ann_Yawnwood.match", bytes);
  expectRefusal(2, "Ann_Yawnwood.match holds a match of another game: Wickwater.txt.");
  WriteFile(kMatch, bytes.substr(0, bytes.size() - 1));
  expectRefusal(1, Joined(kMatch, " is damaged."));
  WriteFile(kMatch, bytes);
  WriteFile("Marsh.txt", ReadFile("Wickwater.txt"));
  files_->Contents.erase(Path("Wickwater.txt"));
  NewGame();
  ASSERT_EQ(State().Games[1].Name, "Wickwater");
  expectRefusal(1, "The game of the saved match is not here: there is no Wickwater.txt.");
  EXPECT_EQ(ReadFile(kMatch), bytes) << "the file stays for better days";
}

}  // namespace
}  // namespace brindlemoor
