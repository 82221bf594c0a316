// What the engine does with the commands of the pickers where their rows say something else.
#include "editor/picker_rows.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kOrMore =
    "The amount itself is enough: the trait must be that much or more.  A missing trait counts 0.";
constexpr std::string_view kOrLess =
    "The amount itself is enough: the trait must be that much or less.  A missing trait counts 0 "
    "and so passes.";
constexpr std::string_view kOwnersOrMore =
    "It is the trait of the owner's player card that counts, and the amount itself is enough: that "
    "much or more.";
constexpr std::string_view kOwnersOrLess =
    "It is the trait of the owner's player card that counts, and the amount itself is enough: that "
    "much or less.";
constexpr std::string_view kAnyCase = "Large and small letters count as the same.";
constexpr std::string_view kAnyField =
    "What is looked for is a field of the incoming action's script, exactly so written: a trait's "
    "name, or a command such as MODTRAIT.";
constexpr std::string_view kCopies =
    "The copies join the acting card's side, whoever owns the target.  They enter play behind the "
    "script.";
constexpr std::string_view kSetWrongWay =
    "The sentence beside the list names the trait and its value the wrong way round; the script is "
    "right.";
constexpr std::string_view kPlayersOnly =
    "Works for cards of the human player only: all actions of the acting card take the target that "
    "was chosen for this one.";

constexpr PickerNote kEffectNotes[] = {
    {7, kOrMore},
    {8, kOrLess},
    {10, kAnyCase},
    {12, kOwnersOrMore},
    {13, kOwnersOrLess},
    {14, "It is the trait of the owner's player card that counts."},
    {15,
     "The engine knows no REISME: it reports the word and goes on as if nothing stood there.  Give "
     "the action the target type SELF instead."},
    {19, kOrMore},
    {20, kOrLess},
    {22, kAnyCase},
    {24, kOwnersOrMore},
    {25, kOwnersOrLess},
    {26, "It is the trait of the owner's player card that counts, not mine."},
    {27, kAnyField},
    {28, kAnyField},
    {29, "The amount itself is enough: that much or less."},
    {31, "The amount itself is enough: that much or more."},
    {34, "The first value must be the greater: equal values fail."},
    {35, "The first value must be the smaller: equal values fail."},
    {39,
     "Nothing behind it runs now: the rest of the script is the new action.  Triggers and targets "
     "are chosen from lists."},
    {44, kSetWrongWay},
    {47,
     "It is the acting card's trait that is set, not the target's, and the sentence beside the "
     "list names the trait and its value the wrong way round; the script is right."},
    {48,
     "The engine reads CREATECARD:count:name:file and puts the cards on the acting card's side.  "
     "Write the count before the name and the card file behind it, as in "
     "CREATECARD:1:Imp:imps.txt; "
     "as it is written here it creates nothing and takes the next two fields of the script for its "
     "own."},
    {49, "The whole script runs that many times more, each time on a new target of this type."},
    {50, kCopies},
    {51, "The copies join the acting card's side, whoever owns the target, and that side pays."},
    {56, kPlayersOnly},
    {57, kPlayersOnly},
    {58, "The target changes sides: an enemy joins you."},
    {64,
     "The change grows by this in its own direction: a loss of 3 with 1 is a loss of 4.  A value "
     "below 0 makes it smaller, down to nothing."},
    {66, "That trait takes a loss as far as it lasts."},
    {68, "Only the rest of the script goes to that card."},
    {69,
     "The rest of the script runs on the player's own copy of the target.  Nothing happens for a "
     "card that the player does not own."},
    {70,
     "The engine asks for no Global ID here: leave the value empty.  The rest of the script says "
     "what the new card must be; one of those that fit is taken by chance."},
    {77, "Colours the background of the message's text."},
};

constexpr PickerNote kCounterNotes[] = {
    {2,
     "REQTRAIT looks for a trait of the target, never for a command.  In a TARGETED action "
     "REQTRAITTARGET finds a command of the incoming action."},
    {3, "It is the target of this action that is looked at."},
    {4,
     "The engine knows no REQEFFECTTRAIT: it reports the word and goes on.  REQTRAIT looks at the "
     "target, REQTRAITTARGET at the incoming action."},
    {5,
     "The engine knows no REQNOEFFECTTRAIT: it reports the word and goes on.  REQNOTRAIT looks at "
     "the target, REQNOTRAITTARGET at the incoming action."},
    {6,
     "The engine knows no REQEFFECTTRAITMORE: it reports the word and goes on.  REQTRAITMORE looks "
     "at the target."},
    {7,
     "The engine knows no REQEFFECTTRAITLESS: it reports the word and goes on.  REQTRAITLESS looks "
     "at the target."},
    {8, "It is the trait of the target that counts, never one of the action."},
    {9,
     "The engine knows no ALTVAL1: it reports the word and goes on.  MODVAL in a BEFORETRAITCHANGE "
     "action changes an incoming value."},
    {10,
     "The engine knows no ALTVAL2: it reports the word and goes on.  MODVAL in a BEFORETRAITCHANGE "
     "action changes an incoming value."},
    {11,
     "The engine knows no SETVAL1: it reports the word and goes on.  SETVAL in a BEFORETRAITCHANGE "
     "action replaces an incoming value."},
    {12,
     "The engine knows no SETVAL2: it reports the word and goes on.  SETVAL in a BEFORETRAITCHANGE "
     "action replaces an incoming value."},
    {13,
     "The engine knows no EFFECTSOURCE: it reports the word, and the picked commands run on the "
     "present target.  RETARGET and RETARGETBYGID send the rest of a script to another card."},
};

}  // namespace

std::span<const PickerNote> EffectPickerNotes() { return kEffectNotes; }

std::span<const PickerNote> CounterPickerNotes() { return kCounterNotes; }

}  // namespace brindlemoor
