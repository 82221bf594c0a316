// Reading a card's traits, and the bits of their names.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/records.h"
#include "core/trait_item.h"
#include "core/value.h"

namespace brindlemoor {

/// Value of a trait, bonus included: "NONE" on a dead card, "" for a trait the card has not, 1 for
/// a trait without a value. The name folds case. "#ANY#" reads 1 on any live card.
Value GetTrait(const Card& card, const TraitName& name);

/// NumericPrefix of GetTrait.
double TraitNumber(const Card& card, const TraitName& name);

/// Item number of the trait, 0 if there is none. Folds case.
int TraitSlot(const Card& card, const TraitName& name);

/// The marks of all items together.
std::uint64_t MarksOfTraits(const SharedArray<TraitItem>& items);
/// The marks of a card's traits: without that of a name, no trait has it or raises it.
inline std::uint64_t TraitMarks(const Card& card) { return card.Traits.Marks(MarksOfTraits); }

/// True when the card has the trait. Folds case.
inline bool HasTrait(const Card& card, const TraitName& name) {
  return (TraitMarks(card) & TraitMark(name.Key())) != 0 && TraitSlot(card, name) != 0;
}

/// Where a trait name's bit lies. Word is -1 when the name has none (more than 240 names).
struct TraitBit {
  int Word = -1;
  std::uint32_t BitValue = 0;
};
/// The bit of a trait name (cut at its first ":"), allocated when the name is first met. A bit that
/// two names share, or that belongs to one of several names that fold alike, becomes unsure
/// (Session::UnsureTraitBits): it does not tell whether a card has the trait.
TraitBit TraitBitFor(std::string_view name);
/// The same for a name without a ":".
TraitBit TraitBitOf(const TraitName& name);
/// From here on the bit of a name is unsure.
void DoubtTraitBit(const TraitName& name);
/// The names are numbered from the beginning. Records that live on need RenumberTraitBits.
void ForgetTraitBits();

}  // namespace brindlemoor
