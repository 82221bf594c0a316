// The card editor: "Print Cards".
#include <algorithm>
#include <vector>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_edit.h"
#include "editor/card_sheets.h"
#include "editor/picture_files.h"
#include "pages/battlefield.h"
#include "pages/messages.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

/// A trait as the game shows it, with its name where that is a picture; "" for a trait that it does
/// not show. Without a game in the program every trait is shown with its values.
std::string ShownTrait(Card& card, const Text& trait) {
  const std::string name(FieldAt(trait, 1, ':'));
  bool hasGame = false;
  for (const TraitGraphic& graphic : State().TraitGraphics) hasGame |= !graphic.TraitName.empty();
  if (!hasGame) return ReplacedCopy(trait, ":", " ");
  const std::string badge = TraitBadge(card, name, 0);
  std::string text = WithoutMarkup(badge);
  if (badge.find("<img") == std::string::npos) return text;
  return text.empty() ? name : Joined(name, " ", text);
}

std::string TraitsLine(Card card) {
  std::string line = card.AuxText.Str();
  for (int item = 1; item <= card.Traits.UpperBound(); ++item) {
    const Text trait = card.Traits[item];
    const std::string shown = trait.empty() ? std::string() : ShownTrait(card, trait);
    if (!shown.empty()) line += Joined(line.empty() ? "" : ", ", shown);
  }
  return line;
}

SheetCard SheetCardOf(const Card& card, const std::string& cardFolder) {
  std::string description = card.Description.Str();
  Card filler = card;
  ExpandMessage(filler, filler, description, "", "");
  return {.Name = WithoutMarkup(card.Name),
          .Picture = FindPicture(card.Picture, cardFolder),
          .Line = TraitsLine(card),
          .Description = WithoutMarkup(description),
          .Color = FrameColorOf(card.NameColor)};
}

}  // namespace

void CardEdit::PrintCards(PaperSize paper) {
  StoreCurrentCard();
  std::vector<const Card*> cards;
  for (const Card& card : State().Collection) {
    if (!IsFree(card)) cards.push_back(&card);
  }
  if (cards.empty()) {
    Desktop().MessageBox("There are no cards to print.");
    return;
  }
  const auto path =
      Desktop().AskFile({.Save = true, .FileName = "*.pdf", .DefaultExtension = "pdf"});
  if (!path) return;
  const auto document = Desktop().NewPdf(paper);
  const int sheets = SheetCount(static_cast<int>(cards.size()));
  ProgressForm& progress = TheProgressForm();
  const int done = progress.Run("Print Cards", sheets, [&](int sheet) {
    progress.What.Caption = Joined("Sheet ", sheet + 1, " of ", sheets);
    std::vector<SheetCard> shown;
    const auto first = static_cast<std::size_t>(sheet) * kSheetCards;
    const std::size_t end = std::min(first + kSheetCards, cards.size());
    for (std::size_t card = first; card < end; ++card) {
      shown.push_back(SheetCardOf(*cards[card], Image.CardFolder));
    }
    document->AddPage(LayOutSheet(paper, shown));
  });
  if (done < sheets) return;
  const std::string bytes = document->Finish();
  const std::string error =
      bytes.empty() ? "the pages could not be made" : Desktop().Files().Write(*path, bytes);
  Desktop().MessageBox(error.empty()
                           ? Joined(CountText(static_cast<int>(cards.size()), "card"), " on ",
                                    CountText(sheets, "sheet"), ".  Print them at their full size.")
                           : Joined("Can't save ", FileNameOf(*path), ": ", error));
}

}  // namespace brindlemoor
