// Waking an event loop.
#include "platform/qt/event_loop.h"

#include <QAbstractEventDispatcher>

namespace brindlemoor {

void WakeEventLoop() {
  if (auto* dispatcher = QAbstractEventDispatcher::instance()) dispatcher->wakeUp();
}

}  // namespace brindlemoor
