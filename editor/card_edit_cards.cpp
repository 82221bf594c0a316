// The card editor: choosing, storing, making and deleting cards, and templates.
#include <algorithm>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/limits.h"
#include "core/state.h"
#include "editor/card_edit.h"
#include "editor/editor_opening.h"
#include "game/card_sorting.h"
#include "language/traits.h"
#include "script/card_setup.h"

namespace brindlemoor {

namespace {

constexpr int kDuplicate = 1;

/// The first template place that is free or has the card's name, made if there is none.
Template& TemplatePlace(const Text& name) {
  Table<Template>& templates = State().Templates;
  for (Template& entry : templates) {
    if (IsFree(entry.Card) || entry.Card.Name == name) return entry;
  }
  return templates[templates.Append({})];
}

}  // namespace

void CardEdit::Form_Load() {
  Session& state = State();
  CurrentIndex = 0;
  ForgetForeground();
  BackFile = "backs-generic.bmp";
  MiniBorderFile.clear();
  CardFolder.clear();
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
    BeginFreshCard();
    FrameColor = 0xFFFFFF;
  }
  state.Templates.Reset(1);
  TraitTop = EffectTop = CaptionTop = 1;
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
    if (HasComposedImage()) {
      if (!Desktop().AskYesNo("The new image is in no file.  Close without it?")) return true;
      KeepReplacedImage(state.EditCard);
      ForgetForeground();
    }
  }
  if (Desktop().AskYesNo("Save cards now?")) {
    StoreCurrentCard();
    if (state.Collection.Holds(CurrentIndex) && HasComposedImage()) return true;
    // The cards of the reduced form are the player's: they do not go into an author's file.
    const Text cardFile = single ? std::exchange(state.CardFile, Text()) : Text();
    const bool saved = SaveCards({});
    if (single) state.CardFile = cardFile;
    if (!saved) return true;
  }
  if (!single) {
    copy_.RemoveOwn(state.CardFile);
    LeaveCardEditor();
  }
  return false;
}

void CardEdit::EditCardAt(int index) {
  const Card& card = State().Collection[index];
  const int before = std::exchange(CurrentIndex, index);
  if (index != before) {
    ForgetForeground();
    ClearImages();
  }
  storedGlobalId_ = card.GlobalID;
  LoadCardIntoForm(card);
  if (index == before) {
    history_.Refresh(Snapshot());
  } else {
    BeginHistory(before > 0);
  }
}

void CardEdit::StoreCardAt(int index) {
  Card& place = State().Collection[index];
  place = BuildCardFromForm();
  storedGlobalId_ = place.GlobalID;
}

void CardEdit::StoreCurrentCard() {
  // A card that was typed and never put into the list would be lost by what comes now.
  if (CurrentIndex == 0 && State().SingleCardEdit == 0 && !IsFree(State().EditCard)) {
    CurrentIndex = AddCard({});
    NameChanged = 1;
    ListChanged();
  }
  if (!State().Collection.Holds(CurrentIndex)) return;
  StoreCardAt(CurrentIndex);
  // Where a new image could not be written, the file keeps naming the one before.
  KeepReplacedImage(State().Collection[CurrentIndex]);
  UpdateCard();
}

int CardEdit::AddCard(Card card) {
  Pile& cards = State().Collection;
  if (cards.UpperBound() < limits::kPileCards) return cards.Append(std::move(card));
  Desktop().MessageBox("The list is full: the card is not added.");
  return 0;
}

void CardEdit::BeginFreshCard() {
  Card fresh;
  InitCard(fresh, 1, 0);
  const int before = std::exchange(CurrentIndex, 0);
  ForgetForeground();
  CardCombo.Select(0);
  LoadCardIntoForm(std::move(fresh));
  BeginHistory(before > 0);
}

void CardEdit::CollectionChanged() {
  const Pile& cards = State().Collection;
  if (CurrentIndex > 0) {
    const auto isIt = [&](int index) {
      return cards.Holds(index) && cards[index].GlobalID == storedGlobalId_;
    };
    int index = CurrentIndex;
    if (!isIt(index)) {
      for (index = cards.UpperBound(); index > 0 && !isIt(index);) --index;
    }
    CurrentIndex = index;
  }
  LoadCombos();
  CardCombo.Select(CurrentIndex);
}

