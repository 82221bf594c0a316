// Splitting a script for each field, and looking words up from the first row of the tables on.
#include "script/parsed_script.h"

#include "core/strings.h"
#include "language/traits.h"
#include "script/command_table.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

const Command* LookUp(const std::string& word) {
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) {
      if (row.Word == word) return &row;
    }
  }
  return nullptr;
}

}  // namespace

std::string ParsedScript::Field(int n) const { return GetDS(script_, n, ":"); }

ParsedScript::FieldRow ParsedScript::RowAt(int n) const {
  FieldRow row;
  row.Text = Field(n);
  if (row.Text.empty()) return row;
  row.AiMarked = row.Text.substr(0, 2) == "AI";
  row.Row = LookUp(row.AiMarked ? row.Text.substr(2) : row.Text);
  return row;
}

Text ParsedScript::Tail(int n) const { return RestDS(script_, n, ":"); }

std::size_t ParsedScript::TailSize(int n) const {
  const std::string_view field = FieldAt(script_, n, ':');
  if (field.data() == nullptr) return 0;
  return script_.size() - static_cast<std::size_t>(field.data() - script_.data());
}

std::string_view ParsedScript::DeclaredTrait(std::string_view name) const {
  for (int field = 1;; ++field) {
    const std::string word = Field(field);
    if (word.empty() || word == "ADDEFFECT") return "NONE";
    if (word != "TRAIT") continue;
    ++field;
    // The answer is a part of the script, as the callers want it.
    if (Field(field) == name) return FieldAt(script_, field + 1, ':');
  }
}

bool ParsedScript::DeclaresFolded(std::string_view name) const {
  return DeclaredTrait(FoldUpper(name)) != "NONE";
}

bool ParsedScript::HasField(std::string_view text) const {
  for (int field = 1;; ++field) {
    const std::string word = Field(field);
    if (word.empty()) return false;
    if (word == text) return true;
  }
}

double SimpleNumber(const ParsedScript::FieldRow&, const Card&, const Card&) { return {}; }

bool HasTrait(const Card& card, const TraitName& name, const Text& script) {
  return ParsedScript::Of(script).DeclaresFolded(name.View()) || HasTrait(card, name);
}

}  // namespace brindlemoor
