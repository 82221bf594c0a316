// Keys that are held down.
#pragma once

#include <QObject>

namespace brindlemoor {

/// While it lives, Enter, the space bar and Delete do their work once for each press: one that is
/// held must not take turn after turn or answer questions that have not been read. In texts they
/// come again and again, as ever.
class HeldKeys : public QObject {
 public:
  HeldKeys();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace brindlemoor
