// Deck construction rules.
#include "game/deck_rules.h"

#include <algorithm>
#include <iterator>

#include "core/cards.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"

namespace brindlemoor {
namespace {

constexpr std::string_view kEveryCard = "#ANY#";

/// What a message can name.
struct Wording {
  std::string_view Trait;
  std::string_view Limit;  ///< as the rule writes it
  std::string_view Name;   ///< of the card that would be added
};
using Message = std::string (*)(const Wording& say);

/// One kind of rule: its keyword, and a trait and a number behind it.
struct RuleKind {
  std::string_view Keyword;
  DeckVerdict Complaint;
  bool SameCard;    ///< only the cards of the added card's definition count
  Message OfCards;  ///< said when the rule counts cards
  Message OfTrait;  ///< said when it adds up a trait
};

constexpr RuleKind kRuleKinds[] = {
    {"TRAITLIMIT", kLimitBroken, false,
     [](const Wording& say) {
       return Joined("You can only have ", say.Limit, " cards in your deck.");
     },
     [](const Wording& say) {
       return Joined("You can only have a total of ", say.Limit, " ", say.Trait, " in your deck.");
     }},
    {"SAMENAMELIMIT", kLimitBroken, true,
     [](const Wording& say) {
       return Joined("You can only have ", say.Limit, " \"", say.Name, "\" cards in your deck.");
     },
     [](const Wording& say) {
       return Joined("You can only have a total of ", say.Limit, " ", say.Trait,
                     " in your deck from \"", say.Name, "\" cards.");
     }},
    {"TRAITMINIMUM", kMinimumMissed, false,
     [](const Wording& say) {
       return Joined("You must have at least ", say.Limit, " cards in your play deck.");
     },
     [](const Wording& say) {
       return Joined("You must have at least ", say.Limit, " cards in your deck with the ",
                     say.Trait, " trait.");
     }},
};

const RuleKind* RuleKindOf(std::string_view keyword) {
  const auto* kind = std::ranges::find(kRuleKinds, keyword, &RuleKind::Keyword);
  return kind == std::end(kRuleKinds) ? nullptr : kind;
}

/// True when the deck, with the card added, is not as the rule wants it.
bool Breaks(const RuleKind& kind, const Card& card, int deckNo, const Wording& rule) {
  const bool isLimit = kind.Complaint == kLimitBroken;
  if (isLimit && IsFree(card)) return false;
  const std::string_view uniqueId = kind.SameCard ? card.UniqueID.View() : std::string_view();
  const double total = DeckTraitSum(rule.Trait, deckNo, uniqueId) + TraitNumber(card, rule.Trait);
  const double limit = NumericPrefix(rule.Limit);
  return isLimit ? total > limit && !HasTrait(card, "UNLIMITED") : limit > total;
}

}  // namespace

std::vector<std::string_view> DeckRuleWords() {
  std::vector<std::string_view> words;
  for (const RuleKind& kind : kRuleKinds) words.push_back(kind.Keyword);
  return words;
}

double DeckTraitSum(std::string_view trait, int deckNo, std::string_view uniqueId) {
  if (!State().Decks.Holds(deckNo)) return 0;
  double sum = 0;
  for (const Card& card : State().Decks[deckNo].Cards) {
    if (IsFree(card) || (!uniqueId.empty() && card.UniqueID != uniqueId)) continue;
    sum += TraitNumber(card, trait);  // "#ANY#" is 1 on every card
  }
  return sum;
}

std::uint8_t CheckDeckRules(const Card& card, int deckNo, std::string_view rules,
                            std::string& message) {
  DeckVerdict verdict = kNoComplaint;
  FieldWalker fields(rules, ':');
  for (auto keyword = fields.Next(); !keyword.empty(); keyword = fields.Next()) {
    const RuleKind* kind = RuleKindOf(keyword);
    if (kind == nullptr) continue;
    const std::string_view trait = fields.Next();
    const std::string_view limit = fields.Next();
    const Wording rule{trait, limit, card.Name};
    if (!Breaks(*kind, card, deckNo, rule)) continue;
    message = trait == kEveryCard ? kind->OfCards(rule) : kind->OfTrait(rule);
    verdict = kind->Complaint;
    if (verdict == kLimitBroken) break;
  }
  return verdict;
}

std::vector<std::string> MissedMinimums(int deckNo, std::string_view rules) {
  std::vector<std::string> missed;
  FieldWalker fields(rules, ':');
  for (auto keyword = fields.Next(); !keyword.empty(); keyword = fields.Next()) {
    const RuleKind* kind = RuleKindOf(keyword);
    if (kind == nullptr) continue;
    const std::string_view trait = fields.Next();
    const std::string_view limit = fields.Next();
    if (kind->Complaint != kMinimumMissed) continue;
    const Wording rule{trait, limit, Text()};
    if (!Breaks(*kind, Card(), deckNo, rule)) continue;
    missed.push_back(Joined(trait == kEveryCard ? kind->OfCards(rule) : kind->OfTrait(rule),
                            "  It has ", DeckTraitSum(trait, deckNo, ""), "."));
  }
  return missed;
}

}  // namespace brindlemoor
