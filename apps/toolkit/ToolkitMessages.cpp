#include "apps/toolkit/ToolkitMessages.hpp"

#include <QString>
#include <QtGlobal>

namespace vemra::toolkit {
namespace {

QtMessageHandler passOn = nullptr;

void passOnAllOthers(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  // What the toolkit's search for folders says begins with the name of its class.
  if (text.startsWith("QStandardPaths: ")) return;
  passOn(type, context, text);
}

}  // namespace

void leaveOutRemarksAboutFolders() {
  passOn = qInstallMessageHandler(passOnAllOthers);
}

}  // namespace vemra::toolkit
