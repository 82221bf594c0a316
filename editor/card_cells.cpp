// Reading and writing single fields of cards, many at a time.
#include "editor/card_cells.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "core/cards.h"
#include "core/paths.h"
#include "core/state.h"
#include "core/strings.h"
#include "editor/card_rows.h"
#include "language/traits.h"
#include "text/fold.h"
#include "text/table_text.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kHighestRarity = 101;

/// As a field of one line holds it.
std::string InOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char character) { return character == '\t' || character == '\n'; }, ' ');
  return text;
}

/// A text of the editor with the line ends of one out of a file.
bool SameLines(std::string_view text, std::string stored) {
  std::erase(stored, '\r');
  return text == stored;
}

bool IsNumber(const std::string& text) {
  return !text.empty() && Joined(NumericPrefix(text)) == text;
}

/// Names of the traits that the cards have, the most frequent first.
std::vector<std::string> TraitsOf(const Pile& cards) {
  struct Use {
    std::string Name;
    int Cards = 0;
  };
  std::map<std::string, Use> uses;
  for (const Card& card : cards) {
    if (IsFree(card)) continue;
    std::set<std::string> seen;
    for (const auto& trait : card.Traits) {
      const std::string name(trait.Name());
      const std::string key = FoldUpper(name);
      if (name.empty() || !seen.insert(key).second) continue;
      Use& use = uses[key];
      if (use.Name.empty()) use.Name = name;
      ++use.Cards;
    }
  }
  std::vector<Use> sorted;
  sorted.reserve(uses.size());
  for (auto& [key, use] : uses) sorted.push_back(std::move(use));
  std::ranges::stable_sort(sorted, std::greater<>(), &Use::Cards);
  std::vector<std::string> names;
  names.reserve(sorted.size());
  for (Use& use : sorted) names.push_back(std::move(use.Name));
  return names;
}

std::string SetTraitCell(Card& card, const std::string& name, const std::string& text) {
  CardRows rows = CardRows::Of(card);
  TraitRow* found = nullptr;
  TraitRow* free = nullptr;
  for (TraitRow& row : rows.Traits) {
    if (found == nullptr && FoldEquals(row.Name, name)) found = &row;
    if (free == nullptr && row.Name.empty()) free = &row;
  }
  if (found == nullptr && TraitSlot(card, name) != 0) return "the trait stands behind 50 others";
  if (found == nullptr && text.empty()) return "";
  if (found == nullptr && free == nullptr) return "the card has 50 traits already";
  TraitRow& row = found != nullptr ? *found : *free;
  row = text.empty() ? TraitRow{} : TraitRow{found != nullptr ? row.Name : name, text};
  if (text == CardCells::kBareTrait) row.Value.clear();
  card = rows.AppliedTo(card);
  return "";
}

}  // namespace

void CardCells::Load(std::vector<std::string> files) {
  *this = {};
  files_ = std::move(files);
  columns_ = {{Field::kName, "Name"}};
  if (!files_.empty()) columns_.push_back({Field::kFile, "File"});
  columns_.push_back({Field::kRarity, "Rarity"});
  columns_.push_back({Field::kEntersPlay, "Enters Play"});
  const Pile& cards = State().Collection;
  for (std::string& name : TraitsOf(cards)) columns_.push_back({Field::kTrait, std::move(name)});
  columns_.push_back({Field::kDescription, "Description"});
  columns_.push_back({Field::kUniqueID, "Unique ID"});
  for (int place = 1; place <= cards.UpperBound(); ++place) {
    if (!IsFree(cards[place])) places_.push_back(place);
  }
}

std::vector<std::string> CardCells::Headings() const {
  std::vector<std::string> headings;
  for (const Column& column : columns_) headings.push_back(column.Heading);
  return headings;
}

int CardCells::PlaceOf(int row) const {
  return row >= 1 && row <= Rows() ? places_[static_cast<std::size_t>(row) - 1] : 0;
}

int CardCells::RowOf(int place) const {
  const auto found = std::ranges::find(places_, place);
  return found == places_.end() ? 0 : static_cast<int>(found - places_.begin()) + 1;
}

std::string CardCells::Text(int row, int column) const {
  const int place = PlaceOf(row);
  if (place == 0 || column < 1 || column > static_cast<int>(columns_.size())) return "";
  return TextOf(State().Collection[place], columns_[static_cast<std::size_t>(column) - 1]);
}

bool CardCells::CanEdit(int column) const {
  return column >= 1 && column <= static_cast<int>(columns_.size()) &&
         columns_[static_cast<std::size_t>(column) - 1].What != Field::kUniqueID;
}

std::string CardCells::TextOf(const Card& card, const Column& column) const {
  switch (column.What) {
    case Field::kName:
      return card.Name.Str();
    case Field::kFile:
      return FileNameOf(card.SourceFile);
    case Field::kUniqueID:
      return card.UniqueID.Str();
    case Field::kRarity:
      return Joined(int{card.Rarity});
    case Field::kEntersPlay:
      return card.ActivateOn.Str();
    case Field::kDescription:
      return card.Description.Str();
    case Field::kTrait:
      break;
  }
  const int slot = TraitSlot(card, column.Heading);
  if (slot == 0) return "";
  std::string value = RestDS(card.Traits[slot].AsText(), 2, ":");
  return value.empty() ? std::string(kBareTrait) : value;
}

