// Gathering the files of a game, and the names in them.
#include "server/game_texts.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "check/game_check.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "data/profiles.h"
#include "game/game_files.h"
#include "game/game_list.h"
#include "server/caret_field.h"
#include "text/fold.h"

namespace brindlemoor {

namespace {

/// The field of a directive with this name; nullptr when it has none.
const CheckedField* FieldNamed(const CheckedDirective& directive, std::string_view name) {
  const std::vector<std::string_view> names = FieldNames(directive.Word);
  const auto at = static_cast<std::size_t>(std::ranges::find(names, name) - names.begin());
  return at < directive.Fields.size() ? &directive.Fields[at] : nullptr;
}

std::string_view TextNamed(const CheckedDirective& directive, std::string_view name) {
  const CheckedField* field = FieldNamed(directive, name);
  return field != nullptr ? std::string_view(field->Text) : "";
}

/// The trait that a line gives or speaks of, "" for none.
std::string_view TraitOf(const CheckedDirective& directive) {
  if (directive.Word == "#TRAIT") return FieldAt(directive.Fields[0].Text, 1, ':');
  return TextNamed(directive, "trait name");
}

/// By folded name, the first spelling.
using Names = std::map<std::string, std::string>;

std::vector<std::string> Spellings(const Names& names) {
  std::vector<std::string> spellings;
  for (const auto& [folded, name] : names) spellings.push_back(name);
  return spellings;
}

}  // namespace

bool CardLine::IsInOwnFile() const {
  const std::string_view source = TextNamed(*Directive, "source file");
  return source.empty() || FoldEquals(source, FileNameOf(File->Path()));
}

GameTexts::GameTexts(const std::string& path) {
  const std::string folder = ParentFolder(path);
  session_.Begin(folder, BelongsToPlayers);
  const std::string game = FolderOfGame(folder);
  if (!game.empty() && game != folder) session_.Begin(game, BelongsToPlayers);
  FindGames(path);
  ReadFiles(paths_.empty() ? FilesIncludedBy(path) : paths_);
}

void GameTexts::FindGames(const std::string& path) {
  DiscoverGames();
  std::set<std::string> taken;
  for (const GameRec& game : State().Games) {
    if (game.RulesFile.empty()) continue;
    games_.push_back({game.Name.Str(), InProgramFolder(game.RulesFile)});
    const std::vector<std::string> paths = CardFilesOf(game);
    if (std::ranges::find(paths, path) == paths.end()) continue;
    for (const std::string& each : paths) {
      if (taken.insert(each).second) paths_.push_back(each);
    }
  }
}

void GameTexts::ReadFiles(const std::vector<std::string>& paths) {
  std::size_t bytes = 0;
  for (const std::string& path : paths) {
    auto text = Desktop().Files().Read(path);
    if (!text || text->size() > kMostBytes - bytes) continue;
    bytes += text->size();
    files_.emplace_back(path, std::move(*text));
  }
}

const CheckedFile* GameTexts::File(std::string_view path) const {
  const auto file = std::ranges::find(files_, path, &CheckedFile::Path);
  return file == files_.end() ? nullptr : &*file;
}

std::string GameTexts::PathOfReference(std::string_view reference) const {
  const std::string name = FileNameOf(reference);
  const auto own = std::ranges::find_if(files_, [&name](const CheckedFile& file) {
    return FoldEquals(FileNameOf(file.Path()), name);
  });
  return own != files_.end() ? own->Path() : ResolvePath(reference, 0);
}

std::vector<CardLine> GameTexts::Cards() const {
  std::vector<CardLine> cards;
  for (const CheckedFile& file : files_) {
    bool speaksOfCard = false;
    for (const CheckedDirective& directive : file.Directives()) {
      if (speaksOfCard && directive.Word == "#TRAIT") {
        cards.back().Traits.push_back(directive.Fields[0].Text);
      }
      // Every line with a description makes a card; a trait action or the rules are none.
      const bool makesCard = FieldNamed(directive, "description") != nullptr;
      const bool isOther = directive.Row == nullptr || directive.Row->Pile != kNoPile;
      if (isOther) speaksOfCard = false;
      if (!makesCard) continue;
      speaksOfCard = true;
      cards.push_back({&file, &directive, TextNamed(directive, "name"),
                       TextNamed(directive, "unique ID"), TextNamed(directive, "description")});
    }
  }
  return cards;
}

std::vector<CardLine> GameTexts::CardsCalled(std::string_view name) const {
  std::vector<CardLine> cards = Cards();
  std::erase_if(cards, [name](const CardLine& card) {
    return name.empty() || (card.Name != name && card.UniqueId != name);
  });
  std::stable_partition(cards.begin(), cards.end(),
                        [](const CardLine& card) { return card.IsInOwnFile(); });
  return cards;
}

std::vector<std::string> GameTexts::CardNames() const {
  std::set<std::string> names;
  for (const CardLine& card : Cards()) names.emplace(card.Name);
  return {names.begin(), names.end()};
}

std::vector<std::string> GameTexts::TraitNames() const {
  Names names;
  for (const CheckedFile& file : files_) {
    for (const CheckedDirective& directive : file.Directives()) {
      const std::string_view trait = TraitOf(directive);
      if (!trait.empty()) names.try_emplace(FoldUpper(trait), trait);
    }
  }
  return Spellings(names);
}

std::vector<std::string> GameTexts::FileNames() const {
  std::set<std::string> names;
  for (const CheckedFile& file : files_) names.insert(FileNameOf(file.Path()));
  return {names.begin(), names.end()};
}

}  // namespace brindlemoor
