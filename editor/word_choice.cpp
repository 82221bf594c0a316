// Offering the words of the engine's tables, and asking for what stands behind them.
#include "editor/word_choice.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "language/target_types.h"
#include "text/text.h"
#include "ui/choice_form.h"

namespace brindlemoor {

namespace {

struct Word {
  std::string_view Name;
  std::string_view Meaning;
};

std::optional<std::string> AskWord(std::string_view prompt, const std::vector<Word>& words) {
  std::vector<std::string> items;
  items.reserve(words.size());
  for (const Word& word : words) items.push_back(Joined(word.Name, ": ", word.Meaning));
  const int chosen = AskChoice(prompt, std::move(items));
  if (chosen == 0) return std::nullopt;
  return std::string(words[static_cast<std::size_t>(chosen) - 1].Name);
}

std::optional<std::string> AskTriggerWord(std::string_view prompt, bool withFields) {
  std::vector<Word> words;
  for (const TriggerRow& row : kTriggerRows) {
    if (row.Runs && (withFields || row.Arguments.empty())) {
      words.push_back({row.Stem(), row.FiredBy});
    }
  }
  return AskWord(prompt, words);
}

/// The word with an answer behind it.
std::optional<std::string> WithAnswer(std::string_view word, std::string_view question) {
  const auto answer = Desktop().AskText(question);
  if (!answer) return std::nullopt;
  return Joined(word, ":", *answer);
}

}  // namespace

std::optional<std::string> CompletedTrigger(const std::string& chosen, bool typesMenuTrigger) {
  const auto row = std::ranges::find(kTriggerRows, chosen, &TriggerRow::Stem);
  if (row == kTriggerRows.end() || row->Arguments.empty()) return chosen;
  if (row->Arguments == "TRAIT") return WithAnswer(chosen, "Name of trait?");
  constexpr std::string_view kQuestion = "Trigger for action?";
  const auto trigger =
      typesMenuTrigger ? Desktop().AskText(kQuestion) : AskTriggerWord(kQuestion, false);
  if (!trigger) return std::nullopt;
  return WithAnswer(Joined(chosen, ":", *trigger),
                    "What should the menu caption for this item be?");
}

std::optional<std::string> CompletedTarget(const std::string& chosen) {
  if (TargetTypeCode(chosen) != kTargetGidCard) return chosen;
  return WithAnswer(chosen, "Which Card?");
}

std::optional<std::string> AskTrigger(std::string_view prompt) {
  const auto chosen = AskTriggerWord(prompt, true);
  return chosen ? CompletedTrigger(*chosen, false) : std::nullopt;
}

std::optional<std::string> AskTarget(std::string_view prompt, bool isOneField) {
  std::vector<Word> words;
  std::set<int> offered = {kTargetCounter};
  if (isOneField) offered.insert(kTargetGidCard);
  // The first word of a code is the one that is written.
  for (const TargetTypeRow& row : kTargetTypeRows) {
    if (offered.insert(row.Code).second) words.push_back({row.Word, row.Meaning});
  }
  const auto chosen = AskWord(prompt, words);
  return chosen ? CompletedTarget(*chosen) : std::nullopt;
}

}  // namespace brindlemoor
