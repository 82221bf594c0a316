// The bits of trait names.
#include "core/limits.h"
#include "core/state.h"
#include "core/traits.h"

namespace brindlemoor {

TraitBit TraitBitFor(std::string_view name) { return TraitBitOf(name.substr(0, name.find(':'))); }

TraitBit TraitBitOf(const TraitName& name) {
  if (name.View().empty()) return {};
  auto& names = State().TraitBitNames;
  int position = 1;
  for (const TraitBitName& known : names) {
    if (known.Name.empty() || (known.Key == name.Key() && known.Name == name.View())) break;
    ++position;
  }
  if (position > limits::kTraitBitNames) return {};
  if (!names.Holds(position)) names.Resize(position);
  if (names[position].Name.empty()) names.Edit(position) = {name.View(), name.Key()};
  // Words count by 32 and bits by 31, so two names may share a bit: a pre-filter can live with it.
  const int remainder = position % 31;
  const auto bit = static_cast<std::size_t>(remainder == 0 ? 31 : remainder);
  return {position / 32 + 1, static_cast<std::uint32_t>(State().BitValues[bit])};
}

}  // namespace brindlemoor
