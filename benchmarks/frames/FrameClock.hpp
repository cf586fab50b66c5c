#pragma once

#include <chrono>
#include <functional>
#include <optional>

#include <QApplication>

namespace vemra::bench {

using Milliseconds = std::chrono::duration<double, std::milli>;

/// The application, which sees every event and so knows when a frame is through.
///
/// A frame ends when the window has handled a request to paint (an expose, or an update request),
/// something was really painted meanwhile, and the pixels were flushed: Qt does all of that before
/// the event handler returns, for widgets as for the software adaptation of Qt Quick.
class FrameClock : public QApplication {
 public:
  FrameClock(int& argumentCount, char** arguments);

  /// From before `action` to the end of the first frame painted after it, or, of several frames, of
  /// the first one at whose end `isShown` holds. Nil when there was none within a minute. What is left
  /// over from before is done first, and is not counted.
  std::optional<Milliseconds> timeToFrame(const std::function<void()>& action,
                                          std::function<bool()> isShown = nullptr);
  /// Handles events until there are no more.
  void settle();

  /// Called at the end of every frame that `timeToFrame` waits for, when its time is taken already.
  std::function<void()> atFrame;

  /// Something was painted. Called by windows of which the application sees no paint events.
  void notePaint() { painting_ = true; }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  bool painting_ = false;
  bool frameDone_ = false;
  std::function<bool()> isShown_;
  std::chrono::steady_clock::time_point lastFrame_;
};

}  // namespace vemra::bench
