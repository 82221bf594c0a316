// The script checker: what the engine will not understand in a script, a trigger, a target, a value
// expression or a message, for the editor's boxes and for reports on files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

enum class FindingKind : std::uint8_t {
  kUnknownCommand,
  kMissingArgument,  ///< of a command, trigger, target, value keyword or placeholder
  kSurplusArgument,  ///< a field behind those of a command that is no command itself
  kEmptyFieldEnds,   ///< what stands behind an empty field is never read
  kUnknownTrigger,
  kUnknownTarget,
  kUnknownValueWord,
  kUnknownPlaceholder,
  kHiddenMarkup,             ///< a tag or an attribute that no page shows
  kQuoteInText,              ///< a double quote where its form in files has another meaning
  kRequirementBehindEffect,  ///< understood, but it comes too late to keep the effect from
                             ///< happening
  kRequirementCancels,       ///< understood, but it calls the answered action off
  kCommandIsLost,            ///< does nothing where it stands
  kActionIsLost,             ///< never runs with this target and trigger
  kCountIsZero,
  kDiceAreStored,  ///< as a text: they are never rolled
  kValueIsOdd,     ///< counts otherwise than it reads
};

/// True for a finding that the engine understands all the same.
constexpr bool IsRemark(FindingKind kind) { return kind >= FindingKind::kRequirementBehindEffect; }

struct ScriptFinding {
  FindingKind Kind;
  int Field;            ///< ":" field of the script, trigger or target, from 1; 0 for other texts
  std::size_t Offset;   ///< byte of the checked text; its size for what is missing at the end
  std::string Message;  ///< a sentence for authors
  std::string Suggestion;  ///< the word that was most likely meant, "" for none
};

/// What is wrong, in the order of the text; empty when the engine understands all of it. A very bad
/// text is not followed to its end. Custom strings of the game that is loaded count as known.
std::vector<ScriptFinding> CheckScript(std::string_view script);
std::vector<ScriptFinding> CheckTrigger(std::string_view trigger);
std::vector<ScriptFinding> CheckTarget(std::string_view target);
std::vector<ScriptFinding> CheckValue(std::string_view expression);
std::vector<ScriptFinding> CheckMessage(std::string_view text);
/// Nothing but the markup of a text, such as a description.
std::vector<ScriptFinding> CheckMarkup(std::string_view text);

}  // namespace brindlemoor
