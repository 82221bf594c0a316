// WordHelp: what the reference says of a word, for those who show it by itself.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace brindlemoor {

struct Command;
struct DirectiveRow;
struct ForeignDirectiveRow;
struct LocationRow;
struct MessageMark;
struct ProgramTrait;
struct TargetTypeRow;
struct TriggerRow;
struct ValueKeyword;

struct WordHelp {
  std::string Anchor;        ///< on the reference page
  std::string Form;          ///< how the word is written: "MODTRAIT:TRAIT:VALUE"
  std::string_view Meaning;  ///< one line
  std::string Example;       ///< as a file, a value or a message has it
  /// What authors should know beyond that, a paragraph each; what stands in "`" is code.
  std::vector<std::string> Notes{};
};

WordHelp HelpOf(const DirectiveRow& row);
WordHelp HelpOf(const ForeignDirectiveRow& row);
WordHelp HelpOf(const LocationRow& row);
WordHelp HelpOf(const TargetTypeRow& row);
WordHelp HelpOf(const TriggerRow& row);
WordHelp HelpOf(const Command& row);
WordHelp HelpOf(const ValueKeyword& row);
WordHelp HelpOf(const MessageMark& row);
WordHelp HelpOf(const ProgramTrait& row);

}  // namespace brindlemoor
