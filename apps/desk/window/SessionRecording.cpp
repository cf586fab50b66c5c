#include "apps/desk/window/SessionRecording.hpp"

#include "VemraRecording/Recorder.hpp"
#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <utility>

#include <QMetaObject>

namespace vemra::desk {

std::unique_ptr<recording::Recorder> makeRecorder(
    const RecordingWish& wish, QObject& window,
    std::function<void(const QString& reason)> showNotice) {
  return std::make_unique<recording::Recorder>(
      wish.file, recording::Program{"vemra-desk", programVersion()},
      wish.isMasked ? recording::Texts::masked : recording::Texts::plain,
      [&window, showNotice = std::move(showNotice)](const std::string& reason) {
        QMetaObject::invokeMethod(
            &window, [showNotice, text = fromUTF8(reason)] { showNotice(text); },
            Qt::QueuedConnection);
      });
}

}  // namespace vemra::desk
