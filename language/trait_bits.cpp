// The bits of trait names.
#include "core/limits.h"
#include "core/state.h"
#include "language/traits.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr int kNamesPerWord = 32;
constexpr int kBitsOfWord = 31;

/// Words count by 32 and bits by 31, so that the last name of a word shares the bit of its first.
/// That does no harm: such a bit is doubted, and the script decides.
TraitBit BitAt(int position) {
  const int remainder = position % kBitsOfWord;
  const auto bit = static_cast<std::size_t>(remainder == 0 ? kBitsOfWord : remainder);
  return {position / kNamesPerWord + 1, static_cast<std::uint32_t>(State().BitValues[bit])};
}

void Doubt(const TraitBit& bit) {
  State().UnsureTraitBits[bit.Word] |= bit.BitValue;
  State().HasUnsureTraitBits = true;
}

/// True for a position whose bit an earlier one of its word has already.
bool SharesItsBit(int position) {
  return position % kNamesPerWord == kNamesPerWord - 1 && position > kNamesPerWord;
}

/// The place in the table of places that names with a key share.
std::uint8_t& PlaceOf(std::uint32_t key) {
  auto& places = State().TraitBitPlaces;
  return places[SpreadOfKey(key, static_cast<std::uint32_t>(places.size()))];
}

}  // namespace

TraitBit TraitBitFor(std::string_view name) { return TraitBitOf(name.substr(0, name.find(':'))); }

TraitBit TraitBitOf(const TraitName& name) {
  if (name.View().empty()) return {};
  auto& names = State().TraitBitNames;
  std::uint8_t& place = PlaceOf(name.Key());
  if (names[place].Key == name.Key() && names[place].Name == name.View()) return BitAt(place);
  int position = 1;
  bool hasTwins = false;
  for (const TraitBitName& known : names) {
    if (known.Name.empty()) break;
    if (known.Key == name.Key()) {
      if (known.Name == name.View()) {
        place = static_cast<std::uint8_t>(position);
        return BitAt(position);
      }
      if (FoldEquals(known.Name, name.View())) {
        Doubt(BitAt(position));
        hasTwins = true;
      }
    }
    ++position;
  }
  if (position > limits::kTraitBitNames) return {};
  if (!names.Holds(position)) names.Resize(position);
  names.Edit(position) = {name.View(), name.Key()};
  const TraitBit bit = BitAt(position);
  if (hasTwins || SharesItsBit(position)) Doubt(bit);
  return bit;
}

void DoubtTraitBit(const TraitName& name) {
  if (const TraitBit bit = TraitBitOf(name); bit.Word != -1) Doubt(bit);
}

void ForgetTraitBits() {
  State().TraitBitNames.Reset(1);
  State().UnsureTraitBits = TraitWords();
  State().HasUnsureTraitBits = false;
}

}  // namespace brindlemoor
