// The table of value keywords and operators, and what each does to an evaluation.
#include "language/value_keywords.h"

#include <array>
#include <cmath>

#include "core/cards.h"
#include "core/state.h"
#include "language/traits.h"
#include "language/values.h"

namespace brindlemoor {
namespace {

struct OwnerWord {
  std::string_view Word;
  int (*Filter)(const Evaluation& evaluation);
  std::string_view Usage;
};

int OtherPlayer(int owner) { return owner == 1 ? 2 : 1; }

constexpr std::array<OwnerWord, 5> kOwnerWords{{
    {"SRCALLY", [](const Evaluation& e) { return static_cast<int>(e.Source.Owner); },
     "owner word: cards of the acting card's side"},
    {"TARGETALLY", [](const Evaluation& e) { return static_cast<int>(e.Target.Owner); },
     "owner word: cards of the target's side"},
    {"SRCENEMY", [](const Evaluation& e) { return OtherPlayer(e.Source.Owner); },
     "owner word: cards of the player against the acting card"},
    {"TARGETENEMY", [](const Evaluation& e) { return OtherPlayer(e.Target.Owner); },
     "owner word: cards of the player against the target"},
    {"ANY", [](const Evaluation&) { return 0; }, "owner word: cards of every side"},
}};

/// Takes an owner word; any other field leaves the filter as it is.
bool TakeOwnerWord(Evaluation& evaluation, std::string_view field) {
  for (const OwnerWord& row : kOwnerWords) {
    if (row.Word == field) {
      evaluation.OwnerFilter = row.Filter(evaluation);
      return true;
    }
  }
  return false;
}

bool CountsCard(const Card& card, int owner, std::string_view required) {
  if (owner > 0 && card.Owner != owner) return false;
  return required.empty() || HasTrait(card, required);
}

/// Adds to the value what each card of the table is worth that the owner filter and the required
/// trait let through.
template <class Worth>
KeywordEffect AddUp(Evaluation& evaluation, std::string_view required, Worth worth) {
  const Pile& table = State().CardTable;
  double total = 0;
  SpendWorkOnSearch(static_cast<std::size_t>(table.UpperBound()));
  for (int slot = 1; slot <= table.UpperBound() && !WorkIsSpent(); ++slot) {
    const Card& card = table[slot];
    if (IsFree(card) || !CountsCard(card, evaluation.OwnerFilter, required)) continue;
    total += worth(card);
  }
  evaluation.Acc += total;
  return KeywordEffect::kGoesOn;
}

/// The value of a card's trait, where a word or 0 counts as 1; 0 without the trait.
double TraitWorth(const Card& card, std::string_view trait) {
  const Value value = GetTrait(card, trait);
  if (value.IsText("NONE") || value.IsText("")) return 0;
  const double number = value.Number();
  return number == 0 ? 1 : number;
}

/// The required trait, and the owner word behind it.
std::string_view TakeRequired(Evaluation& evaluation) {
  const std::string_view required = evaluation.Fields.Next();
  TakeOwnerWord(evaluation, evaluation.Fields.Next());
  return required;
}

KeywordEffect TakeTrait(Evaluation& evaluation, const Card& card) {
  evaluation.TV = TraitNumber(card, evaluation.Fields.Next());
  return KeywordEffect::kGoesOn;
}

KeywordEffect CountTrait(Evaluation& evaluation, double) {
  const std::string_view trait = evaluation.Fields.Next();
  std::string_view required = evaluation.Fields.Next();
  if (TakeOwnerWord(evaluation, required)) {
    required = {};
  } else {
    TakeOwnerWord(evaluation, evaluation.Fields.Next());
  }
  return AddUp(evaluation, required,
               [&](const Card& card) { return TraitWorth(card, trait) == 0 ? 0 : 1; });
}

KeywordEffect TotalTrait(Evaluation& evaluation, double) {
  const std::string_view trait = evaluation.Fields.Next();
  const std::string_view required = TakeRequired(evaluation);
  return AddUp(evaluation, required, [&](const Card& card) { return TraitWorth(card, trait); });
}

KeywordEffect CountName(Evaluation& evaluation, double) {
  const std::string_view name = evaluation.Fields.Next();
  const std::string_view required = TakeRequired(evaluation);
  return AddUp(evaluation, required, [&](const Card& card) { return card.Name == name ? 1 : 0; });
}

KeywordEffect YieldIdentity(Evaluation& evaluation, const Card* card) {
  if (card == nullptr) return KeywordEffect::kNone;
  evaluation.Acc = card->GlobalID;
  return KeywordEffect::kFinishes;
}

KeywordEffect YieldName(Evaluation& evaluation, const Card& card) {
  evaluation.Name = &card.Name;
  return KeywordEffect::kFinishes;
}

KeywordEffect YieldLastCard(Evaluation& evaluation, double) {
  const Pile& table = State().CardTable;
  const int slot = State().LastEntered;
  return YieldIdentity(evaluation, table.Holds(slot) ? &table[slot] : nullptr);
}

KeywordEffect SetAcc(Evaluation& evaluation, double number) {
  evaluation.Acc = number;
  return KeywordEffect::kGoesOn;
}

// The words that scripts use most stand first.
constexpr std::array kRows{
    ValueKeywordRow{"SRCTRAIT", true, [](Evaluation& e, double) { return TakeTrait(e, e.Source); },
                    "/TRAIT | remembers a trait of the acting card; alone, it is the value",
                    KeywordFields::kTrait},
    ValueKeywordRow{"TARGETTRAIT", true,
                    [](Evaluation& e, double) { return TakeTrait(e, e.Target); },
                    "/TRAIT | remembers a trait of the target; alone, it is the value",
                    KeywordFields::kTrait, true},
    ValueKeywordRow{"TARGTRAIT", true, [](Evaluation& e, double) { return TakeTrait(e, e.Target); },
                    "/TRAIT | the same as TARGETTRAIT", KeywordFields::kTrait, true},
    ValueKeywordRow{"MYTRAIT", true, [](Evaluation& e, double) { return TakeTrait(e, e.Source); },
                    "/TRAIT | the same as SRCTRAIT", KeywordFields::kTrait},
    ValueKeywordRow{"TRAIT", true, [](Evaluation& e, double) { return TakeTrait(e, e.Source); },
                    "/TRAIT | the same as SRCTRAIT", KeywordFields::kTrait},
    ValueKeywordRow{"TRAITPLUS#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, e.Acc + k * e.TV); },
                    "| adds the remembered trait, that many times"},
    ValueKeywordRow{"TRAITMINUS#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, e.Acc - k * e.TV); },
                    "| takes the remembered trait away, that many times"},
    ValueKeywordRow{"TRAITMULT#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, e.Acc * e.TV * k); },
                    "| multiplies by the remembered trait and by the number"},
    ValueKeywordRow{"TRAITPERC#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, e.Acc * (1 + k * e.TV / 100)); },
                    "| grows by that many percent for each point of the remembered trait"},
    ValueKeywordRow{
        "DIV#", true,
        [](Evaluation& e, double k) { return SetAcc(e, k == 0 ? e.Acc : std::floor(e.Acc / k)); },
        "| divides and rounds down"},
    ValueKeywordRow{"MULT#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, std::floor(e.Acc * k)); },
                    "| multiplies and rounds down"},
    ValueKeywordRow{"PLUS#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, std::floor(e.Acc + k)); },
                    "| adds and rounds down"},
    ValueKeywordRow{"MINUS#", true,
                    [](Evaluation& e, double k) { return SetAcc(e, std::floor(e.Acc - k)); },
                    "| subtracts and rounds down"},
    ValueKeywordRow{"NEG", true, [](Evaluation& e, double) { return SetAcc(e, -e.Acc); },
                    "| changes the sign"},
    ValueKeywordRow{"INTEGER", true,
                    [](Evaluation& e, double) { return SetAcc(e, std::floor(e.Acc)); },
                    "| rounds down"},
    ValueKeywordRow{"LASTAMT", true,
                    [](Evaluation& e, double) { return SetAcc(e, e.Acc + State().LastValue); },
                    "| adds the amount of the last change"},
    ValueKeywordRow{"LASTVAL", true,
                    [](Evaluation& e, double) { return SetAcc(e, e.Acc + State().LastValue); },
                    "| the same as LASTAMT"},
    ValueKeywordRow{
        "TOKENS", true,
        [](Evaluation& e, double) { return SetAcc(e, e.Acc + State().Players[1].Tokens); },
        "| adds the player's tokens"},
    ValueKeywordRow{"TRAITCOUNT", true, CountTrait,
                    "/TRAIT/OWNERWORD or /TRAIT/NEEDED/OWNERWORD | adds the number of cards with "
                    "the trait, and with the needed one",
                    KeywordFields::kCount},
    ValueKeywordRow{"TRAITTOTAL", true, TotalTrait,
                    "/TRAIT/NEEDED/OWNERWORD | adds the trait's values over all cards; a word or 0 "
                    "counts 1",
                    KeywordFields::kTotal},
    ValueKeywordRow{"NAMECOUNT", true, CountName,
                    "/NAME/NEEDED/OWNERWORD | adds the number of cards of that name",
                    KeywordFields::kNames},
    ValueKeywordRow{"MYGID", true,
                    [](Evaluation& e, double) { return YieldIdentity(e, &e.Source); },
                    "| the acting card's Global ID"},
    ValueKeywordRow{"$MYGID", true,
                    [](Evaluation& e, double) { return YieldIdentity(e, &e.Source); },
                    "| the same as MYGID"},
    ValueKeywordRow{"TARGETGID", true,
                    [](Evaluation& e, double) { return YieldIdentity(e, &e.Target); },
                    "| the target's Global ID"},
    ValueKeywordRow{"MYOWNERGID", true,
                    [](Evaluation& e, double) { return YieldIdentity(e, OwnerCard(e.Source)); },
                    "| the Global ID of the acting card's player card"},
    ValueKeywordRow{"TARGETOWNERGID", true,
                    [](Evaluation& e, double) { return YieldIdentity(e, OwnerCard(e.Target)); },
                    "| the Global ID of the target's player card"},
    ValueKeywordRow{"LASTCARD", true, YieldLastCard,
                    "| the Global ID of the card that came into the table last"},
    ValueKeywordRow{"MYNAME", false, [](Evaluation& e, double) { return YieldName(e, e.Source); },
                    "| the acting card's name"},
    ValueKeywordRow{"TARGETNAME", false,
                    [](Evaluation& e, double) { return YieldName(e, e.Target); },
                    "| the target's name"},
};

// Words of an expression that need no row of their own above.
constexpr std::array<ValueKeyword, 4> kOtherWords{{
    {"$MYNAME", "| the acting card's name; only as the whole expression"},
    {"$TARGETNAME", "| the target's name; only as the whole expression"},
    {"$TARGETGID", "| the target's Global ID; only as the whole expression"},
    {kDiceWord, "| R2Die6 rolls two dice of six sides; TRAIT in it is the remembered trait"},
}};

constexpr auto kReference = [] {
  std::array<ValueKeyword, kRows.size() + kOwnerWords.size() + kOtherWords.size()> all{};
  std::size_t count = 0;
  for (const ValueKeywordRow& row : kRows) all[count++] = {row.Word, row.Usage};
  for (const OwnerWord& row : kOwnerWords) all[count++] = {row.Word, row.Usage};
  for (const ValueKeyword& row : kOtherWords) all[count++] = row;
  return all;
}();

constexpr auto kOwnerWordNames = [] {
  std::array<std::string_view, kOwnerWords.size()> names{};
  for (std::size_t index = 0; index < names.size(); ++index) names[index] = kOwnerWords[index].Word;
  return names;
}();

}  // namespace

const ValueKeywordRow* FindValueKeyword(std::string_view field) {
  const char first = field.empty() ? '\0' : field.front();
  for (const ValueKeywordRow& row : kRows) {
    if (row.Word.front() != first) continue;
    if (row.IsOperator() ? field.starts_with(row.Stem()) : field == row.Word) return &row;
  }
  return nullptr;
}

double KeywordArgument(const ValueKeywordRow& row, std::string_view field) {
  return row.IsOperator() ? NumericPrefix(field.substr(row.Stem().size())) : 0;
}

std::span<const ValueKeywordRow> ValueKeywordRows() { return kRows; }

std::span<const std::string_view> OwnerWords() { return kOwnerWordNames; }

std::span<const ValueKeyword> ValueKeywords() { return kReference; }

}  // namespace brindlemoor
