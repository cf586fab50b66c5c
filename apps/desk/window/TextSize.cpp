#include "apps/desk/window/TextSize.hpp"

#include "apps/desk/window/UserSettings.hpp"

#include <algorithm>
#include <cmath>

#include <QApplication>

namespace vemra::desk {
namespace {

double scaleAt(int step) {
  constexpr double factor = 1.1;
  return std::pow(factor, step);
}

constexpr int smallest = -3;  // 73 % of the usual size
constexpr int largest = 8;    // 214 %

}  // namespace

TextSize::TextSize(QObject* parent) : QObject(parent), usual_(QApplication::font()) {
  step_ = std::clamp(userSettings().value("textSize").toInt(), smallest, largest);
  if (step_ != 0) apply();
}

TextSize::~TextSize() {
  if (step_ != 0) QApplication::setFont(usual_);
}

int TextSize::percent() const {
  return static_cast<int>(std::lround(100 * scaleAt(step_)));
}

void TextSize::setStep(int step) {
  step_ = std::clamp(step, smallest, largest);
  userSettings().setValue("textSize", step_);
  apply();
}

void TextSize::apply() {
  QFont font = usual_;
  const double scale = scaleAt(step_);
  if (usual_.pointSizeF() > 0) {
    font.setPointSizeF(usual_.pointSizeF() * scale);
  } else {
    font.setPixelSize(static_cast<int>(std::lround(usual_.pixelSize() * scale)));
  }
  QApplication::setFont(font);
}

}  // namespace vemra::desk
