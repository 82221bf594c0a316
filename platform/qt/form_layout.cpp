// Nested rows and columns.
#include "platform/qt/form_layout.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QGroupBox>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>
#include <vector>

#include "platform/qt/bindings.h"
#include "platform/qt/cell_grid.h"
#include "platform/qt/form_window.h"

namespace brindlemoor {

namespace {

constexpr int kMargin = 8;
constexpr int kFrameMargin = 4;  // above and below what a frame holds
constexpr int kSpacing = 4;

using Kind = Layout::Kind;

/// A row whose scroll bar follows the wheel wherever the pointer is in the row.
class ScrolledRow : public QWidget {
 public:
  using QWidget::QWidget;
  QScrollBar* Bar = nullptr;

 protected:
  void wheelEvent(QWheelEvent* event) override {
    if (Bar != nullptr && Bar->isVisible()) {
      QCoreApplication::sendEvent(Bar, event);
    } else {
      event->ignore();
    }
  }
};

/// Shows a box only while one of its controls is shown.
class Collapsing : public QObject {
 public:
  explicit Collapsing(QWidget& box) : QObject(&box), box_(box) {}
  void Watch(QWidget& control) {
    controls_.push_back(&control);
    control.installEventFilter(this);
  }
  void Update() {
    box_.setVisible(std::ranges::any_of(controls_, [](QWidget* w) { return !w->isHidden(); }));
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool changes =
        event->type() == QEvent::ShowToParent || event->type() == QEvent::HideToParent;
    if (changes) Update();
    return QObject::eventFilter(watched, event);
  }

