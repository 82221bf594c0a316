// Choosing what the field asks for: a part of a script, a word of a table, a name.
#include "server/completion.h"

#include <algorithm>
#include <utility>

#include "data/directives.h"
#include "data/field_text.h"
#include "editor/script_suggestions.h"
#include "game/deck_rules.h"
#include "server/caret_field.h"
#include "server/game_texts.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using Items = std::vector<TextSuggestion>;

/// The items that begin as the typed text does, in the order of the alphabet, for all of a text.
TextSuggestions Fitting(std::string_view typed, std::size_t length, Items items) {
  std::erase_if(items,
                [typed](const TextSuggestion& item) { return !FoldStartsWith(item.Text, typed); });
  std::ranges::sort(items, {}, &TextSuggestion::Text);
  return {0, length, std::move(items)};
}

std::string_view Typed(const CaretField& field) {
  return std::string_view(field.Text).substr(0, field.Caret);
}

TextSuggestions Among(const CaretField& field, Items items) {
  return Fitting(Typed(field), field.Text.size(), std::move(items));
}

Items Directives() {
  Items items;
  const auto add = [&items](const auto& row) {
    items.push_back({Joined(row.Word, row.Usage.empty() ? "" : ", "), std::string(row.Meaning)});
  };
  std::ranges::for_each(kDirectiveRows, add);
  std::ranges::for_each(kForeignDirectiveRows, add);
  return items;
}

Items Locations() {
  Items items;
  for (const LocationRow& row : kLocationRows) {
    items.push_back({std::string(row.Word), std::string(row.Meaning)});
  }
  return items;
}

Items GameNames(const GameTexts& game) {
  Items items;
  for (const GameTexts::Game& each : game.Games()) items.push_back({each.Name, "a game"});
  return items;
}

/// The rules are words, each with a trait and a number behind it.
TextSuggestions InDeckRules(const CaretField& field, const KnownNames& names) {
  const std::string_view typed = Typed(field);
  const std::size_t begin = typed.rfind(':') + 1;
  const std::size_t end = std::min(field.Text.find(':', begin), field.Text.size());
  const auto number = static_cast<std::size_t>(std::ranges::count(typed, ':')) % 3;
  Items items;
  if (number == 0) {
    for (const std::string_view word : DeckRuleWords()) {
      items.push_back({std::string(word), "a deck rule"});
    }
  } else if (number == 1) {
    for (const std::string& trait : names.Traits) items.push_back({trait, "a trait"});
  }
  TextSuggestions fitting = Fitting(typed.substr(begin), end - begin, std::move(items));
  fitting.Offset = begin;
  return fitting;
}

/// In the one of the field's scripts that the caret stands in.
TextSuggestions InScript(const CaretField& field, const KnownNames& names) {
  const std::size_t before = Typed(field).rfind(kBetweenScripts);
  const std::size_t begin = before == std::string::npos ? 0 : before + kBetweenScripts.size();
  const std::size_t end =
      std::min(field.Text.find(kBetweenScripts, field.Caret), field.Text.size());
  const std::string_view script = std::string_view(field.Text).substr(begin, end - begin);
  TextSuggestions all = SuggestForScript(script, field.Caret - begin, names);
  all.Offset += begin;
  return all;
}

/// A name stands for the whole field, in quotes where it needs them.
void Quote(const CaretField& field, TextSuggestions& all) {
  for (TextSuggestion& item : all.Items) {
    if (!field.IsQuoted) item.Text = PlainField(item.Text);
  }
}

TextSuggestions InField(const CaretField& field, const GameTexts& game) {
  const std::vector<std::string> traits = game.TraitNames();
  const std::vector<std::string> cards = game.CardNames();
  const std::vector<std::string> files = game.FileNames();
  const KnownNames names = {.Traits = traits, .Cards = cards, .Files = files};
  if (field.Argument == kScriptField) return InScript(field, names);
  if (field.Argument == kDeckRulesField) return InDeckRules(field, names);
  if (field.Argument == kLocationField) return Among(field, Locations());
  TextSuggestions all = field.Argument == kGameField
                            ? Among(field, GameNames(game))
                            : SuggestForArgument(field.Argument, field.Text, field.Caret, names);
  Quote(field, all);
  return all;
}

/// The comma behind a directive is not written twice.
void DropSecondComma(std::string_view text, TextSuggestions& all) {
  const std::size_t end = all.Offset + all.Length;
  if (end >= text.size() || text[end] != ',') return;
  for (TextSuggestion& item : all.Items) {
    if (item.Text.ends_with(", ")) item.Text.resize(item.Text.size() - 2);
  }
}

}  // namespace

TextSuggestions SuggestionsAt(std::string_view text, std::size_t caret, const GameTexts& game) {
  const CaretField field = FieldAtCaret(text, caret);
  const bool isWord = Typed(field).starts_with('#') && field.BeginsLine;
  TextSuggestions all;
  if (isWord || (field.Directive.empty() && !field.IsQuoted)) {
    all = Among(field, Directives());
  } else if (!field.Argument.empty()) {
    all = InField(field, game);
  }
  all.Offset += field.Offset;
  DropSecondComma(text, all);
  return all;
}

}  // namespace brindlemoor