std::string CardCells::Set(Card& card, const Column& column, const std::string& text) const {
  switch (column.What) {
    case Field::kName:
      if (text.empty()) return "a card needs a name";
      card.Name = text;
      return "";
    case Field::kFile: {
      const auto file = std::ranges::find_if(
          files_, [&text](const std::string& name) { return FoldEquals(name, text); });
      if (file == files_.end()) return Joined("\"", text, "\" is no file of this game");
      card.SourceFile = *file;
      return "";
    }
    case Field::kUniqueID:
      return "unique IDs are not changed here";
    case Field::kRarity: {
      const double rarity = NumericPrefix(text);
      if (!IsNumber(text) || rarity < 0 || rarity > kHighestRarity ||
          rarity != static_cast<int>(rarity)) {
        return "a rarity is a number from 0 to 101";
      }
      card.Rarity = static_cast<std::uint8_t>(rarity);
      return "";
    }
    case Field::kEntersPlay:
      card.ActivateOn = text;
      return "";
    case Field::kDescription:
      card.Description = text;
      return "";
    case Field::kTrait:
      return SetTraitCell(card, column.Heading, text);
  }
  return "";
}

void CardCells::SortBy(int column) {
  const bool back = sortedBy_ == column;
  sortedBy_ = back ? -column : column;
  // Empty or not, text or not, the number, the text.
  using Key = std::tuple<bool, bool, double, std::string>;
  std::vector<std::pair<Key, int>> keys;
  for (int row = 1; row <= Rows(); ++row) {
    const std::string text = Text(row, column);
    const bool isNumber = IsNumber(text);
    keys.emplace_back(Key(text.empty(), !isNumber, isNumber ? NumericPrefix(text) : 0,
                          isNumber ? std::string() : FoldUpper(text)),
                      PlaceOf(row));
  }
  std::ranges::stable_sort(keys, [back](const auto& a, const auto& b) {
    const bool isEmpty = std::get<0>(a.first);
    if (isEmpty != std::get<0>(b.first)) return !isEmpty;
    return back ? b.first < a.first : a.first < b.first;
  });
  for (std::size_t row = 0; row < keys.size(); ++row) places_[row] = keys[row].second;
}

int CardCells::AddTrait(std::string_view name) {
  if (name.empty() || name.find_first_of(":,\"#\t\r\n") != std::string_view::npos) return 0;
  auto column = std::ranges::find_if(columns_, [name](const Column& other) {
    return other.What == Field::kTrait && FoldEquals(other.Heading, name);
  });
  if (column == columns_.end()) {
    const auto description = std::ranges::find(columns_, Field::kDescription, &Column::What);
    column = columns_.insert(description, {Field::kTrait, std::string(name)});
  }
  return static_cast<int>(column - columns_.begin()) + 1;
}

std::string CardCells::Put(int row, int column, std::string_view texts) {
  const std::vector<TableRow> lines = TableRows(texts);
  Step step;
  std::string refused;
  const auto refuse = [&refused](int where, std::string_view heading, std::string_view why) {
    if (refused.empty()) refused = Joined("Row ", where, ", ", heading, ": ", why, ".");
  };
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const int place = PlaceOf(row + static_cast<int>(line));
    if (place == 0) {
      refuse(row + static_cast<int>(line), "below the last card", "this line is left out");
      break;
    }
    Card card = State().Collection[place];
    bool differs = false;
    const TableRow& fields = lines[line];
    for (std::size_t field = 0; field < fields.size(); ++field) {
      const std::size_t number = static_cast<std::size_t>(column) - 1 + field;
      if (number >= columns_.size()) {
        refuse(row + static_cast<int>(line), "behind the last column", "this field is left out");
        break;
      }
      const Column& target = columns_[number];
      if (SameLines(fields[field], TextOf(card, target))) continue;
      const bool hasLines = target.What == Field::kDescription;
      const std::string why =
          Set(card, target, hasLines ? fields[field] : InOneLine(fields[field]));
      if (why.empty()) {
        differs = true;
      } else {
        refuse(row + static_cast<int>(line), target.Heading, why);
      }
    }
    if (differs) step.push_back({place, State().Collection[place], std::move(card)});
  }
  Keep(std::move(step));
  return refused;
}

void CardCells::Keep(Step step) {
  if (step.empty()) return;
  for (const Change& change : step) State().Collection[change.Place] = change.After;
  history_.resize(static_cast<std::size_t>(steps_));
  history_.push_back(std::move(step));
  ++steps_;
}

void CardCells::Undo() {
  if (!CanUndo()) return;
  const Step& step = history_[static_cast<std::size_t>(--steps_)];
  for (const Change& change : step) State().Collection[change.Place] = change.Before;
}

void CardCells::Redo() {
  if (!CanRedo()) return;
  const Step& step = history_[static_cast<std::size_t>(steps_++)];
  for (const Change& change : step) State().Collection[change.Place] = change.After;
}

}  // namespace brindlemoor
