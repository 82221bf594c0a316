// The fast pre-filter of script runs: bit masks of what a script's leading requirements ask for.
#pragma once

#include <string>
#include <string_view>

#include "core/state.h"

namespace brindlemoor {

/// Builds the masks of one action, or of all with effectIndex 0 (whose masks are cleared first).
/// Counter actions get none.
void BuildEffectMasks(Card& card, int effectIndex);

/// Sets a trait's bit in one mask of an action: the acting card's or the target's, needed or
/// forbidden. A name without a bit sets nothing.
void SetEffectBit(CardEffect& effect, std::string_view traitName, bool onActor, bool forbid);

/// Gives a card's traits and masks the bits of the names as they are numbered now.
void RenumberTraitBits(Card& card);
/// RenumberTraitBits for every record of the session, but for those that are renumbered when they
/// are looked up (the cache of referenced files) or read afresh (master definitions).
void RenumberAllTraitBits();

/// To be told of each value of a custom string. One that comes to nothing can make any text of a
/// REQTRAITIS empty, which a card without the trait meets: masks ask for no trait there any more.
void NoteCustomString(std::string_view value);

/// True when the script of the action would fail on the target's side. Cards of neither side pass:
/// an enemy is any other owner.
inline bool SideRefuses(const CardEffect& effect, const Card& target) {
  if ((target.OwnerBit & effect.OwnerMask) != 0 || effect.OwnerMask == 0) return false;
  return target.Owner == 1 || target.Owner == 2;
}

/// True when the masks refuse this pair of cards: the script's own requirements would fail. Bits
/// that are unsure refuse nobody.
inline bool MasksRefuse(const CardEffect& effect, const Card& source, const Card& target,
                        const Session& session) {
  if (SideRefuses(effect, target)) return true;
  const auto failed = [&](int word) {
    return (effect.NeedMyBits[word] & ~source.TraitBits[word]) |
           (effect.NeedTargetBits[word] & ~target.TraitBits[word]) |
           (effect.ForbidTargetBits[word] & target.TraitBits[word]) |
           (effect.ForbidMyBits[word] & source.TraitBits[word]);
  };
  std::uint32_t missing = 0;
  if (session.HasUnsureTraitBits) [[unlikely]] {
    for (int word = 1; word <= TraitWords::kWords; ++word) {
      missing |= failed(word) & ~session.UnsureTraitBits[word];
    }
  } else {
    for (int word = 1; word <= TraitWords::kWords; ++word) missing |= failed(word);
  }
  return missing != 0;
}

/// In words, the first trait or the side for which the masks refuse the pair.
std::string WhatMasksRefuse(const CardEffect& effect, const Card& source, const Card& target);

}  // namespace brindlemoor
