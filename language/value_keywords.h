// The keywords of value expressions: the rows that the evaluator, references and checkers share.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "core/records.h"
#include "core/strings.h"

namespace brindlemoor {

/// One evaluation in progress, which its keywords read and change.
struct Evaluation {
  const Card& Source;
  const Card& Target;
  FieldWalker Fields;          ///< stands behind the field being worked on
  double Acc = 0;              ///< the accumulator
  double TV = 0;               ///< the trait value named last
  bool FirstField = true;      ///< no trait value yet: a die field sees "NONE"
  int OwnerFilter = 0;         ///< side that counting keywords look at, 0 any
  const Text* Name = nullptr;  ///< the card's name that the evaluation yields
};

/// What a keyword did.
enum class KeywordEffect : std::uint8_t {
  kNone,      ///< it has no meaning here (a card without an owner): as an unknown word
  kGoesOn,    ///< the next field follows
  kFinishes,  ///< the evaluation ends with Acc, or with Name
};

/// The fields that a keyword takes from the chain behind it.
enum class KeywordFields : std::uint8_t {
  kNone,
  kTrait,  ///< name of a trait
  kCount,  ///< trait, needed trait or nothing, owner word; all but the first may be missing
  kTotal,  ///< the same; the needed trait's field must be there for an owner word to be read
  kNames,  ///< as kTotal, but the first is the name of cards
};

/// A keyword or operator. A word that ends in "#" takes what follows in its field as a number.
struct ValueKeywordRow {
  std::string_view Word;
  bool Computes;  ///< the value counts as computed
  KeywordEffect (*Apply)(Evaluation& evaluation, double argument);
  std::string_view Usage;
  KeywordFields Takes = KeywordFields::kNone;
  bool OfTarget = false;  ///< the trait is one of the target, not of the acting card

  /// True for an operator, whose number stands in its own field.
  bool IsOperator() const { return Word.back() == '#'; }
  /// The word without the "#" of an operator.
  std::string_view Stem() const { return Word.substr(0, Word.size() - (IsOperator() ? 1 : 0)); }
};

/// Every keyword and operator.
std::span<const ValueKeywordRow> ValueKeywordRows();
/// The words that say which side's cards a counting keyword looks at.
std::span<const std::string_view> OwnerWords();

/// The row of a field, nullptr for a word that is no keyword.
const ValueKeywordRow* FindValueKeyword(std::string_view field);

/// The number behind the word in an operator's field; 0 for a plain keyword.
double KeywordArgument(const ValueKeywordRow& row, std::string_view field);

}  // namespace brindlemoor
