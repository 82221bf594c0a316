// What the player's clicks have lined up for the coming turn.
#pragma once

namespace brindlemoor {

/// Forgets the queued plays and what they are aimed at; none waits for a target.
void ForgetQueuedPlays();

/// No card counts as clicked last, and no menu action waits for its target.
void ForgetSelection();

/// Forgets all that clicks have left behind: the queued plays, the selection and the armed menu
/// actions of the table.
void ForgetPlans();

}  // namespace brindlemoor
