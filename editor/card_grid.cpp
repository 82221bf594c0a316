// The table of all cards: its controls and what they do.
#include "editor/card_grid.h"

#include <utility>

#include "core/desktop.h"
#include "platform/arrangement.h"

namespace brindlemoor {

namespace {

constexpr std::string_view kUse =
    "What is typed or pasted goes into all selected cells.  Copy and paste exchange them with a "
    "spreadsheet.  A + is a trait without a value; an empty cell is no trait.  A heading sorts.";
constexpr int kNoteHeight = 34;
constexpr int kHintColor = 0xD9B36C;
constexpr int kPlainColor = 0xC9C4B8;

}  // namespace

CardGrid::CardGrid() : Form("CardGrid") {
  Caption = "All Cards";
  Width = 1100;
  Height = 640;
  Cells.Spoken = "Cards and their values";
  Cells.CellText = [this](int row, int column) { return Table.Text(row, column); };
  Cells.CanEdit = [this](int column) { return Table.CanEdit(column); };
  Cells.CellsTyped = [this](int row, int column, const std::string& texts) {
    Cells_CellsTyped(row, column, texts);
  };
  Cells.Header = [this](int column) { Cells_Header(column); };
  Cells.Open = EditButton.Click = [this] { EditButton_Click(); };
  EditButton.Caption = "Edit This Card";
  EditButton.ToolTip = "Close the table and show the card of this row in the editor.";
  TraitButton.Caption = "Add Trait...";
  TraitButton.ToolTip = "Add a column for a trait that no card has yet.";
  TraitButton.Click = [this] { TraitButton_Click(); };
  CloseButton.Caption = "Close";
  CloseButton.Cancel = true;
  CloseButton.Click = [this] { Desktop().HideForm(*this); };
  undomen.Shortcut = "Ctrl+Z";
  undomen.Click = [this] { undomen_Click(); };
  redomen.Shortcut = "Ctrl+Y";
  redomen.Click = [this] { redomen_Click(); };
  editmen.Items = {&undomen, &redomen};
  Menus = {&editmen};
  Arrangement = Column({Cell(Cells, 1), Row({Cell(Note, 1, 0, kNoteHeight), Cell(TraitButton),
                                             Cell(EditButton), Cell(CloseButton)})},
                       1);
}

void CardGrid::Begin(std::vector<std::string> files, int place) {
  Chosen = 0;
  Table.Load(std::move(files));
  Cells.Row = Table.RowOf(place);
  Cells.Column = 1;
  ShowCells("");
}

void CardGrid::ShowCells(const std::string& refused) {
  Cells.Columns = Table.Headings();
  Cells.RowCount = Table.Rows();
  Cells.Version = Cells.Version + 1;
  Note.Caption = refused.empty() ? std::string(kUse) : refused;
  Note.TextColor = refused.empty() ? kPlainColor : kHintColor;
  undomen.Enabled = Table.CanUndo();
  redomen.Enabled = Table.CanRedo();
}

void CardGrid::Cells_CellsTyped(int row, int column, const std::string& texts) {
  ShowCells(Table.Put(row, column, texts));
}

void CardGrid::Cells_Header(int column) {
  const int place = Table.PlaceOf(Cells.Row);
  Table.SortBy(column);
  ShowCells("");
  Cells.Row = Table.RowOf(place);
}

void CardGrid::EditButton_Click() {
  Chosen = Table.PlaceOf(Cells.Row);
  if (Chosen == 0) {
    ShowCells("Choose a row first.");
  } else {
    Desktop().HideForm(*this);
  }
}

void CardGrid::TraitButton_Click() {
  const auto name = Desktop().AskText("Name of the trait?");
  if (!name || name->empty()) return;
  const int column = Table.AddTrait(*name);
  ShowCells(column == 0 ? "The name of a trait holds no colon, comma, quote or #." : "");
  if (column == 0) return;
  if (Cells.Row == 0 && Table.Rows() > 0) Cells.Row = 1;
  Cells.Column = column;
}

void CardGrid::undomen_Click() {
  Table.Undo();
  ShowCells("");
}

void CardGrid::redomen_Click() {
  Table.Redo();
  ShowCells("");
}

}  // namespace brindlemoor
