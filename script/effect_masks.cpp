// Building the masks of actions from their scripts' leading requirements.
#include "script/effect_masks.h"

#include <array>

#include "core/strings.h"
#include "core/traits.h"

namespace brindlemoor {

namespace {

/// A requirement word whose trait goes into a mask.
struct MaskRow {
  std::string_view Word;
  bool OnActor;
  bool Forbid;
  int Arguments;  ///< the trait, and a value for some
};

constexpr std::array<MaskRow, 11> kMaskRows = {{
    {"REQTRAIT", false, false, 1},
    {"REQTRAITIS", false, false, 2},
    {"REQTRAITMORE", false, false, 2},
    {"REQTRAITEQUALS", false, false, 2},
    {"REQNOTTRAIT", false, true, 1},
    {"REQNOTRAIT", false, true, 1},
    {"REQMYTRAIT", true, false, 1},
    {"REQMYNOTRAIT", true, true, 1},
    {"REQMYTRAITMORE", true, false, 2},
    {"REQMYTRAITEQUALS", true, false, 2},
    {"REQMYTRAITIS", true, false, 2},
}};

const MaskRow* FindMaskRow(std::string_view word) {
  for (const MaskRow& row : kMaskRows) {
    if (row.Word == word) return &row;
  }
  return nullptr;
}

std::int32_t SideMask(int owner, bool enemy) {
  if (owner != 1 && owner != 2) return 255;
  return enemy ? 3 - owner : owner;
}

void BuildOne(CardEffect& effect, int owner) {
  if (effect.Trigger == "COUNTER") return;
  effect.OwnerMask = 255;
  FieldWalker fields(effect.Script, ':');
  for (auto word = fields.Next(); !word.empty(); word = fields.Next()) {
    if (const MaskRow* row = FindMaskRow(word); row != nullptr) {
      SetEffectBit(effect, fields.Next(), row->OnActor, row->Forbid);
      if (row->Arguments == 2) fields.Next();
    } else if (word == "TRAIT") {
      fields.Next();
      fields.Next();
    } else if (word == "REQALLY" || word == "REQENEMY") {
      effect.OwnerMask = SideMask(owner, word == "REQENEMY");
    } else if (!word.starts_with("REQ")) {
      return;
    }
  }
}

}  // namespace

void SetEffectBit(CardEffect& effect, std::string_view traitName, bool onActor, bool forbid) {
  const TraitBit bit = TraitBitFor(traitName);
  if (bit.Word == -1) return;
  TraitWords& mask = onActor ? (forbid ? effect.ForbidMyBits : effect.NeedMyBits)
                             : (forbid ? effect.ForbidTargetBits : effect.NeedTargetBits);
  mask[bit.Word] |= bit.BitValue;
}

void BuildEffectMasks(Card& card, int effectIndex) {
  if (effectIndex != 0) {
    if (card.Effects.Holds(effectIndex)) BuildOne(card.Effects.Edit(effectIndex), card.Owner);
    return;
  }
  for (int index = 1; index <= card.Effects.UpperBound(); ++index) {
    CardEffect& effect = card.Effects.Edit(index);
    effect.NeedTargetBits = effect.NeedMyBits = TraitWords();
    effect.ForbidTargetBits = effect.ForbidMyBits = TraitWords();
    BuildOne(effect, card.Owner);
  }
}

}  // namespace brindlemoor
