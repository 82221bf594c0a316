// Splitting a script for each field, and looking words up from the first row of the tables on.
#include "script/parsed_script.h"

#include <algorithm>

#include "core/strings.h"
#include "core/traits.h"
#include "script/command_table.h"

namespace brindlemoor {

namespace {

const Command* LookUp(std::string_view word) {
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) {
      if (row.Word == word) return &row;
    }
  }
  return nullptr;
}

}  // namespace

std::string_view ParsedScript::Field(int n) const noexcept { return FieldAt(script_, n, ':'); }

ParsedScript::FieldRow ParsedScript::RowAt(int n) const {
  if (n < 1 || n > FieldCount()) return {};
  FieldRow row;
  row.Text = Field(n);
  row.AiMarked = row.Text.starts_with("AI");
  row.Row = LookUp(row.AiMarked ? row.Text.substr(2) : row.Text);
  return row;
}

int ParsedScript::FieldCount() const noexcept {
  if (script_.empty()) return 0;
  return static_cast<int>(std::count(script_.begin(), script_.end(), ':')) + 1;
}

Text ParsedScript::Tail(int n) const {
  if (n < 1 || n > FieldCount()) return Text();
  return script_.substr(static_cast<std::size_t>(Field(n).data() - script_.data()));
}

std::size_t ParsedScript::TailSize(int n) const noexcept {
  if (n < 1 || n > FieldCount()) return 0;
  return script_.size() - static_cast<std::size_t>(Field(n).data() - script_.data());
}

std::string_view ParsedScript::DeclaredTrait(std::string_view name) const {
  return ScriptTraitValue(script_, name);
}

bool ParsedScript::WantsPictures() const {
  for (int n = 1; n <= FieldCount(); ++n) {
    const FieldRow row = RowAt(n);
    if (row.Row != nullptr && row.Row->Pictures) return true;
  }
  return false;
}

}  // namespace brindlemoor
