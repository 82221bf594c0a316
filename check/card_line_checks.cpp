// The checks of the fields that say what a card is and where: files, locations, pictures, numbers.
#include <algorithm>
#include <array>
#include <cmath>

#include "check/field_checks.h"
#include "core/paths.h"
#include "core/records.h"
#include "core/strings.h"
#include "data/directives.h"
#include "game/deck_rules.h"
#include "lint/word_distance.h"
#include "text/fold.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostSuggestions = 100;  // of names in other files
constexpr int kMostRarity = 255;
/// A line with so many fields is a card with a text, in its last field.
constexpr std::size_t kShortCardFields = 6;

bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}
/// Pages take colours with and without the "#", and by name.
constexpr std::array<std::string_view, 22> kColorNames = {
    "AQUA",   "BLACK", "BLUE",   "BROWN",  "CYAN",  "FUCHSIA", "GOLD",   "GRAY",
    "GREEN",  "GREY",  "LIME",   "MAROON", "NAVY",  "OLIVE",   "ORANGE", "PINK",
    "PURPLE", "RED",   "SILVER", "TEAL",   "WHITE", "YELLOW"};

bool IsColor(std::string_view text) {
  const std::string_view digits = text.substr(text.starts_with('#') ? 1 : 0);
  return (digits.size() == 6 && std::ranges::all_of(digits, IsHexDigit)) ||
         std::ranges::find(kColorNames, FoldUpper(text)) != kColorNames.end();
}

std::vector<std::string_view> LocationWords() {
  std::vector<std::string_view> words;
  words.reserve(kLocationRows.size());
  for (const LocationRow& row : kLocationRows) words.push_back(row.Word);
  return words;
}

}  // namespace

void FileCheck::Include(const CheckedField& field) {
  if (directive_->Word == "#INCLUDE" &&
      !included_.insert(Joined(FoldUpper(field.Text), "\n", FieldOf(2).Text)).second) {
    Note(field, FindingCode::kTwofoldInclude,
         Joined("\"", field.Text, "\" is included twice: its cards come twice."));
  }
  if (set_.HasFile(field.Text)) return;
  Note(field, FindingCode::kMissingInclude, Joined("The file \"", field.Text, "\" is not there."));
}

void FileCheck::GameFile(const CheckedField& field) {
  if (!field.Text.empty()) Include(field);
}

void FileCheck::ForcedLocation(const CheckedField& field) {
  if (!field.Text.empty()) Location(field);
}

void FileCheck::Location(const CheckedField& field) {
  std::string word = field.Text;
  std::erase(word, '#');
  word = FoldUpper(word);
  const std::string number(FieldAt(word, 2, ':'));
  if (FieldAt(word, 1, ':') == "INPLAYERDECK") {
    DeckNumber({number, field.Offset, field.Line});
    return;
  }
  if (FindLocation(word) != nullptr) return;
  static const std::vector<std::string_view> words = LocationWords();
  Note(field, FindingCode::kUnknownLocation,
       Joined("\"", field.Text, "\" is no location; the card is left out."),
       NearestWord(word, words));
}

void FileCheck::DeckNumber(const CheckedField& field) {
  const double number = std::nearbyint(NumericPrefix(field.Text));
  if (number >= 1 && number <= kDecks) return;
  Note(field, FindingCode::kBadNumber, Joined("Deck number ", field.Text, " is not 1, 2 or 3."));
}

void FileCheck::FindPicture(std::string_view name, std::size_t offset) {
  if (name.empty() || set_.HasFile(name)) return;
  Note(offset, FindingCode::kMissingPicture, Joined("The file \"", name, "\" is not there."));
}

void FileCheck::Picture(const CheckedField& field) {
  if (!colorIsWrong_) FindPicture(field.Text, field.Offset);
}

void FileCheck::Color(const CheckedField& field) {
  if (IsColor(field.Text)) return;
  const auto& fields = directive_->Fields;
  const auto color = std::ranges::find_if(
      fields, [](const auto& f) { return f.Text.starts_with('#') && IsColor(f.Text); });
  if (field.Text.empty() && color == fields.end()) return;
  colorIsWrong_ = true;
  if (color == fields.end()) {
    Note(field, FindingCode::kMovedField,
         Joined("\"", field.Text, "\" stands where the colour of ", directive_->Word,
                " belongs, such as #FFC35A."));
    return;
  }
  Note(field, FindingCode::kMovedField,
       Joined("The colour of ", directive_->Word, " belongs here and stands ",
              color->Offset > field.Offset ? "further on: there is a comma too many before it."
                                           : "before it: a field is missing."));
}

void FileCheck::FindCard(std::string_view name, std::string_view cardFile, std::size_t offset,
                         CardUse use) {
  if (!set_.HasFile(cardFile)) {
    Note(offset, FindingCode::kMissingReference,
         Joined("The file \"", cardFile, "\" is not there."));
    return;
  }
  if (set_.HasCard(cardFile, name, use)) return;
  if (set_.HasCard(cardFile, name, CardUse::kSource)) {
    Note(offset, FindingCode::kMissingReference,
         Joined("The card \"", name, "\" of \"", cardFile,
                "\" is not in the draw pile (INDECK), the only place where it is looked for."));
    return;
  }
  // Names are compared one by one: not for ever.
  const bool suggests = ++unknownCards_ <= kMostSuggestions;
  Note(offset, FindingCode::kMissingReference,
       Joined("There is no card \"", name, "\" in \"", cardFile, "\"."),
       suggests ? set_.NearestCard(cardFile, name, use) : "");
}

