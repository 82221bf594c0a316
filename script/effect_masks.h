// The fast pre-filter of script runs: bit masks of what a script's leading requirements ask for.
#pragma once

#include <string_view>

#include "core/records.h"

namespace brindlemoor {

/// Builds the masks of one action, or of all with effectIndex 0 (whose masks are cleared first).
/// Counter actions get none.
void BuildEffectMasks(Card& card, int effectIndex);

/// Sets a trait's bit in one mask of an action: the acting card's or the target's, needed or
/// forbidden. A name without a bit sets nothing.
void SetEffectBit(CardEffect& effect, std::string_view traitName, bool onActor, bool forbid);

/// True when the masks refuse this pair of cards: the script's own requirements would fail.
inline bool MasksRefuse(const CardEffect& effect, const Card& source, const Card& target) {
  if ((target.OwnerBit & effect.OwnerMask) == 0) return true;
  std::uint32_t missing = 0;
  for (int word = 1; word <= TraitWords::kWords; ++word) {
    missing |= effect.NeedMyBits[word] & ~source.TraitBits[word];
    missing |= effect.NeedTargetBits[word] & ~target.TraitBits[word];
    missing |= effect.ForbidTargetBits[word] & target.TraitBits[word];
    missing |= effect.ForbidMyBits[word] & source.TraitBits[word];
  }
  return missing != 0;
}

}  // namespace brindlemoor
