// The notes of the reference, word by word.
#include "reference/notes.h"

#include <algorithm>
#include <array>

#include "lint/reaction_check.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

// clang-format off
constexpr auto kNotes = std::to_array<ReferenceNote>({
    // Triggers.
    {"trigger-PHASE10", "Only cards get PHASE10. An action of the rules card with it never runs: write `PHASE9` or `TURNEND` there."},
    {"trigger-TRAITCHANGE", "It runs after a script, for the traits of the script's target. A change of another card, as by `MODMYTRAIT` or `MODOWNERTRAIT`, waits until that card is the target of a script."},
    {"trigger-TRAITCHANGE", "When an action with TRAITCHANGE changes another trait of the same card, the TRAITCHANGE of that trait runs in the same go, for at most 100 names. A change of the very trait that it answers waits for the next script on the card."},
    {"trigger-TRAITCHANGE", "Trait names are found in any case of letters, but here the case counts: `TRAITCHANGE:HP` hears `MODTRAIT:HP:1` and does not hear `MODTRAIT:hp:1`."},
    {"trigger-BEFORETRAITCHANGE", "The target of such an action is the card that makes the change, whatever target is written. Words of the acting card speak of the card whose trait changes."},
    {"trigger-BEFORETRAITCHANGE", "It also answers the payment of a price, as `SUBTRAIT:MANA:2` of a COST action. What `MODVAL` adds there is paid even when less is left: the trait goes below 0."},
    {"trigger-MYACTION trigger-TARGETED trigger-BEFORETRAITCHANGE", "This is a reaction. A requirement that is not met ends the reaction, and the action that it answers goes on. Five requirements on the acting card call that action off instead: `REQMYTRAITLESS`, `REQMYTRAITMORE`, `REQMYTRAITEQUALS`, `REQMYTRAITIS` and `REQNOMYNAME`. What to write there stands with each of them."},
    {"trigger-MYACTION trigger-TARGETED", "A target that is searched for, such as RANDOMENEMY, is none while such a requirement is not met: then the reaction does not run, and the action goes on."},
    {"trigger-AIREQ", "In its turn the computer tries the actions of the cards in its hand on copies. An action that does all it says adds 2. One that does not takes 1. An AIREQ that is met adds 6. One that is not met takes 3, or 1 when it finds no target. The sum is divided by the number of actions that count (those that found a target, COSTMOD and OTHERENTERSPLAY) and multiplied by 10. The trait `PRIORITY` is added. A card below 1 is not played."},
    {"trigger-AIREQ", "So an AIREQ that is not met mostly keeps the card in the hand. With one other action, which works, the card is worth 40 when it is met and -5 when it is not."},
    {"trigger-AIREQ", "Actions with the target SELF are not tried, so an AIREQ needs another target, such as OWNER. COST, TARGETED, TRAITCHANGE, BEFORETRAITCHANGE and ONDEATH count nothing. COSTMOD and OTHERENTERSPLAY add 1 without being tried."},
    {"trigger-COST", "A price is tried out first, and then paid as it was tried."},
    {"trigger-COST", "A COST action with a target that is searched for, such as TARGETCARD, asks nothing where no card fits: then the card is free. Let the player card pay (OWNER) where the price must be met."},

    // Requirements and chances.
    {"ONECHANCE", "The roll belongs to one firing of the action. What runs in between, such as a reaction or a TRAITCHANGE, rolls for itself."},

    // Traits.
    {"MODMYTRAIT SUBMYTRAIT SETMYTRAIT", "A `TRAITCHANGE` action for it waits until the acting card is the target of a script. With the target SELF it runs at once."},
    {"MODOWNERTRAIT MODMYOWNERTRAIT SETOWNERTRAIT SETMYOWNERTRAIT", "A `TRAITCHANGE` action for it waits until the player card is the target of a script."},
    {"REMOVETRAIT REMOVEMYTRAIT", "The case of letters counts: `REMOVETRAIT:hum` does not take `HUM` away."},

    // Where words work.
    {"CANCEL", "It works in an action at TARGETED, MYACTION or BEFORETRAITCHANGE, where there is something to call off, and does nothing elsewhere."},
    {"REDIRECT REDIRECTBYGID", "It works in an action at TARGETED or MYACTION only."},
    {"SETVAL MODVAL", "It works in an action at BEFORETRAITCHANGE. Elsewhere the value is a place for a number that `REQVAL...` and `$AMT` of the same script can read."},
    {"DESTROYME", "With the target ALL the card is gone after the first card that the script acts on, and nothing happens to the others."},

    // Cards.
    {"DUPLICATE DUPLICATEME", "Each copy has a GlobalID of its own."},
    {"CREATECARD", "Each new card has a GlobalID of its own and the actions that its traits bring. Nothing but the card is taken from the file: its `#COLLECTION`, `#RULESCARD`, `#TOKENS` and custom strings change nothing."},
    {"PERMANENT", "The script runs on the stored card, and what follows runs on the card in play as usual. A message is shown once; tokens are given or taken by both runs."},
    {"PERMANENT", "Both cards get the trait `NOMRP`, which keeps the card's definition in its source file from taking the change back when the player is saved."},
    {"target-COLLECTION SAVECARD ADDMOD", "A card with a unique ID and a source file takes its definition again when the player is saved and when a match begins. A change of the stored card lasts when its script gives it the trait `NOMRP`, as by `SETTRAIT:NOMRP:1`. What `ADDMOD` adds lasts without it."},
    {"CHANGENAME CHANGEMYNAME", "The name is kept as plain text, without markup."},
    {"MINDCONTROL MINDCONTROLME DEFECT DEFECTME JOIN MEJOIN", "From then on the card is judged by its new side: `REQALLY`, `REQENEMY` and targets such as RANDOMENEMY follow at once."},
    {"ADDEFFECT", "An action for the phase that is running waits for the next turn."},
    {"ADDEFFECT", "Where the target is a stored card (target COLLECTION, or behind `PERMANENT`), the stored card gets the action."},

    // Reactions.
    {"REDIRECT", "Write TRIGGERINGCARD as the target. `REQENEMY` before the word lets the actions of your own side through. Behind it, REQALLY means the side of the card that reacts, and REQNOTME keeps the attacker out."},
    {"REDIRECT", "The new target must also pass the script of the answered action, its side apart: an attack with `REQTRAIT:SINGER:SUBTRAIT:HP:2` goes to a singer with hit points. Without such a card the action goes on as it was. The card that reacts can be found as well, and then nothing changes: ask for something that it has not."},

    {"REDIRECTBYGID", "The script of the action runs on that card with all its requirements. One that the card does not meet ends it, and then the action hits nobody."},

    // The report.
    {"ECHOONCE", "Once means once in a firing of the action. What runs in between, such as a reaction or a TRAITCHANGE, has its own."},

    // Values.
    {"value-$MYNAME value-$TARGETNAME", "SETTRAIT and SETMYTRAIT store the word itself: they keep a text as it is written unless its value is a number above 0."},
    {"value-TRAITMINUS# value-TRAITMULT# value-TRAITPERC# value-DIV# value-MULT# value-PLUS# value-MINUS# value-INTEGER", "A value that comes to exactly 0 is replaced by the trait named last."},
    {"value-TRAITMINUS#", "With 10 hit points the example gives 10, not 0. Three ways around it: a requirement before it (`REQTRAITLESS:HP:9`), two steps (`MODTRAIT:COLD:10:SUBTRAIT:COLD:TARGTRAIT/HP`), or a trait that the card has not at the end (`10/TARGTRAIT/HP/TRAITMINUS1/TARGTRAIT/NOTHING`), which counts 0."},
    {"value-DIV#", "So half of 1 is 1: `SRCTRAIT/HP/TRAITPLUS1/DIV2` with HP 1. With a trait at the end that the card has not, it is 0: `SRCTRAIT/HP/TRAITPLUS1/DIV2/SRCTRAIT/NOTHING`."},
});
// clang-format on

}  // namespace