void FileCheck::Source(const CheckedField& field) {
  if (field.Text.empty() || colorIsWrong_) return;
  const CheckedField& id = FieldOf(3);
  if (id.Text.empty()) {
    Note(FieldOf(2), FindingCode::kMissingId,
         Joined("Without a unique ID the card takes nothing from \"", field.Text,
                "\": cards without one share a single place there."));
  }
  if (!id.Text.empty() && set_.HasCard(field.Text, id.Text, CardUse::kSource)) return;
  FindCard(FieldOf(2).Text, field.Text, field.Offset, CardUse::kSource);
}

/// What such a card has stands in the other file.
void FileCheck::Reference(const CheckedField& field) {
  const CheckedField& name = directive_->Fields[directive_->Fields.size() - 2];
  facts_.CardNames.insert(name.Text);
  FindCard(name.Text, field.Text, name.Offset, CardUse::kReference);
  hasCard_ = true;
  hasPlaceForCaption_ = false;
  isRules_ = false;
  claims_ = nullptr;
}

void FileCheck::Number(const CheckedField& field) {
  const std::string_view text = field.Text;
  const std::size_t digit = text.find_first_not_of(" \t+-.");
  if (digit != text.npos && text[digit] >= '0' && text[digit] <= '9') return;
  Note(field, FindingCode::kBadNumber,
       Joined("\"", field.Text, "\" is no number for ", directive_->Word, "."));
}

void FileCheck::Rarity(const CheckedField& field) {
  const double number = NumericPrefix(field.Text);
  if (number >= 0 && number <= kMostRarity) return;
  Note(field, FindingCode::kBadNumber,
       Joined("The rarity ", field.Text, " is not between 0 and ", kMostRarity, "."));
}

void FileCheck::DeckRules(const CheckedField& field) {
  std::size_t at = 0;
  const auto words = DeckRuleWords();
  for (FieldWalker fields(field.Text, ':'); !fields.AtEnd();) {
    const std::string_view word = fields.Next();
    if (word.empty()) return;
    at = static_cast<std::size_t>(word.data() - field.Text.data());
    if (std::ranges::find(words, word) == words.end()) {
      const std::string nearest = NearestWord(word, words);
      Note(field.Offset + at, FindingCode::kUnknownDeckRule,
           Joined("\"", word, "\" is no deck rule."), nearest);
      if (nearest.empty()) continue;
    }
    const std::string_view trait = fields.Next();
    const std::string_view limit = fields.Next();
    if (trait.empty() || limit.empty()) {
      Note(field.Offset + at, FindingCode::kMissingArgument,
           Joined(word, " needs a trait and a number behind it."));
      return;
    }
    Reads(trait, field.Offset + static_cast<std::size_t>(trait.data() - field.Text.data()));
  }
}

void FileCheck::NewCard(const CheckedField& field) {
  hasCard_ = true;
  facts_.CardNames.insert(field.Text);
  const std::size_t tag =
      field.Offset == directive_->Head.Offset ? field.Text.npos : field.Text.find('<');
  if (tag != field.Text.npos && field.Text.find('>', tag) != field.Text.npos) {
    Note(field.Offset + tag, FindingCode::kMarkupInName,
         "Markup in a name counts as its letters: scripts, search and sorting have to repeat it. "
         "The colour of a card is a field of its own.");
  }
  claims_ = nullptr;
  // The line of the game list is no card; what is said behind it goes to the card before.
  if (directive_->Word == "#CARD" && directive_->Fields[0].Text.ends_with("PLAYERCARD")) return;
  traits_.clear();
  isRules_ = directive_->Word == "#RULESCARD";
  hasPlaceForCaption_ = directive_->Word != "#COSTCARD";
  if (directive_->Fields.size() >= kShortCardFields) {
    BeginClaims(field.Text, directive_->Fields.back());
  }
}

void FileCheck::TraitActionName(const CheckedField& field) {
  NewCard(field);
  hasPlaceForCaption_ = false;
  if (field.Text != "#ALL#") Reads(field.Text, field.Offset);
}

void FileCheck::UniqueId(const CheckedField& field) {
  if (field.Text.empty() || colorIsWrong_) return;
  const CheckedField& name = FieldOf(2);
  const FilePlace place = file_.PlaceOf(field.Offset);
  const auto [entry, isNew] = facts_.UniqueIds.try_emplace(
      field.Text, SetFacts::Definition{name.Text, file_.Path(), place});
  if (isNew || entry->second.Name == name.Text) return;
  Note(field, FindingCode::kDuplicateUniqueId,
       Joined("\"", field.Text, "\" is the ID of \"", entry->second.Name, "\" too (",
              FileNameOf(entry->second.File), ", line ", entry->second.Place.Line, ")."));
}

}  // namespace brindlemoor
