// A whole match without a display, played by the automatic player against the computer opponent.
#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <optional>
#include <string>
#include <string_view>

#include "core/turn_plan.h"

namespace brindlemoor {

/// How a match is set up.
struct AutomaticMatchOptions {
  std::string Folder;       ///< program's folder; nothing in it is changed
  std::string PagesFolder;  ///< gets the report pages "turn-001.html" and so on; "" keeps none
  std::uint64_t Seed = 1;
  int MaximumTurns = 200;
  int Opponent = 1;    ///< which opponent of the game, starter decks and stores left out
  std::string Game{};  ///< its name, in any case; "" for the first of the folder
  /// A file of a saved match to go on with, in place of seed, game and opponent; "" begins one.
  std::string Continue{};
  /// The bytes of that file where they are known already: Continue is only its name then.
  std::optional<std::string> SavedBytes{};
  bool DespiteChanges = false;  ///< goes on though card files have changed
  bool Trace = false;           ///< prints which actions did nothing, and why
  std::string SaveTo{};         ///< gets the match as it stands after the last turn; "" saves none
  int Mind = 0;                 ///< level of the opponent (core/mind_levels.h)
  int PlayerMind = 0;           ///< of the player
  /// How those think that do (Session::ThinkOfTurn).
  std::optional<TurnPlan> (*ThinkOfTurn)(int side) = nullptr;
  /// Gets every report page under its file name, whether pages are kept or not.
  std::function<void(const std::string& name, const std::string& page)> OnPage{};
  /// Called before each turn, with everything planned.
  std::function<void()> BeforeTurn{};
};

enum class MatchWinner { kNobody, kPlayer, kEnemy };

/// Such as "the enemy wins".
std::string_view VerdictOf(MatchWinner winner);

struct AutomaticMatchResult {
  std::string Error;  ///< why no match was played, "" when one was
  MatchWinner Winner = MatchWinner::kNobody;
  int Turns = 0;  ///< of the match, those before it was saved among them
};

/// Gets cards from the game's first starter deck and plays a match to its end or to the
/// maximum of turns; what the program writes meanwhile stays in memory. Prints a line for each turn
/// and the result. The same seed and files give the same lines and pages, in one go or with the
/// match saved in between. Begins with a fresh
/// session and leaves it as the match ended.
AutomaticMatchResult AutomaticMatch(const AutomaticMatchOptions& options, std::ostream& out);

/// The absolute path of a folder or file, without a separator behind it.
std::string AbsoluteFolder(const std::string& folder);

}  // namespace brindlemoor
