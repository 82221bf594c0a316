// The card editor: undo and redo, and what is not saved yet.
#include <functional>
#include <initializer_list>
#include <utility>

#include "core/state.h"
#include "data/card_file_writer.h"
#include "editor/card_edit.h"

namespace brindlemoor {

namespace {

constexpr int kMinute = 60000;  // milliseconds

}  // namespace

void CardEdit::WatchEdits() {
  const auto watch = [this](std::function<void()>& event, const std::string& control, bool typed) {
    event = [this, act = std::move(event), control, typed] {
      act();
      NoteEdit(control, typed);
    };
  };
  const auto watchTyping = [&](auto& box) {
    box.FormUndoes = true;
    watch(box.Change, box.Name, true);
  };
  watchTyping(DescText);
  for (int row = 0; row < kVisibleRows; ++row) {
    for (auto* boxes :
         {&CardText, &TraitText, &ValueText, &TraitDescName, &TraitDescText, &EffText}) {
      watchTyping((*boxes)[row]);
    }
    for (auto* combos : {&TraitCombo, &TargetCombo, &TriggerCombo}) {
      watch((*combos)[row].Click, (*combos)[row].Name, false);
    }
    watchTyping(TriggerCombo[row]);
    watch(EffButton[row].Click, EffButton[row].Name, false);
  }
  watchTyping(ActivateCombo);
  watch(ActivateCombo.Click, ActivateCombo.Name, false);
  watch(RarityCombo.Click, RarityCombo.Name, false);
  watch(FileCombo.Click, FileCombo.Name, false);
  watch(ColorLabel.Click, ColorLabel.Name, false);
  for (Button* button : {&CostButton, &Command3, &Command7}) {
    watch(button->Click, button->Name, false);
  }
  for (ScrollBar* bar : {&TraitScroll, &EffScroll, &TraitDescScroll}) {
    watch(bar->Change, bar->Name, false);
  }
  for (MenuItem* item : graphicmen.Items) watch(item->Click, item->Name, false);
  MainPic.MouseUp = [this, act = std::move(MainPic.MouseUp)](MouseButton button) {
    act(button);
    NoteEdit(MainPic.Name, false);
  };
  UnsavedTimer.Interval = kMinute;
  UnsavedTimer.Enabled = true;
  UnsavedTimer.Tick = [this] { UnsavedTimer_Tick(); };
  Timers.push_back(&UnsavedTimer);
  ShowChanges();
}

void CardEdit::NoteEdit(std::string_view control, bool typed) {
  if (FormBusy != kFormReady || !Edited.Note(control, typed)) return;
  copyIsOld_ = true;
  ShowChanges();
}

void CardEdit::TakeStep(void (EditedCard::*step)()) {
  const Text name = State().EditCard.Name;
  (Edited.*step)();
  if (State().EditCard.Name != name) Lists.NamesAreOld = true;
  FormBusy = kLoadingCard;
  ShowTops();
  UpdateCard();
  UpdatePic(1);
  FormBusy = kFormReady;
  copyIsOld_ = true;
  ShowChanges();
}

void CardEdit::undomen_Click() {
  if (Edited.CanUndo()) TakeStep(&EditedCard::Undo);
}

void CardEdit::redomen_Click() {
  if (Edited.CanRedo()) TakeStep(&EditedCard::Redo);
}

void CardEdit::BeginHistory(bool kept) {
  Lists.Changed |= kept && !Edited.IsSaved();
  Edited.BeginHistory();
  ShowChanges();
}

bool CardEdit::HasUnsavedChanges() const {
  // The reduced form changes no file.
  const bool changed = Lists.Changed || Image.IsUnsaved() || !Edited.IsSaved();
  return changed && State().SingleCardEdit == 0;
}

void CardEdit::ShowChanges() {
  undomen.Enabled = Edited.CanUndo();
  redomen.Enabled = Edited.CanRedo();
  Caption = HasUnsavedChanges() ? "Card Editor *" : "Card Editor";
}

void CardEdit::ListChanged() {
  Edited.EndTyping();
  Lists.Changed = true;
  copyIsOld_ = true;
  ShowChanges();
}

void CardEdit::AllIsSaved() {
  Edited.EndTyping();
  Lists.Changed = false;
  // A card of no list is in no file.
  if (Lists.Place() > 0) Edited.MarkSaved();
  ShowChanges();
}

std::string CardEdit::CopyName() const {
  return documents_.IsOfGame() ? documents_.PathOfCopy() : State().CardFile.Str();
}

std::string CardEdit::UnsavedText() const {
  const auto edited = [this] {
    Card card = Edited.WithRows();
    Image.KeepReplaced(card);  // no card file can hold a composed one
    return card;
  };
  return Lists.FileText(edited, [this] {
    const Session& state = State();
    // In a game each card says of which file it is.
    StampCards(state.CardFile, state.CardFile.empty() || documents_.IsOfGame() ? 0 : 1);
    const auto bytes = documents_.BytesWith(state.Collection, state.Templates);
    return bytes ? *bytes : CardFileText(state.CardFile, "COLLECTION", "", 0);
  });
}

void CardEdit::UnsavedTimer_Tick() {
  if (!HasUnsavedChanges()) {
    copy_.RemoveOwn(CopyName());
    copyIsOld_ = true;
  } else if (copyIsOld_) {
    copyIsOld_ = !copy_.Write(CopyName(), UnsavedText());
  }
}

void CardEdit::OfferUntitledCopy() {
  const std::string copy = copy_.Offer("");
  if (copy.empty()) return;
  State().Collection.Reset(1);
  ReadCardList(copy);
  loadcommontraits();
  ListChanged();
}

}  // namespace brindlemoor
