// The file of a match: everything comes back, and what is no such file is refused whole.
#include "saving/saved_match.h"

#include <functional>

#include "core/match_log.h"
#include "game/kept_matches.h"
#include "scenario/state_digest.h"
#include "simulation/automatic_player.h"
#include "tests/support/shipped_games.h"
#include "text/hash.h"

namespace brindlemoor {
namespace {

/// In a match of the shipped game, with a plan for the coming turn.
class SavedMatchTest : public ShippedGamesTest {
 protected:
  SavedMatchTest() {
    OpenStarterChest();
    ExpectWholeDeck();
    ChooseGame(1, OpponentNamed("Oona Ebb"));
    PlanAutomaticPlays();
  }
  /// A file with the right hash for what stands behind its first lines.
  static std::string WithHash(std::string_view records, int version = 2) {
    return Joined("Brindlemoor match ", version, "\n", HashOf(records), "\n", records);
  }
  static std::string_view RecordsOf(std::string_view bytes) {
    return bytes.substr(bytes.find('\n', bytes.find('\n') + 1) + 1);
  }
};

TEST_F(SavedMatchTest, BringsBackWhatItWasComposedOf) {
  Session& session = State();
  session.Log = std::make_shared<MatchLog>();
  LogMatchEvent(MatchEvent::kPlayed, 2, session.CardTable[2]);
  // Values at the ends of what fields can hold, and texts that look like marks of the file.
  session.Random.State = 0xFEDCBA9876543210;
  session.LastValue = -0.1;
  session.RedirectTarget = -2147483647 - 1;
  session.Players[2].Hand[10].TargetSlot = -32768;
  session.CardTable[1].TraitBits[8] = 0xFFFFFFFF;
  session.FailReason = "\x01/game/x";
  session.RedirectScript = "/game/Wickwater.txt";
  session.GameFileName = "/game";
  session.Links.Cards = {-5, 7};
  session.LimitsReported = {"a", std::string("b\0c", 3)};
  session.LastTurn.News = {{CardFate::kDrawn, 1, "Toad", -2.5, 1e300}};
  session.Match.Files = {{"Wickwater.txt", "0123"}};
  const std::string page = "<img src=\"/game/a.jpg\">\x01/game/";
  const std::string bytes = BytesOfMatch(page, 77);
  const std::string digest = StateDigest();
  EXPECT_EQ(bytes.find("/game/Wick"), std::string::npos) << "the folder is not part of a match";

  NewGame();
  session.RefCache.Resize(0);
  session.Log = std::make_shared<MatchLog>();
  MatchRead read = ReadMatch(bytes, "m");
  ASSERT_EQ(read.Problem, "");
  EXPECT_EQ(PageOf(read.Match->Head), page);
  EXPECT_EQ(read.Match->Head.Clock, 77U);
  session.CurrentGame = static_cast<std::int16_t>(GameOfMatch(read.Match->Head));
  TakeMatch(std::move(*read.Match), true);
  EXPECT_EQ(FirstDifference(digest, StateDigest()), "");
  EXPECT_EQ(HashOf(BytesOfMatch(page, 77)), HashOf(bytes));
  EXPECT_EQ(session.Log->Events.size(), 1U);
}

TEST_F(SavedMatchTest, AFileOfTheFirstVersionLacksWhatTheOpponentThought) {
  State().Match.EasiestMind = 2;
  const std::string thinking = BytesOfMatch("page");
  State().Match.EasiestMind = 0;
  const std::string plain = BytesOfMatch("page");
  EXPECT_EQ(ReadMatch(thinking, "m").Match->Tables.Match.EasiestMind, 2);
  std::string records(RecordsOf(plain));
  const auto [mind, of] = std::ranges::mismatch(records, RecordsOf(thinking));
  records.erase(mind);
  const MatchRead read = ReadMatch(WithHash(records, 1), "m");
  ASSERT_EQ(read.Problem, "");
  EXPECT_EQ(read.Match->Tables.Match.EasiestMind, 0);
  EXPECT_NE(ReadMatch(WithHash(records, 2), "m").Problem, "");
  EXPECT_NE(ReadMatch(WithHash(RecordsOf(plain), 1), "m").Problem, "");
  TakeMatch(std::move(*ReadMatch(WithHash(records, 1), "m").Match), true);
  EXPECT_EQ(HashOf(BytesOfMatch("page")), HashOf(plain));
}

TEST_F(SavedMatchTest, WhatIsNoWholeFileIsRefusedInOneSentence) {
  const std::string bytes = BytesOfMatch("page");
  const std::string digest = StateDigest();
  const std::string damaged = "Ann.match is damaged.";
  std::string changed = bytes;
  changed[bytes.size() / 2] ^= 0x10;
  std::string ofLater = bytes;
  ofLater.replace(0, 19, "Brindlemoor match 3");
  const std::pair<std::string, std::string> cases[] = {
      {"", damaged},
      {"#PLAYERDECK\r\n", "Ann.match is no saved match."},
      {std::string("\x7F"
                   "ELF\0\n",
                   6),
       "Ann.match is no saved match."},
      {ofLater, "Ann.match was saved by a newer version of the program."},
      {"Brindlemoor match one\nx\n", damaged},
      {"Brindlemoor match 0\nx\n", damaged},
      {changed, damaged},
      {bytes + "x", damaged},
      {WithHash(Joined(RecordsOf(bytes), std::string(1, '\0'))), damaged},
      {WithHash(""), damaged},
      {WithHash("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F"), damaged},
  };
  for (const auto& [file, problem] : cases) {
    EXPECT_EQ(ReadMatch(file, "Ann.match").Problem, problem) << file.substr(0, 30);
  }
  const std::string_view records = RecordsOf(bytes);
  for (std::size_t size = 0; size < records.size(); size += 97) {
    EXPECT_NE(ReadMatch(bytes.substr(0, size), "m").Problem, "");
    EXPECT_NE(ReadMatch(WithHash(records.substr(0, size)), "m").Problem, "");
  }
  EXPECT_EQ(FirstDifference(digest, StateDigest()), "");
}

TEST_F(SavedMatchTest, NumbersOutsideOfTheirTablesAreRefused) {
  using Change = std::function<void(Session&)>;
  const int beyond = State().CardTable.UpperBound() + 1;
  const std::pair<const char*, Change> changes[] = {
      {"player card", [&](Session& s) { s.Players[1].PlayerCard = beyond; }},
      {"negative slot", [](Session& s) { s.Players[2].PlayerCard = -1; }},
      {"last entered", [&](Session& s) { s.LastEntered = beyond; }},
      {"hit",
       [&](Session& s) {
         s.HitTable[3].push_back({beyond, 1});
       }},
      {"slot of a card", [](Session& s) { s.CardTable[1].Slot = 2; }},
      {"hand", [](Session& s) { s.Players[1].Hand.Resize(kHandPositions + 1); }},
      {"side", [](Session& s) { s.Players[2].PlayerNo = 1; }},
      {"queue", [](Session& s) { s.PlayQueue[1] = kHandPositions + 1; }},
      {"waiting cards", [](Session& s) { s.PendingCount = 9; }},
      {"deck", [](Session& s) { s.CurrentDeck = 0; }},
      {"state of an action", [](Session& s) { s.RulesCard.Effects.Edit(1).MenuState = 3; }},
      {"fate",
       [](Session& s) {
         s.LastTurn.News = {{static_cast<CardFate>(6), 1, "Toad", 0, 0}};
       }},
      {"no game", [](Session& s) { s.Match.RulesFile = Text(); }},
  };
  const Session before = State();
  ASSERT_NE(ReadMatch(BytesOfMatch(""), "m").Match, nullptr);
  for (const auto& [what, change] : changes) {
    change(State());
    EXPECT_EQ(ReadMatch(BytesOfMatch(""), "m").Problem, "m is damaged.") << what;
    State() = before;
  }
}

}  // namespace
}  // namespace brindlemoor
