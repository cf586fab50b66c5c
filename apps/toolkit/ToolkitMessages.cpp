#include "apps/toolkit/ToolkitMessages.hpp"

#include <QString>
#include <QtGlobal>

namespace vemra::toolkit {
namespace {

QtMessageHandler passOn = nullptr;

void passOnAllOthers(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  // Messages of the toolkit's search for folders begin with the name of its class.
  if (text.startsWith("QStandardPaths: ") || text.startsWith("Detected locale \"")) return;
  passOn(type, context, text);
}

}  // namespace

void leaveOutRemarksAboutTheEnvironment() {
  passOn = qInstallMessageHandler(passOnAllOthers);
}

}  // namespace vemra::toolkit