void CardEdit::CardCombo_Click() {
  const int chosen = std::max(CardCombo.Selected.Get(), 1);
  StoreCurrentCard();
  if (NameChanged == 1) {
    LoadCombos();
    NameChanged = 0;
  }
  if (chosen != CurrentIndex && !MayLeaveImage()) {
    CardCombo.Select(CurrentIndex);
    return;
  }
  if (State().Collection.Holds(chosen)) EditCardAt(chosen);
}

void CardEdit::Command6_Click() {
  int index = CurrentIndex;
  if (!State().Collection.Holds(index)) {
    index = AddCard({});
    if (index == 0) return;
    CurrentIndex = index;  // it is the same card, now of the list
    ListChanged();
  }
  StoreCardAt(index);
  EditCardAt(index);
  LoadCombos();
  CardCombo.Select(index);
}

void CardEdit::Command2_Click(int index) {
  const bool duplicate = index == kDuplicate;
  // What was typed goes into the duplicate; a card from a template has no use for it.
  if (!duplicate) StoreCurrentCard();
  if (!duplicate && !MayLeaveImage()) return;
  Card added;
  InitCard(added, 1, 0);
  const std::int32_t globalId = added.GlobalID;
  const int chosen = TemplateCombo.Selected - 1;  // the first item is "Blank Card"
  const bool fromTemplate =
      !duplicate && State().Templates.Holds(chosen) && !IsFree(State().Templates[chosen].Card);
  if (duplicate) {
    added = BuildCardFromForm();
    if (!MayLeaveImage()) return;
  } else if (fromTemplate) {
    added = State().Templates[chosen].Card;
  } else {
    added.Name = "New Card";
  }
  added.GlobalID = globalId;
  const int place = AddCard(std::move(added));
  if (place == 0) return;
  if (fromTemplate) {
    const Template& chosenTemplate = State().Templates[chosen];
    BackFile = chosenTemplate.BackImage.Str();
    MiniBorderFile = chosenTemplate.MiniBorder.Str();
    FrameColor = chosenTemplate.BorderColor;
  }
  EditCardAt(place);
  Card& card = State().EditCard;
  const Text name = card.Name;
  card.Name = Joined(duplicate ? "Copy of " : "New ", name);
  // A new card's ID has its longer name, a duplicate's the name of its model; that is meant.
  card.UniqueID = NewUniqueID(duplicate ? name : card.Name);
  StoreCardAt(place);
  history_.Refresh(Snapshot());
  ListChanged();
  LoadCombos();
  CardCombo.Select(place);
  UpdatePic(1);
}

void CardEdit::Command5_Click() {
  const Card card = BuildCardFromForm();
  if (IsFree(card)) return;  // it would be a free place again
  TemplatePlace(card.Name) = {card, BackFile, MiniBorderFile, FrameColor};
  ListChanged();
  LoadCombos();
}

void CardEdit::Command4_Click() {
  if (!Desktop().AskYesNo("Are you sure you want to delete this card?")) return;
  Pile& cards = State().Collection;
  const int deleted = CurrentIndex;
  BeginFreshCard();
  if (cards.Holds(deleted)) cards[deleted] = State().EditCard;
  SortCards(cards, "NAME");
  ListChanged();
  LoadCombos();
}

void CardEdit::Command8_Click() {
  constexpr std::string_view kTrait = "CHARACTER";
  constexpr std::string_view kTurnEnd = "TURNEND";
  for (Card& card : State().Collection) {
    if (HasTrait(card, kTrait)) card.ActivateOn = kTurnEnd;
  }
  // The edited card is stored again later: it must not undo the change.
  if (CurrentIndex > 0 && HasTrait(State().EditCard, kTrait)) {
    State().EditCard.ActivateOn = kTurnEnd;
  }
  UpdateCard();
  BeginHistory(true);
  ListChanged();
}

}  // namespace brindlemoor
