// Runs the desktop's tests with an application object, without a display unless one is asked for.
#include <QApplication>
#include <gtest/gtest.h>

#include "platform/qt/browser_engine.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  brindlemoor::PrepareBrowserEngine();
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
