#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include <QApplication>

namespace vemra::bench {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The application, which gets every event and so detects the end of a frame.
///
/// A frame ends when the window has handled a request to paint (an expose, or an update request),
/// something was painted meanwhile, and the pixels were flushed: Qt does all of that before the
/// event handler returns, for widgets as for the software adaptation of Qt Quick.
class FrameClock : public QApplication {
 public:
  FrameClock(int& argumentCount, char** arguments);

  /// The time from before `action` to the end of the first later frame, or of the first one after
  /// which `isShown` is true. Nil when there was none within a minute. Earlier events are handled
  /// first and not counted.
  std::optional<Milliseconds> timeToFrame(const std::function<void()>& action,
                                          std::function<bool()> isShown = nullptr);
  /// Handles events until there are no more.
  void settle();

  /// Called at the end of every frame that `timeToFrame` waits for, after the time has been taken.
  std::function<void()> atFrame;

  /// Notes a painting. Called by windows whose paint events the application does not get.
  void notePaint() { painting_ = true; }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool painting_ = false;
  bool frameDone_ = false;
  std::function<bool()> isShown_;
  std::chrono::steady_clock::time_point lastFrame_;
};

}  // namespace vemra::bench
