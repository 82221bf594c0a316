// The card editor: what its lists offer and its controls show.
#include <algorithm>
#include <initializer_list>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_edit.h"
#include "editor/picture_files.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

using Items = std::vector<std::string>;

constexpr std::string_view kTriggers[] = {"(Choose a Trigger)",
                                          "COST",
                                          "COSTMOD",
                                          "AIREQ",
                                          "OTHERENTERSPLAY",
                                          "ENTERPLAY",
                                          "TURNSTART",
                                          "PHASE1",
                                          "PHASE2",
                                          "PHASE3",
                                          "PHASE4",
                                          "PHASE5",
                                          "PHASE6",
                                          "PHASE7",
                                          "PHASE8",
                                          "PHASE9",
                                          "PHASE10",
                                          "TURNEND",
                                          "ONDEATH",
                                          "TARGETED",
                                          "MYACTION",
                                          "TRAITCHANGE",
                                          "BEFORETRAITCHANGE",
                                          "MENU"};
constexpr std::string_view kActivations[] = {"TURNSTART", "PHASE1", "PHASE2",  "PHASE3",
                                             "PHASE4",    "PHASE5", "PHASE6",  "PHASE7",
                                             "PHASE8",    "PHASE9", "PHASE10", "TURNEND"};
constexpr std::string_view kTargets[] = {"(Choose a Target Type)",
                                         "ALL",
                                         "TARGETCARD",
                                         "RANDOMALLY",
                                         "RANDOMENEMY",
                                         "ENEMYPLAYER",
                                         "OWNER",
                                         "RANDOM",
                                         "TRIGGERINGCARD",
                                         "SELF",
                                         "GIDCARD"};
constexpr int kHighestRarity = 101;

template <std::size_t N>
Items ItemsOf(const std::string_view (&texts)[N]) {
  return Items(std::begin(texts), std::end(texts));
}

Items CommonTraitNames() {
  Items names;
  for (const Text& name : State().CommonTraits) {
    if (!name.empty()) names.push_back(name.Str());
  }
  return names;
}

/// Marks the form busy, unless it is already.
class BusyScope {
 public:
  explicit BusyScope(std::uint8_t& busy) : busy_(busy), own_(busy == kFormReady) {
    if (own_) busy_ = kFillingControls;
  }
  ~BusyScope() {
    if (own_) busy_ = kFormReady;
  }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  std::uint8_t& busy_;
  const bool own_;
};

/// Chooses the first item that is the text; a text that is no item becomes one.
template <class Same>
void ChooseOrAdd(ComboBox& combo, const std::string& text, Same same) {
  const Items& items = combo.Items;
  const auto item = std::find_if(items.begin(), items.end(),
                                 [&](const std::string& other) { return same(other, text); });
  const int place = static_cast<int>(item - items.begin()) + 1;
  if (item == items.end()) {
    Items longer = items;
    longer.push_back(text);
    combo.Items = std::move(longer);
  }
  combo.Select(place);
}

void ChooseOrAdd(ComboBox& combo, const std::string& text) {
  ChooseOrAdd(combo, text, [](const auto& a, const auto& b) { return a == b; });
}

}  // namespace

void CardEdit::BeginLists() {
  const Items triggers = ItemsOf(kTriggers);
  const Items targets = ItemsOf(kTargets);
  for (int row = 0; row < kVisibleRows; ++row) {
    TriggerCombo[row].Items = triggers;
    TriggerCombo[row].Select(1);
    TargetCombo[row].Items = targets;
    TargetCombo[row].Select(1);
  }
  ActivateCombo.Items = ItemsOf(kActivations);
}

