// Grids: tables of texts that are edited cell by cell, or exchanged with a spreadsheet.
#include <QAbstractTableModel>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QTableView>
#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "text/table_text.h"

namespace brindlemoor {

namespace {

constexpr int kWidestColumn = 220;
constexpr int kNarrowestColumn = 48;
constexpr int kCellPadding = 18;
constexpr int kRowsMeasured = 40;  // for the first width of a column
constexpr const char16_t* kLineEndShown = u" \u21B5 ";

/// The cells as Qt asks for them, counted from 0.
class CellModel : public QAbstractTableModel {
 public:
  CellModel(const Grid& grid, QObject* parent) : QAbstractTableModel(parent), grid_(grid) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : rows_;
  }
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(headings_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const bool isText = role == Qt::DisplayRole || role == Qt::EditRole || role == Qt::ToolTipRole;
    if (!isText || !index.isValid()) return {};
    QString text = Text(index.row(), index.column());
    // A row is one line high.
    return role == Qt::DisplayRole ? text.replace('\n', QString::fromUtf16(kLineEndShown)) : text;
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return orientation == Qt::Horizontal ? headings_.value(section) : QString::number(section + 1);
  }
  Qt::ItemFlags flags(const QModelIndex& index) const override {
    const auto shown = QAbstractTableModel::flags(index);
    return CanEdit(index.column()) ? shown | Qt::ItemIsEditable : shown;
  }

  QString Text(int row, int column) const {
    if (!grid_.CellText || row >= rows_ || column >= headings_.size()) return {};
    return QString::fromStdString(grid_.CellText(row + 1, column + 1)).remove('\r');
  }
  bool CanEdit(int column) const { return grid_.CanEdit && grid_.CanEdit(column + 1); }

  /// Takes over what the grid has become. True when it has other columns.
  bool Follow() {
    QStringList headings;
    for (const std::string& heading : grid_.Columns.Get()) {
      headings << QString::fromStdString(heading);
    }
    const bool isOther = headings != headings_;
    if (isOther || rows_ != grid_.RowCount) {
      beginResetModel();
      headings_ = headings;
      rows_ = grid_.RowCount;
      endResetModel();
    } else if (version_ != grid_.Version && rows_ > 0 && !headings_.isEmpty()) {
      dataChanged(index(0, 0), index(rows_ - 1, static_cast<int>(headings_.size()) - 1));
    }
    version_ = grid_.Version;
    return isOther;
  }

 private:
  const Grid& grid_;
  QStringList headings_;
  int rows_ = 0;
  int version_ = 0;
};

class GridView : public QTableView {
 public:
  GridView(const Grid& grid, FormWindow& window)
      : QTableView(&window), grid_(grid), window_(window), cells_(new CellModel(grid, this)) {
    setModel(cells_);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(DoubleClicked | EditKeyPressed | AnyKeyPressed);
    setSelectionMode(ContiguousSelection);
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    FitRows();
    horizontalHeader()->setSectionsClickable(true);
    horizontalHeader()->setHighlightSections(false);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { Tell({.Kind = UserEventKind::kHeading, .Number = column + 1}); });
    connect(this, &QTableView::doubleClicked, this,
            [this](const QModelIndex& cell) { Open(cell); });
  }

  void Follow() {
    following_ = true;
    const bool isReadOnly = !cells_->CanEdit(0);
    if (cells_->Follow() || isReadOnly) FitColumns();
    const QModelIndex wanted = cells_->index(grid_.Row - 1, grid_.Column - 1);
    if (wanted.isValid() && wanted != currentIndex()) setCurrentIndex(wanted);
    following_ = false;
  }

