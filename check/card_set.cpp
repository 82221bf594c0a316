// Collecting the files of a card set.
#include "check/card_set.h"

#include <algorithm>
#include <array>

#include "core/desktop.h"
#include "core/limits.h"
#include "core/paths.h"
#include "core/state.h"
#include "lint/word_distance.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// The directives that define a card, and the field of its name.
struct DefinitionRow {
  std::string_view Word;
  std::size_t Name;
  bool InDrawPile;
};
constexpr std::array<DefinitionRow, 8> kDefinitions = {{{"#CARDINDECK", 1, true},
                                                        {"#REFINDECK", 1, true},
                                                        {"#CARDINPLAYERDECK", 2, false},
                                                        {"#CARDINPLAY", 1, false},
                                                        {"#SIDEBOARDCARD", 1, false},
                                                        {"#COLLECTION", 1, false},
                                                        {"#TEMPLATE", 1, false},
                                                        {"#NEUTRALCARD", 1, false}}};

/// The location that a word of a card line means, as the reader takes it.
const LocationRow* LocationOf(std::string word) {
  std::erase(word, '#');
  return FindLocation(FoldUpper(word));
}

bool MeansDrawPile(const std::string& word) {
  const LocationRow* row = LocationOf(word);
  return row != nullptr && row->Pile == kDeckPile;
}

}  // namespace

CardSet::FileCards CardSet::CardsIn(const CheckedFile& file) {
  FileCards cards;
  const auto add = [&cards](CardUse use, const std::string& name) {
    cards.ByUse[static_cast<std::size_t>(use)].insert(name);
  };
  for (const CheckedDirective& directive : file.Directives()) {
    const auto& fields = directive.Fields;
    if (directive.Word == "#INCLUDE") {
      cards.Includes.push_back({fields[0].Text, MeansDrawPile(fields[1].Text)});
    } else if (directive.Word == "#CARD") {
      const LocationRow* exact = FindLocation(fields[0].Text);
      const bool draws = MeansDrawPile(fields[0].Text);
      for (const std::size_t field : {1, 2}) {
        if (field == 1 && draws) add(CardUse::kReference, fields[field].Text);
        if (draws || (exact != nullptr && exact->CanBeForced)) {
          add(CardUse::kModel, fields[field].Text);
        }
        add(CardUse::kSource, fields[field].Text);
      }
    }
    const auto* row = std::ranges::find(kDefinitions, directive.Word, &DefinitionRow::Word);
    if (row == kDefinitions.end()) continue;
    // A card that a file takes from itself must stand in it.
    if (row->Word == "#REFINDECK" && FoldEquals(fields[1].Text, FileNameOf(file.Path()))) continue;
    const std::string& name = fields[row->Name - 1].Text;
    add(CardUse::kSource, name);
    if (!row->InDrawPile) continue;
    add(CardUse::kReference, name);
    add(CardUse::kModel, name);
  }
  return cards;
}

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

bool CardSet::HasCard(std::string_view reference, std::string_view card, CardUse use) {
  Names visited;
  return Visit(
      reference, use, [card](const Names& names) { return names.contains(card); }, visited);
}

std::string CardSet::NearestCard(std::string_view reference, std::string_view card, CardUse use) {
  std::vector<std::string_view> all;
  Names visited;
  Visit(
      reference, use,
      [&all](const Names& names) {
        all.insert(all.end(), names.begin(), names.end());
        return false;
      },
      visited);
  return NearestWord(card, all);
}

bool CardSet::Visit(std::string_view reference, CardUse use, const Visitor& visitor,
                    Names& visited) {
  const std::string name = FoldUpper(FileNameOf(reference));
  if (!visited.insert(name).second || visited.size() > limits::kFilesOfRead) return false;
  const FileCards& cards = CardsOf(name);
  if (visitor(cards.ByUse[static_cast<std::size_t>(use)])) return true;
  return std::ranges::any_of(cards.Includes, [&](const IncludedFile& included) {
    const CardUse inner = included.ToDrawPile ? CardUse::kModel : CardUse::kReference;
    return Visit(included.Reference, use == CardUse::kSource ? use : inner, visitor, visited);
  });
}

const CardSet::FileCards& CardSet::CardsOf(const std::string& name) {
  const auto [entry, isNew] = cards_.try_emplace(name);
  const auto path = paths_.find(name);
  if (isNew && path != paths_.end()) {
    if (auto bytes = Desktop().Files().Read(path->second)) {
      entry->second = CardsIn(CheckedFile(path->second, std::move(*bytes)));
    }
  }
  return entry->second;
}

}  // namespace brindlemoor
