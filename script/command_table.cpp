// The registry of the script language, built from the families' tables.
#include "script/command_table.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace brindlemoor {
namespace {

struct ArgumentRow {
  std::string_view Name;
  ArgumentKind Kind;
};

constexpr auto kArgumentRows = std::to_array<ArgumentRow>({
    {"TRAIT", ArgumentKind::kTrait},       {"VALUE", ArgumentKind::kValue},
    {"COUNT", ArgumentKind::kValue},       {"PAID", ArgumentKind::kValue},
    {"PERCENT", ArgumentKind::kValue},     {"GLOBALID", ArgumentKind::kValue},
    {"CONTENT", ArgumentKind::kContent},   {"SETTING", ArgumentKind::kSetting},
    {"OWNER", ArgumentKind::kNumber},      {"NAME", ArgumentKind::kText},
    {"FILE", ArgumentKind::kText},         {"FIELD", ArgumentKind::kText},
    {"WORD", ArgumentKind::kOptionalText}, {"COLOR", ArgumentKind::kOptionalText},
    {"MESSAGE", ArgumentKind::kMessage},   {"TEXT", ArgumentKind::kMessage},
    {"NEWNAME", ArgumentKind::kMessage},   {"PICTURE", ArgumentKind::kMessage},
    {"TRIGGER", ArgumentKind::kTrigger},   {"TARGET", ArgumentKind::kTarget},
    {"SCRIPT", ArgumentKind::kScript},     {"REQUIREMENTS", ArgumentKind::kRequirements},
});

const ArgumentRow* FindArgument(std::string_view name) {
  const auto* row = std::ranges::find(kArgumentRows, name, &ArgumentRow::Name);
  return row != kArgumentRows.end() ? row : nullptr;
}

}  // namespace

std::string_view ArgumentNames(const Command& row) {
  const std::size_t end = row.Usage.find('|');
  return row.Usage.substr(0, end == 0 ? 0 : end - 1);
}

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
