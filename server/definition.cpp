// Looking for the lines of cards, games and trait actions.
#include "server/definition.h"

#include <algorithm>

#include "core/paths.h"
#include "server/caret_word.h"
#include "server/game_texts.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

using Places = std::vector<DefinitionPlace>;

DefinitionPlace PlaceOf(const CheckedFile& file, const CheckedDirective& directive) {
  const std::size_t begin = directive.Head.Offset;
  return {file.Path(), &file, begin, begin + directive.Head.Text.size()};
}

/// The file that a #REF line names behind its card, "" for none.
std::string NamedFile(const CaretField& field) {
  const std::vector<std::string_view> names = FieldNames(field.Directive);
  const auto at = static_cast<std::size_t>(std::ranges::find(names, "file") - names.begin());
  return at < field.Fields.size() ? field.Fields[at] : "";
}

Places OfCard(const CaretWord& word, const GameTexts& game) {
  const std::vector<CardLine> cards = game.CardsCalled(word.Text);
  const std::string file = NamedFile(word.Field);
  const std::string path = file.empty() ? "" : game.PathOfReference(file);
  Places places;
  for (const CardLine& card : cards) {
    const bool isMeant = path.empty() ? card.IsInOwnFile() : card.File->Path() == path;
    if (isMeant) places.push_back(PlaceOf(*card.File, *card.Directive));
  }
  // A deck may hold the only line of a card.
  if (places.empty() && !cards.empty()) {
    places.push_back(PlaceOf(*cards.front().File, *cards.front().Directive));
  }
  return places;
}

Places OfFile(std::string_view reference, const GameTexts& game) {
  if (reference.empty()) return {};
  const std::string path = game.PathOfReference(reference);
  return path.empty() ? Places() : Places{{path}};
}

Places OfGame(std::string_view name, const GameTexts& game) {
  for (const GameTexts::Game& each : game.Games()) {
    if (!FoldEquals(each.Name, name)) continue;
    const CheckedFile* file = game.File(each.RulesFile);
    if (file == nullptr) return {{each.RulesFile}};
    const auto line = std::ranges::find(file->Directives(), "#GAMERULES", &CheckedDirective::Word);
    return line == file->Directives().end() ? Places{{each.RulesFile}}
                                            : Places{PlaceOf(*file, *line)};
  }
  return {};
}

Places OfTrait(std::string_view trait, const GameTexts& game) {
  Places places;
  for (const CheckedFile& file : game.Files()) {
    for (const CheckedDirective& directive : file.Directives()) {
      const bool isMeant =
          directive.Word == "#TRAITACTION" && FoldEquals(directive.Fields[0].Text, trait);
      if (isMeant) places.push_back(PlaceOf(file, directive));
    }
  }
  return places;
}

}  // namespace

Places DefinitionsAt(std::string_view text, std::size_t caret, const GameTexts& game) {
  const CaretWord word = WordAtCaret(text, caret);
  switch (word.Kind) {
    case CaretWordKind::kCard:
      return OfCard(word, game);
    case CaretWordKind::kFile:
      return OfFile(word.Text, game);
    case CaretWordKind::kGame:
      return OfGame(word.Text, game);
    case CaretWordKind::kTrait:
      return OfTrait(word.Text, game);
    default:
      return {};
  }
}

}  // namespace brindlemoor
