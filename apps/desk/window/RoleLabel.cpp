#include "apps/desk/window/RoleLabel.hpp"

#include "apps/desk/window/Ink.hpp"

#include <QApplication>
#include <QEvent>
#include <QScopedValueRollback>
#include <QTextDocument>
#include <QTextOption>

namespace vemra::desk {
namespace {

QFont fontOf(TextRole role, QFont font) {
  const auto scale = [&](double factor) {
    if (font.pointSizeF() > 0) {
      font.setPointSizeF(font.pointSizeF() * factor);
    } else {
      font.setPixelSize(qRound(font.pixelSize() * factor));
    }
  };
  switch (role) {
    case TextRole::title:
      scale(1.25);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::heading:
      scale(0.9);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::strong:
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::body:
    case TextRole::quiet:
      break;
  }
  return font;
}

/// The colour under a palette; an invalid one stands for the palette's own.
QColor colourOf(TextRole role, TextInk ink, const QPalette& palette) {
  if (ink == TextInk::ofLinks) return themeOf(palette).link();
  const bool isQuiet = role == TextRole::quiet || role == TextRole::heading;
  return isQuiet ? inkOf(ui::ForegroundStyle::secondary, palette) : QColor();
}

}  // namespace

RoleLabel::RoleLabel(const QString& text, TextRole role, TextInk ink) : role_(role), ink_(ink) {
  setTextFormat(Qt::PlainText);
  setText(text);
  setWordWrap(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse);
  // A layout cuts a widget that cannot grow at the height of its size hint, which is for more
  // width.
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Minimum);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  takeLook();
}

bool RoleLabel::event(QEvent* event) {
  if (event->type() == QEvent::ParentChange) watchParent();
  const bool isHandled = QLabel::event(event);
  if (event->type() == QEvent::Resize) heightForWidth(width());  // before it is painted
  return isHandled;
}

/// Qt's label breaks lines between words only, and resets its document to that with each layout: so
/// this first lets it lay out the text.
int RoleLabel::heightForWidth(int width) const {
  const int height = QLabel::heightForWidth(width);
  return breakWords() ? QLabel::heightForWidth(width) : height;
}

/// True when this has changed something. A document that is changed asks to be painted again.
bool RoleLabel::breakWords() const {
  auto* document = findChild<QTextDocument*>();
  if (!document) return false;
  QTextOption option = document->defaultTextOption();
  if (option.wrapMode() != QTextOption::WordWrap) return false;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  document->setDefaultTextOption(option);
  return true;
}

/// Measuring here would ask for the next painting each time, because it sets the document's width.
void RoleLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  breakWords();  // Qt has laid out a text that was new
}

void RoleLabel::changeEvent(QEvent* event) {
  QLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) takeLook();
}

/// Qt does not notify a label that has its own font size when the inherited font changes.
void RoleLabel::watchParent() {
  if (parent_) parent_->removeEventFilter(this);
  parent_ = parentWidget();
  if (parent_) parent_->installEventFilter(this);
  takeLook();
}

bool RoleLabel::eventFilter(QObject* object, QEvent* event) {
  if (object == parent_ && event->type() == QEvent::FontChange) takeLook();
  return QLabel::eventFilter(object, event);
}

/// Starts from the parent's font and the application's palette: the label's own are those of the
/// role already.
void RoleLabel::takeLook() {
  if (takingLook_) return;
  const QScopedValueRollback<bool> inside(takingLook_, true);
  const QFont wanted = fontOf(role_, parent_ ? parent_->font() : QApplication::font(this));
  if (font() != wanted) setFont(wanted);
  const QColor colour = colourOf(role_, ink_, QApplication::palette());
  if (!colour.isValid() || palette().color(QPalette::WindowText) == colour) return;
  QPalette own = palette();
  own.setColor(QPalette::WindowText, colour);
  own.setColor(QPalette::Text, colour);  // used on a background in the page's colour
  setPalette(own);
}

}  // namespace vemra::desk
