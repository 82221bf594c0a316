// Where controls and links are on the screen, for tests that click like a user.
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <map>

class QWidget;

namespace brindlemoor {

/// While it lives, keeps a file up to date with a line for each thing that can be seen and clicked:
/// its kind, name, x, y, width and height on the screen and its text, separated by tabs. Kinds are
/// window, control, menu (a title or an entry of an open menu), dialog, field and button (of a
/// dialog), link and, for a page, view; "work" says that a handler is not done: a page may be
/// replaced, and takes no clicks. It must go before the windows do.
class GeometryReport : public QObject {
 public:
  explicit GeometryReport(QString file);

 private:
  void Collect();
  void CollectLinks(QWidget& view);
  void WriteIfChanged(const QString& text);

  QString file_;
  QString written_;
  QTimer timer_;
  std::map<QWidget*, QString> links_;  // of each view, as they were read last
};

}  // namespace brindlemoor
