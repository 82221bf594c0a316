// What does nothing where it stands: a table of commands and where they act.
#include "lint/place_check.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/strings.h"
#include "language/target_types.h"
#include "lint/checked_fields.h"
#include "lint/script_arguments.h"
#include "lint/value_check.h"
#include "script/command_table.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kMenu = "MENU";

/// The trigger of an action, that of a menu action without its menu.
std::string_view FiringWord(std::string_view trigger) {
  const std::string_view word = FieldAt(trigger, 1, ':');
  return word == kMenu ? FieldAt(trigger, 2, ':') : word;
}

/// Where a script runs.
struct Place {
  bool Answers = false;        ///< an action: MYACTION or TARGETED
  bool AnswersChange = false;  ///< BEFORETRAITCHANGE
  bool OnAll = false;          ///< once for each card of the table
  bool OnStored = false;       ///< on a card of a pile
};

Place PlaceOf(std::string_view target, std::string_view trigger) {
  const std::string_view word = FiringWord(trigger);
  const int code = TargetTypeCode(target);
  return {.Answers = word == "MYACTION" || word == "TARGETED",
          .AnswersChange = FoldEquals(word, "BEFORETRAITCHANGE"),
          .OnAll = code == kTargetAll,
          .OnStored = code == kTargetCollection};
}

bool ReadsIncoming(std::string_view script) {
  return script.find("REQVAL") != script.npos || script.find("LASTVAL") != script.npos ||
         script.find('$') != script.npos;
}

struct PlacedScript {
  std::string_view Text;
  const std::vector<ScriptField>& Fields;
};

/// A command that does nothing in some places.
struct PlaceRow {
  std::string_view Word;
  bool (*IsLost)(const Place& place, const PlacedScript& script);
  std::string_view Why;
};

bool OutsideReactions(const Place& place, const PlacedScript&) {
  return !place.Answers && !place.AnswersChange;
}
bool OutsideAnswers(const Place& place, const PlacedScript&) { return !place.Answers; }
/// The value can serve as a place for numbers in any script.
bool OutsideChanges(const Place& place, const PlacedScript& script) {
  return !place.AnswersChange && !ReadsIncoming(script.Text);
}
/// A card that dies when any card of the table meets the requirements is well meant.
bool UnderAll(const Place& place, const PlacedScript& script) {
  return place.OnAll && std::ranges::any_of(script.Fields, [](const ScriptField& field) {
           return field.Row != nullptr && field.Name.empty() && field.Row->Word != "DESTROYME" &&
                  field.Row->Role == CommandRole::kActs;
         });
}
bool OnStoredCards(const Place& place, const PlacedScript&) { return place.OnStored; }

constexpr std::array<PlaceRow, 7> kPlaceRows = {{
    {"CANCEL", OutsideReactions,
     "calls nothing off here: only an action at TARGETED, MYACTION or BEFORETRAITCHANGE answers "
     "something."},
    {"REDIRECT", OutsideAnswers,
     "turns nothing away here and ends the script: only an action at TARGETED or MYACTION answers "
     "another one."},
    {"REDIRECTBYGID", OutsideAnswers,
     "turns nothing away here: only an action at TARGETED or MYACTION answers another one."},
    {"SETVAL", OutsideChanges,
     "changes nothing here: only at BEFORETRAITCHANGE is there an incoming change."},
    {"MODVAL", OutsideChanges,
     "changes nothing here: only at BEFORETRAITCHANGE is there an incoming change."},
    {"DESTROYME", UnderAll,
     "ends the card with the first card that the script acts on; under ALL nothing happens to the "
     "others."},
    {"ADDEFFECT", OnStoredCards,
     "gives the action to nobody: it looks for its card on the table, and this one lies in a "
     "pile."},
}};

bool IsZero(std::string_view value) {
  return BeginsWithNumber(value) && value.find_first_not_of("+-.0 \t") == value.npos;
}

/// "R2Die6", as values roll it, without what has a text worked out before it is stored.
bool IsDice(std::string_view text) {
  return text.size() > 1 && text.front() == 'R' && text[1] >= '0' && text[1] <= '9' &&
         text.find("Die") != text.npos && !IsComputed(text, ArgumentKind::kContent);
}

class PlaceChecker {
 public:
  PlaceChecker(Place place, std::string_view script)
      : findings_(script),
        fields_(FieldsOfScript(script)),
        script_{script, fields_},
        place_(place) {}

