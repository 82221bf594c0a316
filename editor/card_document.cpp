// Finding the cards of the list in their file again.
#include "editor/card_document.h"

#include <algorithm>
#include <map>
#include <utility>

#include "core/cards.h"
#include "core/desktop.h"
#include "core/paths.h"
#include "core/state.h"
#include "data/card_file_writer.h"
#include "data/card_reading.h"
#include "data/card_writer.h"
#include "data/field_text.h"
#include "game/looking.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kCards = "COLLECTION";
constexpr std::string_view kTemplates = "#TEMPLATE";

/// What CardToText says of a record, and the line of a template behind it.
std::string TextOf(Template record, PileCode pile) {
  if (pile != kTemplatePile) return CardToText(record.Card, kCards);
  return Joined(CardToText(record.Card, kTemplates), "#TEMPLATEDATA, ",
                PlainField(FileNameOf(record.BackImage)), ", ",
                PlainField(FileNameOf(record.MiniBorder)), ", ", record.BorderColor, kLineEnd,
                kLineEnd);
}

/// False for a card whose place in the list an included file has taken.
bool IsOf(std::string_view text, const DirectivePlace& head, const Card& card) {
  constexpr int kShortFields = 6;
  if (head.Row->Word.starts_with("#REF")) return true;
  const auto fields = FieldsOf(text, head);
  const auto name =
      static_cast<std::size_t>(head.Row->Word == "#CARD" ? 2 : head.Row->Fields - kShortFields + 1);
  return card.Name == fields[name];
}

/// Which file a card is of is the file's own business, and an ID that the file does not have is the
/// editor's.
std::string Comparable(Template record, PileCode pile, bool withId) {
  record.Card.SourceFile = Text();
  if (!withId) record.Card.UniqueID = Text();
  return TextOf(std::move(record), pile);
}

std::vector<Template> NamedCards(const Pile& cards) {
  std::vector<Template> named;
  for (const Card& card : cards) {
    if (!IsFree(card)) named.push_back({card, {}, {}, 0});
  }
  return named;
}

std::vector<Template> NamedTemplates(const Table<Template>& templates) {
  std::vector<Template> named;
  for (const Template& record : templates) {
    if (!IsFree(record.Card)) named.push_back(record);
  }
  return named;
}

/// Gives each thing at most one partner among numbered others, by a key.
class Pairing {
 public:
  explicit Pairing(std::size_t others) : isTaken_(others) {}

  void Add(const std::string& key, std::size_t other) { others_[key].push_back(other); }
  void Forget() {
    others_.clear();
    next_.clear();
  }
  /// The first one of the key that is free; -1 for none.
  int Take(const std::string& key) {
    const auto found = others_.find(key);
    if (found == others_.end()) return -1;
    std::vector<std::size_t>& numbers = found->second;
    std::size_t& next = next_[key];
    while (next < numbers.size() && isTaken_[numbers[next]]) ++next;
    if (next == numbers.size()) return -1;
    isTaken_[numbers[next]] = true;
    return static_cast<int>(numbers[next]);
  }
  bool IsTaken(std::size_t other) const { return isTaken_[other]; }

 private:
  std::map<std::string, std::vector<std::size_t>> others_;
  std::map<std::string, std::size_t> next_;
  std::vector<bool> isTaken_;
};

}  // namespace

bool IsDeckLine(const Card& card, std::string_view path) {
  const std::string source = FileNameOf(card.SourceFile);
  return !source.empty() && !FoldEquals(source, FileNameOf(path)) &&
         !ResolvePath(source, 0).empty();
}

void CardDocument::Read(const std::string& path, const Pile& cards) { Open(path, cards, false); }

void CardDocument::ReadAlone(const std::string& path, const Pile& cards) {
  Open(path, cards, true);
}

void CardDocument::Open(const std::string& path, const Pile& cards, bool alone) {
  const WorkAccount account;  // folders are listed once
  *this = {};
  path_ = path;
  isAlone_ = alone;
  auto bytes = Desktop().Files().Read(path);
  if (!bytes) return;
  file_ = StoredText(std::move(*bytes));
  ReadEntries();
  FollowCards(cards);
}

/// Reads bytes into an empty list. False when they can't be read to their end. The session is a
/// copy, which nobody looks at.
bool CardDocument::ReadAside(const std::string& bytes, DirectivePlaces* places) const {
  const WorkAccount account;
  Session& state = State();
  state.Collection = Pile(1);
  state.Templates.Reset(1);
  state.CostCard = Card{};
  state.GameFileName = Text();
  state.ReadDepth = 1;
  state.RunDepth = 1;  // without message boxes: the read that filled the list has shown them
  state.FileList[1] = state.OpenPaths[1] = path_;
  CardReader reader(path_, bytes, state.Players[1], {true, std::string(kCards), places, !isAlone_});
  reader.Read();
  return !reader.CutOff();
}

