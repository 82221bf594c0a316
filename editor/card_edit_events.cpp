// The card editor: what its fields, rows and help buttons do.
#include <cstdio>
#include <iterator>

#include "core/desktop.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_edit.h"
#include "editor/cost_calculator.h"
#include "editor/effect_picker.h"
#include "editor/word_choice.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kHelp[] = {
    "Traits are the data that defines the card; they tell the game what kind of card it is and "
    "define it's stats.  For more information on what traits are and how to use them, consult the "
    "main help.",
    "Cards interact with one another using \"Actions,\" which are defined via action scripts.  "
    "Each line here corresponds to a single action.  To make an action, select a target type and a "
    "trigger for the action using the dropdown menu, then click on the \"Add Effect\" button to "
    "begin defining effects for that action.  For more information on actions and action "
    "scripting, consult the main help file.",
    "Many games define what are called \"Trait Actions.\"  These are actions which a card inherits "
    "by having a certain trait.  While these actions often have captions of their own, the game "
    "allows you to change the message displayed when this card uses a particular trait action.  If "
    "you wish to do this, simply type the new caption here next to the trait it corresponds to."};

std::string ColorText(std::int32_t color) {
  char text[8];
  std::snprintf(text, sizeof text, "#%06X", static_cast<unsigned>(color) & 0xFFFFFFU);
  return text;
}

}  // namespace

void CardEdit::CardText_Change(int index) {
  if (FormBusy != kFormReady) return;
  Card& card = State().EditCard;
  Text& field = index == 0 ? card.Name : index == 1 ? card.AuxText : card.UniqueID;
  field = CardText[index].Text.Get();
  if (index == 0) Lists.NamesAreOld = true;
  ShowNameHint();
  PreviewSoon();
}

void CardEdit::DescText_Change() {
  if (FormBusy != kFormReady) return;
  State().EditCard.Description = DescText.Text.Get();
  PreviewSoon();
}

void CardEdit::ActivateCombo_Change() {
  if (FormBusy == kFormReady) State().EditCard.ActivateOn = ActivateCombo.Text.Get();
}

void CardEdit::RarityCombo_Click() {
  if (FormBusy != kFormReady) return;
  State().EditCard.Rarity = static_cast<std::uint8_t>(NumericPrefix(RarityCombo.Text.Get()));
}

void CardEdit::TraitText_Change(int index) {
  if (FormBusy != kFormReady) return;
  Edited.Rows.Trait(index).Name = TraitText[index].Text;
  UpdateCard();
}

void CardEdit::ValueText_Change(int index) {
  if (FormBusy != kFormReady) return;
  Edited.Rows.Trait(index).Value = ValueText[index].Text;
  UpdateCard();
}

void CardEdit::TraitCombo_Click(int index) {
  if (FormBusy != kFormReady) return;
  if (!TraitText[index].ReadOnly) TraitText[index].Text = TraitCombo[index].Text.Get();
  // The list is a menu: it shows no choice of its own.
  TraitCombo[index].Text = std::string(kTraitMenuText);
  TraitText_Change(index);
}

void CardEdit::TraitDescName_Change(int index) {
  if (FormBusy == kFormReady) Edited.Rows.Caption(index).Trait = TraitDescName[index].Text;
}

void CardEdit::TraitDescText_Change(int index) {
  if (FormBusy == kFormReady) Edited.Rows.Caption(index).Caption = TraitDescText[index].Text;
}

void CardEdit::EffText_Change(int index) {
  if (FormBusy != kFormReady) return;
  Edited.Rows.Effect(index).Script = EffText[index].Text;
  ShowHints();
}

void CardEdit::TriggerCombo_Change(int index) {
  if (FormBusy != kFormReady) return;
  Edited.Rows.Effect(index).Trigger = TriggerCombo[index].Text;
  ShowHints();
}

void CardEdit::TriggerCombo_Click(int index) {
  if (FormBusy != kFormReady) return;
  EffectRow& row = Edited.Rows.Effect(index);
  if (auto trigger = CompletedTrigger(TriggerCombo[index].Text, true)) {
    row.Trigger = std::move(*trigger);
  }
  UpdateCard();
}

void CardEdit::TargetCombo_Click(int index) {
  if (FormBusy != kFormReady) return;
  EffectRow& row = Edited.Rows.Effect(index);
  if (auto target = CompletedTarget(TargetCombo[index].Text)) {
    row.Target = std::move(*target);
  }
  UpdateCard();
}

void CardEdit::EffButton_Click(int index) {
  if (TriggerCombo[index].Text.Get() == "COUNTER") {
    Desktop().MessageBox(
        "The Add Effect menu cannot be used for COUNTER commands.  (See main help for details.)");
    return;
  }
  const auto script = AskEffects();
  if (!script) return;
  EffText[index].Text = EffText[index].Text.Get() + *script;
  EffText_Change(index);
}

void CardEdit::TraitScroll_Change() {
  Edited.Rows.Tops.Trait = static_cast<std::uint8_t>(TraitScroll.Value.Get());
  UpdateCard();
}

void CardEdit::EffScroll_Change() {
  Edited.Rows.Tops.Effect = static_cast<std::uint8_t>(EffScroll.Value.Get());
  UpdateCard();
}

void CardEdit::TraitDescScroll_Change() {
  Edited.Rows.Tops.Caption = static_cast<std::uint8_t>(TraitDescScroll.Value.Get());
  UpdateCard();
}

void CardEdit::ColorLabel_Click() {
  const auto color = Desktop().AskColor(EditedImage::FrameColor());
  if (!color) return;
  State().EditCard.NameColor = ColorText(*color);
  ColorLabel.TextColor = EditedImage::FrameColor();
  UpdatePic(1);
  PreviewSoon();
}

void CardEdit::CostButton_Click() {
  if (State().CostCard.Name.empty()) return;
  if (!Lists.HoldsEdited()) {
    Desktop().MessageBox("Save the card first: costs are calculated for cards of the list.");
    return;
  }
  StoreCurrentCard();
  Card& card = State().Collection[Lists.Place()];
  const bool renamed = Lists.NamesAreOld;
  CalculateCost(card);
  Card priced = card;
  Image.GoOn(priced);
  LoadCardIntoForm(std::move(priced));
  if (renamed) LoadCombos();
}

void CardEdit::Command1_Click(int index) {
  if (index < static_cast<int>(std::size(kHelp))) {
    Desktop().MessageBox(kHelp[index]);
  } else if (index == 4) {
    Desktop().MessageBox(DescText.ToolTip.Get());
  }
}

}  // namespace brindlemoor
