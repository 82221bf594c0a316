// The words and codes of target types and triggers.
#include "language/target_types.h"

#include <algorithm>

#include "core/strings.h"

namespace brindlemoor {

using F = TargetFinding;

const std::array<TargetTypeRow, 14> kTargetTypeRows = {{
    {"TARGETCARD", kTargetCard, F::kSearched, "the card chosen for the action"},
    {"CARDTARGET", kTargetCard, F::kSearched, "the same as TARGETCARD"},
    {"RANDOM", kTargetRandom, F::kSearched, "a random card"},
    {"ALL", kTargetAll, F::kEvery, "every card of the table in turn"},
    {"RANDOMENEMY", kTargetRandomEnemy, F::kSearched, "a random card of the other owner"},
    {"RANDOMALLY", kTargetRandomAlly, F::kSearched, "a random card of the same owner"},
    {"OWNER", kTargetOwner, F::kNamed, "the player card of the acting card's owner"},
    {"ENEMYPLAYER", kTargetEnemyPlayer, F::kNamed, "the player card of the other side"},
    {"SELF", kTargetSelf, F::kNamed, "the acting card itself"},
    {"TRIGGERINGCARD", kTargetTriggeringCard, F::kEvery,
     "the card that set off the trigger, else the one that entered last, if it is still there"},
    {"NEWESTCARD", kTargetTriggeringCard, F::kEvery, "the same as TRIGGERINGCARD"},
    {"COUNTER", kTargetCounter, F::kNever,
     "reserved: an action with it does nothing at its trigger"},
    {"COLLECTION", kTargetCollection, F::kPicked, "a card of a stored pile, picked by the player"},
    {"GIDCARD", kTargetGidCard, F::kNamed,
     "GIDCARD:expression, the card with the Global ID it gives"},
}};

const std::array<TriggerRow, 25> kTriggerRows = {{
    {"TURNSTART", 16, "the start of each turn"},
    {"PHASE1", 1, "phase 1 of each turn"},
    {"PHASE2", 2, "phase 2 of each turn"},
    {"PHASE3", 3, "phase 3 of each turn"},
    {"PHASE4", 4, "phase 4 of each turn"},
    {"PHASE5", 5, "phase 5 of each turn"},
    {"PHASE6", 6, "phase 6 of each turn"},
    {"PHASE7", 7, "phase 7 of each turn"},
    {"PHASE8", 8, "phase 8 of each turn"},
    {"PHASE9", 9, "phase 9 of each turn"},
    {"PHASE10", 10, "phase 10 of each turn"},
    {"TURNEND", 11, "the end of each turn"},
    {"ONDEATH", 13, "the card's own death"},
    {"ENTERPLAY", 14, "the card's own entering of play"},
    {"OTHERENTERSPLAY", 15, "another card's entering of play"},
    {"ENTERSPLAY", 0, "nothing; write ENTERPLAY", "", false, false},
    {"GAMESTART", 0, "the start of a match, on the rules card"},
    {"COST", 0, "the playing of the card: what it costs"},
    {"COSTMOD", 0, "the playing of any card: changes to its cost"},
    {"AIREQ", 0, "the computer player's valuing of the card"},
    {"MYACTION", 0, "an action of the card, before it runs"},
    {"TARGETED", 0, "an action against the card, before it runs"},
    {"BEFORETRAITCHANGE:", 0, "a change of the trait named behind it, before it is made", "TRAIT",
     true},
    {"TRAITCHANGE:", 0, "a change of the trait named behind it, after the run that made it",
     "TRAIT"},
    {"MENU:", 0, "MENU:trigger:caption, the player's choice in the card's menu, at that trigger",
     "TRIGGER CAPTION"},
}};

int TargetTypeCode(std::string_view word) {
  if (FieldAt(word, 1, ':') == "GIDCARD") return kTargetGidCard;
  for (const TargetTypeRow& row : kTargetTypeRows) {
    if (row.Word == word) return row.Code;
  }
  return kTargetCard;
}

TargetFinding FindingOfTarget(int code) {
  for (const TargetTypeRow& row : kTargetTypeRows) {
    if (row.Code == code) return row.Found;
  }
  return F::kNever;
}

std::string_view TargetTypeName(int code) {
  for (const TargetTypeRow& row : kTargetTypeRows) {
    if (row.Code == code) return row.Word;
  }
  return "";
}

int TriggerCode(std::string_view word) {
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Word == word) return row.Code;
  }
  return 0;
}

int FieldsOfTrigger(std::string_view word) {
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Arguments.empty() || row.Stem() != word) continue;
    return 1 + static_cast<int>(std::ranges::count(row.Arguments, ' '));
  }
  return 0;
}

std::string_view TriggerName(int code) {
  if (code == 0) return "";
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Code == code) return row.Word;
  }
  return "";
}

}  // namespace brindlemoor
