// The command table of the script language: one row a word, from the families' tables.
#pragma once

#include <cstdint>
#include <span>
#include <string>
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

/// What a command is for in a script.
enum class CommandRole : std::uint8_t {
  kActs,      ///< an effect on cards or the game
  kRequires,  ///< a requirement: the script goes on only if it is met
  kChances,   ///< the same by chance
  kSends,     ///< sends the rest elsewhere; with the "AI" prefix its argument is walked as a word
  kShows,     ///< text and colours of the page
  kDeclares,  ///< says something about the action itself
};

/// How a command reads an argument, as its name in the usage line tells.
enum class ArgumentKind : std::uint8_t {
  kTrait,         ///< name of a trait
  kValue,         ///< value expression
  kContent,       ///< text that is stored as written unless a keyword computes it
  kSetting,       ///< text that is stored as written unless its value is above 0
  kNumber,        ///< plain number
  kText,          ///< plain text
  kOptionalText,  ///< plain text that may be empty
  kMessage,       ///< text whose placeholders are filled in; may be empty
  kTrigger,
  kTarget,
  kScript,        ///< the rest, run as a script
  kRequirements,  ///< the same, may be missing
};

/// What the "AI" mark before a requirement does when the requirement is not met.
enum class AiMark : std::uint8_t {
  kWishes,  ///< the card is worse as a target, and the script goes on
  kNone,    ///< what happens without the mark: it calls off or ends
  kFrees,   ///< nothing: the script goes on
};

/// The name of an argument in usage lines.
struct ArgumentRow {
  std::string_view Name;
  ArgumentKind Kind;
  std::string_view Meaning;  ///< for authors
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
  CommandRole Role = CommandRole::kActs;
  AiMark Mark = AiMark::kWishes;  ///< of a requirement
};

/// The families' tables, each in the file that its name says.
std::span<const Command> RequirementCommands();  // script/requirement_commands.cpp
std::span<const Command> TraitCommands();        // script/trait_commands.cpp
std::span<const Command> CardCommands();         // script/card_commands.cpp
std::span<const Command> DisplayCommands();      // script/display_commands.cpp
std::span<const Command> ReactionCommands();     // script/reaction_commands.cpp

/// The row of a word, nullptr for an unknown one. Exact case, without the "AI" prefix.
const Command* FindCommand(std::string_view word);

/// Every name of an argument that has a kind or a meaning of its own.
std::span<const ArgumentRow> ArgumentRows();
/// The names of a row's arguments, those in the rest included, divided by blanks: "TRAIT VALUE".
std::string_view ArgumentNames(const Command& row);
/// What an argument of this name is; kText for a name that is not known.
ArgumentKind KindOfArgument(std::string_view name);
/// True for the name of an argument that has a kind of its own.
bool IsArgumentName(std::string_view name);
/// How a command is written: "MODTRAIT:TRAIT:VALUE".
std::string CommandForm(const Command& row);

/// All rows, family by family.
std::span<const std::span<const Command>> CommandFamilies();

}  // namespace brindlemoor
