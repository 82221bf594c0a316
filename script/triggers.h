// Triggers and targets: when an action runs, on whom, and how cards enter and leave play.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/records.h"

namespace brindlemoor {

struct RunOptions;

/// Runs a card's actions of one trigger, resolving their targets. value is the slot of the
/// triggering card, below 1 for none; onlyEffect above 0 restricts the firing to that action;
/// reaction says what its runs answer to, when they do. Returns how many actions failed (result
/// -1).
int FireTrigger(Card& card, std::string_view trigger, int value = -1, int onlyEffect = 0,
                int testRun = 0, const RunOptions* reaction = nullptr);

/// What stands before the name of the trait in the trigger of its changes.
inline constexpr std::string_view kTraitChange = "TRAITCHANGE:";
inline constexpr std::string_view kBeforeTraitChange = "BEFORETRAITCHANGE:";
/// True for a card in play that has no action for changed traits: they are over without a firing.
bool PassesTraitChanges(Card& card);

/// Code of the trigger that tells every other card of one that enters play.
inline constexpr int kOtherEntersPlay = 15;

/// Fires a trigger, by code or by word, on every card that HitTable lists for it. Actions that are
/// added meanwhile wait for the next time; so do those added since the step of a turn began that
/// has the number (of Session::ActionsAdded) addedBefore.
void FireHit(int code, int value, std::uint32_t addedBefore);
void FireHit(int code, int value = -1);
void FireHit(std::string_view trigger, int value = -1);

/// How good the target is that PickTarget found.
enum TargetQualities : int { kNoTarget = 0, kPartialTarget = 1, kCleanTarget = 2 };

/// A slot to aim an action (or the given script) at, found by test runs on copies; 0 for none.
int PickTarget(Card& source, int effectIndex, int targetType, const Text& script, int& quality);

/// Slot of a side's player card; 0 for a neutral owner or a side without one.
int PlayerCardOf(int owner);

/// Lets a table card enter play: OTHERENTERSPLAY on the rules card and the others, ENTERPLAY on it.
void EnterPlay(Card& card);
/// Fires ONDEATH and frees the card's slot.
void KillCard(Card& card);

/// Puts one action of a table card into HitTable, or takes the card's entries of that trigger out.
void RegisterHit(int slot, int effect, bool remove);
/// RegisterHit for every action of a table card.
void RegisterAllHits(const Card& card);
/// True for the record that the table holds in the card's slot, false for a copy of it.
bool IsTableRecord(const Card& card);
/// Adds every action of every card in the table.
void RebuildHitTable();

/// Adds the action that an ADDEFFECT left waiting.
void FlushPendingEffect();
/// Adds an action that is written as ADDEFFECT has it: trigger, target and script, with ":"
/// between.
void AddActionOfText(Card& card, std::string_view text);
/// Armed menu actions go back to waiting.
void ResetMenuState(Card& card);

}  // namespace brindlemoor
