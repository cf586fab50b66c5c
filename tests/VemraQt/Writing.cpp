#include "tests/VemraQt/Writing.hpp"

#include "VemraQt/Contrast.hpp"

#include <algorithm>
#include <map>

namespace vemra::qttest {

QFont hardEdgedFont() {
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  font.setStyleStrategy(QFont::NoAntialias);
  return font;
}

QLineEdit& noteWith(WindowHost& host, const QString& text, double scale) {
  const std::string p0 = "vemra.goal.person.p0.outcome";
  ui::Environment environment;
  environment.textScale = scale;
  host.widget.setEnvironment(environment);
  host.press(p0 + ".start");
  auto& note = host.get<QLineEdit>(p0 + ".note");
  note.setText(text);
  host.widget.setFocus();
  return note;
}

Writing writingIn(const QImage& picture, const QRect& inside) {
  std::map<QRgb, int> counts;
  const QRect area = inside & picture.rect();
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) ++counts[picture.pixel(x, y)];
  }
  Writing writing;
  if (counts.empty()) return writing;
  const QColor ground(picture.pixel(area.topLeft()));
  const auto strongest = std::ranges::max_element(
      counts, {}, [&](const auto& c) { return qt::contrast(QColor(c.first), ground); });
  writing.ink = QColor(strongest->first);
  if (writing.ink == ground) return writing;
  writing.pixels = strongest->second;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    for (int x = area.left(); x <= area.right(); ++x) {
      if (picture.pixel(x, y) == strongest->first) writing.place |= QRect(x, y, 1, 1);
    }
  }
  writing.contrast = 21;
  for (int y = writing.place.top(); y <= writing.place.bottom(); ++y) {
    for (int x = writing.place.left(); x <= writing.place.right(); ++x) {
      const QRgb pixel = picture.pixel(x, y);
      if (pixel == strongest->first) continue;
      writing.contrast = std::min(writing.contrast, qt::contrast(QColor(pixel), writing.ink));
    }
  }
  return writing;
}

int changed(const QImage& before, const QImage& after, double ratio) {
  int count = 0;
  for (int y = 0; y < after.height(); ++y) {
    for (int x = 0; x < after.width(); ++x) {
      if (qt::contrast(before.pixelColor(x, y), after.pixelColor(x, y)) >= ratio) ++count;
    }
  }
  return count;
}

}  // namespace vemra::qttest
