// Reactions under check: where requirements on the acting card call the answered action off.
#include "lint/reaction_check.h"

#include <algorithm>
#include <array>

#include "core/strings.h"
#include "language/target_types.h"
#include "lint/checked_fields.h"
#include "lint/value_check.h"
#include "script/command_table.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kBeforeChange = "BEFORETRAITCHANGE";

/// A plain whole number that is written in digits.
bool IsWhole(std::string_view value) {
  if (value.starts_with('-')) value.remove_prefix(1);
  return !value.empty() && value.size() < 10 &&
         value.find_first_not_of("0123456789") == std::string_view::npos;
}

/// The comparisons of two values leave equal ones out. Half a point is never 0 together with a
/// whole number, and 0 would read as the trait.
std::string Compared(std::string_view word, std::string_view half, int step, std::string_view trait,
                     std::string_view value) {
  if (IsWhole(value)) return Joined(word, ":SRCTRAIT/", trait, ":", NumericPrefix(value) + step);
  return Joined(word, ":", half, "/SRCTRAIT/", trait, "/TRAITPLUS1:", value);
}

std::string AtMost(std::string_view trait, std::string_view value, bool) {
  return Compared("REQISLESS", "-0.5", 1, trait, value);
}
std::string AtLeast(std::string_view trait, std::string_view value, bool) {
  return Compared("REQISMORE", "0.5", -1, trait, value);
}
std::string Equal(std::string_view trait, std::string_view value, bool) {
  return Joined("REQEQUALS:SRCTRAIT/", trait, ":", value);
}
std::string SameText(std::string_view trait, std::string_view value, bool onSelf) {
  return onSelf ? Joined("REQTRAITIS:", trait, ":", value) : std::string();
}
std::string OtherName(std::string_view name, std::string_view, bool onSelf) {
  return onSelf ? Joined("REQNONAME:", name) : std::string();
}

constexpr std::array<CancellingWord, 5> kWords = {{
    {"REQMYTRAITLESS", "HP", "3", AtMost, ""},
    {"REQMYTRAITMORE", "HP", "3", AtLeast, ""},
    {"REQMYTRAITEQUALS", "HP", "3", Equal, ""},
    {"REQMYTRAITIS", "MOOD", "merry", SameText,
     "Give the card a trait for this word and ask for it with REQMYTRAIT."},
    {"REQNOMYNAME", "Firefly", "", OtherName,
     "Give the card of this name a trait and ask with REQMYNOTRAIT."},
}};

const CancellingWord* FindCancelling(std::string_view word) {
  const auto* row = std::ranges::find(kWords, word, &CancellingWord::Word);
  return row != kWords.end() ? row : nullptr;
}

/// A target that is searched for: a card that can't react at all is left out by the search.
bool IsSearched(std::string_view target) {
  const TargetFinding found = FindingOfTarget(TargetTypeCode(target));
  return found != TargetFinding::kNamed && found != TargetFinding::kEvery;
}

/// What failing requirements of a script do.
struct Manner {
  bool Cancels = false;
  bool OnSelf = false;
};

Manner MannerOf(std::string_view trigger, std::string_view target) {
  std::string_view word = FieldAt(trigger, 1, ':');
  // The target of an answer to a change is the card that makes the change, whatever is written.
  if (FoldEquals(word, kBeforeChange)) return {true, false};
  if (word == "MENU") word = FieldAt(trigger, 2, ':');
  if (word != "MYACTION" && word != "TARGETED") return {};
  return {!IsSearched(target), TargetTypeCode(target) == kTargetSelf};
}

class ReactionChecker {
 public:
  ReactionChecker(Manner manner, std::string_view script) : fields_(script), manner_(manner) {}

  std::vector<ScriptFinding> Script() {
    std::size_t at = 0;
    while (at < fields_.Count() && !fields_[at].empty() && !fields_.Findings.Full()) {
      at = CheckWord(at);
    }
    return fields_.Findings.Take();
  }

 private:
  /// Checks the command at a field; the field of the next one.
  std::size_t CheckWord(std::size_t at) {
    std::string_view word = fields_[at];
    if (word.starts_with("AI")) word.remove_prefix(2);
    const Command* row = FindCommand(word);
    if (row == nullptr) return at + 1;
    if (row->Word == "ADDEFFECT") return BeginAddedAction(at + 1);
    if (row->Word == "RETARGET" && IsSearched(fields_[at + 1])) manner_ = {};
    if (row->Role == CommandRole::kSends) manner_.OnSelf = false;
    // What is called off already, or only tried on cards, calls nothing off.
    if (row->Word == "CANCEL" || row->Word == "REDIRECT") manner_ = {};
    if (const CancellingWord* found = FindCancelling(row->Word); found != nullptr) Note(at, *found);
    return at + 1 + row->Arguments;
  }

  void Note(std::size_t at, const CancellingWord& row) {
    if (!manner_.Cancels) return;
    const std::string_view value = fields_[at + 2];
    std::string instead = row.Word == "REQMYTRAITIS" && BeginsWithNumber(value)
                              ? Equal(fields_[at + 1], value, false)
                              : row.Instead(fields_[at + 1], value, manner_.OnSelf);
    std::string text = Joined(row.Word, " calls the answered action off when it is not met. ");
    text += instead.empty() ? std::string(row.Advice)
                            : Joined("Write \"", instead, "\", which only ends the reaction.");
    fields_.Add(FindingKind::kRequirementCancels, at, std::move(text), std::move(instead));
  }

  /// The rest of the script is the script of an action with a trigger and a target of its own.
  std::size_t BeginAddedAction(std::size_t at) {
    std::string trigger(fields_[at]);
    for (int more = FieldsOfTrigger(fields_[at]); more > 0; --more) {
      trigger += Joined(":", fields_[++at]);
    }
    const std::string_view target = fields_[++at];
    manner_ = MannerOf(trigger, target);
    return at + (TargetTypeCode(target) == kTargetGidCard ? 2 : 1);
  }

  CheckedFields fields_;
  Manner manner_;
};

}  // namespace

std::span<const CancellingWord> CancellingWords() { return kWords; }

std::vector<ScriptFinding> CheckReaction(std::string_view target, std::string_view trigger,
                                         std::string_view script) {
  return ReactionChecker(MannerOf(trigger, target), script).Script();
}

}  // namespace brindlemoor
