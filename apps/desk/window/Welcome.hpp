#pragma once

#include <QWidget>

namespace vemra::desk {

/// Shown for a store without goals: buttons that import documents or add the sample goals.
class Welcome : public QWidget {
  Q_OBJECT

 public:
  explicit Welcome(QWidget* parent = nullptr);

 Q_SIGNALS:
  void importWanted();
  void samplesWanted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace vemra::desk
