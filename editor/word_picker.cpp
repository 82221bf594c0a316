// Offering the words of the engine's tables, and asking for what stands behind them.
#include "editor/word_picker.h"

#include <algorithm>
#include <set>

#include "core/desktop.h"
#include "editor/editor_forms.h"
#include "language/target_types.h"
#include "platform/arrangement.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr int kButtonWidth = 120;

struct Word {
  std::string_view Name;
  std::string_view Meaning;
};

std::optional<std::string> AskWord(std::string_view prompt, const std::vector<Word>& words) {
  WordPicker& form = TheWordPicker();
  form.Label1.Caption = std::string(prompt);
  std::vector<std::string> items;
  items.reserve(words.size());
  for (const Word& word : words) items.push_back(Joined(word.Name, ": ", word.Meaning));
  form.Words.Items = std::move(items);
  form.Words.Selected = 1;
  form.Taken = false;
  Desktop().ShowForm(form, true);
  const auto chosen = static_cast<std::size_t>(form.Words.Selected);
  if (!form.Taken || chosen < 1 || chosen > words.size()) return std::nullopt;
  return std::string(words[chosen - 1].Name);
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

WordPicker::WordPicker() : Form("WordPicker") {
  Caption = "Choose";
  Width = 620;
  Height = 520;
  TakeButton.Caption = "Take";
  TakeButton.Click = Words.Open = [this] { Take(); };
  CancelButton.Caption = "Cancel";
  CancelButton.Cancel = true;
  CancelButton.Click = [this] { Desktop().HideForm(*this); };
  Arrangement = Column({Cell(Label1), Cell(Words, 1),
                        Row({Layout{.Stretch = 1}, Cell(TakeButton, 0, kButtonWidth),
                             Cell(CancelButton, 0, kButtonWidth)})});
}

void WordPicker::Take() {
  Taken = true;
  Desktop().HideForm(*this);
}

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
