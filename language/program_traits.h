// The traits that the program itself asks for or writes, whatever a game calls its own.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace brindlemoor {

/// Where such a trait stands.
enum class TraitPlace : std::uint8_t {
  kCard,    ///< on a card: #TRAIT, ADDTRAIT, SETTRAIT
  kScript,  ///< declared in a script by TRAIT; it holds for that action
  kPrefix,  ///< the beginning of a name, on a card
};

struct ProgramTrait {
  std::string_view Name;
  TraitPlace Place;
  bool IsGiven;  ///< the program gives it to cards by itself
  std::string_view Example;
  std::string_view Meaning;  ///< for authors
};
std::span<const ProgramTrait> ProgramTraits();

/// The row of a name, without regard to case; nullptr for a trait that only the game knows.
const ProgramTrait* FindProgramTrait(std::string_view name);

}  // namespace brindlemoor