void CardEdit::LoadCombos() {
  const BusyScope busy(FormBusy);
  BeginLists();
  for (int row = 0; row < kVisibleRows; ++row) {
    TraitCombo[row].Items = CommonTraitNames();
    TraitCombo[row].Text = std::string(kTraitMenuText);
  }

  const int card = CardCombo.Selected;
  Items cards;
  for (const Card& entry : State().Collection) cards.push_back(entry.Name.Str());
  CardCombo.Items = std::move(cards);
  CardCombo.Select(card);

  Items templates = {"Blank Card"};
  for (const Template& entry : State().Templates) templates.push_back(entry.Card.Name.Str());
  const int chosen = TemplateCombo.Selected;
  const bool isThere = chosen >= 1 && chosen <= static_cast<int>(templates.size());
  TemplateCombo.Items = std::move(templates);
  TemplateCombo.Select(isThere ? chosen : 1);

  Items rarities;
  for (int rarity = 0; rarity <= kHighestRarity; ++rarity) rarities.push_back(Joined(rarity));
  RarityCombo.Items = std::move(rarities);
  UpdateCard();
}

void CardEdit::UpdateCard() {
  const BusyScope busy(FormBusy);
  const Card& card = State().EditCard;
  ShowRows();
  ChooseOrAdd(ActivateCombo, card.ActivateOn.Str(),
              [](const auto& a, const auto& b) { return FoldEquals(a, b); });
  RarityCombo.Text = Joined(int{card.Rarity});
  CardText[0].Text = card.Name.Str();
  CardText[1].Text = card.AuxText.Str();
  CardText[2].Text = card.UniqueID.Str();
  DescText.Text = card.Description.Str();
  ShowMode();
  ShowKept();
  FrameColor = FrameColorOf(card.NameColor);
  ColorLabel.TextColor = FrameColor;
  cardtotal.Caption = Joined("Total Cards: ", State().Collection.UpperBound());
  ShowNameHint();
  PreviewSoon();
}

void CardEdit::ShowRows() {
  for (int row = 0; row < kVisibleRows; ++row) {
    const TraitRow& trait = TraitRows[TraitTop + row];
    TraitText[row].Text = trait.Name;
    ValueText[row].Text = trait.Value;
    const CaptionRow& caption = CaptionRows[CaptionTop + row];
    TraitDescName[row].Text = caption.Trait;
    TraitDescText[row].Text = caption.Caption;
    const EffectRow& effect = EffectRows[EffectTop + row];
    EffText[row].Text = effect.Script;
    ChooseOrAdd(TriggerCombo[row], effect.Trigger);
    ChooseOrAdd(TargetCombo[row], effect.Target);
  }
  ShowHints();
}

/// The player who changes a picture sees the card, and changes nothing else of it.
void CardEdit::ShowMode() {
  const bool whole = State().SingleCardEdit != 1;
  for (Control* control :
       std::initializer_list<Control*>{&Label8[1], &RarityCombo, &CardActionFrame, &ButtonFrame,
                                       &CardCombo, &FindText, &FindNext, &FindNote, &Command7}) {
    control->Visible = whole;
  }
  filemen.Visible = whole;
  composeallmen.Visible = whole;
  CostButton.Visible = whole && !IsFree(State().CostCard);
  for (int row = 0; row < kVisibleRows; ++row) {
    TraitText[row].ReadOnly = !whole;
    ValueText[row].ReadOnly = !whole;
  }
}

void CardEdit::loadcommontraits() {
  const Pile& cards = State().Collection;
  if (cards.UpperBound() <= 1) return;
  for (const Card& card : cards) {
    for (const Text& trait : card.Traits) {
      if (!trait.empty()) addcommontrait(FieldAt(trait, 1, ':'));
    }
  }
  for (int row = 0; row < kVisibleRows; ++row) TraitCombo[row].Items = CommonTraitNames();
}

void CardEdit::addcommontrait(std::string_view traitName) {
  if (traitName.empty()) return;
  for (Text& name : State().CommonTraits) {
    if (name == traitName) return;
    if (name.empty()) {
      name = traitName;
      return;
    }
  }
}

}  // namespace brindlemoor
