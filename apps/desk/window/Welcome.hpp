#pragma once

#include <QWidget>

namespace vemra::desk {

/// What a store without goals shows: how to fill it, and the offer of the sample goals.
class Welcome : public QWidget {
  Q_OBJECT

 public:
  explicit Welcome(QWidget* parent = nullptr);

 Q_SIGNALS:
  void samplesWanted();
};

}  // namespace vemra::desk
