// The card editor: undo and redo, and what is not saved yet.
#include <functional>
#include <initializer_list>
#include <utility>

#include "core/cards.h"
#include "core/limits.h"
#include "core/state.h"
#include "data/card_file_writer.h"
#include "editor/card_edit.h"

namespace brindlemoor {

namespace {

constexpr int kMinute = 60000;  // milliseconds

/// A table of the session, which may be changed until the end of the scope.
template <class Array>
class Borrowed {
 public:
  explicit Borrowed(Array& table) : table_(table) {
    Array copy = table;
    original_ = std::exchange(table, std::move(copy));
  }
  ~Borrowed() { table_ = std::move(original_); }
  Borrowed(const Borrowed&) = delete;
  Borrowed& operator=(const Borrowed&) = delete;

 private:
  Array& table_;
  Array original_;
};

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
  if (FormBusy != kFormReady || !history_.Note(Snapshot(), control, typed)) return;
  copyIsOld_ = true;
  ShowChanges();
}

CardSnapshot CardEdit::Snapshot() const {
  return {.Card = State().EditCard,
          .Traits = TraitRows,
          .Effects = EffectRows,
          .Captions = CaptionRows,
          .TraitTop = TraitTop,
          .EffectTop = EffectTop,
          .CaptionTop = CaptionTop};
}

void CardEdit::ShowSnapshot(const CardSnapshot& snapshot) {
  Card& edited = State().EditCard;
  if (edited.Name != snapshot.Card.Name) NameChanged = 1;
  edited = snapshot.Card;
  TraitRows = snapshot.Traits;
  EffectRows = snapshot.Effects;
  CaptionRows = snapshot.Captions;
  TraitTop = snapshot.TraitTop;
  EffectTop = snapshot.EffectTop;
  CaptionTop = snapshot.CaptionTop;
  FormBusy = kLoadingCard;
  TraitScroll.Value = TraitTop;
  EffScroll.Value = EffectTop;
  TraitDescScroll.Value = CaptionTop;
  UpdateCard();
  UpdatePic(1);
  FormBusy = kFormReady;
  copyIsOld_ = true;
  ShowChanges();
}

void CardEdit::undomen_Click() {
  if (history_.CanUndo()) ShowSnapshot(history_.Undo());
}

void CardEdit::redomen_Click() {
  if (history_.CanRedo()) ShowSnapshot(history_.Redo());
}

void CardEdit::BeginHistory(bool kept) {
  listChanged_ |= kept && history_.Revision() != savedRevision_;
  history_.Begin(Snapshot());
  savedRevision_ = history_.Revision();
  ShowChanges();
}

bool CardEdit::HasUnsavedChanges() const {
  // The reduced form changes no file.
  const bool changed = listChanged_ || HasComposedImage() || history_.Revision() != savedRevision_;
  return changed && State().SingleCardEdit == 0;
}

void CardEdit::ShowChanges() {
  undomen.Enabled = history_.CanUndo();
  redomen.Enabled = history_.CanRedo();
  Caption = HasUnsavedChanges() ? "Card Editor *" : "Card Editor";
}

void CardEdit::ListChanged() {
  history_.EndTyping();
  listChanged_ = true;
  copyIsOld_ = true;
  ShowChanges();
}

void CardEdit::AllIsSaved() {
  history_.EndTyping();
  listChanged_ = false;
  // A card of no list is in no file.
  if (CurrentIndex > 0) savedRevision_ = history_.Revision();
  ShowChanges();
}

std::string CardEdit::UnsavedText() const {
  Session& state = State();
  const Borrowed cards(state.Collection);
  const Borrowed templates(state.Templates);
  const Borrowed traitBits(state.TraitBitNames);
  Card edited = EditedWithRows();
  KeepReplacedImage(edited);  // no card file can hold a composed one
  if (state.Collection.Holds(CurrentIndex)) {
    state.Collection[CurrentIndex] = std::move(edited);
  } else if (!IsFree(edited) && state.Collection.UpperBound() < limits::kPileCards) {
    state.Collection.Append(std::move(edited));
  }
  StampCards(state.CardFile, state.CardFile.empty() ? 0 : 1);
  return CardFileText(state.CardFile, "COLLECTION", "", 0);
}

void CardEdit::UnsavedTimer_Tick() {
  const Text& cardFile = State().CardFile;
  if (!HasUnsavedChanges()) {
    copy_.RemoveOwn(cardFile);
    copyIsOld_ = true;
  } else if (copyIsOld_) {
    copyIsOld_ = !copy_.Write(cardFile, UnsavedText());
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
