// ParsedScript: splitting a script at ":" and looking its words up.
#include "script/parsed_script.h"

#include <algorithm>

#include "core/state.h"
#include "core/strings.h"
#include "core/trait_item.h"
#include "language/traits.h"
#include "language/values.h"
#include "script/command_table.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kKeptTails = 8;
constexpr std::size_t kKeptTailBytes = 2048;

ParsedScript::FieldRow RowOf(std::string_view field) {
  ParsedScript::FieldRow row;
  row.Text = field;
  row.Key = TraitKey(field);
  row.AiMarked = field.starts_with("AI");
  row.Row = FindCommand(row.AiMarked ? field.substr(2) : field);
  row.IsNumber = IsPlainInteger(field, row.Number);
  const TraitValue trait = AsTraitValue(field);
  row.ValueTrait = trait.Name;
  row.ValueTraitKey = TraitKey(trait.Name);
  row.ValueOfTarget = trait.OfTarget;
  return row;
}

}  // namespace

ParsedScript::ParsedScript(std::string_view script) : script_(script) {
  if (script.empty()) return;
  fields_.reserve(static_cast<std::size_t>(std::count(script.begin(), script.end(), ':')) + 1);
  for (FieldWalker walker(script, ':'); !walker.AtEnd();) {
    const FieldRow& row = fields_.emplace_back(RowOf(walker.Next()));
    if (row.Row == nullptr || !row.Row->Pictures) continue;
    wantsPictures_ = true;
    onlyShowsPictures_ = onlyShowsPictures_ && row.Row->Role == CommandRole::kShows;
  }
  count_ = static_cast<int>(fields_.size());
  FieldWalker fields(script, ':');
  for (auto word = fields.Next(); !word.empty() && word != "ADDEFFECT"; word = fields.Next()) {
    if (word != "TRAIT") continue;
    const std::string_view name = fields.Next();
    // The value is walked as a word, too: it may be another TRAIT.
    declared_.emplace_back(name, FieldWalker(fields).Next());
  }
  bringer_ = DeclaredTrait("TRAITEFFECT");
  declaresNoCounters_ = DeclaredTrait("NOCOUNTERS") != "NONE";
}

std::string_view ParsedScript::DeclaredTrait(std::string_view name) const noexcept {
  for (const auto& [declared, value] : declared_) {
    if (declared == name) return value;
  }
  return "NONE";
}

bool ParsedScript::DeclaresFolded(std::string_view name) const noexcept {
  for (const auto& [declared, value] : declared_) {
    if (IsFoldOf(declared, name)) return value != "NONE";
  }
  return false;
}

bool ParsedScript::HasField(std::string_view text) const noexcept {
  for (const FieldRow& field : fields_) {
    if (field.Text.empty()) return false;
    if (field.Text == text) return true;
  }
  return false;
}

constinit const ParsedScript::FieldRow ParsedScript::kMissing;

std::size_t ParsedScript::TailSize(int n) const noexcept {
  if (n < 1 || n > FieldCount()) return 0;
  return script_.size() - static_cast<std::size_t>(Field(n).data() - script_.data());
}

Text ParsedScript::Tail(int n) const {
  if (n < 1 || n > FieldCount()) return Text();
  for (const auto& [first, tail] : tails_) {
    if (first == n) return tail;
  }
  const std::string_view rest =
      script_.substr(static_cast<std::size_t>(Field(n).data() - script_.data()));
  // A tail may keep tails of its own, so long ones are not kept: they would add up. Nor is the
  // whole script: it would keep itself.
  if (n == 1 || rest.size() > kKeptTailBytes) return rest;
  Text tail = InternText(rest);
  if (tails_.size() < kKeptTails) tails_.emplace_back(n, tail);
  return tail;
}

Text ParsedScript::BroughtBy(std::string_view trait) const {
  for (const auto& [name, brought] : brought_) {
    if (name == trait) return brought;
  }
  Text brought = InternText(Joined("TRAIT:TRAITEFFECT:", trait, ":", script_));
  if (brought_.size() < kKeptTails && script_.size() <= kKeptTailBytes) {
    brought_.emplace_back(trait, brought);
  }
  return brought;
}

const ParsedScript& ParsedScript::Parse(const Text& script) {
  static const ParsedScript empty{std::string_view()};
  if (script.empty()) return empty;
  auto parsed = std::make_unique<ParsedScript>(script.View());
  const ParsedScript& form = *parsed;
  script.Attach(std::move(parsed));
  return form;
}

double SimpleNumber(const ParsedScript::FieldRow& row, const Card& source, const Card& target) {
  if (row.IsNumber) return row.Number;
  SpendWork(1);
  return TraitNumber(row.ValueOfTarget ? target : source, {row.ValueTrait, row.ValueTraitKey}) +
         0.0;
}

bool HasTrait(const Card& card, const TraitName& name, const Text& script) {
  const bool lent = !script.empty() && ParsedScript::Of(script).DeclaresFolded(name.View());
  return lent || HasTrait(card, name);
}

}  // namespace brindlemoor
