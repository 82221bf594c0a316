// Trying an opponent: the figures are those of matches, and nothing comes of it.
#include "simulation/opponent_trial.h"

#include <gtest/gtest.h>

#include "core/paths.h"
#include "scenario/state_digest.h"
#include "tests/support/shipped_games.h"

namespace brindlemoor {
namespace {

class OpponentTrialTest : public ShippedGamesTest {
 protected:
  static std::string Words(const TrialMatches& trial) {
    return Joined(trial.IsOwn ? "own " : "", trial.Deck, ": ", trial.Won, " of ", trial.Matches);
  }
  /// The first deck is every card that the player owns.
  void TakeWholeDeck() {
    OpenStarterChest();
    ExpectWholeDeck();
    ChooseGame(1, oona_);
    EndGame();
    NewGame();
  }

  const int oona_ = OpponentNamed("Oona Ebb");
};

TEST_F(OpponentTrialTest, ItPlaysThePlayersDeckAndNothingChanges) {
  const std::string first = Words(TryOpponent(1, oona_));
  EXPECT_TRUE(first.starts_with("Starter Chest: ") && first.ends_with(" of 20")) << first;
  TakeWholeDeck();
  const auto contents = files_->Contents;
  const auto before = StateDigest();
  const auto* windows = State().Windows;
  const std::string shown = TheMainWindow().Command1.Caption.Get();
  const Card listed = State().Games[1].Opponents[oona_];
  const TrialMatches own = TryOpponent(1, oona_);
  EXPECT_EQ(State().Games[1].Opponents[oona_].Picture, listed.Picture);
  EXPECT_EQ(State().Games[1].Opponents[oona_].Description, listed.Description);
  EXPECT_EQ(FirstDifference(before, StateDigest()), "");
  EXPECT_EQ(files_->Contents, contents);
  EXPECT_EQ(State().Windows, windows);
  EXPECT_EQ(State().Desktop.get(), desktop_);
  EXPECT_EQ(TheMainWindow().Command1.Caption.Get(), shown);
  EXPECT_TRUE(own.IsOwn);
  EXPECT_EQ(own.Deck, State().Decks[1].DeckName.Str());
  EXPECT_EQ(own.Matches, 20);
  EXPECT_EQ(Words(TryOpponent(1, oona_)), Words(own));
  EXPECT_EQ(TryOpponent(1, OpponentNamed("Starter Chest")).Matches, 0) << "no opponent";
  EXPECT_EQ(TryOpponent(9, 1).Matches, 0);
}

TEST_F(OpponentTrialTest, AnOpponentThatCantLoseOrThatWorksForEverIsToldApart) {
  TakeWholeDeck();
  const std::string file = State().Games[1].OpponentFiles[oona_].Str();
  const std::string path = Joined(kFolder, "/wickwater/", FileNameOf(file));
  const std::string cards = files_->Contents[path];
  const std::string hitPoints = "HP:28";
  const std::size_t card = cards.find(hitPoints);
  ASSERT_NE(card, std::string::npos) << path;
  std::string changed = cards;
  files_->Contents[path] = changed.replace(card, hitPoints.size(), "HP:28000");
  const TrialMatches hard = TryOpponent(1, oona_);
  EXPECT_TRUE(hard.Won == 0 && hard.Matches > 10) << Words(hard);

  changed = cards;
  files_->Contents[path] = changed.insert(
      cards.find("#EFFECT"), "#EFFECT, SELF, PHASE1, \"MODTRAIT:N:1:REPEAT:SELF:2000000000\"\r\n");
  EXPECT_LT(TryOpponent(1, oona_).Matches, 20) << "the work of all is bounded";

  files_->Contents[path] = cards + "\r\n#DUPLICATE, 200000\r\n";
  EXPECT_EQ(TryOpponent(1, oona_).Matches, 0) << "too many cards";
  std::string many = cards;
  for (int line = 0; line < 30000; ++line) many += "#CARD, INDECK, \"Newt\", N-1, , , , , \"\"\r\n";
  files_->Contents[path] = many;
  EXPECT_EQ(TryOpponent(1, oona_).Matches, 0) << "a giant file";

  files_->Contents.erase(path);
  EXPECT_EQ(TryOpponent(1, oona_).Matches, 0) << "its file has gone";
}

}  // namespace
}  // namespace brindlemoor
