// The rows that a card becomes, and the card that the rows make.
#include "editor/card_rows.h"

#include <algorithm>
#include <vector>

#include "core/limits.h"
#include "core/strings.h"
#include "editor/picture_files.h"
#include "language/target_types.h"
#include "language/traits.h"
#include "script/card_setup.h"
#include "script/parsed_script.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// The trait that brought an action, "NONE" for the card's own.
std::string_view BringerOf(const CardEffect& effect) {
  return ParsedScript::Of(effect.Script).DeclaredTrait("TRAITEFFECT");
}
bool IsBrought(const CardEffect& effect) { return BringerOf(effect) != "NONE"; }

bool StillBrought(const Card& card, const CardEffect& effect) {
  const std::string_view bringer = BringerOf(effect);
  return bringer == "#ALL#" || HasTrait(card, bringer);
}

TraitRow TraitRowOf(const Text& item) {
  return {std::string(FieldAt(item, 1, ':')), RestDS(item, 2, ":")};
}

CaptionRow CaptionRowOf(const Card& card, int item) {
  return {std::string(card.Traits[item].Name()), card.TraitCaptions[item].Str()};
}

/// An action with its trigger and target in their long forms. Free records and what traits brought
/// are no rows.
EffectRow EffectRowOf(const CardEffect& effect) {
  if (effect.Script.empty() || IsBrought(effect)) return {};
  EffectRow row{effect.Trigger.Str(), effect.TargetText.Str(), effect.Script.Str()};
  if (effect.MenuState != kOrdinaryAction) {
    row.Trigger = Joined("MENU:", effect.Trigger, ":", effect.MenuCaption);
  }
  if (row.Target.empty()) row.Target = TargetTypeName(effect.TargetType);
  return row;
}

/// The place of the item that was added.
int AddTrait(Card& card, const Text& item, const Text& caption) {
  const std::string_view name = FieldAt(item, 1, ':');
  // A bare name is that trait; with values there may be several of one name, as in files.
  int place = name == item.View() ? TraitSlot(card, name) : 0;
  if (place == 0) place = card.Traits.Append(Text());
  card.Traits.Edit(place) = item;
  card.TraitCaptions.Resize(card.Traits.UpperBound());
  card.TraitCaptions.Edit(place) = caption;
  if (card.ChangedTraits.size() + item.size() < limits::kChangedTraitBytes) {
    card.ChangedTraits = Joined(card.ChangedTraits, item, ":");
  }
  const TraitBit bit = TraitBitFor(name);
  if (bit.Word != -1) card.TraitBits[bit.Word] |= bit.BitValue;
  return place;
}

bool IsCalled(const Card& card, int item, std::string_view name) {
  return FoldEquals(card.Traits[item].Name(), name);
}

/// The only trait of a name; 0 if there is none or more than one.
int OnlyTrait(const Card& card, std::string_view name) {
  const int first = TraitSlot(card, name);
  for (int item = first + 1; first != 0 && item <= card.Traits.UpperBound(); ++item) {
    if (IsCalled(card, item, name)) return 0;
  }
  return first;
}

/// A caption goes to the trait of its name. Where there are several of a name, it goes to the one
/// in its own row, else to the first of them that has no caption yet. itemOfRow has the item that
/// each row of traits became, 0 for none.
void PlaceCaptions(const CaptionTable& rows, const FixedTable<int, kCardRows>& itemOfRow,
                   Card& card) {
  std::vector<const CaptionRow*> others;
  for (int row = 1; row <= kCardRows; ++row) {
    const CaptionRow& caption = rows[row];
    if (caption.Trait.empty() || caption.Caption.empty()) continue;
    int item = OnlyTrait(card, caption.Trait);
    if (item == 0 && IsCalled(card, itemOfRow[row], caption.Trait)) item = itemOfRow[row];
    if (item != 0) {
      card.TraitCaptions.Edit(item) = caption.Caption;
    } else {
      others.push_back(&caption);
    }
  }
  for (const CaptionRow* caption : others) {
    for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
      if (!IsCalled(card, item, caption->Trait) || !card.TraitCaptions[item].empty()) continue;
      card.TraitCaptions.Edit(item) = caption->Caption;
      break;
    }
  }
}

/// A bonus needs a trait to add to.
void AddBonusBases(Card& card) {
  constexpr std::string_view kBonus = "BONUS";
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    const std::string name(card.Traits[item].Name());
    const int prefix = FoldPrefixLength(name, kBonus);
    if (prefix < 0) continue;
    const std::string base = name.substr(static_cast<std::size_t>(prefix));
    if (!base.empty() && TraitSlot(card, base) == 0) {
      AddTrait(card, Joined(base, ":", kBonus), "");
    }
  }
}

