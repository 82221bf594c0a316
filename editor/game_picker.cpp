// The list of games to choose one from.
#include "editor/game_picker.h"

#include <string>
#include <utility>
#include <vector>

#include "core/desktop.h"
#include "core/state.h"
#include "editor/editor_forms.h"
#include "game/game_list.h"
#include "platform/arrangement.h"

namespace brindlemoor {

GamePicker::GamePicker() : Form("GamePicker") {
  constexpr int kButtonWidth = 110;
  constexpr int kListHeight = 200;
  Caption = "Open Game";
  Width = 380;
  Label1.Caption = "Which game's cards?";
  Command1.Caption = "Open";
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

int AskGame() {
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
  form.List1.Items = std::move(names);
  form.List1.Selected = 1;
  form.Accepted = false;
  Desktop().ShowForm(form, true);
  return form.Accepted ? form.List1.Selected.Get() : 0;
}

}  // namespace brindlemoor
