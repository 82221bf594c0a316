// Choosing what is tried, and showing what came of it.
#include "editor/trial_form.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "core/desktop.h"
#include "core/paths.h"
#include "core/replacing.h"
#include "core/state.h"
#include "data/saving.h"
#include "editor/card_rows.h"
#include "platform/arrangement.h"
#include "text/text.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kPlay = "Pay for it and play it";
constexpr std::string_view kNoAim = "(none chosen)";

std::vector<std::string> Headings() { return {"Card", "Trait", "Before", "After"}; }

/// The scenario as a file of another folder than the program's.
std::string ForFolder(const std::string& scenario, const std::string& path) {
  namespace fs = std::filesystem;
  const fs::path folder = fs::path(path).parent_path();
  const std::string way =
      fs::path(State().ProgramFolder).lexically_relative(folder).generic_string();
  if (way.empty() || way == ".") return scenario;
  const std::size_t second = scenario.find('\n') + 1;
  return Joined(scenario.substr(0, second), "folder \"", ReplacedCopy(way, "\"", "\"\""), "\"\n",
                scenario.substr(second));
}

}  // namespace

TrialForm::TrialForm() : Form("TrialForm") {
  constexpr int kLabelWidth = 60;
  constexpr int kButtonWidth = 170;
  Caption = "Try This Card";
  Width = 820;
  Height = 560;
  WhatLabel.Caption = "Do";
  AimLabel.Caption = "Target";
  AimCombo.ToolTip = "The card that the player has chosen, for actions on TARGETCARD.";
  SaidLabel.Caption = "What the page says";
  WhatCombo.Spoken = "What is tried";
  AimCombo.Spoken = "Target";
  Changes.Spoken = "What changed";
  SaidText.Spoken = "What the page says";
  WhatCombo.Click = AimCombo.Click = [this] { Combo_Click(); };
  Changes.Columns = Headings();
  Changes.CellText = [this](int row, int column) { return CellText(row, column); };
  SaidText.MultiLine = true;
  SaidText.ReadOnly = true;
  KeepButton.Caption = "Keep as a Scenario...";
  KeepButton.ToolTip =
      "Write a scenario file that lays this table out, does the same and expects the same.";
  KeepButton.Click = [this] { KeepButton_Click(); };
  CloseButton.Caption = "Close";
  CloseButton.Cancel = true;
  CloseButton.Click = [this] { Desktop().HideForm(*this); };
  Arrangement = Column({Row({Cell(WhatLabel, 0, kLabelWidth), Cell(WhatCombo, 1)}),
                        Row({Cell(AimLabel, 0, kLabelWidth), Cell(AimCombo, 1)}), Cell(Outcome),
                        Cell(Changes, 3), Cell(SaidLabel), Cell(SaidText, 2),
                        Row({Layout{.Stretch = 1}, Cell(KeepButton, 0, kButtonWidth),
                             Cell(CloseButton, 0, kButtonWidth)})},
                       1);
}

void TrialForm::Begin(const Card& card) {
  tried_ = card;
  actions_ = {0};
  std::vector<std::string> items = {std::string(kPlay)};
  const CardRows rows = CardRows::Of(card);
  for (int row = 1; row <= kCardRows; ++row) {
    const EffectRow& effect = rows.Effects[row];
    if (effect.Script.empty()) continue;
    actions_.push_back(row);
    items.push_back(Joined(effect.Trigger, " on ", effect.Target, ": ", effect.Script));
  }
  WhatCombo.Items = std::move(items);
  WhatCombo.Select(1);
  cards_ = TrialCards(card);
  std::vector<std::string> aims = {std::string(kNoAim)};
  for (const TrialCard& one : cards_) aims.push_back(one.Meaning);
  AimCombo.Items = std::move(aims);
  AimCombo.Select(2);
  Combo_Click();
}

void TrialForm::Combo_Click() {
  TrialRequest request{.Tried = tried_};
  const int what = std::max(WhatCombo.Selected.Get(), 1);
  request.Action = actions_[static_cast<std::size_t>(what) - 1];
  const int aim = AimCombo.Selected.Get() - 2;
  if (aim >= 0) request.Aim = cards_[static_cast<std::size_t>(aim)].Word;
  result_ = TryCard(request);
  Outcome.Caption = result_.Outcome;
  SaidText.Text = result_.Said;
  Changes.RowCount = static_cast<int>(result_.Changes.size());
  Changes.Version = Changes.Version + 1;
}

std::string TrialForm::NameOf(const std::string& word) const {
  if (word.empty()) return "The match";
  const auto found = std::ranges::find(cards_, word, &TrialCard::Word);
  return found == cards_.end() ? word : found->Meaning;
}

std::string TrialForm::CellText(int row, int column) const {
  const auto index = static_cast<std::size_t>(row) - 1;
  if (row < 1 || index >= result_.Changes.size()) return "";
  const TrialChange& change = result_.Changes[index];
  const std::string fields[] = {NameOf(change.Card), change.Trait, change.Before, change.After};
  return column >= 1 && column <= static_cast<int>(std::size(fields)) ? fields[column - 1] : "";
}

void TrialForm::KeepButton_Click() {
  const auto path =
      Desktop().AskFile({.Save = true, .FileName = "*.txt", .DefaultExtension = "txt"});
  if (!path) return;
  SaveBytesOrTell(*path, FileNameOf(*path), ForFolder(result_.Scenario, *path));
}

}  // namespace brindlemoor
