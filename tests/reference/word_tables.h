// The tables of words that the reference shows, with their examples.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "data/directives.h"
#include "language/target_types.h"
#include "language/values.h"
#include "pages/messages.h"
#include "reference/examples.h"
#include "script/command_table.h"
#include "text/text.h"

namespace brindlemoor {

using Words = std::vector<std::string>;

/// One table of words: how its examples are shown and how they show their words.
struct WordTable {
  std::string Kind;
  Words All;
  std::vector<ActionExample> Actions;
  std::vector<TextExample> Texts;
};

template <class Rows, class Member>
Words WordsOf(const Rows& rows, Member member) {
  Words words;
  for (const auto& row : rows) words.emplace_back(row.*member);
  return words;
}

inline std::vector<ActionExample> Copied(std::span<const ActionExample> rows) {
  return {rows.begin(), rows.end()};
}
inline std::vector<TextExample> Copied(std::span<const TextExample> rows) {
  return {rows.begin(), rows.end()};
}

inline std::vector<WordTable> Tables() {
  Words commands;
  for (const std::span<const Command> family : CommandFamilies()) {
    for (const Command& row : family) commands.emplace_back(row.Word);
  }
  Words directives = WordsOf(kDirectiveRows, &DirectiveRow::Word);
  for (const ForeignDirectiveRow& row : kForeignDirectiveRows) directives.emplace_back(row.Word);
  return {
      {"command", commands, Copied(CommandExamples()), {}},
      {"trigger", WordsOf(kTriggerRows, &TriggerRow::Word), Copied(TriggerExamples()), {}},
      {"target", WordsOf(kTargetTypeRows, &TargetTypeRow::Word), Copied(TargetExamples()), {}},
      {"value", WordsOf(ValueKeywords(), &ValueKeyword::Word), {}, Copied(ValueExamples())},
      {"mark", WordsOf(MessageMarks(), &MessageMark::Mark), {}, Copied(MessageExamples())},
      {"directive", directives, {}, Copied(DirectiveExamples())},
      {"location", WordsOf(kLocationRows, &LocationRow::Word), {}, Copied(LocationExamples())},
  };
}

/// The line of a card file that holds an example.
inline std::string EffectLine(const ActionExample& e) {
  return Joined("#EFFECT, ", e.Target, ", ", e.Trigger, ", \"", e.Script, '"');
}

}  // namespace brindlemoor
