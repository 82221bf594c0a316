// Cards as text.
#include "data/card_writer.h"

#include <algorithm>

#include "core/replacing.h"
#include "core/strings.h"
#include "data/field_text.h"
#include "language/target_types.h"
#include "script/trait_actions.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kStars = "*****************************************";
constexpr std::string_view kFieldEnds = ",\r\n";

/// The banner is a comment that the reader walks over. A name of several fields must not make it
/// stumble: none of them may begin a directive.
std::string BannerName(std::string_view name) {
  std::string banner = NameAsRead(name);
  bool harmful = false;
  for (std::size_t end = banner.find_first_of(kFieldEnds); end != std::string::npos;
       end = banner.find_first_of(kFieldEnds, end + 1)) {
    const std::size_t next = banner.find_first_not_of(" \t", end + 1);
    harmful |= next != std::string::npos && banner[next] == '#';
  }
  const auto endsField = [](char c) { return kFieldEnds.find(c) != std::string_view::npos; };
  if (harmful) std::replace_if(banner.begin(), banner.end(), endsField, ' ');
  return banner;
}

std::string TargetWord(const CardEffect& effect) {
  if (effect.TargetType == kTargetGidCard && !effect.TargetText.empty()) {
    return effect.TargetText.Str();
  }
  return std::string(TargetTypeName(effect.TargetType));
}

/// A menu action's trigger is written in its long form.
std::string TriggerText(const CardEffect& effect) {
  if (effect.MenuState == kOrdinaryAction) return effect.Trigger.Str();
  return Joined("MENU:", effect.Trigger, ":", effect.MenuCaption);
}

void WriteTraits(std::string& out, const Card& card) {
  const std::size_t before = out.size();
  for (const Text& trait : card.Traits) {
    if (!trait.empty()) out += Joined("#TRAIT, ", QuotedField(trait), ", ");
  }
  if (out.size() != before) out += kLineEnd;
}

/// A caption is found by its trait's name as it stands in the trait's line. One without a trait
/// would only be an error to the reader.
void WriteCaptions(std::string& out, const Card& card) {
  for (int item = 1; item <= card.TraitCaptions.UpperBound(); ++item) {
    const Text& caption = card.TraitCaptions[item];
    const std::string_view trait = card.Traits[item].Name();
    if (caption.empty() || trait.empty()) continue;
    out += Joined("#TRAITACTIONDESC, ", PlainField(ReplacedCopy(trait, "\"", "&quot")), ", ",
                  QuotedField(caption), kLineEnd);
  }
}

void WriteEffects(std::string& out, const Card& card) {
  for (const CardEffect& effect : card.Effects) {
    if (effect.Script.empty()) continue;
    out += Joined("#EFFECT, ", PlainField(TargetWord(effect)), ", ",
                  PlainField(TriggerText(effect)), ", ", QuotedField(effect.Script), kLineEnd);
  }
}

}  // namespace

std::string CardToText(Card& card, std::string_view location) {
  StripTraitEffects(card);
  std::string out = Joined(kStars, " ", BannerName(card.Name), kLineEnd);
  out += Joined("#CARD, ", location, ", ", NameField(card.Name), ", ", NameField(card.UniqueID),
                ", ", PlainField(card.SourceFile), ", ", PlainField(card.Picture), ", ",
                PlainField(card.Thumb), ", ", PlainField(card.NameColor), ", ",
                QuotedField(card.Description), kLineEnd);
  if (location != "#PLAYERCARD" && location != "PLAYERCARD") {
    WriteTraits(out, card);
    WriteCaptions(out, card);
    WriteEffects(out, card);
    out += Joined("#EXTRADATA, ", static_cast<int>(card.Rarity), ", ", PlainField(card.ActivateOn),
                  ", ", PlainField(card.EntryScripts), ", , ", kLineEnd);
  }
  out += kLineEnd;
  return out;
}

}  // namespace brindlemoor
