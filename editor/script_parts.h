// The parts of a script as its box shows them: commands, arguments, and the words of values.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"

namespace brindlemoor {

struct Command;

/// A stretch of a script.
struct ScriptPart {
  std::size_t Offset;  ///< in bytes, from 0
  std::string_view Text;
  TextStyle Style;
  const Command* Row;  ///< the command that it is or belongs to, nullptr for none
  /// Of the argument it belongs to, or of the field that a value's keyword takes; "" where a
  /// command stands.
  std::string_view Name;
  bool Continues = false;  ///< see ScriptField

  bool Reaches(std::size_t caret) const { return caret >= Offset && caret <= Offset + Text.size(); }
};

/// What the fields behind a counting keyword are: a trait that the cards need to have, or nothing,
/// and whose cards are counted.
inline constexpr std::string_view kNeededName = "NEEDED";
inline constexpr std::string_view kOwnerName = "OWNERWORD";

/// All parts in their order, empty ones included: of an argument that is a value each "/" field is
/// a part of its own.
std::vector<ScriptPart> PartsOfScript(std::string_view script);
/// The same of a text that is one argument by itself, see FieldsOfArgument.
std::vector<ScriptPart> PartsOfArgument(std::string_view name, std::string_view text);

/// The place in the reference page of the word at a byte of the script: of a value word, a trigger,
/// a target or the command it belongs to. That of scripts where there is none.
std::string ReferenceAnchor(std::string_view script, std::size_t caret);

}  // namespace brindlemoor
