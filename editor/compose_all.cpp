// The card editor: composing the images of all cards of the list again.
#include <vector>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_edit.h"
#include "editor/image_composer.h"
#include "ui/forms.h"

namespace brindlemoor {

namespace {

std::string ShownPart(const std::string& name) {
  return name.empty() ? std::string("(none)") : FileNameOf(name);
}

}  // namespace

void CardEdit::composeallmen_Click() {
  StoreCurrentCard();
  ImageComposer composer(Image.Folder());
  const Pile& cards = State().Collection;
  const std::vector<int> chosen = composer.CardsToCompose(cards);
  if (chosen.empty()) {
    Desktop().MessageBox("There is no card with an image whose parts are recorded.");
    return;
  }
  const int count = static_cast<int>(chosen.size());
  if (!Desktop().AskYesNo(Joined("Compose ", CountText(count, "image"),
                                 " anew?  The present ones are replaced."))) {
    return;
  }
  const bool take = Desktop().AskYesNo(
      Joined("Take the background ", ShownPart(Image.BackFile), " and the thumbnail border ",
             ShownPart(Image.MiniBorderFile), " for all of them, in place of each one's own?"));
  if (take) {
    if (!Image.KeepParts()) return;
    const std::string back = Image.FindPart(Image.BackFile);
    const std::string border = Image.FindPart(Image.MiniBorderFile);
    const bool found =
        back.empty() == Image.BackFile.empty() && border.empty() == Image.MiniBorderFile.empty();
    const ImageRecipe names{.Background = FileNameOf(Image.BackFile),
                            .Border = FileNameOf(Image.MiniBorderFile)};
    if (!found || !composer.TakeParts(back, border, names)) {
      Desktop().MessageBox("The background or the border can't be read: nothing is composed.");
      return;
    }
  }
  ProgressForm& progress = TheProgressForm();
  progress.Run("Composing images", count, [&](int index) {
    const Card& card = cards[chosen[static_cast<std::size_t>(index)]];
    progress.What.Caption = card.Name.Str();
    composer.Compose(card);
  });
  std::string report = composer.Report();
  const std::string error = take ? composer.WriteRecipes() : std::string();
  if (!error.empty()) report += Joined("  Can't save ", ImageRecipes::kFileName, ": ", error, ".");
  ShowImagesAfresh();
  Desktop().MessageBox(report);
}

}  // namespace brindlemoor
