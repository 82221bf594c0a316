// Combo boxes and list boxes.
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <algorithm>
#include <memory>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

using Items = std::vector<std::string>;

QStringList ToQt(const Items& items) {
  QStringList list;
  for (const std::string& item : items) list << QString::fromStdString(item);
  return list;
}

constexpr int kShortestCombo = 14;  // characters

/// The place of the item that Selected names, -1 when it names none of this text.
int ChosenPlace(const ComboBox& model) {
  const Items& items = model.Items;
  const int place = model.Selected - 1;
  const bool there = place >= 0 && place < static_cast<int>(items.size());
  return there && items[static_cast<std::size_t>(place)] == model.Text.Get() ? place : -1;
}

void ShowText(QComboBox& combo, const QString& text) {
  combo.setCurrentIndex(combo.findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
  if (combo.isEditable()) {
    if (combo.currentText() != text) combo.setEditText(text);
  } else {
    combo.setPlaceholderText(text);  // seen while no item is chosen
  }
}

constexpr int kWholeText = Qt::UserRole;

/// As rich text they are broken into lines.
void ShowItemToolTips(QComboBox& combo, const Items& toolTips) {
  for (int place = 0; place < combo.count() && place < static_cast<int>(toolTips.size()); ++place) {
    const QString text = QString::fromStdString(toolTips[static_cast<std::size_t>(place)]);
    const QString shown = text.isEmpty() ? text : "<qt>" + text.toHtmlEscaped() + "</qt>";
    combo.setItemData(place, shown, Qt::ToolTipRole);
  }
}

/// Shows an item with the blanks before its name; typed letters look for the name.
class IndentedItems : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = index.data(kWholeText).toString();
  }
};

void FillList(QListWidget& list, const Items& items) {
  list.clear();
  for (const QString& text : ToQt(items)) {
    const qsizetype name =
        std::find_if(text.begin(), text.end(), [](QChar c) { return c != ' '; }) - text.begin();
    auto* item = new QListWidgetItem(text.mid(name), &list);
    item->setData(kWholeText, text);
  }
}

/// A list whose items open by a double click or the Enter key.
class OpeningList : public QListWidget {
 public:
  OpeningList(const ListBox& model, FormWindow& window)
      : QListWidget(&window), model_(model), window_(window) {
    connect(this, &QListWidget::itemDoubleClicked, this,
            [this](QListWidgetItem* item) { Open(row(item)); });
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
      if (!event->isAutoRepeat()) Open(currentRow());
    } else {
      QListWidget::keyPressEvent(event);
    }
  }

 private:
  void Open(int row) {
    if (row < 0 || !model_.Open) return;
    window_.Deliver({.Kind = UserEventKind::kOpen, .Control = model_.Name, .Number = row + 1});
  }

  const ListBox& model_;
  FormWindow& window_;
};

}  // namespace

QWidget* BindComboBox(ComboBox& model, FormWindow& window) {
  auto* combo = new QComboBox(&window);
  combo->setEditable(model.Editable);
  combo->setInsertPolicy(QComboBox::NoInsert);
  combo->setMaxVisibleItems(20);
  combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  combo->setMinimumContentsLength(kShortestCombo);
  auto shown = std::make_shared<Items>();
  BindCommon(model, *combo, window, [&model, combo, shown] {
    const QSignalBlocker quiet(combo);
    if (*shown != model.Items.Get()) {
      *shown = model.Items.Get();
      combo->clear();
      combo->addItems(ToQt(*shown));
    }
    ShowItemToolTips(*combo, model.ItemToolTips);
    const int place = ChosenPlace(model);
    if (place >= 0) {
      combo->setCurrentIndex(place);
    } else {
      ShowText(*combo, QString::fromStdString(model.Text));
    }
  });
  QObject::connect(combo, &QComboBox::activated, &window, [&model, &window](int place) {
    window.Deliver({.Kind = UserEventKind::kChoose, .Control = model.Name, .Number = place + 1});
  });
  if (model.Editable) {
    // The box has the focus, its line gets what the box hands on.
    if (model.FormUndoes) LeaveUndoToForm(*combo);
    combo->lineEdit()->setPlaceholderText(QString::fromStdString(model.Placeholder));
    combo->lineEdit()->setAccessibleName(QString::fromStdString(model.Spoken));
    if (model.Enter) {
      QObject::connect(combo->lineEdit(), &QLineEdit::returnPressed, &window, [&model, &window] {
        window.Deliver({.Kind = UserEventKind::kEnter, .Control = model.Name});
      });
    }
    QObject::connect(
        combo->lineEdit(), &QLineEdit::textEdited, &window, [&model, &window](const QString& text) {
          window.Deliver(
              {.Kind = UserEventKind::kType, .Control = model.Name, .Text = text.toStdString()});
        });
  }
  return combo;
}

QWidget* BindListBox(ListBox& model, FormWindow& window) {
  auto* list = new OpeningList(model, window);
  list->setItemDelegate(new IndentedItems(list));
  auto shown = std::make_shared<Items>();
  BindCommon(model, *list, window, [&model, list, shown] {
    const QSignalBlocker quiet(list);
    if (*shown != model.Items.Get()) {
      *shown = model.Items.Get();
      FillList(*list, *shown);
    }
    if (list->currentRow() != model.Selected - 1) list->setCurrentRow(model.Selected - 1);
  });
  const auto take = [&model, &window](int row) {
    window.Deliver({.Kind = UserEventKind::kChoose, .Control = model.Name, .Number = row + 1});
  };
  QObject::connect(list, &QListWidget::itemClicked, &window,
                   [take, list](QListWidgetItem* item) { take(list->row(item)); });
  // With the keyboard the selection is the click; a first look at the list selects nothing.
  QObject::connect(list, &QListWidget::itemSelectionChanged, &window, [take, list] {
    const bool byKey = QApplication::mouseButtons() == Qt::NoButton;
    const auto selected = list->selectedItems();  // before it becomes the current one
    if (byKey && !selected.isEmpty()) take(list->row(selected.constFirst()));
  });
  return list;
}

}  // namespace brindlemoor