void CardDocument::ReadEntries() {
  const Looking looking;
  const Session& state = State();
  DirectivePlaces places;
  if (!ReadAside(file_.Bytes(), &places)) return;
  TakeEntries(places);
  if (!places.empty()) lastPlace_ = places.back();
  gameFile_ = state.GameFileName;
  const auto isWhole = [this](PileCode pile, const Records& records) {
    const auto found = std::ranges::count(entries_, pile, &Entry::Pile);
    return static_cast<std::size_t>(found) == records.size();
  };
  // A file of the editor's own is written anew, byte for byte as ever.
  const bool isOwn = !isAlone_ && CardFileText(path_, kCards, "", 0) == file_.Text();
  const bool isAllOfList =
      isWhole(kCollectionPile, CardsOfFile(state.Collection)) &&
      isWhole(kTemplatePile, NamedTemplates(state.Templates)) &&
      std::ranges::all_of(entries_, [this](const Entry& entry) {
        return entry.Pile != kCollectionPile ||
               IsOf(file_.Text(), entry.Lines.Places.front(), entry.Record.Card);
      });
  const auto isInclude = [](const auto& place) { return place.Row->Word == "#INCLUDE"; };
  keepsText_ = !isOwn && isAllOfList;
  isMixed_ = !isAlone_ && !isAllOfList && std::ranges::any_of(places, isInclude);
}

CardDocument::Records CardDocument::CardsOfFile(const Pile& cards) const {
  Records found = NamedCards(cards);
  if (isAlone_) std::erase_if(found, [this](const auto& r) { return IsDeckLine(r.Card, path_); });
  return found;
}

void CardDocument::TakeEntries(const DirectivePlaces& places) {
  Session& state = State();
  std::map<std::pair<int, int>, std::size_t> numbers;
  for (const DirectivePlace& place : places) {
    if (place.Row->Word == "#GAMEFILE") gamePlace_ = place;
    if (place.Pile != kCollectionPile && place.Pile != kTemplatePile) continue;
    const std::pair key{static_cast<int>(place.Pile), place.Position};
    if (place.MakesCard) {
      Entry entry;
      entry.Pile = place.Pile;
      const bool isTemplate = place.Pile == kTemplatePile;
      if (isTemplate && state.Templates.Holds(place.Position)) {
        entry.Record = state.Templates[place.Position];
      } else if (!isTemplate && state.Collection.Holds(place.Position)) {
        entry.Record.Card = state.Collection[place.Position];
      }
      if (IsFree(entry.Record.Card)) continue;  // a reference that leads nowhere
      if (isAlone_ && !isTemplate && IsDeckLine(entry.Record.Card, path_)) continue;
      entry.Lines.Written = TextOf(entry.Record, entry.Pile);
      entry.Key = Comparable(entry.Record, entry.Pile, true);
      numbers[key] = entries_.size();
      entries_.push_back(std::move(entry));
    }
    const auto number = numbers.find(key);
    const bool isOfCard = place.MakesCard || IsLineOfCard(*place.Row);
    if (isOfCard && number != numbers.end()) entries_[number->second].Lines.Places.push_back(place);
  }
}

std::vector<CardDocument::Match> CardDocument::Find(PileCode pile, const Records& now) const {
  Pairing partners(now.size());
  std::vector<Match> found(entries_.size());
  const auto look = [&](const auto& keyOf, const auto& keyOfEntry, bool isSame) {
    partners.Forget();
    for (std::size_t card = 0; card < now.size(); ++card) {
      if (!partners.IsTaken(card)) partners.Add(keyOf(now[card]), card);
    }
    for (std::size_t number = 0; number < entries_.size(); ++number) {
      const Entry& entry = entries_[number];
      if (entry.Pile != pile || found[number].Card >= 0) continue;
      const std::string key = keyOfEntry(entry);
      if (!key.empty()) found[number] = {partners.Take(key), isSame};
    }
  };
  const auto hasId = [](const Entry& entry) { return !entry.Record.Card.UniqueID.empty(); };
  for (const bool withId : {true, false}) {
    look([&](const Template& record) { return Comparable(record, pile, withId); },
         [&](const Entry& entry) { return hasId(entry) == withId ? entry.Key : std::string(); },
         true);
  }
  look([](const Template& record) { return Joined(record.Card.GlobalID); },
       [](const Entry& entry) { return entry.GlobalID == 0 ? "" : Joined(entry.GlobalID); }, false);
  look([](const Template& record) { return record.Card.UniqueID.Str(); },
       [](const Entry& entry) { return entry.Record.Card.UniqueID.Str(); }, false);
  look([](const Template& record) { return record.Card.Name.Str(); },
       [](const Entry& entry) { return entry.Record.Card.Name.Str(); }, false);
  return found;
}

void CardDocument::FollowCards(const Pile& cards) {
  const Records now = NamedCards(cards);
  const std::vector<Match> found = Find(kCollectionPile, now);
  for (std::size_t number = 0; number < entries_.size(); ++number) {
    if (found[number].Card < 0) continue;
    entries_[number].GlobalID = now[static_cast<std::size_t>(found[number].Card)].Card.GlobalID;
  }
}

bool CardDocument::IsAsLeft() const {
  const auto bytes = Desktop().Files().Read(path_);
  return !bytes || *bytes == file_.Bytes();
}

