// Value expressions: chains such as "SRCTRAIT/HP/TRAITPLUS1".
#pragma once

#include <span>
#include <string_view>

#include "core/records.h"
#include "core/value.h"

namespace brindlemoor {

/// The value of an expression for a pair of cards: a number, a card's name, or "NONE" for an empty
/// expression. computed becomes true when a keyword took part; it is never cleared here.
Value EvalValue(const Card& source, const Card& target, std::string_view expression,
                bool& computed);
Value EvalValue(const Card& source, const Card& target, std::string_view expression);

/// Most arguments are plain integers, which are their own value: true for those, whatever the
/// cards.
bool IsPlainInteger(std::string_view expression, double& number);

/// An expression that is a trait of one of the cards and nothing else.
struct TraitValue {
  std::string_view Name;  ///< "" when the expression is anything else
  bool OfTarget = false;  ///< of the target, not of the acting card
};
TraitValue AsTraitValue(std::string_view expression);

/// NumericPrefix of EvalValue.
double EvalNumber(const Card& source, const Card& target, std::string_view expression);

/// True for a text that has a meaning as a whole expression, whatever its fields are.
bool IsWholeExpression(std::string_view expression);

/// How the references write dice: a field that begins with "R".
inline constexpr std::string_view kDiceWord = "R#Die#";

/// A keyword of the language of expressions, for references and checkers.
struct ValueKeyword {
  std::string_view Word;
  std::string_view Usage;
};
/// Every keyword and operator; a word that takes its argument in the same field ends in "#".
std::span<const ValueKeyword> ValueKeywords();

}  // namespace brindlemoor
