// FileCheck: the walk over a file's directives, with a row for each field that can be checked.
#include "check/file_check.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/fold.h"
#include "core/paths.h"
#include "core/strings.h"
#include "core/text.h"
#include "game/deck_rules.h"
#include "script/script_arguments.h"
#include "script/script_check.h"
#include "script/target_types.h"
#include "script/word_distance.h"

namespace brindlemoor {

namespace {

constexpr std::size_t kMostFindings = 10'000;  // of one file
constexpr std::string_view kBetweenScripts = "$|$";
constexpr int kMostRarity = 255;

struct CodeRow {
  FindingKind Kind;
  FindingCode Code;
};
constexpr auto kScriptCodes = std::to_array<CodeRow>({
    {FindingKind::kUnknownCommand, FindingCode::kUnknownCommand},
    {FindingKind::kMissingArgument, FindingCode::kMissingArgument},
    {FindingKind::kSurplusArgument, FindingCode::kSurplusArgument},
    {FindingKind::kEmptyFieldEnds, FindingCode::kEmptyField},
    {FindingKind::kUnknownTrigger, FindingCode::kUnknownTrigger},
    {FindingKind::kUnknownTarget, FindingCode::kUnknownTarget},
    {FindingKind::kUnknownValueWord, FindingCode::kUnknownValue},
    {FindingKind::kUnknownPlaceholder, FindingCode::kUnknownPlaceholder},
    {FindingKind::kQuoteInText, FindingCode::kQuote},
    {FindingKind::kRequirementBehindEffect, FindingCode::kLateRequirement},
});

bool IsHexDigit(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f');
}
bool IsColor(std::string_view text) {
  return text.size() == 7 && text[0] == '#' && std::ranges::all_of(text.substr(1), IsHexDigit);
}

/// A name that is only known while the script runs.
bool IsComposed(std::string_view name) { return name.find_first_of("$#%/&<>") != name.npos; }

class FileCheck {
 public:
  FileCheck(const CheckedFile& file, CardSet& set, SetFacts& facts, std::vector<Finding>& findings)
      : file_(file), set_(set), facts_(facts), findings_(findings) {}

  void Run();

  // The checks of fields, which kFieldRows names.
  void Include(const CheckedField& field);
  void ForcedLocation(const CheckedField& field);
  void Location(const CheckedField& field);
  void DeckNumber(const CheckedField& field);
  void Picture(const CheckedField& field);
  void Color(const CheckedField& field);
  void Source(const CheckedField& field);
  void Reference(const CheckedField& field);
  void Message(const CheckedField& field);
  void Number(const CheckedField& field);
  void Rarity(const CheckedField& field);
  void DeckRules(const CheckedField& field);
  void Trait(const CheckedField& field);
  void Target(const CheckedField& field);
  void Trigger(const CheckedField& field);
  void Script(const CheckedField& field);
  void EntryScripts(const CheckedField& field);
  void EntersDuring(const CheckedField& field);
  void CaptionTrait(const CheckedField& field);
  void NewCard(const CheckedField& field);
  void UniqueId(const CheckedField& field);
  void TraitActionName(const CheckedField& field);

 private:
  void Note(std::size_t offset, FindingCode code, std::string text, std::string suggestion = {});
  void Note(const CheckedField& field, FindingCode code, std::string text,
            std::string suggestion = {}) {
    Note(field.Offset, code, std::move(text), std::move(suggestion));
  }
  void NoteAll(std::size_t offset, const std::vector<ScriptFinding>& found);
  void Gather(std::string_view script, std::size_t offset);
  void Reads(std::string_view trait, std::size_t offset);
  void Gives(std::string_view trait);
  /// Says so when a card file has no card of a name.
  void FindCard(std::string_view name, std::string_view cardFile, std::size_t offset);
  const CheckedField& FieldOf(int number) const {
    return directive_->Fields[static_cast<std::size_t>(number) - 1];
  }

