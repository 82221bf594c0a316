// The way of a card into the table.
#pragma once

#include "core/records.h"

namespace brindlemoor {

/// Copies a card into the first free slot, or a new one, runs its entry scripts and lets it enter
/// play, unless it waits for its ActivateOn trigger. Returns the slot, 0 for a card without a name
/// or a full table.
int AddToTable(const Card& card);

/// Brings the waiting cards into the table. Cards queued meanwhile wait for the next flush.
void FlushPending();

}  // namespace brindlemoor
