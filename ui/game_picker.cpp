// The list of games to choose one from.
#include "ui/game_picker.h"

#include <string>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/state.h"
#include "game/game_list.h"
#include "platform/arrangement.h"
#include "ui/forms.h"

namespace brindlemoor {

GamePicker::GamePicker() : Form("GamePicker") {
  constexpr int kButtonWidth = 110;
  constexpr int kListHeight = 200;
  Caption = "Games";
  Width = 380;
  Command1.Caption = "OK";
  Command1.Click = List1.Open = [this] { Command1_Click(); };
  Command2.Caption = "Cancel";
  Command2.Cancel = true;
  Command2.Click = [this] { Command2_Click(); };
  Arrangement = Column({Cell(Label1), Cell(List1, 1, 0, kListHeight),
                        Row({Layout{.Stretch = 1}, Cell(Command1, 0, kButtonWidth),
                             Cell(Command2, 0, kButtonWidth)})});
}

void GamePicker::Command1_Click() {
  if (List1.Selected == 0) return;
  Accepted = true;
  Desktop().HideForm(*this);
}

void GamePicker::Command2_Click() { Desktop().HideForm(*this); }

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
  GamePicker& form = TheGamePicker();
  std::vector<std::string> names;
  for (const GameRec& game : games) names.push_back(game.Name.Str());
  form.Label1.Caption = std::string(question);
  form.List1.Items = std::move(names);
  form.List1.Selected = 1;
  form.Accepted = false;
  Desktop().ShowForm(form, true);
  return form.Accepted ? form.List1.Selected.Get() : 0;
}

}  // namespace brindlemoor
