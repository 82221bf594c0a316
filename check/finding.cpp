// The kinds of findings, and findings as text.
#include "check/finding.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "text/encoding.h"
#include "text/quoting.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

using C = FindingCode;
constexpr Severity kError = Severity::kError;
constexpr Severity kWarning = Severity::kWarning;
constexpr Severity kRemark = Severity::kRemark;

// clang-format off
constexpr std::array<FindingRow, static_cast<std::size_t>(C::kCount)> kRows = {{
    {"unreadable", C::kUnreadable, kError, "the file can't be read"},
    {"unknown-directive", C::kUnknownDirective, kError, "a word with \"#\" that the reader does not know"},
    {"cut-off", C::kCutOff, kError, "the file ends in the middle of a directive"},
    {"unclosed-quote", C::kUnclosedQuote, kError, "a double quote that is never closed"},
    {"moved-field", C::kMovedField, kError, "a comma too many or too few has moved the fields"},
    {"unknown-location", C::kUnknownLocation, kError, "a location that is none; the card is left out"},
    {"bad-number", C::kBadNumber, kError, "a number that is none or out of its range"},
    {"no-card", C::kNoCard, kError, "a line about a card where there is none"},
    {"nameless-trait", C::kNamelessTrait, kError, "a trait without a name"},
    {"missing-include", C::kMissingInclude, kError, "an included file that is not there"},
    {"missing-reference", C::kMissingReference, kError, "a card of another file that is not there"},
    {"missing-picture", C::kMissingPicture, kWarning, "a picture that is not there"},
    {"duplicate-id", C::kDuplicateUniqueId, kError, "two different cards with one unique ID"},
    {"missing-id", C::kMissingId, kWarning, "a card of another file without a unique ID: nothing is taken from there"},
    {"markup-in-name", C::kMarkupInName, kWarning, "a name with markup, which scripts and lists have to repeat"},
    {"twofold-include", C::kTwofoldInclude, kWarning, "a file that is included twice: its cards come twice"},
    {"caption-without-trait", C::kCaptionWithoutTrait, kError, "a caption for a trait that the card has not"},
    {"unknown-command", C::kUnknownCommand, kError, "a word of a script that is no command"},
    {"missing-argument", C::kMissingArgument, kError, "a command, trigger, target or keyword without what it needs"},
    {"surplus-argument", C::kSurplusArgument, kError, "a field too many behind a command"},
    {"empty-field", C::kEmptyField, kError, "an empty field ends the script or value early"},
    {"unknown-trigger", C::kUnknownTrigger, kError, "a trigger that never fires"},
    {"unknown-target", C::kUnknownTarget, kError, "a target word that is none"},
    {"unknown-value", C::kUnknownValue, kError, "a field of a value that counts nothing"},
    {"unknown-placeholder", C::kUnknownPlaceholder, kWarning, "a placeholder that stays in the text"},
    {"hidden-markup", C::kHiddenMarkup, kWarning, "a tag or an attribute that no page shows"},
    {"quote", C::kQuote, kWarning, "a double quote that files hold in another form"},
    {"late-requirement", C::kLateRequirement, kWarning, "a requirement behind the effects that it should guard"},
    {"cancelling-requirement", C::kCancellingRequirement, kWarning, "a requirement of a reaction that calls the answered action off"},
    {"lost-command", C::kLostCommand, kWarning, "a command that does nothing where it stands"},
    {"lost-action", C::kLostAction, kWarning, "an action that never runs with its target and trigger"},
    {"zero-count", C::kZeroCount, kWarning, "a count of 0"},
    {"stored-dice", C::kStoredDice, kWarning, "dice that are stored as a text and never rolled"},
    {"odd-value", C::kOddValue, kWarning, "a value that counts otherwise than it reads"},
    {"trait-never-given", C::kTraitNeverGiven, kWarning, "a trait that is asked for and that no card ever has"},
    {"trait-never-read", C::kTraitNeverRead, kWarning, "a script that changes only traits that nothing reads or shows"},
    {"trait-case", C::kTraitCase, kWarning, "a trait that is written in another case of letters elsewhere"},
    {"card-text", C::kCardText, kRemark, "a number or trait of a card's text that its scripts and traits do not know"},
    {"unknown-deck-rule", C::kUnknownDeckRule, kError, "a word of the deck rules that is none"},
    {"deck-rule", C::kDeckRule, kWarning, "a deck that breaks the rules of its game"},
    {"duplicate-game", C::kDuplicateGame, kError, "a game with the name of another one; it is not listed"},
    {"duplicate-file", C::kDuplicateFile, kWarning, "two card files of one name in folders that are searched for it"},
    {"foreign-file", C::kForeignFile, kWarning, "a card file of another game"},
}};
// clang-format on

}  // namespace

std::string_view WordOf(Severity level) {
  constexpr std::array<std::string_view, 3> kWords = {"error", "warning", "remark"};
  return kWords[static_cast<std::size_t>(level)];
}

std::span<const FindingRow> FindingRows() { return kRows; }

const FindingRow& RowOf(FindingCode code) { return kRows[static_cast<std::size_t>(code)]; }

void SortFindings(std::vector<Finding>& findings) {
  const auto key = [](const Finding& f) {
    return std::tie(f.File, f.Place.Line, f.Place.Column, f.Code, f.Text);
  };
  std::ranges::stable_sort(findings, {}, key);
  const auto equal = [&key](const Finding& a, const Finding& b) { return key(a) == key(b); };
  findings.erase(std::unique(findings.begin(), findings.end(), equal), findings.end());
}

std::string FindingSentence(const Finding& finding) {
  const std::string meant = Joined("\"", finding.Suggestion, "\"");
  const bool said = finding.Suggestion.empty() || finding.Text.find(meant) != std::string::npos;
  return said ? finding.Text : Joined(finding.Text, " Did you mean ", meant, "?");
}

std::string FindingLine(const Finding& finding) {
  const FindingRow& row = RowOf(finding.Code);
  std::string line = finding.File;
  if (finding.Place.Line > 0) {
    line += Joined(":", finding.Place.Line, ":", finding.Place.Column);
  }
  line += Joined(": ", WordOf(row.Level), ": ", FindingSentence(finding), " [", row.Word, "]");
  // A text of a strange file must not break the line, nor steer the terminal.
  for (char& character : line) {
    if (static_cast<unsigned char>(character) < ' ' || character == '\x7F') character = ' ';
  }
  return line;
}

std::string FindingsAsJson(std::span<const Finding> findings) {
  std::string json = "[";
  for (const Finding& finding : findings) {
    const FindingRow& row = RowOf(finding.Code);
    json += Joined(json.size() > 1 ? ",\n " : "\n ",
                   "{\"file\": ", JsonText(DecodeFileText(finding.File)),
                   ", \"line\": ", finding.Place.Line, ", \"column\": ", finding.Place.Column,
                   ", \"severity\": ", JsonText(WordOf(row.Level)),
                   ", \"code\": ", JsonText(row.Word), ", \"text\": ", JsonText(finding.Text),
                   ", \"suggestion\": ", JsonText(finding.Suggestion), "}");
  }
  return json += findings.empty() ? "]\n" : "\n]\n";
}

}  // namespace brindlemoor
