// The table of the program's own traits.
#include "language/program_traits.h"

#include <algorithm>
#include <array>

#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr TraitPlace kCard = TraitPlace::kCard;
constexpr TraitPlace kScript = TraitPlace::kScript;

constexpr std::array<ProgramTrait, 18> kRows = {{
    {"PLAYER", kCard, false, "#TRAIT, PLAYER:1",
     "the card is its side's player. It begins on the table, OWNER and ENEMYPLAYER aim at it, and "
     "its hit points and resources stand above the table. A deck needs one"},
    {"STARTSINPLAY", kCard, false, "#TRAIT, STARTSINPLAY:1",
     "the card lies on the table from the beginning of a match and is never drawn"},
    {"HP", kCard, false, "#TRAIT, HP:3",
     "hit points, shown below the card while they are above 0. Nothing dies of having none: an "
     "action at TRAITCHANGE:HP has to see to that"},
    {"HPMAX", kCard, false, "#TRAIT, HPMAX:5",
     "what stands behind the hit points, as in 3/5; without it they stand against themselves. "
     "Their colour follows the share that is left"},
    {"MANA", kCard, false, "#TRAIT, MANA:2",
     "a resource: of a player's card it stands above the table. What it is called and how its "
     "badge looks the rules say by TRAITGRAPHIC"},
    {"HEARTS", kCard, false, "#TRAIT, HEARTS:1", "the same for a second resource"},
    {"MONSTERS", kCard, false, "#TRAIT, MONSTERS:1", "the same for a third one"},
    {"INVISIBLE", kCard, false, "#TRAIT, INVISIBLE:1",
     "the table of the report leaves the card out. It acts, and is aimed at by chance, as before"},
    {"UNLIMITED", kCard, false, "#TRAIT, UNLIMITED:1",
     "the deck rules TRAITLIMIT and SAMENAMELIMIT let the card pass; for other cards it counts"},
    {"PRIORITY", kCard, false, "#TRAIT, PRIORITY:30",
     "is added to what a card of the hand is worth to the computer, which plays those worth 1 or "
     "more, the highest first. An action that would do all it says counts 20 and one that would "
     "not -10, AIREQ three times that; the worth is their mean, less what an action "
     "without a target takes off: 10, shared by the others. So PRIORITY:-100 keeps a card back "
     "whatever it can do, and 1 is enough for one that has nothing to try"},
    {"AILOVE", kCard, true, "REQTRAITMORE:AILOVE:20",
     "what a card of the hand is worth to the computer, PRIORITY included. The program writes it "
     "before it plays"},
    {"NOCOUNTERS", kCard, false, "#TRAIT, NOCOUNTERS:1",
     "nothing answers the card's actions: neither TARGETED nor MYACTION. In a script, as "
     "TRAIT:NOCOUNTERS:1, it holds for that action"},
    {"NOREDIRECT", kCard, false, "#TRAIT, NOREDIRECT:1",
     "REDIRECT does not turn away the actions of the card, and the card's own REDIRECTBYGID turns "
     "nothing away"},
    {"NOMRP", kCard, true, "#TRAIT, NOMRP:1",
     "the card is not brought up to date from its file. PERMANENT gives it to a card that it has "
     "changed"},
    {"STORE", kCard, false, "#TRAIT, STORE:1",
     "a neutral card with menu actions: its page is shown when the player comes in"},
    {"TRAITEFFECT", kScript, true, "TRAIT:TRAITEFFECT:GLOW:MODTRAIT:HP:1",
     "the action belongs to the trait that is named, and goes with it. Actions of a #TRAITACTION "
     "get it by themselves"},
    {"BONUSACTION", kScript, false, "TRAIT:BONUSACTION:1:MODTRAIT:HP:1",
     "the action is gone behind the next TURNEND"},
    {"BONUS", TraitPlace::kPrefix, false, "SETTRAIT:BONUSHP:2",
     "a trait that begins so adds its value, which may be any expression, to the trait that it "
     "names: BONUSHP:2 to HP. It is gone behind the next TURNEND, but stays on a card that is "
     "not on the table then"},
}};

}  // namespace

std::span<const ProgramTrait> ProgramTraits() { return kRows; }

const ProgramTrait* FindProgramTrait(std::string_view name) {
  const auto isNamed = [name](const ProgramTrait& row) {
    return row.Place == TraitPlace::kPrefix ? FoldStartsWith(name, row.Name)
                                            : FoldEquals(name, row.Name);
  };
  const auto row = std::ranges::find_if(kRows, isNamed);
  return row == kRows.end() ? nullptr : &*row;
}

}  // namespace brindlemoor
