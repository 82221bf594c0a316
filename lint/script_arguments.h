// What each field of a script is, for those who look for names in scripts and those who show them.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>
#include <vector>

#include "script/command_table.h"

namespace brindlemoor {

/// A ":" field of a script.
struct ScriptField {
  std::string_view Text;         ///< a part of the script, which may be empty
  const Command* Row = nullptr;  ///< the command that it is or belongs to; nullptr for neither
  /// Of the argument, as the usage lines of commands and triggers have it: "TRAIT". "" for the
  /// command itself, and for a field where a command was looked for.
  std::string_view Name{};
  /// It belongs to the argument before it, as the trait does in "TRAITCHANGE:HP".
  bool Continues = false;
};

/// The fields up to the first empty one that ends the script, that one included.
std::vector<ScriptField> FieldsOfScript(std::string_view script);

/// The same of a text that is one argument by itself, by the argument's name: "TRAITCHANGE:HP" is a
/// trigger and a trait. What stands behind the fields that belong to it is left out.
std::vector<ScriptField> FieldsOfArgument(std::string_view name, std::string_view text);

struct ScriptArgument {
  std::string_view Word;  ///< the command
  CommandRole Role;
  std::string_view Name;  ///< of the argument, as the usage line has it: "TRAIT"
  std::string_view Text;  ///< a part of the script
  std::string_view Next;  ///< the field behind it; a part of the script
};

/// Visits the arguments of every known command in the order of the script, those in the rest of a
/// script included. What follows an unknown word is visited from the next known one.
void VisitArguments(std::string_view script,
                    const std::function<void(const ScriptArgument&)>& visit);

/// Visits the names of traits that a value expression reads. A trait behind all operators is only
/// what a value of 0 comes to, and no card needs to have it.
void VisitValueTraits(std::string_view expression,
                      const std::function<void(std::string_view trait)>& visit);

}  // namespace brindlemoor
