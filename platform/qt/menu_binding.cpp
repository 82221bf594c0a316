// Menus.
#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>
#include <memory>

#include "platform/qt/bindings.h"
#include "platform/qt/form_window.h"
#include "platform/qt/mnemonics.h"

namespace brindlemoor {

namespace {

/// The entries of one menu, which share its access keys out among themselves.
struct Entries {
  std::vector<std::pair<MenuItem*, QAction*>> List;
  void Mark() const {
    QStringList captions;
    for (const auto& [item, action] : List) captions << QString::fromStdString(item->Caption);
    const QStringList marked = WithMnemonics(captions);
    for (std::size_t index = 0; index < List.size(); ++index) {
      List[index].second->setText(marked[static_cast<qsizetype>(index)]);
    }
  }
};

void FollowItem(MenuItem& item, QAction& action, FormWindow& window,
                std::function<void()> captionChanged) {
  action.setObjectName(QString::fromStdString(item.Name));
  const auto sync = [&item, &action, captionChanged = std::move(captionChanged)] {
    action.setVisible(item.Visible);
    action.setEnabled(item.Enabled);
    action.setCheckable(item.Checkable);
    action.setChecked(item.Checked);
    if (action.menu() == nullptr) {
      action.setShortcut(QKeySequence(QString::fromStdString(item.Shortcut)));
      action.setAutoRepeat(false);
    }
    captionChanged();
  };
  window.Bind(item, sync);
  QObject::connect(&action, &QAction::triggered, &window, [&item, &window, sync] {
    if (item.Click) window.Deliver({.Kind = UserEventKind::kMenu, .Control = item.Name});
    // The mark is the model's: a click alone does not set it.
    sync();
  });
}

void FillMenu(QMenu& menu, const MenuItem& parent, FormWindow& window) {
  auto entries = std::make_shared<Entries>();
  for (MenuItem* item : parent.Items) {
    QAction* action = nullptr;
    if (item->Items.empty()) {
      action = menu.addAction(QString());
    } else {
      QMenu* inner = menu.addMenu(QString());
      FillMenu(*inner, *item, window);
      action = inner->menuAction();
    }
    entries->List.emplace_back(item, action);
    FollowItem(*item, *action, window, [entries] { entries->Mark(); });
  }
}

}  // namespace

void BindMenus(const std::vector<MenuItem*>& menus, FormWindow& window) {
  if (menus.empty()) return;
  for (MenuItem* item : menus) {
    QAction* action = nullptr;
    if (item->Items.empty()) {
      action = window.menuBar()->addAction(QString());
    } else {
      QMenu* menu = window.menuBar()->addMenu(QString());
      FillMenu(*menu, *item, window);
      action = menu->menuAction();
    }
    window.AddMnemonic([item] { return QString::fromStdString(item->Caption); },
                       [action](const QString& marked) { action->setText(marked); });
    FollowItem(*item, *action, window, [&window] { window.RefreshMnemonics(); });
  }
}

}  // namespace brindlemoor
