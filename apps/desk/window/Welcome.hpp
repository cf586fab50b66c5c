#pragma once

#include <QWidget>

namespace vemra::desk {

/// Shown for a store without goals: how to fill it, and a button that adds the sample goals.
class Welcome : public QWidget {
  Q_OBJECT

 public:
  explicit Welcome(QWidget* parent = nullptr);

 Q_SIGNALS:
  void samplesWanted();
};

}  // namespace vemra::desk
