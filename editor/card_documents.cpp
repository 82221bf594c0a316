// Reading the files of a game into one list, and finding out which of them a save changes.
#include "editor/card_documents.h"

#include <algorithm>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_reading.h"
#include "data/read_mark.h"
#include "game/card_sorting.h"
#include "game/game_files.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

/// What a file of a game brings into the list.
struct FileCards {
  Pile Cards;
  Table<Template> Templates;
  bool IsWhole = false;
};

/// Reads a file without those that it includes into empty lists.
FileCards ReadAlone(const std::string& path) {
  Session& state = State();
  auto bytes = WorkIsSpent() ? std::nullopt : Desktop().Files().Read(path);
  if (!bytes) return {};
  state.Work.SpendOnFile(bytes->size());
  state.Collection = Pile(1);
  state.Templates.Reset(1);
  const int depth = std::exchange(state.ReadDepth, 1);
  CardReader reader(path, std::move(*bytes), state.Players[1],
                    {.NoDuplicates = true,
                     .ForcedLocation = "COLLECTION",
                     .Places = nullptr,
                     .FollowsIncludes = false});
  reader.Read();
  state.ReadDepth = depth;
  return {state.Collection, state.Templates, !reader.CutOff()};
}

/// The same for a file of which only cards, templates and a cost card are wanted.
FileCards TakeAlone(const std::string& path) {
  const ReadMark before;
  FileCards read = ReadAlone(path);
  const Card costCard = State().CostCard;
  before.PutBack();
  if (!IsFree(costCard)) State().CostCard = costCard;
  return read;
}

}  // namespace

void CardDocuments::Read(const std::string& path, const Pile& cards) {
  *this = {};
  documents_.resize(1);
  documents_.front().Read(path, cards);
  mainFile_ = path;
}

std::vector<std::string> CardDocuments::OpenGame(const GameRec& game) {
  return Open(CardFilesOf(game));
}

std::vector<std::string> CardDocuments::OpenWithIncluded(const std::string& path) {
  std::vector<std::string> unread = Open(FilesIncludedBy(path));
  mainFile_ = path;
  return unread;
}

/// The first of the files is the one that leads to the others.
std::vector<std::string> CardDocuments::Open(const std::vector<std::string>& files) {
  *this = {};
  const WorkAccount account;
  game_ = files.empty() ? "" : files.front();
  Session& state = State();
  std::vector<std::string> unread;
  Pile cards;
  Table<Template> templates;
  std::size_t most = 0;
  for (const std::string& path : files) {
    FileCards read = path == game_ ? ReadAlone(path) : TakeAlone(path);
    CardDocument document;
    if (read.IsWhole) document.ReadAlone(path, read.Cards);
    if (!read.IsWhole || !document.IsRead()) {
      unread.push_back(FileNameOf(path));
      continue;
    }
    std::size_t found = 0;
    for (Card& card : read.Cards) {
      if (IsFree(card) || IsDeckLine(card, path)) continue;
      card.SourceFile = FileNameOf(path);
      cards.Append(std::move(card));
      ++found;
    }
    for (Template& record : read.Templates) {
      if (IsFree(record.Card)) continue;
      record.Card.SourceFile = FileNameOf(path);
      templates.Append(std::move(record));
    }
    documents_.push_back(std::move(document));
    if (mainFile_.empty() || found > most) mainFile_ = path;
    most = std::max(most, found);
  }
  Sort(cards);
  if (cards.UpperBound() == 0) cards.Reset(1);
  if (templates.UpperBound() == 0) templates.Reset(1);
  state.Collection = std::move(cards);
  state.Templates = std::move(templates);
  return unread;
}

std::vector<std::string> CardDocuments::FileNames() const {
  std::vector<std::string> names;
  for (const CardDocument& document : documents_) names.push_back(FileNameOf(document.Path()));
  return names;
}

std::size_t CardDocuments::IndexOf(const Text& sourceFile) const {
  const auto find = [this](const std::string& name) {
    return std::ranges::find_if(documents_, [&name](const CardDocument& document) {
      return FoldEquals(FileNameOf(document.Path()), name);
    });
  };
  auto found = find(FileNameOf(sourceFile));
  if (found == documents_.end()) found = find(FileNameOf(mainFile_));
  return static_cast<std::size_t>(found - documents_.begin());
}

std::string CardDocuments::FileOf(const Card& card) const {
  const std::size_t index = IndexOf(card.SourceFile);
  return index < documents_.size() ? FileNameOf(documents_[index].Path()) : std::string();
}

std::string CardDocuments::PathOfCopy() const {
  return Joined(game_.substr(0, game_.rfind('.')), " (whole game).txt");
}

void CardDocuments::Sort(Pile& cards) const {
  SortCards(cards, "NAME");
  std::vector<std::pair<std::size_t, Card>> sorted;
  for (Card& card : cards) {
    const std::size_t file = IsFree(card) ? documents_.size() : IndexOf(card.SourceFile);
    sorted.emplace_back(file, std::move(card));
  }
  std::ranges::stable_sort(sorted, {}, [](const auto& entry) { return entry.first; });
  int place = 0;
  for (auto& entry : sorted) cards[++place] = std::move(entry.second);
}

std::vector<CardDocuments::Change> CardDocuments::Changes(const Pile& cards,
                                                          const Table<Template>& templates) const {
  if (documents_.empty()) return {};
  std::vector<Pile> cardsOf(documents_.size());
  std::vector<Table<Template>> templatesOf(documents_.size());
  for (const Card& card : cards) {
    if (!IsFree(card)) cardsOf[IndexOf(card.SourceFile)].Append(card);
  }
  for (const Template& record : templates) {
    if (!IsFree(record.Card)) templatesOf[IndexOf(record.Card.SourceFile)].Append(record);
  }
  std::vector<Change> changes;
  for (std::size_t number = 0; number < documents_.size(); ++number) {
    const CardDocument& document = documents_[number];
    auto bytes = document.BytesWith(cardsOf[number], templatesOf[number]);
    if (bytes != document.Bytes()) changes.push_back({document.Path(), std::move(bytes)});
  }
  return changes;
}

std::optional<std::string> CardDocuments::BytesWith(const Pile& cards,
                                                    const Table<Template>& templates) const {
  if (IsOfGame() || documents_.empty()) return std::nullopt;
  return documents_.front().BytesWith(cards, templates);
}

bool CardDocuments::IsAsLeft(const std::string& path) const {
  const auto found = std::ranges::find(documents_, path, &CardDocument::Path);
  return found == documents_.end() || found->IsAsLeft();
}

bool CardDocuments::Knows(const std::string& path) const {
  return std::ranges::find(documents_, path, &CardDocument::Path) != documents_.end();
}

void CardDocuments::ReadAgain(const std::string& path, const Pile& cards) {
  const auto found = std::ranges::find(documents_, path, &CardDocument::Path);
  if (found == documents_.end()) return;
  const auto number = static_cast<std::size_t>(found - documents_.begin());
  Pile own;
  for (const Card& card : cards) {
    if (!IsFree(card) && IndexOf(card.SourceFile) == number) own.Append(card);
  }
  found->ReadAlone(path, own);
}

}  // namespace brindlemoor
