#pragma once

#include "VemraPlatform/ui/NodeID.hpp"

#include <cstddef>

#include <QPointer>
#include <QWidget>

namespace vemra::qt {
class ViewWidget;
}

namespace vemra::desk {

/// A frame around a row of a screen. It lies over the screen, which it neither changes nor covers
/// for the mouse, and stays with the row while the screen scrolls or gets another size.
class FoundMark : public QWidget {
 public:
  FoundMark(qt::ViewWidget& screen, ui::NodeID list, std::size_t index);

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void follow();

  qt::ViewWidget& screen_;  ///< the parent
  ui::NodeID list_;
  std::size_t index_;
};

}  // namespace vemra::desk
