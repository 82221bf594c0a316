// Loading the edited card, building it of its rows, and going through its steps.
#include "editor/edited_card.h"

#include <utility>

#include "core/cards.h"
#include "core/state.h"
#include "editor/edited_lists.h"
#include "script/card_setup.h"

namespace brindlemoor {

void EditedCard::Load(Card card) {
  Card& edited = State().EditCard;
  edited = std::move(card);
  if (IsFree(edited) && edited.Initialised == 0) InitCard(edited, 1, 0);
  Rows = CardRows::Of(edited);
}

Card EditedCard::WithRows() const { return Rows.AppliedTo(State().EditCard); }

void EditedCard::GiveUniqueID() {
  Card& edited = State().EditCard;
  if (!edited.UniqueID.empty()) return;
  edited.UniqueID = NewUniqueID(edited.Name);
  history_.KeepIdentity(edited);
}

void EditedCard::BeginHistory() {
  history_.Begin(Snapshot());
  MarkSaved();
}

void EditedCard::KeepFile() { history_.KeepIdentity(State().EditCard); }

void EditedCard::KeepImage() { history_.KeepImage(State().EditCard); }

CardSnapshot EditedCard::Snapshot() const { return {.Card = State().EditCard, .Rows = Rows}; }

void EditedCard::Show(const CardSnapshot& snapshot) {
  State().EditCard = snapshot.Card;
  Rows = snapshot.Rows;
}

}  // namespace brindlemoor
