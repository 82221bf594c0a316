// The card editor: its controls filled with what is edited.
#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_edit.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

using Items = std::vector<std::string>;

/// The words of a list stand between bars.
constexpr std::string_view kTriggers =
    "(Choose a Trigger)|COST|COSTMOD|AIREQ|OTHERENTERSPLAY|ENTERPLAY|TURNSTART|PHASE1|PHASE2|"
    "PHASE3|PHASE4|PHASE5|PHASE6|PHASE7|PHASE8|PHASE9|PHASE10|TURNEND|ONDEATH|TARGETED|MYACTION|"
    "TRAITCHANGE|BEFORETRAITCHANGE|MENU";
constexpr std::string_view kActivations =
    "TURNSTART|PHASE1|PHASE2|PHASE3|PHASE4|PHASE5|PHASE6|PHASE7|PHASE8|PHASE9|PHASE10|TURNEND";
constexpr std::string_view kTargets =
    "(Choose a Target Type)|ALL|TARGETCARD|RANDOMALLY|RANDOMENEMY|ENEMYPLAYER|OWNER|RANDOM|"
    "TRIGGERINGCARD|SELF|GIDCARD";
constexpr int kHighestRarity = 101;

Items ItemsOf(std::string_view words) {
  Items items;
  FieldWalker fields(words, '|');
  while (!fields.AtEnd()) items.emplace_back(fields.Next());
  return items;
}

/// Marks the form busy, unless it is already; returns what it was.
std::uint8_t BeginFilling(CardEdit& form) {
  return std::exchange(form.FormBusy, std::max<std::uint8_t>(form.FormBusy, kFillingControls));
}

/// Chooses the first item that is the text; a text that is no item becomes one.
template <class Same = std::equal_to<>>
void ChooseOrAdd(ComboBox& combo, const std::string& text, Same same = {}) {
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
  const std::uint8_t before = BeginFilling(*this);
  BeginLists();
  for (int row = 0; row < kVisibleRows; ++row) {
    TraitCombo[row].Items = EditedLists::TraitNames();
    TraitCombo[row].Text = std::string(kTraitMenuText);
  }

  const int card = CardCombo.Selected;
  Items names = EditedLists::CardNames();
  if (documents_.IsOfGame()) {
    for (std::size_t place = 0; place < names.size(); ++place) {
      const Card& listed = State().Collection[static_cast<int>(place) + 1];
      if (!IsFree(listed)) names[place] += Joined("  (", documents_.FileOf(listed), ")");
    }
  }
  CardCombo.Items = std::move(names);
  FileCombo.Items = documents_.FileNames();
  CardCombo.Select(card);

  Items templates = EditedLists::TemplateNames();
  const int chosen = TemplateCombo.Selected;
  const bool isThere = chosen >= 1 && chosen <= static_cast<int>(templates.size());
  TemplateCombo.Items = std::move(templates);
  TemplateCombo.Select(isThere ? chosen : 1);

  Items rarities;
  for (int rarity = 0; rarity <= kHighestRarity; ++rarity) rarities.push_back(Joined(rarity));
  RarityCombo.Items = std::move(rarities);
  UpdateCard();
  FormBusy = before;
}

void CardEdit::UpdateCard() {
  const std::uint8_t before = BeginFilling(*this);
  const Card& card = State().EditCard;
  ShowRows();
  ChooseOrAdd(ActivateCombo, card.ActivateOn.Str(),
              [](const auto& a, const auto& b) { return FoldEquals(a, b); });
  RarityCombo.Text = Joined(int{card.Rarity});
  if (documents_.IsOfGame()) FileCombo.Text = documents_.FileOf(card);
  CardText[0].Text = card.Name.Str();
  CardText[1].Text = card.AuxText.Str();
  CardText[2].Text = card.UniqueID.Str();
  DescText.Text = card.Description.Str();
  ShowMode();
  const std::string kept = BehindTheRows(card);
  KeptLabel.Visible = !kept.empty();
  if (!kept.empty()) KeptLabel.Caption = kept;
  ColorLabel.TextColor = EditedImage::FrameColor();
  cardtotal.Caption = Joined("Total Cards: ", State().Collection.UpperBound());
  ShowNameHint();
  PreviewSoon();
  FormBusy = before;
}

void CardEdit::ShowTops() {
  TraitScroll.Value = Edited.Rows.Tops.Trait;
  EffScroll.Value = Edited.Rows.Tops.Effect;
  TraitDescScroll.Value = Edited.Rows.Tops.Caption;
}

void CardEdit::ShowRows() {
  for (int row = 0; row < kVisibleRows; ++row) {
    const TraitRow& trait = Edited.Rows.Trait(row);
    TraitText[row].Text = trait.Name;
    ValueText[row].Text = trait.Value;
    const CaptionRow& caption = Edited.Rows.Caption(row);
    TraitDescName[row].Text = caption.Trait;
    TraitDescText[row].Text = caption.Caption;
    const EffectRow& effect = Edited.Rows.Effect(row);
    EffText[row].Text = effect.Script;
    ChooseOrAdd(TriggerCombo[row], effect.Trigger);
    ChooseOrAdd(TargetCombo[row], effect.Target);
  }
  ShowHints();
}

void CardEdit::ShowImages() {
  for (auto [box, shown] :
       {std::pair(&MainPic, &Image.Main()), std::pair(&MiniPic, &Image.Mini())}) {
    box->Picture = shown->File;
    box->Drawing = shown->Drawing;
  }
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
  for (Control* control : std::initializer_list<Control*>{&FileLabel, &FileCombo}) {
    control->Visible = whole && documents_.IsOfGame();
  }
  composeallmen.Visible = whole;
  gridmen.Visible = whole;
  CostButton.Visible = whole && !IsFree(State().CostCard);
  for (int row = 0; row < kVisibleRows; ++row) {
    TraitText[row].ReadOnly = !whole;
    ValueText[row].ReadOnly = !whole;
  }
}

void CardEdit::loadcommontraits() {
  if (State().Collection.UpperBound() <= 1) return;
  EditedLists::AddCommonTraits();
  for (int row = 0; row < kVisibleRows; ++row) TraitCombo[row].Items = EditedLists::TraitNames();
}

}  // namespace brindlemoor
