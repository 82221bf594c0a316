// Stage: plays matches of a game one after the other, each from the same beginning.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/match_log.h"
#include "core/state.h"
#include "text/hash.h"

namespace brindlemoor {

class SimulationDesktop;

/// A deck that sits at the table: a card file that is read for a side.
struct Contender {
  std::string Name;
  std::string Path;
};

/// How a match went.
struct PlayedMatch {
  int Winner = 0;  ///< side, 0 when nobody or both won
  int Turns = 0;
  std::int32_t Tokens = 0;  ///< that side 1 got
};

/// Reads the files of a game once and uses them for every match. The matches run on the session of
/// the program; a Stage that is made throws away what was there.
class Stage {
 public:
  /// Finds the opponents of a game ("" the first of the folder) and opens its starter decks, with
  /// the seed where they are filled by chance. "" or why there is nothing to play.
  std::string Open(const std::string& folder, std::string_view game, std::uint64_t seed);
  /// The same for an opponent of the session that shows its list, whose place the stage takes; the
  /// caller keeps it. The only deck is that which its player has for the game, where there is one.
  /// From now on a file whose reading takes more than so many steps is refused.
  std::string OpenInSession(int gameIndex, int opponentIndex, std::uint64_t seed,
                            std::int64_t stepsOfReading);

  const std::string& Game() const { return game_; }
  const std::vector<Contender>& Opponents() const { return opponents_; }
  const std::vector<Contender>& Decks() const { return decks_; }
  /// True when the deck is one of the player's own.
  bool HasOwnDeck() const { return hasOwnDeck_; }
  /// From now on the decks are the opponents.
  void LetDecksMeet() { opponents_ = decks_; }
  /// A hash of the card files of the folder and its subfolders, 16 hexadecimal digits.
  const std::string& FilesHash() const { return filesHash_; }

  /// Sits two contenders down for the matches to come. "" or why they can't play.
  std::string Seat(const Contender& side1, const Contender& side2);
  /// Plays a match of those who sit: a function of them, the seed and the most turns alone. Both
  /// sides are played by the computer.
  PlayedMatch Play(std::uint64_t seed, int maximumTurns);
  /// How the sides play that think (Session::ThinkOfTurn).
  void LetThink(std::optional<TurnPlan> (*thinkOfTurn)(int side)) { thinkOfTurn_ = thinkOfTurn; }
  /// From now on the sides have minds of such levels (Session::Minds).
  void GiveMinds(int side1, int side2) {
    minds_[1] = static_cast<std::uint8_t>(side1);
    minds_[2] = static_cast<std::uint8_t>(side2);
  }
  /// The matches to come may take so many steps together (core/work_budget.h), and each of their
  /// turns so many.
  void BoundWork(std::int64_t steps, std::int64_t stepsOfTurn);
  /// False when they have: the last match was broken off, and none is played any more.
  bool WorkIsLeft() const { return workLeft_ > 0; }
  /// The seed of the last match.
  std::uint64_t LastSeed() const { return lastSeed_; }
  /// What happened in the last match.
  const MatchLog& Log() const { return *log_; }
  /// Has the pages of the matches to come hashed, which costs a little.
  void HashPages();
  /// From now on every text is composed, also those that nobody reads: nothing else differs.
  void PlayAloud() { aloud_ = true; }
  /// A hash of what happened in the last match and, where asked for, of its pages; the name of the
  /// folder does not count. 16 hexadecimal digits.
  std::string MatchHash() const;

 private:
  std::string ChooseGameByName(std::string_view name);
  void OpenStarterDecks(std::uint64_t seed);
  /// The deck that a player file names first, from the one in use on.
  void OpenOwnDeck(int opponentIndex, const std::string& owned, std::uint64_t seed);
  void AddDeck(const std::string& name, const std::string& cards);
  /// True when texts that nobody reads are left out.
  bool PlaysQuietly() const;
  PlayedMatch PlayOnce(std::uint64_t seed, int maximumTurns, bool quiet);

  std::string game_;
  int gameIndex_ = 0;
  std::string filesHash_;
  std::vector<Contender> opponents_;
  std::vector<Contender> decks_;
  bool hasOwnDeck_ = false;
  std::shared_ptr<SimulationDesktop> desktop_;
  std::uint64_t lastSeed_ = 0;
  std::int64_t workLeft_ = WorkBudget::kNever;
  std::int64_t stepsOfTurn_ = 0;  ///< 0 for the program's own bound
  Hash pages_;                    ///< of the last match
  FixedTable<std::uint8_t, 2> minds_;
  std::optional<TurnPlan> (*thinkOfTurn_)(int side) = nullptr;
  bool aloud_ = false;
  bool isSmallFolder_ = false;  ///< a picture is found there in a few steps
  std::shared_ptr<MatchLog> log_ = std::make_shared<MatchLog>();
  Session list_;    ///< the list of games
  Session seated_;  ///< the files of a match have been read
};

}  // namespace brindlemoor
