// Undo and redo of the card editor.
#include "editor/card_history.h"

#include <utility>

namespace brindlemoor {

bool SameContent(const CardSnapshot& a, const CardSnapshot& b) {
  const Card& one = a.Card;
  const Card& other = b.Card;
  return one.Name == other.Name && one.SourceFile == other.SourceFile &&
         one.AuxText == other.AuxText && one.UniqueID == other.UniqueID &&
         one.Description == other.Description && one.ActivateOn == other.ActivateOn &&
         one.Rarity == other.Rarity && one.NameColor == other.NameColor &&
         one.Picture == other.Picture && one.Thumb == other.Thumb && a.Rows.SameContent(b.Rows);
}

void CardHistory::Begin(CardSnapshot present) {
  past_.clear();
  future_.clear();
  typedIn_.clear();
  present_ = std::move(present);
  present_.Revision = ++lastRevision_;
}

bool CardHistory::Note(CardSnapshot present, std::string_view control, bool typed) {
  if (SameContent(present, present_)) {
    // A glance elsewhere is no step, but it ends one.
    if (!typed || control != typedIn_) typedIn_.clear();
    Refresh(std::move(present));
    return false;
  }
  if (!typed || control != typedIn_) {
    // An undo and a redo show the place that was changed.
    present_.Rows.Tops = present.Rows.Tops;
    past_.push_back(std::move(present_));
    if (past_.size() > kSteps) past_.pop_front();
  }
  future_.clear();
  typedIn_ = typed ? control : std::string_view();
  present_ = std::move(present);
  present_.Revision = ++lastRevision_;
  return true;
}

void CardHistory::Refresh(CardSnapshot present) {
  present.Revision = present_.Revision;
  present_ = std::move(present);
}

const CardSnapshot& CardHistory::Undo() {
  typedIn_.clear();
  present_.Rows.Tops = past_.back().Rows.Tops;
  future_.push_back(std::exchange(present_, std::move(past_.back())));
  past_.pop_back();
  return present_;
}

const CardSnapshot& CardHistory::Redo() {
  typedIn_.clear();
  present_.Rows.Tops = future_.back().Rows.Tops;
  past_.push_back(std::exchange(present_, std::move(future_.back())));
  future_.pop_back();
  return present_;
}

void CardHistory::KeepIdentity(const Card& stored) {
  const auto keep = [&stored](CardSnapshot& state) {
    if (state.Card.UniqueID.empty()) state.Card.UniqueID = stored.UniqueID;
    state.Card.SourceFile = stored.SourceFile;
  };
  ForEach(keep);
}

void CardHistory::KeepImage(const Card& stored) {
  ForEach([&stored](CardSnapshot& state) {
    if (!state.Card.Picture.empty()) return;
    state.Card.Picture = stored.Picture;
    state.Card.Thumb = stored.Thumb;
  });
}

}  // namespace brindlemoor