std::string CardDocument::Stamped(Template record, PileCode pile, std::size_t number,
                                  const Entry* entry) const {
  Card& card = record.Card;
  if (isAlone_ && entry != nullptr) {
    card.SourceFile = entry->Record.Card.SourceFile;
  } else if (pile == kCollectionPile || isAlone_) {
    card.SourceFile = FileNameOf(path_);
  }
  if (pile != kCollectionPile) return TextOf(std::move(record), pile);
  if (card.UniqueID.empty()) card.UniqueID = Joined(card.Name, number);
  return entry != nullptr ? CardToText(card, kCards) : CardToText(card, LocationOfNewCards());
}

/// That of the last card, so that who reads the file finds all of them in one place.
std::string_view CardDocument::LocationOfNewCards() const {
  constexpr std::string_view kDrawPile = "INDECK";
  for (auto entry = entries_.rbegin(); entry != entries_.rend(); ++entry) {
    if (entry->Pile != kCollectionPile) continue;
    const auto fields = FieldsOf(file_.Text(), entry->Lines.Places.front());
    return fields.size() > 1 && fields[0] == "#CARD" && fields[1] == kDrawPile ? kDrawPile : kCards;
  }
  return kCards;
}

std::vector<TextEdit> CardDocument::EditsFor(PileCode pile, const Records& now, Moved moved) const {
  const std::vector<Match> found = Find(pile, now);
  const auto moves = [moved](const Entry& entry) {
    const bool isReference = entry.Lines.Places.front().Row->Word.starts_with("#REF");
    return moved >= Moved::kAll || (moved == Moved::kReferences && isReference);
  };
  std::vector<bool> isInFile(now.size());
  std::vector<TextEdit> edits;
  const DirectivePlace* last = nullptr;
  for (std::size_t number = 0; number < entries_.size(); ++number) {
    const Entry& entry = entries_[number];
    if (entry.Pile != pile) continue;
    for (const DirectivePlace& place : entry.Lines.Places) {
      if (last == nullptr || place.End > last->End) last = &place;
    }
    std::vector<TextEdit> changes;
    const auto card = static_cast<std::size_t>(std::max(found[number].Card, 0));
    if (found[number].Card < 0 || (!found[number].IsSame && moves(entry))) {
      changes = RemovedLines(file_, entry.Lines);
    } else {
      isInFile[card] = true;
      if (!found[number].IsSame) {
        changes = ChangedLines(file_, entry.Lines, Stamped(now[card], pile, card + 1, &entry));
      }
    }
    edits.insert(edits.end(), changes.begin(), changes.end());
  }
  std::string added;
  for (std::size_t card = 0; card < now.size(); ++card) {
    if (!isInFile[card]) added += Joined(Stamped(now[card], pile, card + 1, nullptr), kLineEnd);
  }
  const bool goesToEnd = last == nullptr || moved == Moved::kAllToEnd;
  if (goesToEnd && lastPlace_) last = &*lastPlace_;
  if (!added.empty()) edits.push_back(AddedLines(file_, last, added));
  return edits;
}

void CardDocument::AddGameFile(std::vector<TextEdit>& edits) const {
  const Text& name = State().GameFileName;
  if (isAlone_ || name.empty() || name == gameFile_) return;
  const std::string line = Joined("#GAMEFILE, ", PlainField(name));
  edits.push_back(gamePlace_ ? ReplacedLine(file_, *gamePlace_, line)
                             : TextEdit{0, 0, Joined(line, file_.LineEnd())});
}

std::optional<std::string> CardDocument::BytesWith(const Pile& cards,
                                                   const Table<Template>& templates) const {
  if (!keepsText_) return std::nullopt;
  const WorkAccount account;
  // What a line speaks of may depend on those before it: then a card can't change where it stands.
  for (const Moved moved : {Moved::kNone, Moved::kReferences, Moved::kAll, Moved::kAllToEnd}) {
    std::vector<TextEdit> edits = EditsFor(kTemplatePile, NamedTemplates(templates), moved);
    const std::vector<TextEdit> ofCards = EditsFor(kCollectionPile, NamedCards(cards), moved);
    edits.insert(edits.end(), ofCards.begin(), ofCards.end());
    AddGameFile(edits);
    std::string bytes = file_.With(WithWholeLines(file_, std::move(edits)));
    if (Says(bytes, cards, templates)) return bytes;
  }
  return std::nullopt;
}

bool CardDocument::Says(const std::string& bytes, const Pile& cards,
                        const Table<Template>& templates) const {
  const auto keysOf = [](const Records& records, const Table<Template>& patterns) {
    std::vector<std::string> keys;
    for (const Template& card : records) {
      keys.push_back(Comparable(card, kCollectionPile, false));
    }
    for (const Template& pattern : NamedTemplates(patterns)) {
      keys.push_back(Comparable(pattern, kTemplatePile, false));
    }
    std::ranges::sort(keys);
    return keys;
  };
  const std::vector<std::string> wanted = keysOf(NamedCards(cards), templates);
  const Looking looking;
  return ReadAside(bytes, nullptr) &&
         keysOf(CardsOfFile(State().Collection), State().Templates) == wanted;
}

}  // namespace brindlemoor
