#include "tests/VemraQt/QuietQt.hpp"

#include <QApplication>
#include <QFont>
#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The tests run without a display, with the same font, size and style on every machine.
int main(int argumentCount, char** arguments) {
  ::testing::InitGoogleTest(&argumentCount, arguments);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QTemporaryDir runtime;
  if (!qEnvironmentVariableIsSet("XDG_RUNTIME_DIR")) {
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  }
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, runtime.path());
  qputenv("XDG_CONFIG_HOME", runtime.path().toUtf8());  // of programs that a test starts
  qputenv("LC_ALL", "C.UTF-8");
  vemra::qttest::watchQtMessages();
  QApplication application(argumentCount, arguments);
  QApplication::setStyle("fusion");  // owned by the application, as it is there already
  QFont font("DejaVu Sans");
  font.setPointSizeF(10);
  QApplication::setFont(font);
  ::testing::UnitTest::GetInstance()->listeners().Append(new vemra::qttest::QuietQt);
  return RUN_ALL_TESTS();
}