std::span<const ReferenceNote> ReferenceNotes() { return kNotes; }

std::string_view TargetNote(const TargetTypeRow& row) {
  switch (row.Found) {
    case TargetFinding::kNamed:
      return "It is this one card, whether the script's requirements let it through or not: one "
             "that "
             "is not met ends the script. The computer uses no menu action with this target.";
    case TargetFinding::kEvery:
      return "The script runs or ends as its requirements say; a search does not choose by them.";
    case TargetFinding::kSearched:
      return "Only a card is taken for which the script works in a trial, one without an unmet "
             "wish "
             "first. Where there is none the action does nothing.";
    case TargetFinding::kPicked:
      return "Only a menu action can have this target, and only the player's: the computer has no "
             "stored cards. The script acts on the stored card, so a word that needs a card in "
             "play "
             "does nothing.";
    case TargetFinding::kNever:
      return "Do not use it.";
  }
  return "";
}

std::string_view TrialNote(const Command& row) {
  switch (row.Test) {
    case InTest::kRuns:
      return "";
    case InTest::kSkip:
      return "In a trial it does nothing.";
    case InTest::kSkipOne:
      return "In a trial it does nothing, whatever its arguments are.";
    case InTest::kEnds:
      return "A trial ends here and counts what came before.";
  }
  return "";
}

std::string ReactionNote(std::string_view word) {
  const auto words = CancellingWords();
  const auto row = std::ranges::find(words, word, &CancellingWord::Word);
  if (row == words.end()) return "";
  const std::string example = row->Value.empty()
                                  ? Joined(row->Word, ":", row->Trait)
                                  : Joined(row->Word, ":", row->Trait, ":", row->Value);
  const std::string quiet = Joined("`", row->Instead(row->Trait, row->Value, true),
                                   "` instead of `", example, "` only ends the reaction.");
  const std::string rule =
      "In a reaction (MYACTION, TARGETED, BEFORETRAITCHANGE) it calls the answered action off when "
      "it is not met. ";
  if (row->Advice.empty()) return rule + quiet;
  return Joined(rule, "With the target SELF, ", quiet,
                " With another target, and with BEFORETRAITCHANGE, no single word does. ",
                row->Advice);
}

}  // namespace brindlemoor
