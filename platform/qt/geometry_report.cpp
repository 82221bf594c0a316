// Reading the screen rectangles of what is shown.
#include "platform/qt/geometry_report.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDateTime>
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSaveFile>
#include <QVariant>
#include <QWebEnginePage>
#include <QWebEngineScript>

#include "platform/qt/form_window.h"
#include "platform/qt/page_view.h"
#include "platform/qt/window_host.h"

namespace brindlemoor {

namespace {

constexpr int kInterval = 100;  // milliseconds

// Runs in a world of its own beside the page, whose scripts stay off.
constexpr const char* kLinkScript = R"(
(function() {
  const found = [];
  for (const link of document.querySelectorAll('a[href]')) {
    const content = link.querySelector('img') || link;
    const box = content.getClientRects()[0];
    if (!box || box.width < 1 || box.height < 1) continue;
    const x = Math.max(box.left, 0), y = Math.max(box.top, 0);
    const right = Math.min(box.right, innerWidth), bottom = Math.min(box.bottom, innerHeight);
    if (right - x < 2 || bottom - y < 2) continue;
    found.push([link.getAttribute('href'), x, y, right - x, bottom - y, link.textContent]);
  }
  return found;
})();
)";

QString Line(const QString& kind, const QString& name, QRect place, const QString& text) {
  QString oneLine = text;
  oneLine.replace('\n', ' ').replace('\t', ' ');
  return QString("%1\t%2\t%3\t%4\t%5\t%6\t%7\n")
      .arg(kind, name)
      .arg(place.x())
      .arg(place.y())
      .arg(place.width())
      .arg(place.height())
      .arg(oneLine);
}

QRect OnScreen(const QWidget& widget, QRect place) {
  const double ratio = widget.devicePixelRatioF();
  const QPoint corner = widget.mapToGlobal(place.topLeft());
  return QRect((QPointF(corner) * ratio).toPoint(), (QSizeF(place.size()) * ratio).toSize());
}
QRect OnScreen(const QWidget& widget) { return OnScreen(widget, widget.rect()); }

/// A caption without its access key.
QString Plain(const QString& caption) {
  QString plain;
  for (qsizetype index = 0; index < caption.size(); ++index) {
    if (caption[index] == '&' && ++index >= caption.size()) break;
    plain += caption[index];
  }
  return plain;
}

QString MenuLines(const QWidget& menu, const QList<QAction*>& actions,
                  const std::function<QRect(QAction*)>& place) {
  QString lines;
  for (QAction* action : actions) {
    if (!action->isVisible()) continue;
    const QString state =
        QString(action->isEnabled() ? "" : " (off)") + (action->isChecked() ? " (checked)" : "");
    lines += Line("menu", action->objectName(), OnScreen(menu, place(action)),
                  Plain(action->text()) + state);
  }
  return lines;
}

/// What a control says: its caption, its text or its name for those who cannot see it.
QString Words(const QWidget& control) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control)) {
    return Plain(button->text());
  }
  if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) return edit->text();
  if (const auto* edit = qobject_cast<const QPlainTextEdit*>(&control)) return edit->toPlainText();
  if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
  return control.accessibleName();
}

QString WindowLines(const FormWindow& window) {
  QString lines = Line("window", window.objectName(), OnScreen(window), window.windowTitle());
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (!widget->isVisible() || !widget->property("control").toBool()) continue;
    const bool isView = dynamic_cast<const PageView*>(widget) != nullptr;
    lines +=
        Line(isView ? "view" : "control", widget->objectName(), OnScreen(*widget), Words(*widget));
  }
  if (const auto* bar = window.findChild<QMenuBar*>()) {
    lines += MenuLines(*bar, bar->actions(), [bar](QAction* a) { return bar->actionGeometry(a); });
  }
  return lines;
}

QString DialogLines(const QDialog& dialog) {
  QStringList texts;
  for (const QLabel* label : dialog.findChildren<QLabel*>()) {
    if (label->isVisible() && !label->text().isEmpty()) texts << label->text();
  }
  QString lines = Line("dialog", dialog.windowTitle(), OnScreen(dialog), texts.join(" | "));
  for (const auto* field : dialog.findChildren<QLineEdit*>()) {
    if (field->isVisible()) lines += Line("field", "", OnScreen(*field), field->text());
  }
  for (const auto* button : dialog.findChildren<QAbstractButton*>()) {
    if (button->isVisible()) {
      lines += Line("button", Plain(button->text()), OnScreen(*button), "");
    }
  }
  return lines;
}

}  // namespace

GeometryReport::GeometryReport(QString file) : file_(std::move(file)) {
  connect(&timer_, &QTimer::timeout, this, [this] { Collect(); });
  timer_.start(kInterval);
}

void GeometryReport::Collect() {
  QString text;
  std::map<QWidget*, QString> links;
  for (QWidget* top : QApplication::topLevelWidgets()) {
    if (!top->isVisible()) continue;
    if (auto* window = dynamic_cast<FormWindow*>(top)) {
      if (window->Host().InsideLogic()) text += Line("work", window->objectName(), {}, "");
      text += WindowLines(*window);
      for (QWidget* widget : window->findChildren<QWidget*>()) {
        if (dynamic_cast<PageView*>(widget) == nullptr || !widget->isVisible()) continue;
        links[widget] = links_[widget];
        text += links[widget];
        CollectLinks(*widget);
      }
    } else if (const auto* dialog = qobject_cast<QDialog*>(top)) {
      text += DialogLines(*dialog);
    } else if (const auto* menu = qobject_cast<QMenu*>(top)) {
      text += MenuLines(*menu, menu->actions(),
                        [menu](QAction* action) { return menu->actionGeometry(action); });
    }
  }
  links_ = std::move(links);
  WriteIfChanged(text);
}

void GeometryReport::CollectLinks(QWidget& view) {
  auto& page = static_cast<PageView&>(view);
  const QPointer<QWidget> alive(&view);
  const QPointer<GeometryReport> self(this);
  page.page()->runJavaScript(
      kLinkScript, QWebEngineScript::ApplicationWorld, [this, self, alive](const QVariant& result) {
        if (self.isNull() || alive.isNull() || !links_.contains(alive)) return;
        const double zoom = static_cast<PageView*>(alive.data())->zoomFactor();
        QString lines;
        for (const QVariant& entry : result.toList()) {
          const QVariantList link = entry.toList();
          const auto number = [&](int index) { return qRound(link[index].toDouble() * zoom); };
          const QRect place(number(1), number(2), number(3), number(4));
          lines += Line("link", alive->objectName() + " " + link[0].toString(),
                        OnScreen(*alive, place), link[5].toString());
        }
        links_[alive] = lines;
      });
}

void GeometryReport::WriteIfChanged(const QString& text) {
  if (text == written_) {
    // The file's time says that the report is of now.
    QFile file(file_);
    if (file.open(QIODevice::Append)) {
      file.setFileTime(QDateTime::currentDateTime(), QFileDevice::FileModificationTime);
    }
    return;
  }
  QSaveFile file(file_);
  if (!file.open(QIODevice::WriteOnly)) return;
  file.write(text.toUtf8());
  if (file.commit()) written_ = text;
}

}  // namespace brindlemoor
