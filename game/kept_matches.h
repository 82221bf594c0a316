// KeptMatches: a running match is left and goes on another day. Each player can keep one match of
// each game, in a file beside the player file: "Ann_Goblins.match" beside "Ann_Goblins.plr".
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "saving/saved_match.h"

namespace brindlemoor {

/// A match that can go on.
struct KeptMatch {
  std::string Opponent;                   ///< the name on the portrait
  int Turns = 0;                          ///< taken so far
  std::vector<std::string> ChangedFiles;  ///< such as "goblins/Cards.txt has changed"
  std::string Problem;                    ///< why it can't go on, a sentence; "" when it can
};

/// What the current player has kept of a game. A file that can't be read is told of as a problem.
std::optional<KeptMatch> KeptMatchOf(int gameIndex);
/// The same by the beginning of the file alone: whether the match can go on is not known, and which
/// files have changed.
std::optional<KeptMatch> NameOfKeptMatch(int gameIndex);

/// True while there is a match that can be kept: it has begun, has not ended, and no turn runs.
bool CanKeepMatch();

/// Keeps the match in progress; nothing of it changes. "" or why it was not kept, a sentence: the
/// file kept before is as it was then.
std::string KeepMatch();

/// Goes on with the match that is kept of a game: table, hands, piles, plan, report and luck are
/// what they were. What the player owns is that of the player file where that has changed since.
/// The file stays until RemoveKeptMatch. "" or why not, a sentence: nothing has changed then.
std::string ContinueMatch(int gameIndex);

/// "" or why the file could not be removed, a sentence.
std::string RemoveKeptMatch(int gameIndex);
/// The same; says so in a message box.
void RemoveKeptMatchOrTell(int gameIndex);

/// Goes on with what was composed before a turn (ComposeMatchFile), as if it had not been taken;
/// what the player got by it is taken away. The match pays no tokens then. "" or why not, a
/// sentence.
std::string TakeBackTo(const std::string& bytes);

// For those who keep matches elsewhere.

/// A file of the match in progress; one that could not be read again is not made.
struct MatchFileBytes {
  std::string Bytes;
  std::string Problem;  ///< a sentence
};
MatchFileBytes ComposeMatchFile(std::uint64_t clock = 0);

/// Index of the game of a saved match, 0 when it is not in the list of games.
int GameOfMatch(const SavedMatchHead& head);

/// What a player owns in a match that goes on.
enum class Owned {
  kAsSaved,
  kOfPlayerFile,  ///< which has changed since: nothing that was bought is lost, nothing comes twice
};

/// Puts a match on the table and shows its report. Its game must be in the list.
void ShowSavedMatch(SavedMatch match, Owned owned);

}  // namespace brindlemoor
