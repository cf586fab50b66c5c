#pragma once

#include "VemraQt/widgets/ElementWidget.hpp"

#include <QLabel>

namespace vemra::qt {

/// A Text: a label that draws the measured lines.
class TextLabel final : public QLabel, public ElementWidget {
  Q_OBJECT

 public:
  TextLabel(QWidget* parent, const PageContext& page);
  QWidget& widget() override { return *this; }

 protected:
  void updateTo(const page::Node& leaf, const TextShape& shape) override;
  void paintEvent(QPaintEvent*) override;

 private:
  TextShape shape_;
  QMargins margins_;
  ui::ForegroundStyle foreground_ = ui::ForegroundStyle::primary;
};

}  // namespace vemra::qt
