// Putting forms and examples of words together from the tables.
#include "reference/word_help.h"

#include <algorithm>
#include <utility>

#include "core/strings.h"
#include "data/directives.h"
#include "language/program_traits.h"
#include "language/target_types.h"
#include "language/values.h"
#include "pages/messages.h"
#include "reference/anchors.h"
#include "reference/examples.h"
#include "reference/notes.h"
#include "reference/script_sentence.h"
#include "script/command_table.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

std::string ExampleText(const ActionExample* example) {
  if (example == nullptr) return "";
  return Joined("#EFFECT, ", example->Target, ", ", example->Trigger, ", \"", example->Script,
                "\"");
}

std::string ExampleText(const TextExample* example) {
  return example == nullptr ? "" : std::string(example->Text);
}

/// With the notes of the anchor; more is one that the word's row tells.
WordHelp WithNotes(WordHelp help, std::string_view more = {}) {
  if (!more.empty()) help.Notes.emplace_back(more);
  for (const ReferenceNote& note : ReferenceNotes()) {
    for (FieldWalker anchors(note.Anchors, ' '); !anchors.AtEnd();) {
      if (anchors.Next() == help.Anchor) help.Notes.emplace_back(note.Text);
    }
  }
  std::string inReactions = ReactionNote(help.Anchor);
  if (!inReactions.empty()) help.Notes.push_back(std::move(inReactions));
  return help;
}

/// Of the directives of all readers.
template <class Row>
WordHelp HelpOfDirective(const Row& row) {
  return WithNotes({std::string(row.Word),
                    row.Usage.empty() ? std::string(row.Word) : Joined(row.Word, ", ", row.Usage),
                    row.Meaning, ExampleText(FindExample(DirectiveExamples(), row.Word))});
}

/// "TRAIT/TRAIT" for a keyword with fields, "DIVn" for an operator.
std::string ValueForm(const ValueKeyword& row) {
  std::string form(row.Word);
  std::ranges::replace(form, '#', 'n');
  if (row.Usage.starts_with('/')) form += row.Usage.substr(0, row.Usage.find(' '));
  return form;
}

}  // namespace

WordHelp HelpOf(const DirectiveRow& row) { return HelpOfDirective(row); }

WordHelp HelpOf(const ForeignDirectiveRow& row) { return HelpOfDirective(row); }

WordHelp HelpOf(const LocationRow& row) {
  return WithNotes({Joined("place-", row.Word), std::string(row.Word), row.Meaning,
                    ExampleText(FindExample(LocationExamples(), row.Word))});
}

WordHelp HelpOf(const TargetTypeRow& row) {
  return WithNotes({TargetAnchor(row.Word), std::string(row.Word), row.Meaning,
                    ExampleText(FindExample(TargetExamples(), row.Word))},
                   TargetNote(row));
}

WordHelp HelpOf(const TriggerRow& row) {
  std::string form = Joined(row.Word, row.Arguments);
  std::ranges::replace(form, ' ', ':');
  return WithNotes({TriggerAnchor(row.Stem()), form, row.FiredBy,
                    ExampleText(FindExample(TriggerExamples(), row.Word))});
}

WordHelp HelpOf(const Command& row) {
  return WithNotes({std::string(row.Word), CommandForm(row), MeaningOf(row.Usage),
                    ExampleText(FindExample(CommandExamples(), row.Word))},
                   TrialNote(row));
}

WordHelp HelpOf(const ValueKeyword& row) {
  return WithNotes({ValueAnchor(row.Word), ValueForm(row), MeaningOf(row.Usage),
                    ExampleText(FindExample(ValueExamples(), row.Word))});
}

WordHelp HelpOf(const MessageMark& row) {
  const std::string_view argument = row.TakesValue ? "/VALUE#" : "/NAME#";
  return WithNotes({Joined("mark-", row.Mark), Joined(row.Mark, row.OpensField ? argument : ""),
                    row.Meaning, ExampleText(FindExample(MessageExamples(), row.Mark))});
}

WordHelp HelpOf(const ProgramTrait& row) {
  const bool isPrefix = row.Place == TraitPlace::kPrefix;
  return WithNotes({Joined("trait-", row.Name), Joined(row.Name, isPrefix ? "\u2026" : ""),
                    row.Meaning, std::string(row.Example)});
}

}  // namespace brindlemoor
