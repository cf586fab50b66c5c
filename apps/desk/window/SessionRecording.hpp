#pragma once

#include <functional>
#include <memory>
#include <string>

#include <QObject>
#include <QString>

namespace vemra::recording {
class Recorder;
}

namespace vemra::desk {

/// What a user wants to have recorded.
struct RecordingWish {
  std::string file;  ///< must not be there yet
  bool isMasked = false;
};

/// Makes the recorder of a window.
///
/// - Parameter window: the recorder's host. `showNotice` is not called once it is destroyed.
/// - Parameter showNotice: gets the reason, for the user, when the recording ends too early. Called
///   from the event loop: the window's layout must not change in the middle of an event.
std::unique_ptr<recording::Recorder> makeRecorder(
    const RecordingWish& wish, QObject& window,
    std::function<void(const QString& reason)> showNotice);

}  // namespace vemra::desk
