#include "apps/desk/window/TextSize.hpp"

#include <algorithm>
#include <cmath>

#include <QApplication>

namespace vemra::desk {

TextSize::TextSize(QObject* parent) : QObject(parent), usual_(QApplication::font()) {}

void TextSize::setStep(int step) {
  constexpr int smallest = -3;  // 73 % of the usual size
  constexpr int largest = 8;    // 214 %
  constexpr double factor = 1.1;
  step_ = std::clamp(step, smallest, largest);
  QFont font = usual_;
  const double scale = std::pow(factor, step_);
  if (usual_.pointSizeF() > 0) {
    font.setPointSizeF(usual_.pointSizeF() * scale);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(usual_.pixelSize() * scale)));
  }
  QApplication::setFont(font);
}

}  // namespace vemra::desk
