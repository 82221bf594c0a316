// The card editor: choosing, storing, making and deleting cards, and templates.
#include <algorithm>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/card_grid.h"
#include "editor/editor_forms.h"
#include "editor/editor_opening.h"
#include "language/traits.h"
#include "script/card_setup.h"

namespace brindlemoor {

void CardEdit::Form_Load() {
  Session& state = State();
  Lists.Edit(0);
  Image.Begin();
  ShowOutput(false);
  CardCombo.Select(0);
  if (state.SingleCardEdit != 0) {
    LoadCardIntoForm(state.EditCard);
    BeginHistory(false);
  } else {
    // No file is in the editor: a save must not meet the one that was there last.
    state.CardFile = Text();
    state.GameFileName = Text();
    state.Collection.Reset(1);
    state.CostCard = Card{};  // that of the match behind is none of these cards'
    BeginFreshCard();
  }
  state.Templates.Reset(1);
  beforeFiles_.emplace();
  documents_ = {};
  LoadCombos();
  copy_ = {};
  AllIsSaved();
}

bool CardEdit::Form_QueryClose() {
  Session& state = State();
  state.TestFromEditor = 0;
  const bool single = state.SingleCardEdit != 0;
  if (single) {
    state.EditCard = BuildCardFromForm();
    if (Image.IsUnsaved()) {
      if (!Desktop().AskYesNo("The new image is in no file.  Close without it?")) return true;
      Image.KeepReplaced(state.EditCard);
      Image.ForgetForeground();
    }
  }
  if (HasUnsavedChanges()) {
    const SaveAnswer answer = Desktop().AskSaving("Save cards now?");
    if (answer == SaveAnswer::kCancel) return true;
    if (answer == SaveAnswer::kSave) {
      StoreCurrentCard();
      if (Lists.HoldsEdited() && Image.IsUnsaved()) return true;
      if (!SaveCards({})) return true;
    }
  }
  if (!single) {
    copy_.RemoveOwn(CopyName());
    LeaveCardEditor();
  }
  return false;
}

void CardEdit::LoadCardIntoForm(Card card) {
  Edited.Load(std::move(card));
  FormBusy = kLoadingCard;
  ShowTops();
  // The lists would gather the triggers and targets of all cards else.
  BeginLists();
  UpdateCard();
  UpdatePic(1);
  Lists.NamesAreOld = false;
  FormBusy = kFormReady;
  PreviewNow();
}

Card CardEdit::BuildCardFromForm() {
  Edited.GiveUniqueID();
  StoreComposedImage();
  return Edited.WithRows();
}

void CardEdit::EditCardAt(int index) {
  const int before = Lists.Edit(index);
  if (index != before) {
    Image.ForgetForeground();
    Image.ShowNothing();
  }
  Card card = State().Collection[index];
  Image.GoOn(card);
  LoadCardIntoForm(std::move(card));
  if (index == before) {
    Edited.Refresh();
  } else {
    BeginHistory(before > 0);
  }
}

void CardEdit::StoreCurrentCard() {
  // A card that was typed and never put into the list would be lost by what comes now.
  if (Lists.Place() == 0 && State().SingleCardEdit == 0 && !IsFree(State().EditCard)) {
    Lists.Edit(EditedLists::AddCard({}));
    Lists.NamesAreOld = true;
    ListChanged();
  }
  if (!Lists.HoldsEdited()) return;
  Lists.Store(BuildCardFromForm());
  // Where a new image could not be written, the file keeps naming the one before.
  Image.KeepReplaced(State().Collection[Lists.Place()]);
  UpdateCard();
}

void CardEdit::BeginFreshCard() {
  Card fresh;
  InitCard(fresh, 1, 0);
  const int before = Lists.Edit(0);
  Image.ForgetForeground();
  CardCombo.Select(0);
  LoadCardIntoForm(std::move(fresh));
  BeginHistory(before > 0);
}

void CardEdit::CollectionChanged() {
  Lists.FindEdited();
  LoadCombos();
  CardCombo.Select(Lists.Place());
}

void CardEdit::CardCombo_Click() {
  const int chosen = std::max(CardCombo.Selected.Get(), 1);
  StoreCurrentCard();
  if (Lists.NamesAreOld) {
    LoadCombos();
    Lists.NamesAreOld = false;
  }
  if (chosen != Lists.Place() && !Image.MayLeave()) {
    CardCombo.Select(Lists.Place());
    return;
  }
  if (State().Collection.Holds(chosen)) EditCardAt(chosen);
}

void CardEdit::gridmen_Click() {
  StoreCurrentCard();
  if (!Image.MayLeave()) return;
  CardGrid& grid = TheCardGrid();
  const auto files = documents_.IsOfGame() ? documents_.FileNames() : EditedLists::Names();
  grid.Begin(files, Lists.Place());
  Desktop().ShowForm(grid, true);
  if (grid.Table.Changed()) ListChanged();
  const int place = grid.Chosen != 0 ? grid.Chosen : Lists.Place();
  if (State().Collection.Holds(place)) EditCardAt(place);
  LoadCombos();
  CardCombo.Select(place);
}

void CardEdit::TryButton_Click() {
  const Card tried = Edited.WithRows();
  if (IsFree(tried)) {
    Desktop().MessageBox("Give the card a name first.");
    return;
  }
  TheTrialForm().Begin(tried);
  Desktop().ShowForm(TheTrialForm(), true);
}

void CardEdit::Command6_Click() {
  if (!Lists.HoldsEdited()) {
    const int added = EditedLists::AddCard({});
    if (added == 0) return;
    Lists.Edit(added);  // it is the same card, now of the list
    ListChanged();
  }
  StoreCurrentCard();
  EditCardAt(Lists.Place());
  EditedLists::AddCommonTraits();
  LoadCombos();
  CardCombo.Select(Lists.Place());
}

void CardEdit::Command2_Click(int index) {
  const bool duplicate = index == 1;  // DuplicateButton
  // What was typed goes into the duplicate; a card from a template has no use for it.
  if (!duplicate) StoreCurrentCard();
  if (!duplicate && !Image.MayLeave()) return;
  Card added;
  InitCard(added, 1, 0);
  const std::int32_t globalId = added.GlobalID;
  const Text file = State().EditCard.SourceFile;
  const int chosen = TemplateCombo.Selected - 1;  // the first item is "Blank Card"
  const bool fromTemplate =
      !duplicate && State().Templates.Holds(chosen) && !IsFree(State().Templates[chosen].Card);
  if (duplicate) {
    added = BuildCardFromForm();
    if (!Image.MayLeave()) return;
    Image.KeepReplaced(added);
  } else if (fromTemplate) {
    added = State().Templates[chosen].Card;
  } else {
    added.Name = "New Card";
  }
  added.GlobalID = globalId;
  if (documents_.IsOfGame()) added.SourceFile = file;
  const int place = EditedLists::AddCard(std::move(added));
  if (place == 0) return;
  if (fromTemplate) {
    const Template& chosenTemplate = State().Templates[chosen];
    Image.BackFile = chosenTemplate.BackImage.Str();
    Image.MiniBorderFile = chosenTemplate.MiniBorder.Str();
  }
  EditCardAt(place);
  Card& card = State().EditCard;
  const Text name = card.Name;
  card.Name = Joined(duplicate ? "Copy of " : "New ", name);
  // A new card's ID has its longer name, a duplicate's the name of its model; that is meant.
  card.UniqueID = NewUniqueID(duplicate ? name : card.Name);
  Lists.Store(BuildCardFromForm());
  Edited.Refresh();
  ListChanged();
  LoadCombos();
  CardCombo.Select(place);
  UpdatePic(1);
}

void CardEdit::Command5_Click() {
  const Card card = BuildCardFromForm();
  if (IsFree(card)) {  // it would be a free place again
    Desktop().MessageBox("Give the card a name first: templates are chosen by it.");
    return;
  }
  Image.KeepParts();
  EditedLists::KeepTemplate(
      {card, Image.BackFile, Image.MiniBorderFile, EditedImage::FrameColor()});
  ListChanged();
  LoadCombos();
}

void CardEdit::Command4_Click() {
  if (!Desktop().AskYesNo("Are you sure you want to delete this card?")) return;
  Pile& cards = State().Collection;
  const int deleted = Lists.Place();
  BeginFreshCard();
  if (cards.Holds(deleted)) cards[deleted] = State().EditCard;
  SortList();
  ListChanged();
  LoadCombos();
}

void CardEdit::Command8_Click() {
  constexpr std::string_view kTrait = "CHARACTER";
  constexpr std::string_view kTurnEnd = "TURNEND";
  bool isFound = Lists.Place() > 0 && HasTrait(State().EditCard, kTrait);
  for (Card& card : State().Collection) {
    if (!HasTrait(card, kTrait)) continue;
    card.ActivateOn = kTurnEnd;
    isFound = true;
  }
  if (!isFound) {
    Desktop().MessageBox("No card has the trait CHARACTER.");
    return;
  }
  // The edited card is stored again later: it must not undo the change.
  if (Lists.Place() > 0 && HasTrait(State().EditCard, kTrait)) {
    State().EditCard.ActivateOn = kTurnEnd;
  }
  UpdateCard();
  BeginHistory(true);
  ListChanged();
}

}  // namespace brindlemoor
