// The browser engine's environment.
#include "platform/qt/browser_engine.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QFileInfo>
#include <QLoggingCategory>
#include <unistd.h>

namespace brindlemoor {

void PrepareBrowserEngine() {
  constexpr const char* kSandbox = "QTWEBENGINE_DISABLE_SANDBOX";
  constexpr const char* kFlags = "QTWEBENGINE_CHROMIUM_FLAGS";
  if (geteuid() == 0 && !qEnvironmentVariableIsSet(kSandbox)) qputenv(kSandbox, "1");
  QByteArrayList flags;
  if (qEnvironmentVariableIsSet(kFlags)) flags << qgetenv(kFlags);
  if (!QFileInfo::exists("/dev/dri") && !qgetenv(kFlags).contains("gpu")) flags << "--disable-gpu";
  // Without it screen readers find empty pages.
  if (!qgetenv(kFlags).contains("accessibility")) flags << "--force-renderer-accessibility";
  qputenv(kFlags, flags.join(' '));
  // What is wrong in a stranger's picture is no concern of the terminal.
  QLoggingCategory::setFilterRules("qt.webenginecontext.info=false\nqt.gui.imageio*=false");
}

}  // namespace brindlemoor
