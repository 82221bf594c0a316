// What the player's clicks have lined up for the coming turn.
#pragma once

#include <string>

namespace brindlemoor {

/// A match or a visit is on the table: not at the list of games.
bool IsAtTable();

/// There is a turn to plan: not at the list of games, nor when the match is over.
bool HasTurnToPlan();

/// Forgets the queued plays and what they are aimed at; none waits for a target.
void ForgetQueuedPlays();

/// Takes the target of a queued play back, and lets the next click on a table card give it another.
void AwaitPlayTarget(int queueEntry);

/// The same of a menu action of a table card.
void AwaitMenuTarget(int slot, int effect);

/// The menu action that still waits for a click on its target, as "Lamp: Shine"; "" for none.
std::string WaitingMenuAction();

/// No card counts as clicked last, and no menu action waits for its target.
void ForgetSelection();

/// Forgets all that clicks have left behind: the queued plays, the selection and the armed menu
/// actions of the table.
void ForgetPlans();

}  // namespace brindlemoor
