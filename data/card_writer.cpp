// Cards as text.
#include "data/card_writer.h"

#include "core/strings.h"
#include "core/text.h"
#include "script/target_types.h"
#include "script/trait_actions.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kEnd = "\r\n";
constexpr std::string_view kStars = "*****************************************";

/// A free text: in quotes, the quotes in it as "&quot".
std::string Quoted(std::string_view text) {
  return Joined('"', ReplacedCopy(text, "\"", "&quot"), '"');
}

std::string TargetWord(const CardEffect& effect) {
  if (effect.TargetType == kTargetGidCard && !effect.TargetText.empty()) {
    return effect.TargetText.Str();
  }
  return std::string(TargetTypeName(effect.TargetType));
}

/// A menu action's trigger is written in its long form, in quotes where its caption would end the
/// field.
std::string TriggerText(const CardEffect& effect) {
  if (effect.MenuState == kOrdinaryAction) return effect.Trigger.Str();
  std::string text = Joined("MENU:", effect.Trigger, ":", effect.MenuCaption);
  return text.find_first_of(",\r\n") == std::string::npos ? text : Quoted(text);
}

void WriteTraits(std::string& out, const Card& card) {
  const std::size_t before = out.size();
  for (const Text& trait : card.Traits) {
    if (!trait.empty()) out += Joined("#TRAIT, ", Quoted(trait), ", ");
  }
  if (out.size() != before) out += kEnd;
}

void WriteCaptions(std::string& out, const Card& card) {
  for (int item = 1; item <= card.TraitCaptions.UpperBound(); ++item) {
    const Text& caption = card.TraitCaptions[item];
    if (caption.empty()) continue;
    out += Joined("#TRAITACTIONDESC, ", FieldAt(card.Traits[item], 1, ':'), ", ", Quoted(caption),
                  kEnd);
  }
}

void WriteEffects(std::string& out, const Card& card) {
  for (const CardEffect& effect : card.Effects) {
    if (effect.Script.empty()) continue;
    out += Joined("#EFFECT, ", TargetWord(effect), ", ", TriggerText(effect), ", ",
                  Quoted(effect.Script), kEnd);
  }
}

}  // namespace

std::string CardToText(Card& card, std::string_view location) {
  StripTraitEffects(card);
  std::string out = Joined(kStars, " ", card.Name, kEnd);
  out += Joined("#CARD, ", location, ", \"", card.Name, "\", \"", card.UniqueID, "\", ",
                card.SourceFile, ", ", card.Picture, ", ", card.Thumb, ", ", card.NameColor, ", ",
                Quoted(card.Description), kEnd);
  if (location != "#PLAYERCARD" && location != "PLAYERCARD") {
    WriteTraits(out, card);
    WriteCaptions(out, card);
    WriteEffects(out, card);
    out += Joined("#EXTRADATA, ", static_cast<int>(card.Rarity), ", ", card.ActivateOn, ", ",
                  card.EntryScripts, ", , ", kEnd);
  }
  out += kEnd;
  return out;
}

}  // namespace brindlemoor
