// The walk over a file's directives, with a row for each field that is checked.
#include "check/file_check.h"

#include <algorithm>
#include <array>

#include "check/field_checks.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

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
    {FindingKind::kHiddenMarkup, FindingCode::kHiddenMarkup},
    {FindingKind::kQuoteInText, FindingCode::kQuote},
    {FindingKind::kRequirementBehindEffect, FindingCode::kLateRequirement},
    {FindingKind::kRequirementCancels, FindingCode::kCancellingRequirement},
    {FindingKind::kCommandIsLost, FindingCode::kLostCommand},
    {FindingKind::kActionIsLost, FindingCode::kLostAction},
    {FindingKind::kCountIsZero, FindingCode::kZeroCount},
    {FindingKind::kDiceAreStored, FindingCode::kStoredDice},
    {FindingKind::kValueIsOdd, FindingCode::kOddValue},
});

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
    {"#GAMEFILE", 1, &F::GameFile},
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
    {"#DECKNAME", 1, &F::DeckNumber},
    {"#TOKENS", 1, &F::Number}, {"#TEMPLATEDATA", 3, &F::Number}, {"#DUPLICATE", 1, &F::Number},
    {"#TRAIT", 1, &F::Trait},
    {"#EFFECT", 1, &F::Target}, {"#EFFECT", 2, &F::Trigger}, {"#EFFECT", 3, &F::Script},
    {"#EXTRADATA", 1, &F::Rarity}, {"#EXTRADATA", 2, &F::EntersDuring}, {"#EXTRADATA", 3, &F::EntryScripts},
    {"#TRAITACTIONDESC", 1, &F::CaptionTrait},
    {"#CARD", 2, &F::Markup}, {"#CARD", 8, &F::Markup}, {"#CARDINPLAYERDECK", 7, &F::Markup},
    {"#CARDINDECK", 6, &F::Markup}, {"#CARDINPLAY", 6, &F::Markup}, {"#SIDEBOARDCARD", 6, &F::Markup},
    {"#COLLECTION", 6, &F::Markup}, {"#TEMPLATE", 6, &F::Markup}, {"#NEUTRALCARD", 6, &F::Markup},
    {"#TRAITACTIONDESC", 2, &F::Markup},
    {"#GAMERULES", 2, &F::Picture}, {"#GAMERULES", 3, &F::Color}, {"#GAMERULES", 5, &F::Picture},
});
/// Directives that speak of the card before.
constexpr std::array<std::string_view, 5> kCardLines = {"#TRAIT", "#EFFECT", "#EXTRADATA",
                                                        "#TRAITACTIONDESC", "#DUPLICATE"};
// clang-format on

}  // namespace

void FileCheck::Note(std::size_t offset, FindingCode code, std::string text,
                     std::string suggestion) {
  if (++noted_ > CheckedFile::kMostFindings) return;
  if (noted_ == CheckedFile::kMostFindings)
    text = "Too many findings; the others of this file are left out.";
  findings_.push_back(file_.At(offset, code, std::move(text), std::move(suggestion)));
}

void FileCheck::NoteAll(std::size_t offset, const std::vector<ScriptFinding>& found) {
  for (const ScriptFinding& finding : found) {
    const auto* row = std::ranges::find(kScriptCodes, finding.Kind, &CodeRow::Kind);
    Note(offset + finding.Offset, row->Code, finding.Message, finding.Suggestion);
  }
}

namespace {

/// The deck of an opponent: it has a portrait in the list of games, and nobody takes it home.
bool IsOpponents(const CheckedFile& file) {
  bool hasPortrait = false;
  for (const CheckedDirective& directive : file.Directives()) {
    if (directive.Word == "#STARTERDECK") return false;
    hasPortrait = hasPortrait ||
                  (directive.Word == "#CARD" && directive.Fields[0].Text.ends_with("PLAYERCARD"));
  }
  return hasPortrait;
}

}  // namespace

void FileCheck::Run() {
  if (IsOpponents(file_)) side_ = ActionSide::kComputer;
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
    GatherLine(directive);
  }
}

void CheckCardFile(const CheckedFile& file, CardSet& set, SetFacts& facts,
                   std::vector<Finding>& findings) {
  FileCheck(file, set, facts, findings).Run();
}

}  // namespace brindlemoor