  const CheckedFile& file_;
  CardSet& set_;
  SetFacts& facts_;
  std::vector<Finding>& findings_;
  std::size_t noted_ = 0;
  const CheckedDirective* directive_ = nullptr;
  bool hasCard_ = false;  ///< a card, or the rules, stands before
  bool hasPlaceForCaption_ = false;
  bool colorIsWrong_ =
      false;  ///< of the present directive: its other fields are not where they seem
  bool isRules_ = false;
  std::unordered_set<std::string> traits_;  ///< folded, of the card before
};

struct FieldRow {
  std::string_view Directive;
  int Field;  ///< from 1; 0 is the directive itself
  void (FileCheck::*Check)(const CheckedField& field);
};

using F = FileCheck;
// Colours come before the pictures of their line: where they are wrong, fields have moved.
// clang-format off
constexpr auto kFieldRows = std::to_array<FieldRow>({
    {"#INCLUDE", 1, &F::Include}, {"#INCLUDE", 2, &F::ForcedLocation},
    {"#CUSTOMSTRING", 2, &F::Message},
    {"#CARD", 2, &F::NewCard}, {"#CARD", 7, &F::Color}, {"#CARD", 1, &F::Location},
    {"#CARD", 3, &F::UniqueId}, {"#CARD", 4, &F::Source}, {"#CARD", 5, &F::Picture}, {"#CARD", 6, &F::Picture},
    {"#CARDINDECK", 1, &F::NewCard}, {"#CARDINDECK", 4, &F::Color}, {"#CARDINDECK", 2, &F::Picture}, {"#CARDINDECK", 3, &F::Picture},
    {"#CARDINPLAY", 1, &F::NewCard}, {"#CARDINPLAY", 4, &F::Color}, {"#CARDINPLAY", 2, &F::Picture}, {"#CARDINPLAY", 3, &F::Picture},
    {"#SIDEBOARDCARD", 1, &F::NewCard}, {"#SIDEBOARDCARD", 4, &F::Color}, {"#SIDEBOARDCARD", 2, &F::Picture}, {"#SIDEBOARDCARD", 3, &F::Picture},
    {"#COLLECTION", 1, &F::NewCard}, {"#COLLECTION", 4, &F::Color}, {"#COLLECTION", 2, &F::Picture}, {"#COLLECTION", 3, &F::Picture},
    {"#TEMPLATE", 1, &F::NewCard}, {"#TEMPLATE", 4, &F::Color}, {"#TEMPLATE", 2, &F::Picture}, {"#TEMPLATE", 3, &F::Picture},
    {"#NEUTRALCARD", 1, &F::NewCard}, {"#NEUTRALCARD", 4, &F::Color}, {"#NEUTRALCARD", 2, &F::Picture}, {"#NEUTRALCARD", 3, &F::Picture},
    {"#CARDINPLAYERDECK", 2, &F::NewCard}, {"#CARDINPLAYERDECK", 1, &F::DeckNumber}, {"#CARDINPLAYERDECK", 5, &F::Color},
    {"#CARDINPLAYERDECK", 3, &F::Picture}, {"#CARDINPLAYERDECK", 4, &F::Picture},
    {"#REFINDECK", 2, &F::Reference}, {"#REFINPLAY", 2, &F::Reference}, {"#REFCOLLECTION", 2, &F::Reference},
    {"#REFINPLAYERDECK", 1, &F::DeckNumber}, {"#REFINPLAYERDECK", 3, &F::Reference},
    {"#DECKRULES", 1, &F::DeckRules},
    {"#TRAITACTION", 1, &F::TraitActionName},
    {"#RULESCARD", 0, &F::NewCard}, {"#COSTCARD", 0, &F::NewCard},
    {"#TOKENS", 1, &F::Number}, {"#TEMPLATEDATA", 3, &F::Number}, {"#DUPLICATE", 1, &F::Number},
    {"#TRAIT", 1, &F::Trait},
    {"#EFFECT", 1, &F::Target}, {"#EFFECT", 2, &F::Trigger}, {"#EFFECT", 3, &F::Script},
    {"#EXTRADATA", 1, &F::Rarity}, {"#EXTRADATA", 2, &F::EntersDuring}, {"#EXTRADATA", 3, &F::EntryScripts},
    {"#TRAITACTIONDESC", 1, &F::CaptionTrait},
    {"#GAMERULES", 2, &F::Picture}, {"#GAMERULES", 3, &F::Color}, {"#GAMERULES", 5, &F::Picture},
});
/// Directives that speak of the card before.
constexpr std::array<std::string_view, 5> kCardLines = {"#TRAIT", "#EFFECT", "#EXTRADATA",
                                                        "#TRAITACTIONDESC", "#DUPLICATE"};
// clang-format on

std::vector<std::string_view> LocationWords() {
  std::vector<std::string_view> words;
  for (const LocationRow& row : kLocationRows) words.push_back(row.Word);
  return words;
}

void FileCheck::Note(std::size_t offset, FindingCode code, std::string text,
                     std::string suggestion) {
  if (++noted_ > kMostFindings) return;
  if (noted_ == kMostFindings) text = "Too many findings; the others of this file are left out.";
  findings_.push_back(file_.At(offset, code, std::move(text), std::move(suggestion)));
}

void FileCheck::NoteAll(std::size_t offset, const std::vector<ScriptFinding>& found) {
  for (const ScriptFinding& finding : found) {
    const auto* row = std::ranges::find(kScriptCodes, finding.Kind, &CodeRow::Kind);
    Note(offset + finding.Offset, row->Code, finding.Message, finding.Suggestion);
  }
}

void FileCheck::Run() {
  findings_.insert(findings_.end(), file_.Findings().begin(), file_.Findings().end());
  for (const CheckedDirective& directive : file_.Directives()) {
    directive_ = &directive;
    colorIsWrong_ = false;
    if (!hasCard_ && std::ranges::find(kCardLines, directive.Word) != kCardLines.end()) {
      Note(directive.Head, FindingCode::kNoCard,
           Joined("There is no card for ", directive.Word, "."));
    }
    for (const FieldRow& row : kFieldRows) {
      if (row.Directive != directive.Word) continue;
      // Where fields have moved, what they hold is not what it seems.
      if (directive.Moved && row.Check != &FileCheck::NewCard) continue;
      (this->*row.Check)(row.Field == 0 ? directive.Head : FieldOf(row.Field));
    }
  }
}

void FileCheck::Include(const CheckedField& field) {
  if (set_.HasFile(field.Text)) return;
  Note(field, FindingCode::kMissingInclude, Joined("The file \"", field.Text, "\" is not there."));
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
  if (number >= 1 && number <= 3) return;
  Note(field, FindingCode::kBadNumber, Joined("Deck number ", field.Text, " is not 1, 2 or 3."));
}

void FileCheck::Picture(const CheckedField& field) {
  if (field.Text.empty() || colorIsWrong_ || set_.HasFile(field.Text)) return;
  Note(field, FindingCode::kMissingPicture, Joined("The file \"", field.Text, "\" is not there."));
}

void FileCheck::Color(const CheckedField& field) {
  if (IsColor(field.Text)) return;
  const auto& fields = directive_->Fields;
  const auto color = std::ranges::find_if(fields, [](const auto& f) { return IsColor(f.Text); });
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

void FileCheck::FindCard(std::string_view name, std::string_view cardFile, std::size_t offset) {
  const DefinedCards* cards = set_.CardsOf(cardFile);
  if (cards == nullptr) {
    Note(offset, FindingCode::kMissingReference,
         Joined("The file \"", cardFile, "\" is not there."));
  } else if (!cards->Names.contains(std::string(name))) {
    std::vector<std::string_view> names(cards->Names.begin(), cards->Names.end());
    std::ranges::sort(names);
    Note(offset, FindingCode::kMissingReference,
         Joined("There is no card \"", name, "\" in \"", cardFile, "\"."),
         NearestWord(name, names));
  }
}

void FileCheck::Source(const CheckedField& field) {
  if (field.Text.empty() || colorIsWrong_) return;
  const DefinedCards* cards = set_.CardsOf(field.Text);
  if (cards != nullptr && cards->UniqueIds.contains(FieldOf(3).Text)) return;
  FindCard(FieldOf(2).Text, field.Text, field.Offset);
}

void FileCheck::Reference(const CheckedField& field) {
  const CheckedField& name = directive_->Fields[directive_->Fields.size() - 2];
  FindCard(name.Text, field.Text, name.Offset);
}

void FileCheck::Message(const CheckedField& field) {
  NoteAll(field.Offset, CheckMessage(field.Text));
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
      Note(field.Offset + at, FindingCode::kUnknownDeckRule,
           Joined("\"", word, "\" is no deck rule."), NearestWord(word, words));
      if (NearestWord(word, words).empty()) continue;
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

void FileCheck::NewCard(const CheckedField&) {
  hasCard_ = true;
  traits_.clear();
  isRules_ = directive_->Word == "#RULESCARD";
  hasPlaceForCaption_ = directive_->Word != "#COSTCARD";
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
  Note(field, FindingCode::kDuplicateId,
       Joined("\"", field.Text, "\" is the ID of \"", entry->second.Name, "\" too (",
              FileNameOf(entry->second.File), ", line ", entry->second.Place.Line, ")."));
}

void FileCheck::Trait(const CheckedField& field) {
  const std::string_view text = field.Text;
  const std::string_view name = FieldAt(text, 1, ':');
  if (name.empty()) {
    Note(field, FindingCode::kNamelessTrait, "This trait has no name.");
    return;
  }
  traits_.insert(FoldUpper(name));
  Gives(name);
  const std::string_view value = text.substr(std::min(text.size(), name.size() + 1));
  const std::size_t offset = field.Offset + static_cast<std::size_t>(value.data() - text.data());
  if (isRules_ && name == "TRAITGRAPHIC") {
    const std::string picture(FieldAt(text, 3, ':'));
    if (!picture.empty() && !set_.HasFile(picture)) {
      Note(offset, FindingCode::kMissingPicture,
           Joined("The file \"", picture, "\" is not there."));
    }
  } else if (FoldUpper(name).starts_with("BONUS")) {
    VisitValueTraits(value, [&](std::string_view trait) {
      Reads(trait, field.Offset + static_cast<std::size_t>(trait.data() - text.data()));
    });
  }
}

void FileCheck::Target(const CheckedField& field) {
  NoteAll(field.Offset, CheckTarget(field.Text));
}

void FileCheck::Trigger(const CheckedField& field) {
  NoteAll(field.Offset, CheckTrigger(field.Text));
  const std::string_view text = field.Text;
  for (const std::string_view word : {"TRAITCHANGE:", "BEFORETRAITCHANGE:"}) {
    if (text.starts_with(word)) Reads(text.substr(word.size()), field.Offset + word.size());
  }
}

void FileCheck::Script(const CheckedField& field) {
  NoteAll(field.Offset, CheckScript(field.Text));
  Gather(field.Text, field.Offset);
}

void FileCheck::EntryScripts(const CheckedField& field) {
  const std::string_view text = field.Text;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(kBetweenScripts, start), text.size());
    const std::string_view script = text.substr(start, end - start);
    NoteAll(field.Offset + start, CheckScript(script));
    Gather(script, field.Offset + start);
    start = end + kBetweenScripts.size();
  }
}

void FileCheck::EntersDuring(const CheckedField& field) {
  const auto fires = [&](const TriggerRow& row) {
    return row.Code != 0 && FoldEquals(row.Word, field.Text) &&
           (row.Word.starts_with("PHASE") || row.Word.starts_with("TURN"));
  };
  if (field.Text.empty() || std::ranges::any_of(kTriggerRows, fires)) return;
  Note(field, FindingCode::kUnknownTrigger,
       Joined("\"", field.Text,
              "\" is no time at which cards enter play: TURNSTART, PHASE1 to "
              "PHASE10 or TURNEND."));
}

void FileCheck::CaptionTrait(const CheckedField& field) {
  if (!hasCard_ || !hasPlaceForCaption_ || traits_.contains(FoldUpper(field.Text))) return;
  Note(field, FindingCode::kCaptionWithoutTrait,
       Joined("The card has no trait \"", field.Text, "\", so the caption is left out."));
}

/// Takes from a script which traits it gives and which it reads, and the cards that it makes.
void FileCheck::Gather(std::string_view script, std::size_t offset) {
  const auto place = [&](std::string_view part) {
    return offset + static_cast<std::size_t>(part.data() - script.data());
  };
  VisitArguments(script, [&](const ScriptArgument& argument) {
    const ArgumentKind kind = KindOfArgument(argument.Name);
    if (kind == ArgumentKind::kTrait) {
      // A declaration is a trait of the action itself.
      const bool gives = argument.Role == CommandRole::kActs || argument.Word == "TRAIT";
      if (gives && !argument.Word.starts_with("REMOVE") && !argument.Word.starts_with("SUB")) {
        Gives(argument.Text);
      } else {
        Reads(argument.Text, place(argument.Text));
      }
    } else if (kind == ArgumentKind::kValue || kind == ArgumentKind::kContent ||
               kind == ArgumentKind::kSetting) {
      VisitValueTraits(argument.Text, [&](std::string_view trait) { Reads(trait, place(trait)); });
    } else if (kind == ArgumentKind::kTrigger && argument.Text.ends_with("TRAITCHANGE")) {
      Reads(argument.Next, place(argument.Next));
    } else if (argument.Name == "NAME" && argument.Word == "CREATECARD" &&
               !IsComposed(argument.Text) && !argument.Next.empty()) {
      FindCard(argument.Text, argument.Next, place(argument.Text));
    }
  });
}

void FileCheck::Gives(std::string_view trait) {
  if (!trait.empty()) facts_.GivenTraits.insert(FoldUpper(trait));
}

void FileCheck::Reads(std::string_view trait, std::size_t offset) {
  if (trait.empty() || IsComposed(trait)) return;
  auto [entry, isNew] = facts_.ReadTraits.try_emplace(FoldUpper(trait));
  if (isNew) entry->second = {std::string(trait), file_.Path(), file_.PlaceOf(offset)};
}

}  // namespace

void CheckCardFile(const CheckedFile& file, CardSet& set, SetFacts& facts,
                   std::vector<Finding>& findings) {
  FileCheck(file, set, facts, findings).Run();
}

}  // namespace brindlemoor
