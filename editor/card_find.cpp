// Asking the cards of a pile in turn.
#include "editor/card_find.h"

#include <algorithm>
#include <string>

#include "core/cards.h"
#include "core/strings.h"
#include "language/target_types.h"
#include "text/fold.h"
#include "ui/card_search.h"

namespace brindlemoor {

namespace {

bool ActionHolds(const CardEffect& effect, std::string_view words) {
  if (effect.Script.empty()) return false;
  const std::string_view target =
      effect.TargetText.empty() ? TargetTypeName(effect.TargetType) : effect.TargetText.View();
  return FoldContains(effect.Script, words) || FoldContains(effect.Trigger, words) ||
         FoldContains(target, words) ||
         (effect.MenuState != kOrdinaryAction && FoldContains(effect.MenuCaption, words));
}

bool ActionsHold(const Card& card, std::string_view words) {
  return !IsFree(card) &&
         std::any_of(card.Effects.begin(), card.Effects.end(),
                     [words](const CardEffect& effect) { return ActionHolds(effect, words); });
}

}  // namespace

int FindNextCard(const Pile& cards, int after, std::string_view words) {
  words = Trimmed(words);
  if (words.empty()) return 0;
  const CardSearch search(words);
  const std::string folded = FoldUpper(words);
  const int count = cards.UpperBound();
  const int start = std::clamp(after, 0, count);
  for (int step = 1; step <= count; ++step) {
    const int index = (start + step - 1) % count + 1;
    const Card& card = cards[index];
    if ((!search.Empty() && search.Matches(card)) || ActionsHold(card, folded)) return index;
  }
  return 0;
}

}  // namespace brindlemoor
