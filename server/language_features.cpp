// LanguageServer: what an editor asks about a place of an open text.
#include <optional>
#include <utility>

#include "server/caret_word.h"
#include "server/completion.h"
#include "server/definition.h"
#include "server/error_codes.h"
#include "server/game_texts.h"
#include "server/hover.h"
#include "server/json_ranges.h"
#include "server/language_server.h"
#include "server/trait_rename.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// How editors sort completions by what they are.
constexpr int kKeywordItem = 14;

constexpr std::string_view kNoTrait = "Only traits can be renamed, and no trait is named here.";

Json ItemOf(const TextSuggestion& item, const Json& range) {
  Json json = {{"label", item.Text},
               {"kind", kKeywordItem},
               {"filterText", item.Text},
               {"textEdit", {{"range", range}, {"newText", item.Text}}}};
  if (!item.Note.empty()) json["detail"] = item.Note;
  return json;
}

bool IsTraitName(const CaretWord& word) {
  return word.Kind == CaretWordKind::kTrait && !word.Text.empty();
}

}  // namespace

std::optional<LanguageServer::Place> LanguageServer::PlaceIn(const Json& params) const {
  const std::string address = TextIn(params, {"textDocument", "uri"}).value_or("");
  const auto position = PositionIn(params, "position");
  Place place{OpenTexts::PathOf(address)};
  if (!texts_.IsOpen(place.Path) || !position) return std::nullopt;
  place.Text = texts_.TextOf(place.Path);
  place.Byte = TextPositions(place.Text, units_).ByteAt(*position);
  return place;
}

LanguageServer::Answer LanguageServer::NoPlace() {
  return {nullptr, kInvalidParams, "No place of an open file is named."};
}

LanguageServer::Answer LanguageServer::Complete(const Json& params) {
  const auto place = PlaceIn(params);
  if (!place) return NoPlace();
  const GameTexts game(place->Path);
  const TextSuggestions all = SuggestionsAt(place->Text, place->Byte, game);
  const TextPositions positions(place->Text, units_);
  const Json range = RangeOf(positions, all.Offset, all.Offset + all.Length);
  Json items = Json::array();
  for (const TextSuggestion& item : all.Items) items.push_back(ItemOf(item, range));
  // Of very many names those that fit come when more is typed.
  return {{{"isIncomplete", true}, {"items", std::move(items)}}};
}

LanguageServer::Answer LanguageServer::Hover(const Json& params) {
  const auto place = PlaceIn(params);
  if (!place) return NoPlace();
  const GameTexts game(place->Path);
  const HoverText hover = HoverAt(place->Text, place->Byte, game);
  if (hover.Blocks.empty()) return {nullptr};
  const TextPositions positions(place->Text, units_);
  return {{{"contents",
            {{"kind", takesMarkdown_ ? "markdown" : "plaintext"},
             {"value", takesMarkdown_ ? MarkdownOf(hover.Blocks) : PlainTextOf(hover.Blocks)}}},
           {"range", RangeOf(positions, hover.Offset, hover.Offset + hover.Length)}}};
}

LanguageServer::Answer LanguageServer::Define(const Json& params) {
  const auto place = PlaceIn(params);
  if (!place) return NoPlace();
  const GameTexts game(place->Path);
  Json locations = Json::array();
  for (const DefinitionPlace& each : DefinitionsAt(place->Text, place->Byte, game)) {
    const std::string_view text = each.File != nullptr ? std::string_view(each.File->Text()) : "";
    locations.push_back({{"uri", texts_.AddressOf(each.Path)},
                         {"range", RangeOf(TextPositions(text, units_), each.Begin, each.End)}});
  }
  return {std::move(locations)};
}

LanguageServer::Answer LanguageServer::PrepareRename(const Json& params) {
  const auto place = PlaceIn(params);
  if (!place) return NoPlace();
  const CaretWord word = WordAtCaret(place->Text, place->Byte);
  if (!IsTraitName(word)) return {nullptr, kRequestFailed, std::string(kNoTrait)};
  if (std::string why = WhyKeptName(word.Text); !why.empty()) {
    return {nullptr, kRequestFailed, std::move(why)};
  }
  const TextPositions positions(place->Text, units_);
  return {{{"range", RangeOf(positions, word.Offset, word.Offset + word.Text.size())},
           {"placeholder", word.Text}}};
}

LanguageServer::Answer LanguageServer::Rename(const Json& params) {
  const auto place = PlaceIn(params);
  const std::optional<std::string> name = TextIn(params, {"newName"});
  if (!place || !name) return NoPlace();
  const CaretWord word = WordAtCaret(place->Text, place->Byte);
  if (!IsTraitName(word)) return {nullptr, kRequestFailed, std::string(kNoTrait)};
  const GameTexts game(place->Path);
  TraitRename rename = RenameTrait(game, word.Text, *name);
  if (!rename.Problem.empty()) return {nullptr, kRequestFailed, std::move(rename.Problem)};
  Json changes = Json::object();
  for (const FileEdits& file : rename.Files) {
    const TextPositions positions(file.File->Text(), units_);
    Json& edits = changes[texts_.AddressOf(file.File->Path())] = Json::array();
    for (const TextEdit& edit : file.Edits) {
      edits.push_back(
          {{"range", RangeOf(positions, edit.Begin, edit.End)}, {"newText", edit.Text}});
    }
  }
  return {{{"changes", std::move(changes)}}};
}

}  // namespace brindlemoor
