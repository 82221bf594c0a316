// Choosing how hard the opponent thinks.
#include "ui/opponent_menu.h"

#include <string>

#include "core/desktop.h"
#include "core/state.h"
#include "game/opponent_option.h"

namespace brindlemoor {

OpponentMenu::OpponentMenu() {
  for (std::size_t level = 0; level < Levels.size(); ++level) {
    Levels[level] = std::make_unique<MenuItem>("Opponent(" + std::to_string(level) + ")",
                                               std::string(kMindLevels[level].Name));
    Levels[level]->Checkable = true;
    Levels[level]->Click = [this, level] { Choose(static_cast<int>(level)); };
    Menu.Items.push_back(Levels[level].get());
  }
  Mark();
}

void OpponentMenu::Update() {
  TakeChosenMind();
  Mark();
}

void OpponentMenu::Choose(int level) {
  const std::string problem = ChooseMind(level);
  Mark();
  if (!problem.empty()) Desktop().MessageBox(problem);
}

void OpponentMenu::Mark() {
  for (std::size_t level = 0; level < Levels.size(); ++level) {
    Levels[level]->Checked = State().Minds[2] == static_cast<int>(level);
  }
}

}  // namespace brindlemoor
