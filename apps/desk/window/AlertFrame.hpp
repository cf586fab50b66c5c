#pragma once

#include <QFrame>

namespace vemra::desk {

/// A bar with a message: for assistive technology a notification, which a screen reader reads when
/// it appears. Its name is the message.
class AlertFrame : public QFrame {
  Q_OBJECT

 public:
  explicit AlertFrame(QWidget* parent = nullptr);

 protected:
  /// Shows the bar, with this message as its name. Announces a message that differs from the
  /// previous one, or appears again.
  void announce(const QString& message);
  /// The same for a frame that its parent shows and hides.
  void rename(const QString& message);
};

/// A notification that is only heard: it takes no room and draws nothing. It is inside the widget
/// that it announces.
class Announcement : public AlertFrame {
  Q_OBJECT

 public:
  explicit Announcement(QWidget* parent);

  /// Announces a text, also one that was announced before. Before its parent is shown, a screen
  /// reader hears it when that is shown.
  void announce(const QString& message);
};

}  // namespace vemra::desk
