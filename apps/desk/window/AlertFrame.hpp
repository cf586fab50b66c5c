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
};

}  // namespace vemra::desk
