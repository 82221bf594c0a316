// The words of card data files: directives and locations, a row each.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

class CardReader;

/// Where the card that #TRAIT, #EFFECT and the like speak of is.
enum PileCode : int {
  kDeckPile = 0,        ///< last card of the player's Deck
  kTablePile = 1,       ///< last card of CardTable
  kRulesPile = 2,       ///< RulesCard
  kPlayerCardPile = 3,  ///< the player's player card in CardTable
  kTraitActionPile = 4,
  kSideboardPile = 5,
  kPlayerDeckPile = 6,  ///< last card of the deck with the current deck number
  kCollectionPile = 7,
  kTemplatePile = 8,
  kCostPile = 9,  ///< CostCard
  kNoPile = 10    ///< the card was left out, and what follows it with it
};

/// A directive, the number of fields behind it and what reads it.
struct DirectiveRow {
  std::string_view Word;
  int Fields;
  void (CardReader::*Handler)(const DirectiveRow& row);
  PileCode Pile;             ///< where a card of it goes, kNoPile when it makes none
  bool Neutral;              ///< its card has owner 0
  std::string_view Usage;    ///< the fields, for authors
  std::string_view Meaning;  ///< one line for authors
};

/// Where a directive stands in the text of the file that it was read from.
struct DirectivePlace {
  const DirectiveRow* Row = nullptr;
  std::size_t Begin = 0;    ///< byte of the decoded text, at the double quote of a word in quotes
  std::size_t End = 0;      ///< behind what ends its last field
  PileCode Pile = kNoPile;  ///< of the card that it made or speaks of, kNoPile for none
  int Position = 0;         ///< in that pile, from 1
  bool MakesCard = false;
};
using DirectivePlaces = std::vector<DirectivePlace>;

/// Owners of LocationRow: the side that reads, or a fixed one.
inline constexpr int kReadingSide = -1;

/// A location word of #CARD lines.
struct LocationRow {
  std::string_view Word;
  PileCode Pile;  ///< kNoPile leaves the card out
  int InPlay;
  int Owner;
  bool CanBeForced;  ///< #INCLUDE and refreshes may send its cards elsewhere
  std::string_view Meaning;
};

/// A directive that other readers of the same files know: the game list and the players' files.
struct ForeignDirectiveRow {
  std::string_view Word;
  std::string_view Usage;    ///< the fields, for authors
  std::string_view Meaning;  ///< one line for authors
};

extern const std::array<DirectiveRow, 29> kDirectiveRows;
extern const std::array<ForeignDirectiveRow, 4> kForeignDirectiveRows;
extern const std::array<LocationRow, 12> kLocationRows;

/// The row of a directive or location word (exact), nullptr for an unknown one.
const DirectiveRow* FindDirective(std::string_view word);
const LocationRow* FindLocation(std::string_view word);

/// What is wrong with a word that begins with "#" and is no directive; "" for what may be a
/// comment, a colour, or the directive of another reader.
std::string ProblemOfWord(std::string_view word);

/// True for directives that other readers of the same files know.
bool IsForeignDirective(std::string_view word);

}  // namespace brindlemoor
