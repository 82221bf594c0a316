// The command table of the script language: one row a word, from the families' tables.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace brindlemoor {

struct Run;
enum class Step;

/// What a test run does with a command. The walk sees to all but kRuns: no Carry is called then.
enum class InTest : std::uint8_t {
  kRuns,     ///< acts on the copies as usual
  kSkip,     ///< no effect; past the arguments
  kSkipOne,  ///< no effect; one field on, so that the arguments are walked as unknown words
  kEnds,     ///< the walk ends
};

/// One word of the language.
struct Command {
  std::string_view Word;
  std::uint8_t Arguments;  ///< fields that belong to the word
  bool TakesRest;          ///< the rest of the script is its last argument
  InTest Test;
  Step (*Carry)(Run& run);  ///< carries the command out
  std::string_view Usage;   ///< argument names and one line for authors: "TRAIT VALUE | adds ..."
  bool Pictures = false;    ///< its message may show the run's card pictures
};

/// The families' tables, each in the file that its name says.
std::span<const Command> RequirementCommands();  // script/requirement_commands.cpp
std::span<const Command> TraitCommands();        // script/trait_commands.cpp
std::span<const Command> CardCommands();         // script/card_commands.cpp
std::span<const Command> DisplayCommands();      // script/display_commands.cpp
std::span<const Command> ReactionCommands();     // script/reaction_commands.cpp

/// The row of a word, nullptr for an unknown one. Exact case, without the "AI" prefix.
const Command* FindCommand(std::string_view word);

/// All rows, family by family.
std::span<const std::span<const Command>> CommandFamilies();

}  // namespace brindlemoor
