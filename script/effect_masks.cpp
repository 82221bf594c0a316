// Building the masks of actions from their scripts' leading requirements.
#include "script/effect_masks.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "core/every_card.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"
#include "language/value_keywords.h"
#include "script/command_table.h"
#include "text/fold.h"
#include "text/joined.h"

namespace brindlemoor {

namespace {

/// The number that a value is, whatever the cards are; nothing for one that has to be worked out.
std::optional<double> ConstantNumber(std::string_view value) {
  double number = 0;
  const auto [end, failure] = std::from_chars(value.data(), value.data() + value.size(), number);
  if (failure != std::errc() || end != value.data() + value.size()) return std::nullopt;
  return std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// Whether a value is a constant that a card without the trait does not meet: its trait counts 0, as
// a text it is "" or, on a dead card, "NONE".

bool IsAboveNone(std::string_view value) {
  const auto number = ConstantNumber(value);
  return number && *number > 0;
}

bool DiffersFromNone(std::string_view value) {
  const auto number = ConstantNumber(value);
  return number && *number != 0;
}

bool IsOtherText(std::string_view value) {
  if (value.starts_with(' ')) value.remove_prefix(1);
  if (value.empty() || FoldEquals(value, "NONE")) return false;
  const bool isDie = value.size() > 1 && value[0] == 'R' && value[1] >= '1' && value[1] <= '9';
  return value.find('/') == std::string_view::npos && !isDie && FindValueKeyword(value) == nullptr;
}

bool IsOtherExpandedText(std::string_view value) {
  return IsOtherText(value) && value.find_first_of("$#") == std::string_view::npos &&
         !State().StringsCanVanish;
}

/// A requirement word whose trait goes into a mask.
struct MaskRow {
  std::string_view Word;
  bool OnActor;
  bool Forbid;
  /// For words with a value behind the trait: true when only a card with the trait can meet it.
  bool (*NeedsTrait)(std::string_view value) = nullptr;
};

constexpr std::array<MaskRow, 11> kMaskRows = {{
    {"REQTRAIT", false, false},
    {"REQTRAITIS", false, false, IsOtherExpandedText},
    {"REQTRAITMORE", false, false, IsAboveNone},
    {"REQTRAITEQUALS", false, false, DiffersFromNone},
    {"REQNOTTRAIT", false, true},
    {"REQNOTRAIT", false, true},
    {"REQMYTRAIT", true, false},
    {"REQMYNOTRAIT", true, true},
    {"REQMYTRAITMORE", true, false, IsAboveNone},
    {"REQMYTRAITEQUALS", true, false, DiffersFromNone},
    {"REQMYTRAITIS", true, false, IsOtherText},
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

/// True for a requirement without arguments, or a word that no command has: what stands behind it
/// is walked as a command.
bool StandsAlone(std::string_view word) {
  const Command* command = FindCommand(word);
  return command == nullptr || command->Arguments == 0;
}

void TakeRow(CardEffect& effect, const MaskRow& row, FieldWalker& fields) {
  const std::string_view trait = fields.Next();
  const bool needed = row.NeedsTrait == nullptr || row.NeedsTrait(fields.Next());
  if (needed && trait != "#ANY#") SetEffectBit(effect, trait, row.OnActor, row.Forbid);
}

void BuildOne(CardEffect& effect, int owner) {
  if (effect.Trigger == "COUNTER") return;
  effect.OwnerMask = 255;
  FieldWalker fields(effect.Script, ':');
  for (auto word = fields.Next(); !word.empty(); word = fields.Next()) {
    if (const MaskRow* row = FindMaskRow(word); row != nullptr) {
      TakeRow(effect, *row, fields);
    } else if (word == "TRAIT") {
      fields.Next();
      fields.Next();
    } else if (word == "REQALLY" || word == "REQENEMY") {
      effect.OwnerMask = SideMask(owner, word == "REQENEMY");
    } else if (!word.starts_with("REQ") || !StandsAlone(word)) {
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

std::string WhatMasksRefuse(const CardEffect& effect, const Card& source, const Card& target) {
  if (SideRefuses(effect, target)) {
    const bool wantsEnemy = (effect.OwnerMask & source.OwnerBit) == 0;
    return wantsEnemy ? "the target is no enemy" : "the target is no ally";
  }
  struct Mask {
    const TraitWords& Asked;
    const Card& Of;
    bool Forbids;
    std::string_view Words;
  };
  const std::array<Mask, 4> masks = {{
      {effect.NeedMyBits, source, false, "the acting card has no "},
      {effect.NeedTargetBits, target, false, "the target has no "},
      {effect.ForbidMyBits, source, true, "the acting card has "},
      {effect.ForbidTargetBits, target, true, "the target has "},
  }};
  const SharedArray<TraitBitName> names = State().TraitBitNames;
  for (const TraitBitName& known : names) {
    const TraitBit bit = TraitBitFor(known.Name);
    if (bit.Word == -1 || (State().UnsureTraitBits[bit.Word] & bit.BitValue) != 0) continue;
    for (const Mask& mask : masks) {
      const bool has = (mask.Of.TraitBits[bit.Word] & bit.BitValue) != 0;
      const bool asked = (mask.Asked[bit.Word] & bit.BitValue) != 0;
      if (asked && has == mask.Forbids) return Joined(mask.Words, known.Name);
    }
  }
  return "its first requirements";
}

void RenumberTraitBits(Card& card) {
  card.TraitBits = TraitWords();
  for (const TraitItem& item : card.Traits) {
    const TraitBit bit = TraitBitFor(item.Name());
    if (bit.Word != -1) card.TraitBits[bit.Word] |= bit.BitValue;
  }
  BuildEffectMasks(card, 0);
}

void RenumberAllTraitBits() {
  ForEveryCard(State(), [](Card& card) { RenumberTraitBits(card); });
}

void NoteCustomString(std::string_view value) {
  const bool canVanish = value.find_first_of("$#") != std::string_view::npos ||
                         value.find_first_not_of(' ') == std::string_view::npos;
  if (!canVanish || State().StringsCanVanish) return;
  State().StringsCanVanish = true;
  RenumberAllTraitBits();
}

}  // namespace brindlemoor