 protected:
  void changeEvent(QEvent* event) override {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange || cells_ == nullptr) return;
    FitRows();
    FitColumns();
  }
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override {
    QTableView::currentChanged(current, previous);
    if (!following_ && current.isValid()) Tell(At(UserEventKind::kCell, current));
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (event->matches(QKeySequence::Copy)) {
      Copy();
    } else if (event->matches(QKeySequence::Cut)) {
      Copy();
      Fill("");
    } else if (event->matches(QKeySequence::Paste)) {
      Paste();
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
      Fill("");
    } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      if (state() == EditingState) return;  // the key was the cell's
      if (cells_->CanEdit(currentIndex().column())) {
        edit(currentIndex());
      } else {
        Open(currentIndex());
      }
    } else {
      QTableView::keyPressEvent(event);
    }
  }
  /// What was typed goes into all cells of the selection.
  void commitData(QWidget* editor) override {
    const QString typed = editor->property("text").toString();
    const QModelIndex cell = currentIndex();
    const bool isOneCell = selectionModel()->selectedIndexes().size() <= 1;
    if (isOneCell && typed == cells_->Text(cell.row(), cell.column())) return;
    Fill(typed.toStdString());
  }

 private:
  UserEvent At(UserEventKind kind, const QModelIndex& cell) const {
    return {.Kind = kind, .Number = cell.row() + 1, .Y = cell.column() + 1};
  }
  void Tell(UserEvent event) {
    event.Control = grid_.Name;
    window_.Deliver(event);
  }
  void Open(const QModelIndex& cell) {
    if (cell.isValid() && !cells_->CanEdit(cell.column())) Tell(At(UserEventKind::kCellOpen, cell));
  }

  /// The selection, or the current cell.
  QItemSelectionRange Chosen() const {
    const QItemSelection ranges = selectionModel()->selection();
    return ranges.isEmpty() ? QItemSelectionRange(currentIndex()) : ranges.constFirst();
  }
  void Copy() const {
    const QItemSelectionRange chosen = Chosen();
    if (!chosen.isValid()) return;
    std::vector<TableRow> rows;
    for (int row = chosen.top(); row <= chosen.bottom(); ++row) {
      TableRow& cells = rows.emplace_back();
      for (int column = chosen.left(); column <= chosen.right(); ++column) {
        cells.push_back(cells_->Text(row, column).toStdString());
      }
    }
    QApplication::clipboard()->setText(QString::fromStdString(TableText(rows)));
  }

  void Fill(const std::string& text) {
    const QItemSelectionRange chosen = Chosen();
    if (!chosen.isValid()) return;
    const TableRow row(static_cast<std::size_t>(chosen.width()), text);
    Put(chosen.topLeft(),
        TableText(std::vector<TableRow>(static_cast<std::size_t>(chosen.height()), row)));
  }
  /// One text is put into all cells of the selection, as in other tables.
  void Paste() {
    const std::string text = QApplication::clipboard()->text().toStdString();
    const QItemSelectionRange chosen = Chosen();
    if (!chosen.isValid()) return;
    const std::vector<TableRow> rows = TableRows(text);
    if (rows.size() == 1 && rows.front().size() == 1) {
      Fill(rows.front().front());
    } else {
      Put(chosen.topLeft(), text);
    }
  }
  void Put(const QModelIndex& first, const std::string& texts) {
    UserEvent event = At(UserEventKind::kCells, first);
    event.Text = texts;
    Tell(event);
  }

  void FitRows() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kCellPadding / 2);
  }

  /// As wide as its heading and the first cells.
  void FitColumns() {
    const QFontMetrics metrics = fontMetrics();
    for (int column = 0; column < cells_->columnCount(); ++column) {
      int width = horizontalHeader()->fontMetrics().horizontalAdvance(
          cells_->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString());
      for (int row = 0; row < std::min(cells_->rowCount(), kRowsMeasured); ++row) {
        width = std::max(width, metrics.horizontalAdvance(cells_->Text(row, column)));
      }
      setColumnWidth(column, std::clamp(width + kCellPadding, kNarrowestColumn, kWidestColumn));
    }
  }

  const Grid& grid_;
  FormWindow& window_;
  CellModel* cells_;
  bool following_ = false;
};

}  // namespace

QWidget* BindGrid(Grid& model, FormWindow& window) {
  auto* view = new GridView(model, window);
  BindCommon(model, *view, window, [view] { view->Follow(); });
  return view;
}

}  // namespace brindlemoor