/// "1 trait, 2 actions and 3 captions".
std::string Listed(const std::vector<std::string>& parts) {
  std::string text;
  for (std::size_t part = 0; part < parts.size(); ++part) {
    if (part > 0) text += part + 1 == parts.size() ? " and " : ", ";
    text += parts[part];
  }
  return text;
}

}  // namespace

CardRows CardRows::Of(const Card& card) {
  CardRows rows;
  for (int row = 1; row <= kCardRows; ++row) {
    rows.Effects[row] = EffectRowOf(card.Effects[row]);
    rows.Traits[row] = TraitRowOf(card.Traits[row]);
    rows.Captions[row] = CaptionRowOf(card, row);
  }
  return rows;
}

bool CardRows::SameContent(const CardRows& other) const {
  return Traits == other.Traits && Effects == other.Effects && Captions == other.Captions;
}

Card CardRows::AppliedTo(const Card& card) const {
  const CardRows shown = Of(card);
  const bool traitsChanged = Traits != shown.Traits || Captions != shown.Captions;
  const bool effectsChanged = Effects != shown.Effects;
  Card result = card;
  result.Initialised = 1;
  if (traitsChanged) BuildTraits(result);
  if (traitsChanged || effectsChanged) BuildEffects(result);
  return result;
}

void CardRows::BuildTraits(Card& result) const {
  const Card edited = result;
  result.Traits = {};
  result.TraitCaptions = {};
  result.TraitBits = {};
  result.ChangedTraits = Text();
  result.TraitActionsApplied = 0;
  FixedTable<int, kCardRows> itemOfRow{};
  for (int row = 1; row <= kCardRows; ++row) {
    const TraitRow& trait = Traits[row];
    if (trait.Name.empty()) continue;
    const bool unchanged = trait == TraitRowOf(edited.Traits[row]);
    const std::string item =
        trait.Value.empty() ? trait.Name : Joined(trait.Name, ":", trait.Value);
    itemOfRow[row] = AddTrait(result, unchanged ? edited.Traits[row].AsText() : Text(item), "");
  }
  for (int item = kCardRows + 1; item <= edited.Traits.UpperBound(); ++item) {
    if (edited.Traits[item].empty()) continue;
    AddTrait(result, edited.Traits[item], edited.TraitCaptions[item]);
  }
  AddBonusBases(result);
  PlaceCaptions(Captions, itemOfRow, result);
  if (result.Traits.UpperBound() > 0) return;
  result.Traits.Resize(1);
  result.TraitCaptions.Resize(1);
}

void CardRows::BuildEffects(Card& result) const {
  const SharedArray<CardEffect> loaded = result.Effects;
  result.Effects = {};
  for (int item = 1; item <= std::max(kCardRows, loaded.UpperBound()); ++item) {
    const CardEffect& original = loaded[item];
    const bool kept = IsBrought(original) ? StillBrought(result, original) : item > kCardRows;
    if (kept && !original.Script.empty()) result.Effects.Append(original);
    if (item > kCardRows || Effects[item].Script.empty()) continue;
    const EffectRow& row = Effects[item];
    // What the row doesn't show of an action stays as it is.
    if (row == EffectRowOf(original)) {
      result.Effects.Append(original);
    } else {
      AddEffect(result, row.Script, TargetTypeCode(row.Target), row.Trigger, 0, row.Target);
    }
  }
  if (result.Effects.UpperBound() == 0) result.Effects.Resize(1);
}

std::string BehindTheRows(const Card& card) {
  int traits = 0;
  int actions = 0;
  int captions = 0;
  for (int item = kCardRows + 1; item <= card.Traits.UpperBound(); ++item) {
    if (!card.Traits[item].empty()) ++traits;
    if (!card.TraitCaptions[item].empty()) ++captions;
  }
  for (int item = kCardRows + 1; item <= card.Effects.UpperBound(); ++item) {
    if (!card.Effects[item].Script.empty() && !IsBrought(card.Effects[item])) ++actions;
  }
  std::vector<std::string> parts;
  if (traits > 0) parts.push_back(CountText(traits, "trait"));
  if (actions > 0) parts.push_back(CountText(actions, "action"));
  if (captions > 0) parts.push_back(CountText(captions, "caption"));
  if (parts.empty()) return "";
  const bool one = traits + actions + captions == 1;
  return Joined(Listed(parts), one ? " does" : " do", " not fit into these rows; ",
                one ? "it is" : "they are", " kept.");
}

}  // namespace brindlemoor