  std::vector<ScriptFinding> Script() {
    for (std::size_t at = 0; at < fields_.size() && !findings_.Full(); ++at) {
      findings_.SetField(static_cast<int>(at) + 1);
      const ScriptField& field = fields_[at];
      if (field.Row == nullptr) continue;
      if (field.Name.empty()) {
        CheckCommand(field);
        if (field.Row->Word == "ADDEFFECT") at = BeginAddedAction(at);
      } else {
        CheckArgument(field);
      }
    }
    return findings_.Take();
  }

 private:
  void CheckCommand(const ScriptField& field) {
    const auto* row = std::ranges::find(kPlaceRows, field.Row->Word, &PlaceRow::Word);
    if (row != kPlaceRows.end() && row->IsLost(place_, script_)) {
      findings_.Add(FindingKind::kCommandIsLost, field.Text, Joined(row->Word, " ", row->Why));
    }
    if (field.Row->Word == "RETARGETCOLLECTION") place_.OnStored = true;
  }

  void CheckArgument(const ScriptField& field) {
    if (field.Name == "COUNT" && IsZero(field.Text)) {
      findings_.Add(FindingKind::kCountIsZero, field.Text,
                    Joined(field.Row->Word, " with a count of 0 does nothing."));
    }
    // A bonus is worked out wherever it is read.
    const bool isBonus = trait_.starts_with("BONUS");
    if (field.Name == "TRAIT") trait_ = field.Text;
    if (field.Row->Word == "SETTRAIT" && field.Name != "TRAIT" && IsDice(field.Text) && !isBonus) {
      findings_.Add(FindingKind::kDiceAreStored, field.Text,
                    Joined("SETTRAIT stores the text ", Quoted(field.Text),
                           " and rolls nothing. SETMYTRAIT rolls, and so does a value with an "
                           "operator behind the dice, as PLUS0."),
                    Joined(field.Text, "/PLUS0"));
    }
  }

  /// The rest of the script is the script of an action with a trigger and a target of its own. The
  /// last field of those.
  std::size_t BeginAddedAction(std::size_t at) {
    std::string trigger;
    std::string_view target;
    std::size_t last = at;
    while (last + 1 < fields_.size() && fields_[last + 1].Row == fields_[at].Row &&
           !fields_[last + 1].Name.empty()) {
      const ScriptField& field = fields_[++last];
      if (field.Name == "TARGET") {
        target = field.Text;
      } else if (target.empty()) {
        trigger += Joined(trigger.empty() ? "" : ":", field.Text);
      }
    }
    place_ = PlaceOf(target, trigger);
    const std::string_view why = WhyNeverRun(target, trigger, ActionSide::kAny);
    if (!why.empty()) findings_.Add(FindingKind::kActionIsLost, target, std::string(why));
    return last;
  }

  FindingList findings_;
  std::vector<ScriptField> fields_;
  PlacedScript script_;
  Place place_;
  std::string_view trait_;  ///< named last
};

}  // namespace

std::string_view WhyNeverRun(std::string_view target, std::string_view trigger, ActionSide side) {
  const bool isMenu = FieldAt(trigger, 1, ':') == kMenu;
  if (trigger == "AIREQ" && TargetTypeCode(target) == kTargetSelf) {
    return "The computer does not try actions with the target SELF; this advice is never asked. "
           "Write OWNER and ask with words of the acting card.";
  }
  const bool byComputer = side == ActionSide::kComputer && isMenu;
  switch (FindingOfTarget(TargetTypeCode(target))) {
    case TargetFinding::kNever:
      return "COUNTER is reserved; an action with this target never runs.";
    case TargetFinding::kPicked:
      if (byComputer) return "The computer has no stored cards; this action never runs.";
      return isMenu ? ""
                    : "Only a menu action lets the player pick a stored card; this one never runs.";
    case TargetFinding::kNamed:
      return byComputer ? "The computer only uses menu actions whose target it searches for (ALL, "
                          "RANDOM, RANDOMENEMY, RANDOMALLY, TARGETCARD, TRIGGERINGCARD); this one "
                          "never runs."
                        : "";
    default:
      return "";
  }
}

std::vector<ScriptFinding> CheckPlace(std::string_view target, std::string_view trigger,
                                      std::string_view script) {
  return PlaceChecker(PlaceOf(target, trigger), script).Script();
}

}  // namespace brindlemoor
