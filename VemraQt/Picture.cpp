#include "VemraQt/Picture.hpp"

#include "VemraQt/ViewWidget.hpp"
#include "VemraQt/page/Page.hpp"

#include <algorithm>

namespace vemra::qt {

namespace {

constexpr int highestPicture = 16'000;

QImage pictureOf(ViewWidget& widget, QSize size) {
  widget.setAttribute(Qt::WA_DontShowOnScreen);
  widget.resize(size.width(), size.height() > 0 ? size.height() : 600);
  const auto show = [&] {
    widget.show();
    if (size.height() > 0) return;
    // The page gets longer or shorter as its rows are measured.
    for (int round = 0; round < 4 && widget.height() != widget.contentHeight(); ++round) {
      widget.resize(size.width(), std::clamp(widget.contentHeight(), 1, highestPicture));
    }
  };
  widget.page().errors().hostCall(show);
  return widget.grab().toImage();
}

}  // namespace

QImage picture(ui::View root, ui::Environment environment, QSize size) {
  ViewWidget widget;
  widget.setEnvironment(std::move(environment));
  widget.setRoot(std::move(root));
  return pictureOf(widget, size);
}

QImage picture(ui::ViewGraph& graph, QSize size) {
  ViewWidget widget(graph);
  return pictureOf(widget, size);
}

}  // namespace vemra::qt
