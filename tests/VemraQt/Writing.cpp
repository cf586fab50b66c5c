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

namespace {

const QRgb* pixelsOf(const QImage& picture, int y) {
  return reinterpret_cast<const QRgb*>(picture.constScanLine(y));
}

/// How often each colour is in the area of a picture of 32 bits a pixel.
std::map<QRgb, int> coloursIn(const QImage& picture, const QRect& area) {
  std::map<QRgb, int> counts;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const QRgb* line = pixelsOf(picture, y);
    for (int x = area.left(), end = x; x <= area.right(); x = end) {
      while (end <= area.right() && line[end] == line[x]) ++end;
      counts[line[x]] += end - x;
    }
  }
  return counts;
}

/// The smallest rectangle with all pixels of that colour in the area.
QRect placeOf(QRgb colour, const QImage& picture, const QRect& area) {
  QRect place;
  for (int y = area.top(); y <= area.bottom(); ++y) {
    const QRgb* line = pixelsOf(picture, y);
    for (int x = area.left(); x <= area.right(); ++x) {
      if (line[x] == colour) place |= QRect(x, y, 1, 1);
    }
  }
  return place;
}

}  // namespace

Writing writingIn(const QImage& original, const QRect& inside) {
  const QImage picture = original.convertToFormat(QImage::Format_RGB32);
  const QRect area = inside & picture.rect();
  const std::map<QRgb, int> counts = coloursIn(picture, area);
  Writing writing;
  if (counts.empty()) return writing;
  const QColor ground(picture.pixel(area.topLeft()));
  const auto strongest = std::ranges::max_element(
      counts, {}, [&](const auto& c) { return qt::contrast(QColor(c.first), ground); });
  writing.ink = QColor(strongest->first);
  if (writing.ink == ground) return writing;
  writing.pixels = strongest->second;
  writing.place = placeOf(strongest->first, picture, area);
  writing.contrast = 21;
  for (const auto& [colour, count] : coloursIn(picture, writing.place)) {
    if (colour == strongest->first) continue;
    writing.contrast = std::min(writing.contrast, qt::contrast(QColor(colour), writing.ink));
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
