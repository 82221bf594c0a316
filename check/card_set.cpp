// Collecting the files of a card set.
#include "check/card_set.h"

#include <array>

#include "core/fold.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/text.h"
#include "platform/platform.h"

namespace brindlemoor {

namespace {

/// The directives that define a card, and the field of its name and of its unique ID (0 for none).
struct DefinitionRow {
  std::string_view Word;
  std::size_t Name;
  std::size_t UniqueId;
};
constexpr std::array<DefinitionRow, 8> kDefinitions = {{{"#CARD", 2, 3},
                                                        {"#CARDINDECK", 1, 0},
                                                        {"#CARDINPLAYERDECK", 2, 0},
                                                        {"#CARDINPLAY", 1, 0},
                                                        {"#SIDEBOARDCARD", 1, 0},
                                                        {"#COLLECTION", 1, 0},
                                                        {"#TEMPLATE", 1, 0},
                                                        {"#NEUTRALCARD", 1, 0}}};

DefinedCards CardsIn(const CheckedFile& file) {
  DefinedCards cards;
  for (const CheckedDirective& directive : file.Directives()) {
    for (const DefinitionRow& row : kDefinitions) {
      if (row.Word != directive.Word) continue;
      cards.Names.insert(directive.Fields[row.Name - 1].Text);
      if (row.UniqueId == 0) continue;
      cards.UniqueIds.insert(directive.Fields[row.UniqueId - 1].Text);
    }
  }
  return cards;
}

}  // namespace

CardSet::CardSet() {
  const std::string folder = State().ProgramFolder;
  ListFolder(folder);
  ListFolder(folder.substr(0, std::max<std::size_t>(folder.rfind('/'), 1)));
  for (const std::string& name : Desktop().Files().ListFolders(folder)) {
    ListFolder(Joined(folder, "/", name));
  }
}

void CardSet::ListFolder(const std::string& folder) {
  for (const std::string& name : Desktop().Files().ListFiles(folder)) {
    paths_.emplace(FoldUpper(name), Joined(folder, folder.ends_with('/') ? "" : "/", name));
  }
}

bool CardSet::Add(const std::string& path, const std::string& shownPath) {
  auto bytes = Desktop().Files().Read(path);
  if (!bytes) return false;
  files_.emplace_back(shownPath, std::move(*bytes));
  return true;
}

bool CardSet::HasFile(std::string_view reference) const {
  return paths_.contains(FoldUpper(FileNameOf(reference)));
}

const DefinedCards* CardSet::CardsOf(std::string_view reference) {
  const std::string name = FoldUpper(FileNameOf(reference));
  auto [entry, isNew] = defined_.try_emplace(name);
  const auto path = paths_.find(name);
  if (isNew && path != paths_.end()) {
    if (auto bytes = Desktop().Files().Read(path->second)) {
      entry->second = CardsIn(CheckedFile(path->second, std::move(*bytes)));
    }
  }
  return entry->second ? &*entry->second : nullptr;
}

}  // namespace brindlemoor
