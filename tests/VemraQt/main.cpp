#include "tests/VemraQt/QuietQt.hpp"

#include <QApplication>
#include <QFont>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The tests run without a display, with the same font, size and style on every machine.
int main(int argumentCount, char** arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_SCALE_FACTOR", "1");
  QTemporaryDir runtime;
  if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  }
  vemra::qttest::watchQtMessages();
  QApplication application(argumentCount, arguments);
  QApplication::setStyle("fusion");     // not before: then the application would not own it
  QApplication::setCursorFlashTime(0);  // no painting except for the test's own actions
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  QApplication::setFont(font);
  ::testing::UnitTest::GetInstance()->listeners().Append(new vemra::qttest::QuietQt);
  return RUN_ALL_TESTS();
}
