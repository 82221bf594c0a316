// Putting a card's traits into words.
#include "ui/card_words.h"

#include "text/joined.h"
#include "text/one_line.h"

namespace brindlemoor {

std::string TraitsInWords(const Card& card) {
  constexpr int kMost = 12;
  std::string words;
  int count = 0;
  for (const TraitItem& item : card.Traits) {
    if (item.empty() || ++count > kMost) continue;
    words += Joined(words.empty() ? "" : ", ", OneLine(item.Name()));
    if (!item.Value().empty()) words += Joined(" ", OneLine(item.Value()));
  }
  return words;
}

}  // namespace brindlemoor
