#include "tests/VemraQt/QuietQt.hpp"

#include <cstdio>

#include <QStringList>

namespace vemra::qttest {

namespace {

QStringList& messages() {
  static QStringList list;
  return list;
}

void keep(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The display-less platform says so of itself whenever a window is raised.
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  messages().append(text);
  std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
}

}  // namespace

void watchQtMessages() {
  qInstallMessageHandler(keep);
}

void QuietQt::OnTestEnd(const ::testing::TestInfo&) {
  const QStringList said = std::exchange(messages(), {});
  EXPECT_TRUE(said.isEmpty()) << "Qt wrote: " << qPrintable(said.join("\n"));
}

}  // namespace vemra::qttest
