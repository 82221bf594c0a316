// The search box over a collection: what its text asks of a card.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "core/records.h"

namespace brindlemoor {

/// A search text, read once and asked of many cards. Its words are split at blanks; a card must
/// match them all:
///   gull "iron buoy"   a word or quoted phrase in the name, in the name of a trait or in the
///                      description without its HTML tags, in capitals or not
///   HP>=3 cost<2       the number of a trait, with >=, <=, >, < or =
///   TRIBE=crab         the text of a trait, where the right side is no number
/// A condition matches only cards that have the trait; while nothing stands behind its sign yet, it
/// matches all of them.
class CardSearch {
 public:
  explicit CardSearch(std::string_view text);
  /// True when the text asks for nothing: every card matches.
  bool Empty() const { return words_.empty() && conditions_.empty(); }
  /// False for a free record.
  bool Matches(const Card& card) const;

 private:
  struct Condition {
    std::string Trait;
    bool (*Holds)(double value, double wanted) = nullptr;  ///< nullptr compares texts
    double Number = 0;
    std::string Wanted;
  };
  /// Takes a condition off the front of a text; false when it begins with none.
  bool TakeCondition(std::string_view& text);
  static bool Fulfils(const Card& card, const Condition& condition);

  std::vector<std::string> words_;  ///< folded
  std::vector<Condition> conditions_;
};

}  // namespace brindlemoor
