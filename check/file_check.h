// Checking the directives of a card file, field by field.
#pragma once

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
};

/// Checks a file of a set: adds what is wrong, and what the file says to the facts.
void CheckCardFile(const CheckedFile& file, CardSet& set, SetFacts& facts,
                   std::vector<Finding>& findings);

}  // namespace brindlemoor
