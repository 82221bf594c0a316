// Filling a message in for the plain engine: every placeholder is made and replaced, whether the
// text holds it or not.
#include "core/state.h"
#include "pages/messages.h"
#include "pages/placeholders.h"

namespace brindlemoor {

void ExpandMessage(Card& source, Card& target, std::string& text, std::string_view sourcePicture,
                   std::string_view targetPicture) {
  const WorkAccount account;
  SpendWorkOnText(text.size());
  for (int pass = 1; pass <= 2; ++pass) {
    SpendWorkOnSearch(static_cast<std::size_t>(State().CustomStrings.UpperBound()));
    for (const CustomStringRec& entry : State().CustomStrings) {
      if (WorkIsSpent()) break;
      SpendWorkOnText(text.size());
      // A pick rolls a die, so none is made for a key that is not there.
      if (entry.Key.empty() || text.find(entry.Key) == std::string::npos) continue;
      Fill(text, entry.Key, CustomStringPick(entry.Key));
    }
  }
  ExpandHashFields(source, target, text);
  const MessageCards cards{source, target, sourcePicture, targetPicture};
  for (const Placeholder& row : Placeholders()) {
    if (const Replacement replacement = row.Make(cards)) Fill(text, row.Mark, *replacement);
  }
}

bool ExpandShownMessage(Card& source, Card& target, std::string& text,
                        std::string_view sourcePicture, std::string_view targetPicture) {
  ExpandMessage(source, target, text, sourcePicture, targetPicture);
  return true;
}

}  // namespace brindlemoor
