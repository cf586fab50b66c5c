#pragma once

#include <QWidget>

class QLabel;

namespace vemra::desk {

/// Shown instead of the screen when a goal could not be loaded: the reason, and a button to try
/// again.
class FailurePage : public QWidget {
  Q_OBJECT

 public:
  explicit FailurePage(QWidget* parent = nullptr);

  /// Shows a reason, which is a sentence or a line for people; only the beginning of a long one.
  /// Announces the reason when it differs from the previous one.
  void setReason(const QString& whole);

 Q_SIGNALS:
  void tryAgainWanted();

 private:
  QLabel* reason_;
};

}  // namespace vemra::desk
