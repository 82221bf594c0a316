// SavedMatch: a running match as the bytes of a file.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "core/state.h"

namespace brindlemoor {

/// What is known of a saved match before its tables are read.
struct SavedMatchHead {
  Text RulesFile;  ///< of its game
  Text Opponent;   ///< the name on the portrait
  int Turns = 0;   ///< taken so far
  /// Bytes of the last report; between the pieces stand the program's folder and a "/".
  std::vector<std::string> Page{};
  /// What the sequence of a fixed seed gives next (Platform::ClockSeed); 0 for a real clock.
  std::uint64_t Clock = 0;
};

struct SavedMatch {
  SavedMatchHead Head;
  Session Tables;  ///< only the fields of a match (saving/match_fields.h)
};

/// A match that has been read, or why there is none.
struct MatchRead {
  std::unique_ptr<SavedMatch> Match;  ///< empty when there is a problem
  std::string Problem;                ///< a sentence
};

/// The file of the match in progress: records, so its size is that of the tables, however long the
/// match has lasted. The same state gives the same bytes in each folder.
std::string BytesOfMatch(std::string_view page, std::uint64_t clock = 0);

/// The head of a file alone; the sentence is "" when it can be read.
std::string ReadMatchHead(std::string_view bytes, std::string_view shownName, SavedMatchHead& head);

/// Reads a file and checks every count and number of it; nothing of the session changes.
MatchRead ReadMatch(std::string_view bytes, std::string_view shownName);

/// The last report of a match that has been read.
std::string PageOf(const SavedMatchHead& head);

/// Puts the tables of a match into the session, at rest between two turns. What the player owns
/// comes with them or stays what it is.
void TakeMatch(SavedMatch match, bool withOwned);

}  // namespace brindlemoor
