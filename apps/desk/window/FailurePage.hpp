#pragma once

#include <QWidget>

class QLabel;

namespace vemra::desk {

/// The page in place of the screen for a goal that could not be loaded: why, and another try.
class FailurePage : public QWidget {
  Q_OBJECT

 public:
  explicit FailurePage(QWidget* parent = nullptr);

  /// Shows a reason, a sentence or a line for people, of a long one the beginning; announces it when
  /// it is another than before.
  void setReason(const QString& whole);

 Q_SIGNALS:
  void tryAgainWanted();

 private:
  QLabel* reason_;
};

}  // namespace vemra::desk
