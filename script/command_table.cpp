// The registry of the script language, built from the families' tables.
#include "script/command_table.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace brindlemoor {
namespace {

// clang-format off
constexpr auto kArgumentRows = std::to_array<ArgumentRow>({
    {"TRAIT", ArgumentKind::kTrait, "the name of a trait"},
    {"VALUE", ArgumentKind::kValue, "a number or a value expression"},
    {"COUNT", ArgumentKind::kValue, "how many: a number or a value expression"},
    {"PAID", ArgumentKind::kValue, "1 asks the price, 0 does not"},
    {"PERCENT", ArgumentKind::kValue, "a chance from 0 to 100"},
    {"GLOBALID", ArgumentKind::kValue, "a value expression that names a card, such as MYGID"},
    {"CONTENT", ArgumentKind::kContent, "a word, a number, or a value expression with a keyword"},
    {"SETTING", ArgumentKind::kSetting, "a word, a number, or a value expression that is above 0"},
    {"OWNER", ArgumentKind::kNumber, "the number of a side"},
    {"NAME", ArgumentKind::kText, "the name of a card"},
    {"FILE", ArgumentKind::kText, "the name of a card file, without folders"},
    {"FIELD", ArgumentKind::kText, "a word that a script can hold"},
    {"WORD", ArgumentKind::kOptionalText, "a word or a number"},
    {"COLOR", ArgumentKind::kOptionalText, "a colour, such as #102030 or green"},
    {"MESSAGE", ArgumentKind::kMessage, "a text for the report"},
    {"TEXT", ArgumentKind::kMessage, "a text, in which placeholders are filled in"},
    {"NEWNAME", ArgumentKind::kMessage, "a name for a card"},
    {"PICTURE", ArgumentKind::kMessage, "the file of a picture"},
    {"TRIGGER", ArgumentKind::kTrigger, "when: one of the triggers"},
    {"TARGET", ArgumentKind::kTarget, "on whom: one of the target types"},
    {"SCRIPT", ArgumentKind::kScript, "all the rest of the script"},
    {"REQUIREMENTS", ArgumentKind::kRequirements, "all the rest of the script, which asks only"},
});
// clang-format on

const ArgumentRow* FindArgument(std::string_view name) {
  const auto* row = std::ranges::find(kArgumentRows, name, &ArgumentRow::Name);
  return row != kArgumentRows.end() ? row : nullptr;
}

}  // namespace

std::string_view ArgumentNames(const Command& row) {
  const std::size_t end = row.Usage.find('|');
  return row.Usage.substr(0, end == 0 ? 0 : end - 1);
}

std::span<const ArgumentRow> ArgumentRows() { return kArgumentRows; }

bool IsArgumentName(std::string_view name) { return FindArgument(name) != nullptr; }

ArgumentKind KindOfArgument(std::string_view name) {
  const ArgumentRow* row = FindArgument(name);
  return row != nullptr ? row->Kind : ArgumentKind::kText;
}

std::string CommandForm(const Command& row) {
  std::string form(row.Word);
  const std::string_view names = ArgumentNames(row);
  if (!names.empty()) (form += ':') += names;
  std::ranges::replace(form, ' ', ':');
  return form;
}

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
