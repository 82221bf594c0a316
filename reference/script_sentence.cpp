// Putting the commands' lines for authors together, with what the script writes in place of the
// names of arguments.
#include "reference/script_sentence.h"

#include <algorithm>
#include <cctype>
#include <vector>

#include "core/strings.h"
#include "language/target_types.h"
#include "lint/script_arguments.h"
#include "script/command_table.h"
#include "text/text.h"

namespace brindlemoor {
namespace {

constexpr std::size_t kShown = 60;  // bytes of an argument
constexpr std::string_view kSameAs = "the same as ";

using Fields = std::vector<ScriptField>;

/// The part of a line that says what the command does; behind it are its edges.
std::string_view ClauseOf(const Command& row, bool hasEdges) {
  const std::string_view meaning = MeaningOf(row.Usage);
  if (meaning.starts_with(kSameAs)) {
    return ClauseOf(*FindCommand(meaning.substr(kSameAs.size())), hasEdges);
  }
  return hasEdges ? meaning : meaning.substr(0, meaning.find(';'));
}

std::string Shortened(std::string_view text) {
  if (text.size() <= kShown) return std::string(text);
  std::size_t end = kShown;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return Joined(text.substr(0, end), "...");
}

/// What a target is in the argument of a command: what is neither a side nor a card of its own is
/// searched for, and one card of the table is found.
std::string ShownTarget(const Fields& fields, std::size_t at) {
  const int code = TargetTypeCode(fields[at].Text);
  // The action that ADDEFFECT makes picks its targets as any action does.
  const bool ofAction = fields[at].Row->Arguments == 0;
  if (code == kTargetGidCard) {
    const bool isNamed = at + 1 < fields.size() && fields[at + 1].Continues;
    return isNamed ? Joined("the card with the Global ID ", fields[at + 1].Text)
                   : "the card of the action's own Global ID";
  }
  const bool isSearched = code == kTargetCard || code == kTargetAll || code == kTargetRandom ||
                          code == kTargetTriggeringCard || code == kTargetCounter ||
                          code == kTargetCollection;
  if (isSearched && !ofAction) return "a random card";
  if (code == kTargetCounter) return "nothing (COUNTER is reserved)";
  const auto* const row = std::ranges::find(kTargetTypeRows, code, &TargetTypeRow::Code);
  return std::string(row->Meaning);
}

/// An argument with the fields that belong to it, as a sentence shows it.
std::string Shown(const Fields& fields, std::size_t at) {
  const ArgumentKind kind = KindOfArgument(fields[at].Name);
  std::string text(fields[at].Text);
  if (kind == ArgumentKind::kTarget) return ShownTarget(fields, at);
  while (at + 1 < fields.size() && fields[at + 1].Continues) text += Joined(":", fields[++at].Text);
  if (text.empty()) return "(nothing)";
  return kind == ArgumentKind::kMessage ? Joined('"', Shortened(text), '"') : Shortened(text);
}

bool IsCapital(char letter) { return letter >= 'A' && letter <= 'Z'; }

/// A clause with the arguments of the command at this field in place of their names. A name that
/// comes twice stands for two arguments, in their order.
std::string FilledClause(const Fields& fields, std::size_t command) {
  std::vector<std::size_t> left;
  bool hasEdges = false;  // most speak of values below 0
  for (std::size_t at = command + 1; at < fields.size() && !fields[at].Name.empty(); ++at) {
    if (!fields[at].Continues) left.push_back(at);
    hasEdges |= fields[at].Text.starts_with('-');
  }
  const std::string_view clause = ClauseOf(*fields[command].Row, hasEdges);
  std::string text;
  for (std::size_t at = 0; at < clause.size();) {
    std::size_t end = at;
    while (end < clause.size() && IsCapital(clause[end])) ++end;
    const std::string_view word = clause.substr(at, std::max(end, at + 1) - at);
    const auto argument =
        std::ranges::find(left, word, [&fields](std::size_t field) { return fields[field].Name; });
    text += argument == left.end() ? std::string(word) : Shown(fields, *argument);
    if (argument != left.end()) left.erase(argument);
    at += word.size();
  }
  return text;
}

/// What stands before a condition: a chance is one in words of its own.
std::string_view Opening(const Command& row, bool hasMark) {
  if (row.Role == CommandRole::kChances) return "";
  return hasMark && row.Mark == AiMark::kWishes ? "best if " : "if ";
}

/// A sentence that grows clause by clause.
class Sentence {
 public:
  void AddCondition(std::string_view opening, std::string_view clause) {
    if (last_ == Part::kCondition && opening == opening_) opening = "";
    text_ += last_ == Part::kCondition ? " and " : last_ == Part::kEffect ? ", then " : Gap();
    if (!opening.empty()) opening_ = opening;
    text_ += Joined(opening, clause);
    last_ = Part::kCondition;
  }
  void AddEffect(std::string_view clause, bool opensRest) {
    text_ += last_ == Part::kCondition ? ": " : last_ == Part::kEffect ? ", " : Gap();
    text_ += clause;
    if (opensRest) text_ += ':';
    last_ = opensRest ? Part::kOpening : Part::kEffect;
  }
  std::string Take() {
    if (text_.empty()) return "";
    text_[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text_[0])));
    if (text_.back() != ':') return text_ + '.';
    text_.back() = '.';
    return text_;
  }

 private:
  enum class Part { kOpening, kCondition, kEffect };

  std::string_view Gap() const { return text_.empty() ? "" : " "; }

  std::string text_;
  std::string_view opening_;  // of the conditions since the last effect
  Part last_ = Part::kOpening;
};

}  // namespace

std::string_view MeaningOf(std::string_view usage) {
  const std::size_t bar = usage.find("| ");
  return bar == std::string_view::npos ? usage : usage.substr(bar + 2);
}

std::string SentenceOfScript(std::string_view script) {
  const Fields fields = FieldsOfScript(script);
  Sentence sentence;
  for (std::size_t at = 0; at < fields.size(); ++at) {
    const ScriptField& field = fields[at];
    if (field.Row == nullptr || !field.Name.empty()) continue;
    const std::string clause = FilledClause(fields, at);
    const bool hasMark = field.Text.starts_with("AI");
    const CommandRole role = field.Row->Role;
    if (hasMark && role == CommandRole::kRequires && field.Row->Mark == AiMark::kFrees) continue;
    if (role == CommandRole::kRequires || role == CommandRole::kChances) {
      sentence.AddCondition(Opening(*field.Row, hasMark), clause);
    } else {
      sentence.AddEffect(clause, field.Row->TakesRest);
    }
  }
  return sentence.Take();
}

}  // namespace brindlemoor
