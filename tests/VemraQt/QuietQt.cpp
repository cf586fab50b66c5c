#include "tests/VemraQt/QuietQt.hpp"

#include <cstdio>

#include <QStringList>

namespace vemra::qttest {

namespace {

QStringList& messages() {
  static QStringList list;
  return list;
}

int count = 0;

void keep(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The offscreen platform writes this message whenever a window is raised.
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  messages().append(text);
  ++count;
  std::fprintf(stderr, "Qt: %s\n", qPrintable(text));
}

}  // namespace

void watchQtMessages() {
  qInstallMessageHandler(keep);
}

int messageCount() {
  return count;
}

void QuietQt::OnTestEnd(const ::testing::TestInfo&) {
  const QStringList said = std::exchange(messages(), {});
  EXPECT_TRUE(said.isEmpty()) << "Qt wrote: " << qPrintable(said.join("\n"));
}

}  // namespace vemra::qttest
