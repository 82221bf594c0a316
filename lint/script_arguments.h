// The arguments of a script's commands, one by one, for those who look for names in scripts.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "script/command_table.h"

namespace brindlemoor {

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
