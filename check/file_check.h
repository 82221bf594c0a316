// Checking the directives of a card file, field by field.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "check/card_set.h"
#include "check/finding.h"

namespace brindlemoor {

/// Where a trait is asked for.
struct TraitReading {
  std::string Name;
  std::string File;
  FilePlace Place;
};

/// A script whose effects do nothing but change traits.
struct TraitWriting {
  std::vector<std::string> Traits;  ///< folded
  std::string File;
  FilePlace Place;
};

/// How often a trait is written in one way, and where first.
struct TraitSpelling {
  int Count = 0;
  std::string File;
  FilePlace Place;
};

/// A number or a trait word in the text of a card.
struct TextClaim {
  std::string Word;      ///< folded trait name, "" for a number alone
  std::string Number;    ///< digits
  bool IsLimit = false;  ///< "up to 9"
  std::string File;
  FilePlace Place;
};

/// What a card's text claims and what its lines know.
struct CardClaims {
  std::string Name;
  std::vector<TextClaim> Claims;
  std::unordered_set<std::string> Words;  ///< folded words and numbers of its lines
  std::vector<std::string> Makes;         ///< names of the cards that it creates
};

/// What the files of a set say together.
struct SetFacts {
  std::unordered_set<std::string> GivenTraits;               ///< folded
  std::unordered_map<std::string, TraitReading> ReadTraits;  ///< by folded name, the first place
  /// Place and name of the first card of each unique ID.
  struct Definition {
    std::string Name;
    std::string File;
    FilePlace Place;
  };
  std::unordered_map<std::string, Definition> UniqueIds;
  std::unordered_set<std::string> CardNames;
  /// What scripts call cards of stores, by name, the first place.
  std::unordered_map<std::string, Definition> StoreCards;
  std::vector<TraitWriting> Writings;
  /// Words of all lines, folded, but for the names of traits where they are given.
  std::unordered_set<std::string> Words;
  /// By folded name, and the name as it is written.
  std::map<std::string, std::map<std::string, TraitSpelling>> Spellings;
  std::vector<CardClaims> Cards;
};

/// Checks a file of a set: adds what is wrong, and what the file says to the facts.
void CheckCardFile(const CheckedFile& file, CardSet& set, SetFacts& facts,
                   std::vector<Finding>& findings);

}  // namespace brindlemoor
