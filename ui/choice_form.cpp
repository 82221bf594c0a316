// The list to choose from, and the questions that it asks.
#include "ui/choice_form.h"

#include <utility>

#include "core/desktop.h"
#include "core/state.h"
#include "game/game_list.h"
#include "platform/arrangement.h"
#include "ui/forms.h"

namespace brindlemoor {

ChoiceForm::ChoiceForm() : Form("ChoiceForm") {
  constexpr int kButtonWidth = 120;
  Caption = "Choose";
  Width = 620;
  Height = 480;
  Command1.Caption = "OK";
  Command1.Click = List1.Open = [this] { Command1_Click(); };
  Command2.Caption = "Cancel";
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
  Arrangement = Column({Cell(Label1), Cell(List1, 1),
                        Row({Layout{.Stretch = 1}, Cell(Command1, 0, kButtonWidth),
                             Cell(Command2, 0, kButtonWidth)})});
}

void ChoiceForm::Command1_Click() {
  if (List1.Selected == 0) return;
  Accepted = true;
  Desktop().HideForm(*this);
}

void ChoiceForm::Command2_Click() { Desktop().HideForm(*this); }

int AskChoice(std::string_view question, std::vector<std::string> items) {
  ChoiceForm& form = TheChoiceForm();
  form.Label1.Caption = std::string(question);
  form.List1.Spoken = form.Label1.Caption;
  form.List1.Items = std::move(items);
  form.List1.Selected = 1;
  form.Accepted = false;
  Desktop().ShowForm(form, true);
  return form.Accepted ? form.List1.Selected.Get() : 0;
}

int AskGame(std::string_view question) {
  Table<GameRec>& games = State().Games;
  games.Reset(1);
  DiscoverGames();
  std::string problem;
  if (FindGame("", problem) == 0) {
    Desktop().MessageBox(problem);
    return 0;
  }
  if (games.UpperBound() == 1) return 1;
  std::vector<std::string> names;
  for (const GameRec& game : games) names.push_back(game.Name.Str());
  return AskChoice(question, std::move(names));
}

}  // namespace brindlemoor
