// CardGrid: the window that shows all cards of the editor as a table.
#pragma once

#include <string>
#include <vector>

#include "editor/card_cells.h"
#include "platform/controls.h"

namespace brindlemoor {

struct CardGrid : Form {
  CardGrid();

  Grid Cells{"Cells"};
  Label Note{"Note"};  ///< what was refused, else how the table is used
  Button EditButton{"EditButton"};
  Button TraitButton{"TraitButton"};
  Button CloseButton{"CloseButton"};
  MenuItem editmen{"editmen", "Edit"};
  MenuItem undomen{"undomen", "Undo"};
  MenuItem redomen{"redomen", "Redo"};

  CardCells Table;
  int Chosen = 0;  ///< place of the card that is to be edited, 0 for none

  /// Shows the cards of the list, the one of a place first. files are those of a game.
  void Begin(std::vector<std::string> files, int place);

  void Cells_CellsTyped(int row, int column, const std::string& texts);
  void Cells_Header(int column);
  void EditButton_Click();
  void TraitButton_Click();
  void undomen_Click();
  void redomen_Click();

 private:
  void ShowCells(const std::string& refused);
};

}  // namespace brindlemoor
