#include "tests/VemraQt/QuietQt.hpp"

#include <cstdio>

#include <QApplication>
#include <QCursor>
#include <QFont>
#include <QTemporaryDir>
#include <gtest/gtest.h>

/// The exit code that CTest reports as a skipped test, also in CMakeLists.txt.
constexpr int styleIsMissing = 77;

/// The tests run without a display, with the same font, size and style on every machine. The
/// environment variable VEMRA_TEST_STYLE names another style to try them with;
/// where it is not installed, no test runs.
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
  // Not before the application: it would not own the style.
  const QString style = qEnvironmentVariable("VEMRA_TEST_STYLE", QStringLiteral("fusion"));
  if (QApplication::setStyle(style) == nullptr) {
    std::fprintf(stderr, "The style %s is not installed.\n", qPrintable(style));
    return styleIsMissing;
  }
  QApplication::setCursorFlashTime(0);  // no painting except for the test's own actions
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  QApplication::setFont(font);
  QCursor::setPos(-100, -100);  // no test's window is under the pointer
  ::testing::UnitTest::GetInstance()->listeners().Append(new vemra::qttest::QuietQt);
  return RUN_ALL_TESTS();
}
