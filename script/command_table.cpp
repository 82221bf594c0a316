// The registry of the script language, built from the families' tables.
#include "script/command_table.h"

#include <array>
#include <unordered_map>

namespace brindlemoor {

std::span<const std::span<const Command>> CommandFamilies() {
  static const std::array families = {RequirementCommands(), TraitCommands(), CardCommands(),
                                      DisplayCommands(), ReactionCommands()};
  return families;
}

const Command* FindCommand(std::string_view word) {
  static const std::unordered_map<std::string_view, const Command*> rows = [] {
    std::unordered_map<std::string_view, const Command*> byWord;
    for (const std::span<const Command> family : CommandFamilies()) {
      for (const Command& row : family) byWord.emplace(row.Word, &row);
    }
    return byWord;
  }();
  const auto found = rows.find(word);
  return found != rows.end() ? found->second : nullptr;
}

}  // namespace brindlemoor
