// Value expressions of the plain engine: a chain is split anew for every field, and each field is
// compared with one keyword after the other.
#include "language/values.h"

#include <cmath>
#include <string>

#include "core/cards.h"
#include "core/limits.h"
#include "core/random.h"
#include "core/replacing.h"
#include "core/state.h"
#include "core/strings.h"
#include "language/traits.h"

namespace brindlemoor {
namespace {

/// One evaluation in progress.
struct Chain {
  const Card& Source;
  const Card& Target;
  std::string_view Expression;
  bool& Computed;
  int Index = 1;
  double Acc = 0;
  Value TV = "NONE";
  int Owner = 0;
  bool Finished = false;

  std::string Next() { return GetDS(Expression, ++Index, "/"); }
};

double DieNumber(const std::string& text) {
  const std::size_t start = text.find_first_of("123456789");
  return start == std::string::npos ? 1 : NumericPrefix(text.substr(start));
}

void AddDice(Chain& chain, std::string field) {
  for (const char* word : {"TRAIT", "Trait", "trait"}) ReplaceAll(field, word, chain.TV.Str());
  if (field.size() < 2 || field[1] < '1' || field[1] > '9') return;
  const std::size_t die = field.find("Die");
  const std::size_t tail = die == std::string::npos ? 0 : die + 1;
  chain.Acc += RollDice(DieNumber(field), DieNumber(field.substr(field.size() - tail)));
}

bool TakeOwnerWord(Chain& chain, const std::string& word) {
  const int source = chain.Source.Owner;
  const int target = chain.Target.Owner;
  if (word == "SRCALLY")
    chain.Owner = source;
  else if (word == "TARGETALLY")
    chain.Owner = target;
  else if (word == "SRCENEMY")
    chain.Owner = source == 1 ? 2 : 1;
  else if (word == "TARGETENEMY")
    chain.Owner = target == 1 ? 2 : 1;
  else if (word == "ANY")
    chain.Owner = 0;
  else
    return false;
  return true;
}

/// The cards of a side that have a trait or, without countOnly, the total of its values; or the
/// cards of that name.
double CountAll(const std::string& word, int owner, const std::string& required, bool countOnly,
                bool byName) {
  const Pile& table = State().CardTable;
  double total = 0;
  SpendWorkOnSearch(static_cast<std::size_t>(table.UpperBound()));
  for (int slot = 1; slot <= table.UpperBound() && !WorkIsSpent(); ++slot) {
    const Card& card = table[slot];
    if (IsFree(card) || (owner > 0 && card.Owner != owner)) continue;
    if (!required.empty() && !HasTrait(card, required)) continue;
    if (byName) {
      if (card.Name == word) ++total;
      continue;
    }
    const Value value = GetTrait(card, word);
    if (value.IsText("NONE") || value.IsText("")) continue;
    total += countOnly || value.Number() == 0 ? 1 : value.Number();
  }
  return total;
}

void Count(Chain& chain, const std::string& keyword) {
  const std::string word = chain.Next();
  std::string required = chain.Next();
  if (keyword == "TRAITCOUNT" && TakeOwnerWord(chain, required)) {
    required.clear();
  } else {
    TakeOwnerWord(chain, chain.Next());
  }
  chain.Acc +=
      CountAll(word, chain.Owner, required, keyword == "TRAITCOUNT", keyword == "NAMECOUNT");
  chain.Computed = true;
}

void YieldIdentity(Chain& chain, const Card* card) {
  if (card == nullptr) return;
  chain.Acc = card->GlobalID;
  chain.Computed = true;
  chain.Finished = true;
}

/// The keywords that read cards and the session.
void TakeKeyword(Chain& chain, const std::string& field) {
  if (field == "TARGTRAIT" || field == "TARGETTRAIT") {
    chain.TV = TraitNumber(chain.Target, chain.Next());
    chain.Computed = true;
  } else if (field == "SRCTRAIT" || field == "MYTRAIT" || field == "TRAIT") {
    chain.TV = TraitNumber(chain.Source, chain.Next());
    chain.Computed = true;
  } else if (field == "TRAITCOUNT" || field == "TRAITTOTAL" || field == "NAMECOUNT") {
    Count(chain, field);
  } else if (field == "LASTAMT" || field == "LASTVAL") {
    chain.Acc += State().LastValue;
    chain.Computed = true;
  } else if (field == "TOKENS") {
    chain.Acc += State().Players[1].Tokens;
    chain.Computed = true;
  } else if (field == "MYGID" || field == "$MYGID") {
    YieldIdentity(chain, &chain.Source);
  } else if (field == "TARGETGID") {
    YieldIdentity(chain, &chain.Target);
  } else if (field == "MYOWNERGID") {
    YieldIdentity(chain, OwnerCard(chain.Source));
  } else if (field == "TARGETOWNERGID") {
    YieldIdentity(chain, OwnerCard(chain.Target));
  } else if (field == "LASTCARD") {
    const Pile& table = State().CardTable;
    const int last = State().LastEntered;
    YieldIdentity(chain, table.Holds(last) ? &table[last] : nullptr);
  }
}

/// The operators, most of which have a number behind them in the same field.
void TakeOperator(Chain& chain, const std::string& field) {
  double k = 0;
  const auto begins = [&](const std::string& word) {
    if (field.substr(0, word.size()) != word) return false;
    k = NumericPrefix(field.substr(word.size()));
    return true;
  };
  const double acc = chain.Acc;
  const double tv = chain.TV.Number();
  if (begins("TRAITPLUS"))
    chain.Acc = acc + k * tv;
  else if (begins("TRAITMINUS"))
    chain.Acc = acc - k * tv;
  else if (begins("TRAITMULT"))
    chain.Acc = acc * tv * k;
  else if (begins("TRAITPERC"))
    chain.Acc = acc * (1 + k * tv / 100);
  else if (begins("DIV"))
    chain.Acc = k == 0 ? acc : std::floor(acc / k);
  else if (begins("MULT"))
    chain.Acc = std::floor(acc * k);
  else if (begins("PLUS"))
    chain.Acc = std::floor(acc + k);
  else if (begins("MINUS"))
    chain.Acc = std::floor(acc - k);
  else if (field == "NEG")
    chain.Acc = -acc;
  else if (field == "INTEGER")
    chain.Acc = std::floor(acc);
  else
    return;
  chain.Computed = true;
}

}  // namespace

bool IsPlainInteger(std::string_view expression, double& number) {
  number = NumericPrefix(expression);
  return !expression.empty() && NumberText(number) == expression &&
         expression.find('.') == std::string_view::npos;
}

Value EvalValue(const Card& source, const Card& target, std::string_view expression,
                bool& computed) {
  SpendWork(1);
  if (expression == "$MYNAME") return source.Name;
  if (expression == "$TARGETNAME") return target.Name;
  const bool targetsIdentity = expression == "$TARGETGID" || expression == "TARGETGID";
  if (targetsIdentity || expression == "$MYGID" || expression == "MYGID") {
    computed = true;
    return targetsIdentity ? target.GlobalID : source.GlobalID;
  }
  Chain chain{source, target, expression, computed};
  for (int count = 1; !chain.Finished; ++count, ++chain.Index) {
    const std::string field = GetDS(expression, chain.Index, "/");
    if (field.empty()) break;
    if (count > limits::kValueFields) {
      limits::ReportLimit("A value expression had too many fields.");
      break;
    }
    if (field == "MYNAME") return source.Name;
    if (field == "TARGETNAME") return target.Name;
    chain.Acc += NumericPrefix(field);
    if (field[0] == 'R') {
      AddDice(chain, field);
      if (chain.TV.IsText("NONE")) chain.TV = 0;
    } else {
      TakeKeyword(chain, field);
      if (chain.TV.IsText("NONE")) chain.TV = 0;
      TakeOperator(chain, field);
    }
    if (!std::isfinite(chain.Acc)) chain.Acc = 0;
  }
  return chain.Acc == 0 ? chain.TV : Value(chain.Acc);
}

Value EvalValue(const Card& source, const Card& target, std::string_view expression) {
  bool computed = false;
  return EvalValue(source, target, expression, computed);
}

double EvalNumber(const Card& source, const Card& target, std::string_view expression) {
  return EvalValue(source, target, expression).Number();
}

bool IsWholeExpression(std::string_view expression) {
  for (const char* word :
       {"$MYNAME", "$TARGETNAME", "$MYGID", "MYGID", "$TARGETGID", "TARGETGID"}) {
    if (expression == word) return true;
  }
  return false;
}

}  // namespace brindlemoor
