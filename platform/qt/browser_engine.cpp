// The browser engine's environment.
#include "platform/qt/browser_engine.h"

#include <QByteArray>
#include <QFileInfo>
#include <QLoggingCategory>
#include <unistd.h>

namespace brindlemoor {

void PrepareBrowserEngine() {
  constexpr const char* kSandbox = "QTWEBENGINE_DISABLE_SANDBOX";
  constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
  if (geteuid() == 0 && !qEnvironmentVariableIsSet(kSandbox)) qputenv(kSandbox, "1");
  QByteArray flags = qgetenv(kFlags);
  if (!QFileInfo::exists("/dev/dri") && !flags.contains("gpu")) {
    if (!flags.isEmpty()) flags += ' ';
    qputenv(kFlags, flags + "--disable-gpu");
  }
  // What is wrong in a stranger's picture is no concern of the terminal.
  QLoggingCategory::setFilterRules("qt.webenginecontext.info=false\nqt.gui.imageio*=false");
}

}  // namespace brindlemoor
