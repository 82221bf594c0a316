// The bits of trait names.
#include "core/limits.h"
#include "core/state.h"
#include "core/strings.h"
#include "core/traits.h"

namespace brindlemoor {

TraitBit TraitBitFor(std::string_view name) {
  name = FieldAt(name, 1, ':');
  if (name.empty()) return {};
  Table<TraitBitName>& names = State().TraitBitNames;
  int position = 1;
  while (names.Holds(position) && !names[position].Name.empty() && names[position].Name != name) {
    ++position;
  }
  if (position > limits::kTraitBitNames) return {};
  if (!names.Holds(position)) names.Resize(position);
  if (names[position].Name.empty()) names[position].Name = name;
  // Words count by 32 and bits by 31, so two names may share a bit: a pre-filter can live with it.
  const int remainder = position % 31;
  const auto bit = static_cast<std::size_t>(remainder == 0 ? 31 : remainder);
  return {position / 32 + 1, static_cast<std::uint32_t>(State().BitValues[bit])};
}

}  // namespace brindlemoor
