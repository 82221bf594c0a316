// Findings in card files: what is wrong, where, and how it is printed.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

enum class Severity : std::uint8_t {
  kError,    ///< the engine leaves something out
  kWarning,  ///< the engine takes it; an author would hardly mean it
  kRemark,   ///< two things that an author wrote do not agree; perhaps both are meant
};

/// "error", "warning" or "remark".
std::string_view WordOf(Severity level);

/// The kinds of findings, in the order of FindingRows().
enum class FindingCode : std::uint8_t {
  kUnreadable,
  kUnknownDirective,
  kCutOff,
  kUnclosedQuote,
  kMovedField,
  kUnknownLocation,
  kBadNumber,
  kNoCard,
  kNamelessTrait,
  kMissingInclude,
  kMissingReference,
  kMissingPicture,
  kDuplicateUniqueId,
  kMissingId,
  kMarkupInName,
  kTwofoldInclude,
  kCaptionWithoutTrait,
  kUnknownCommand,
  kMissingArgument,
  kSurplusArgument,
  kEmptyField,
  kUnknownTrigger,
  kUnknownTarget,
  kUnknownValue,
  kUnknownPlaceholder,
  kHiddenMarkup,
  kQuote,
  kLateRequirement,
  kCancellingRequirement,
  kLostCommand,
  kLostAction,
  kZeroCount,
  kStoredDice,
  kOddValue,
  kTraitNeverGiven,
  kTraitNeverRead,
  kTraitCase,
  kCardText,
  kUnknownDeckRule,
  kDeckRule,
  kDuplicateGame,
  kDuplicateFile,
  kForeignFile,
  kCount
};

/// A kind of finding: its word in brackets, how bad it is, and one line for authors.
struct FindingRow {
  std::string_view Word;
  FindingCode Code;
  Severity Level;
  std::string_view Meaning;
};
std::span<const FindingRow> FindingRows();
const FindingRow& RowOf(FindingCode code);

/// A place in a file. Lines and columns count from 1, columns in characters; line 0 is the file as
/// a whole.
struct FilePlace {
  int Line = 0;
  int Column = 0;
  bool operator==(const FilePlace&) const = default;
};

struct Finding {
  std::string File;  ///< path
  FilePlace Place;
  FindingCode Code = FindingCode::kUnreadable;
  std::string Text;        ///< a sentence
  std::string Suggestion;  ///< what was most likely meant, "" for none
};

/// Sorts by file, line and column, and drops equal ones.
void SortFindings(std::vector<Finding>& findings);

/// The text, and what was meant where it doesn't say so itself.
std::string FindingSentence(const Finding& finding);
/// "file:line:column: severity: text [code]", with the suggestion behind the text.
std::string FindingLine(const Finding& finding);
/// All of them as one JSON array, a finding a line.
std::string FindingsAsJson(std::span<const Finding> findings);

}  // namespace brindlemoor
