// Target types and triggers: their words and codes.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace brindlemoor {

/// What an action aims at.
enum TargetTypes : int {
  kTargetCard = 0,
  kTargetRandom = 1,
  kTargetAll = 2,
  kTargetRandomEnemy = 3,
  kTargetRandomAlly = 4,
  kTargetOwner = 5,
  kTargetEnemyPlayer = 6,
  kTargetSelf = 7,
  kTargetTriggeringCard = 8,
  kTargetCounter = 9,
  kTargetCollection = 10,
  kTargetGidCard = 11,
};

/// How the card of a target type is found.
enum class TargetFinding : std::uint8_t {
  kNamed,     ///< one card that the word names
  kEvery,     ///< a search tells whether there is one; which card it is does not depend on that
  kSearched,  ///< a search takes a card that meets the script's requirements
  kPicked,    ///< the player picks a stored card
  kNever,
};

struct TargetTypeRow {
  std::string_view Word;
  int Code;
  TargetFinding Found;
  std::string_view Meaning;  ///< one line for authors
};
struct TriggerRow {
  std::string_view Word;
  int Code;  ///< index in HitTable, 0 for none
  std::string_view FiredBy;
  std::string_view Arguments{};  ///< names of the fields behind the word, divided by blanks
  bool Folds = false;            ///< an action's trigger is compared without regard to case
  bool Runs = true;              ///< false: an action kept under this word never runs

  /// The word without the ":" that its fields follow.
  std::string_view Stem() const {
    return Word.substr(0, Word.size() - (Word.ends_with(':') ? 1 : 0));
  }
};

/// The first row of a code is the word that is written to files.
extern const std::array<TargetTypeRow, 14> kTargetTypeRows;
/// Every trigger word; a word that ends in ":" is followed by a name.
extern const std::array<TriggerRow, 25> kTriggerRows;

/// Code of a target word; 0 for an unknown one. "GIDCARD:expression" is known by its first field.
int TargetTypeCode(std::string_view word);
/// How the card of a target code is found.
TargetFinding FindingOfTarget(int code);
/// Word of a target code, "" for an unknown one.
std::string_view TargetTypeName(int code);

/// Code of a trigger word, 0 for a word without one.
int TriggerCode(std::string_view word);
/// Number of fields that belong to a trigger word, given without its ":".
int FieldsOfTrigger(std::string_view word);
/// Word of a trigger code, "" for an unknown one.
std::string_view TriggerName(int code);

}  // namespace brindlemoor
