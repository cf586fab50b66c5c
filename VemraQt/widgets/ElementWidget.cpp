#include "VemraQt/widgets/ElementWidget.hpp"

#include "VemraQt/widgets/LongText.hpp"

#include <QPainter>
#include <QPen>
#include <QProxyStyle>
#include <QScopedValueRollback>
#include <QStyle>

namespace vemra::qt {

void ElementWidget::show(const page::Node& leaf, const TextShape& shape) {
  node_ = leaf.id;
  const QScopedValueRollback<bool> updating(updating_, true);
  const QString identifier = toQString(leaf.element.accessibilityIdentifier());
  if (widget().objectName() != identifier) widget().setObjectName(identifier);
  if (widget().isEnabledTo(widget().parentWidget()) != leaf.element.style().enabled) {
    widget().setEnabled(leaf.element.style().enabled);
  }
  updateTo(leaf, shape);
}

void ElementWidget::reset() {
  if (!node_) return;
  node_ = {};
  endInteraction();
  widget().setAttribute(Qt::WA_UnderMouse, false);
}

bool ElementWidget::scrollIn() const {
  if (node_) page_.sink->scrollIn(node_);
  return bool(node_);
}

QMargins overhang(const ui::Element& element, const TextShape& shape) {
  const int accents = shape.lineHeight() / 7;
  if (element.kind() == ui::ElementKind::text) return {0, accents, 0, accents};
  const bool plain =
      element.kind() == ui::ElementKind::button && element.buttonStyle() == ui::ButtonStyle::plain;
  return plain ? QMargins(4, accents, 4, accents) : QMargins();
}

void frameIn(const Theme& theme, QStyleOption& option) {
  const QPalette::ColorGroup group = option.palette.currentColorGroup();
  option.palette = theme.paletteForFrames();
  option.palette.setCurrentColorGroup(group);
}

void drawOutline(QPainter& painter, const QWidget& control, const QRect& place,
                 const Theme& theme) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(control.isEnabled() ? theme.outline() : theme.disabledText());
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(place).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  painter.restore();
}

namespace {

/// Whether the style is Qt's Fusion, or a proxy of it.
bool isFusion(const QStyle* style) {
  while (const auto* proxy = qobject_cast<const QProxyStyle*>(style)) style = proxy->baseStyle();
  return style->name() == QLatin1String("fusion");
}

/// Whether it is the style that Qt makes for a style sheet of a widget, of a parent or of the
/// application.
bool isOfStyleSheet(const QStyle* style) {
  return style->inherits("QStyleSheetStyle");
}

}  // namespace

bool isDrawnByFusion(const QWidget& widget) {
  return !isOfStyleSheet(widget.style()) && isFusion(widget.style());
}

void strengthenFrame(QPainter& painter, const QWidget& control, const QStyle& drawing,
                     const Theme& theme) {
  if (isOfStyleSheet(&drawing) || isFusion(&drawing)) return;
  // These styles leave the outermost line to a shadow.
  drawOutline(painter, control, control.rect().adjusted(1, 1, -1, -1), theme);
}

void drawFocusRing(QPainter& painter, const QRect& place, const Theme& theme, RingAround what) {
  const int width = what == RingAround::text ? 2 : 3;
  const double inset = width / 2.0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(theme.focusRing(), width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(place).adjusted(inset, inset, -inset, -inset), 4, 4);
  painter.restore();
}

QString labelOf(const page::Node& leaf, const TextShape& shape) {
  return shape.parts() ? shape.parts()->text() : toQString(leaf.element.shownLabel());
}

}  // namespace vemra::qt
