// Traits across the files of a game.
#include "check/trait_check.h"

#include <algorithm>
#include <string_view>

#include "language/program_traits.h"
#include "lint/word_distance.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

void CheckNeverGiven(const SetFacts& facts, std::vector<Finding>& findings) {
  std::vector<std::string_view> given(facts.GivenTraits.begin(), facts.GivenTraits.end());
  std::ranges::sort(given);
  for (const auto& [folded, reading] : facts.ReadTraits) {
    if (facts.GivenTraits.contains(folded) || folded == "#ANY#") continue;
    const ProgramTrait* own = FindProgramTrait(folded);
    if (own != nullptr && own->IsGiven) continue;
    findings.push_back({reading.File, reading.Place, FindingCode::kTraitNeverGiven,
                        Joined("No card has or gets the trait \"", reading.Name, "\"."),
                        NearestWord(folded, given)});
  }
}

bool IsRead(const SetFacts& facts, const std::string& trait) {
  return facts.ReadTraits.contains(trait) || facts.Words.contains(trait) ||
         FindProgramTrait(trait) != nullptr;
}

void CheckNeverRead(const SetFacts& facts, std::vector<Finding>& findings) {
  for (const TraitWriting& writing : facts.Writings) {
    const auto isRead = [&](const std::string& trait) { return IsRead(facts, trait); };
    if (std::ranges::any_of(writing.Traits, isRead)) continue;
    findings.push_back({writing.File, writing.Place, FindingCode::kTraitNeverRead,
                        Joined("This script only changes \"", writing.Traits.front(),
                               "\", which nothing in the game reads or shows."),
                        ""});
  }
}

/// The way in which a trait is written most often is the right one.
void CheckSpellings(const SetFacts& facts, std::vector<Finding>& findings) {
  for (const auto& [folded, spellings] : facts.Spellings) {
    if (spellings.size() < 2) continue;
    const auto most =
        std::ranges::max_element(spellings, {}, [](const auto& one) { return one.second.Count; });
    for (const auto& [name, spelling] : spellings) {
      if (name == most->first) continue;
      findings.push_back(
          {spelling.File, spelling.Place, FindingCode::kTraitCase,
           Joined("\"", name, "\" is written \"", most->first,
                  "\" elsewhere; REMOVETRAIT and TRAITCHANGE take them for two traits."),
           most->first});
    }
  }
}

}  // namespace

void CheckTraits(const SetFacts& facts, std::vector<Finding>& findings) {
  CheckNeverGiven(facts, findings);
  CheckNeverRead(facts, findings);
  CheckSpellings(facts, findings);
}

}  // namespace brindlemoor
