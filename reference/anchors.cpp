// Finding the anchors of words in the tables of which the reference page is made.
#include "reference/anchors.h"

#include <algorithm>

#include "language/target_types.h"
#include "language/value_keywords.h"
#include "language/values.h"
#include "text/text.h"

namespace brindlemoor {

std::string TargetAnchor(std::string_view word) {
  const auto* const row = std::ranges::find(kTargetTypeRows, word, &TargetTypeRow::Word);
  return row == kTargetTypeRows.end() ? "" : Joined("target-", row->Word);
}

std::string TriggerAnchor(std::string_view word) {
  const auto* const row = std::ranges::find(kTriggerRows, word, &TriggerRow::Stem);
  return row == kTriggerRows.end() ? "" : Joined("trigger-", row->Stem());
}

std::string ValueAnchor(std::string_view field) {
  if (const ValueKeywordRow* row = FindValueKeyword(field)) return Joined("value-", row->Word);
  // No other word of a value begins as dice do.
  if (field.starts_with('R')) return Joined("value-", kDiceWord);
  const auto words = ValueKeywords();
  const auto row = std::ranges::find(words, field, &ValueKeyword::Word);
  return row == words.end() ? "" : Joined("value-", row->Word);
}

}  // namespace brindlemoor
