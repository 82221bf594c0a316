// What the editor quietly says under a row of the card: the first thing the engine won't
// understand.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

struct EffectRow;

/// The first problem of an action's trigger, target or script, in this order; remarks on what is
/// understood all the same come last. Empty when all is well, and for a row without any text.
std::string HintForAction(const EffectRow& row);

/// What the action's script does; of one that a trait brought, what stands behind the trait's name.
std::string SentenceForAction(const EffectRow& row);

/// The colours of an action's script, and what the engine won't understand of it at the very words.
/// A word that lacks something carries that note itself.
std::vector<TextRun> RunsOfAction(const EffectRow& row);

/// What a card file can't keep of a name; empty when it comes back as it is.
std::string HintForName(std::string_view name);

}  // namespace brindlemoor