 private:
  QWidget& box_;
  std::vector<QWidget*> controls_;
};

void WatchControls(const Layout& cell, const QWidget& box, Collapsing& collapsing) {
  if (cell.Leaf != nullptr) {
    auto* control = box.findChild<QWidget*>(QString::fromStdString(cell.Leaf->Name));
    if (control != nullptr) collapsing.Watch(*control);
  }
  for (const Layout& child : cell.Children) WatchControls(child, box, collapsing);
}

/// All of a form. It scrolls only where it can't be any lower.
class Page : public QWidget {
 public:
  using QWidget::QWidget;
  int heightForWidth(int width) const override {
    return layout()->totalMinimumHeightForWidth(width);
  }
};

bool IsSpace(const Layout& cell) { return cell.Leaf == nullptr && cell.Children.empty(); }

/// Whether something in the cell takes spare room in a direction.
bool Grows(const Layout& cell, Kind direction) {
  if (cell.Direction == Kind::kGrid) return true;
  return std::any_of(cell.Children.begin(), cell.Children.end(), [&](const Layout& child) {
    return (cell.Direction == direction && child.Stretch > 0) || Grows(child, direction);
  });
}

bool HoldsScrollBar(const Layout& cell) {
  return cell.Direction == Kind::kRow &&
         std::any_of(cell.Children.begin(), cell.Children.end(), [](const Layout& child) {
           return dynamic_cast<ScrollBar*>(child.Leaf) != nullptr;
         });
}

QBoxLayout* NewBox(Kind direction) {
  auto* box =
      new QBoxLayout(direction == Kind::kRow ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kSpacing);
  return box;
}

/// Whether a cell is as high as its letters ask for.
bool HoldsText(const Layout& cell) {
  return dynamic_cast<PictureBox*>(cell.Leaf) == nullptr &&
         dynamic_cast<BrowserView*>(cell.Leaf) == nullptr;
}

/// Whether the captions of buttons must find room in a cell's width.
bool HoldsButton(const Layout& cell) {
  return dynamic_cast<Button*>(cell.Leaf) != nullptr ||
         std::any_of(cell.Children.begin(), cell.Children.end(), HoldsButton);
}

void FixSize(QWidget& widget, const Layout& cell, FormWindow& window) {
  const bool asWideAsLetters = dynamic_cast<Label*>(cell.Leaf) != nullptr || HoldsButton(cell);
  const bool asHighAsLetters = HoldsText(cell);
  const bool shrinks = cell.Shrinks;
  const QSize size(cell.Width, cell.Height);
  if (size.isNull()) return;
  window.OnSizeChange([&widget, &window, asWideAsLetters, asHighAsLetters, shrinks, size] {
    const auto pixels = [&window](int length, bool asLetters) {
      return qRound(length * (asLetters ? window.LetterSize() : window.PictureSize()));
    };
    const int height = pixels(size.height(), asHighAsLetters);
    if (size.width() > 0) widget.setFixedWidth(pixels(size.width(), asWideAsLetters));
    if (size.height() > 0) widget.setFixedHeight(height);
    if (shrinks) widget.setMinimumHeight(height / 2);
  });
}

void AddLeaf(QBoxLayout& box, const Layout& cell, Kind direction, FormWindow& window) {
  QWidget* widget = BindControl(*cell.Leaf, window);
  if (widget == nullptr) return;
  if (auto* bar = qobject_cast<QScrollBar*>(widget)) {
    bar->setOrientation(direction == Kind::kRow ? Qt::Vertical : Qt::Horizontal);
  }
  if (cell.Stretch > 0) {
    QSizePolicy policy = widget->sizePolicy();
    if (direction == Kind::kRow) {
      policy.setHorizontalPolicy(QSizePolicy::Expanding);
    } else {
      policy.setVerticalPolicy(QSizePolicy::Expanding);
    }
    widget->setSizePolicy(policy);
  }
  FixSize(*widget, cell, window);
  box.addWidget(widget, cell.Stretch);
  window.AddTabStop(*widget);
}

void FillBox(QBoxLayout& box, const Layout& cell, FormWindow& window);

/// The style leaves room for a frame's title in letters of ordinary size.
void LeaveRoomForTitle(const QWidget& frame, QBoxLayout& box, FormWindow& window) {
  window.OnSizeChange([&frame, &box, &window] {
    const double height = frame.fontMetrics().height();
    const int more = std::max(0, qRound(height - height / window.LetterSize()));
    box.setContentsMargins(kMargin, kFrameMargin + more, kMargin, kFrameMargin);
  });
}

QWidget* Container(const Layout& cell, FormWindow& window) {
  QWidget* widget = nullptr;
  ScrolledRow* scrolled = nullptr;
  if (cell.Group != nullptr) {
    auto* group = new QGroupBox(&window);
    BindCommon(*cell.Group, *group, window, [group, frame = cell.Group] {
      group->setTitle(QString::fromStdString(frame->Caption));
    });
    widget = group;
  } else if (!cell.Title.empty()) {
    widget = new QGroupBox(QString::fromStdString(cell.Title), &window);
  } else {
    widget = scrolled = new ScrolledRow(&window);
  }
  QBoxLayout* box = NewBox(cell.Direction);
  if (scrolled == nullptr) LeaveRoomForTitle(*widget, *box, window);
  widget->setLayout(box);
  FillBox(*box, cell, window);
  FixSize(*widget, cell, window);
  if (cell.Collapses) {
    auto* collapsing = new Collapsing(*widget);
    WatchControls(cell, *widget, *collapsing);
    collapsing->Update();
  }
  if (scrolled != nullptr && HoldsScrollBar(cell)) scrolled->Bar = widget->findChild<QScrollBar*>();
  return widget;
}

/// The controls of a grid; each takes the whole of its cell.
void AddGrid(QBoxLayout& box, const Layout& grid, FormWindow& window) {
  auto* cells = new CellGrid(grid.Columns);
  cells->setSpacing(kSpacing);
  box.addLayout(cells, grid.Stretch);
  for (const Layout& cell : grid.Children) {
    QWidget* widget = cell.Leaf == nullptr ? nullptr : BindControl(*cell.Leaf, window);
    if (widget == nullptr) continue;
    cells->addWidget(widget);
    window.AddTabStop(*widget);
  }
}

void AddCell(QBoxLayout& box, const Layout& cell, Kind direction, FormWindow& window) {
  if (IsSpace(cell)) {
    if (cell.Stretch > 0) box.addStretch(cell.Stretch);
    box.addSpacing(direction == Kind::kRow ? cell.Width : cell.Height);
  } else if (cell.Direction == Kind::kGrid) {
    AddGrid(box, cell, window);
  } else if (cell.Leaf != nullptr) {
    AddLeaf(box, cell, direction, window);
  } else if (cell.Group != nullptr || !cell.Title.empty() || cell.Width > 0 || cell.Height > 0 ||
             cell.Collapses || HoldsScrollBar(cell)) {
    box.addWidget(Container(cell, window), cell.Stretch);
  } else {
    QBoxLayout* inner = NewBox(cell.Direction);
    box.addLayout(inner, cell.Stretch);
    FillBox(*inner, cell, window);
  }
}

void FillBox(QBoxLayout& box, const Layout& cell, FormWindow& window) {
  for (const Layout& child : cell.Children) AddCell(box, child, cell.Direction, window);
  const bool filled = std::any_of(
      cell.Children.begin(), cell.Children.end(),
      [&](const Layout& child) { return child.Stretch > 0 || Grows(child, cell.Direction); });
  if (!filled) box.addStretch(1);
}

}  // namespace

QWidget* BuildArrangement(const Layout& arrangement, FormWindow& window) {
  auto* page = new Page(&window);
  QBoxLayout* box = NewBox(Kind::kColumn);
  box->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  page->setLayout(box);
  Layout root = arrangement;
  root.Stretch = std::max(root.Stretch, 1);
  AddCell(*box, root, Kind::kColumn, window);
  return page;
}

}  // namespace brindlemoor
