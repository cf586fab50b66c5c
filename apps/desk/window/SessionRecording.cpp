#include "apps/desk/window/SessionRecording.hpp"

#include "VemraRecording/Recorder.hpp"
#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"

#include <utility>

#include <QMetaObject>

namespace vemra::desk {
namespace {

QString reasonText(const recording::Failure& failure) {
  switch (failure.reason) {
    case recording::Failure::Reason::fileExists:
      return localized("a file of this name is there already");
    case recording::Failure::Reason::environmentChanged:
      return localized("the locale or the time zone has changed, which a case cannot hold");
    case recording::Failure::Reason::notWritten:
      break;
  }
  return localizedReason(fromUTF8(failure.detail));
}

}  // namespace

std::unique_ptr<recording::Recorder> makeRecorder(
    const RecordingWish& wish, QObject& window,
    std::function<void(const QString& reason)> showNotice) {
  return std::make_unique<recording::Recorder>(
      wish.file, recording::Program{"vemra-desk", programVersion()},
      wish.isMasked ? recording::Texts::masked : recording::Texts::plain,
      [&window, showNotice = std::move(showNotice)](const recording::Failure& failure) {
        const QString text = localized("%1: the recording has ended: %2")
                                 .arg(isolated(fromUTF8(failure.file)), reasonText(failure));
        QMetaObject::invokeMethod(
            &window, [showNotice, text] { showNotice(text); }, Qt::QueuedConnection);
      });
}

}  // namespace vemra::desk
