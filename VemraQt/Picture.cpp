#include "VemraQt/Picture.hpp"

#include "VemraQt/ViewWidget.hpp"

#include <algorithm>

namespace vemra::qt {

namespace {

constexpr int highestPicture = 16'000;

class PicturedView final : public ViewWidget {
 public:
  using ViewWidget::ViewWidget;

  QImage picture(QSize size) {
    setAttribute(Qt::WA_DontShowOnScreen);
    resize(size.width(), size.height() > 0 ? size.height() : 600);
    runAsHostCall([&] {
      show();
      if (size.height() > 0) return;
      // The page gets longer or shorter as its rows are measured.
      for (int round = 0; round < 4 && height() != contentHeight(); ++round) {
        resize(size.width(), std::clamp(contentHeight(), 1, highestPicture));
      }
    });
    return grab().toImage();
  }
};

}  // namespace

QImage picture(ui::View root, ui::Environment environment, QSize size) {
  PicturedView widget;
  widget.setEnvironment(std::move(environment));
  widget.setRoot(std::move(root));
  return widget.picture(size);
}

QImage picture(ui::ViewGraph& graph, QSize size) {
  PicturedView widget(graph);
  return widget.picture(size);
}

}  // namespace vemra::qt
