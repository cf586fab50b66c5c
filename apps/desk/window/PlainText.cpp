#include "apps/desk/window/PlainText.hpp"

#include "VemraQt/Theme.hpp"
#include "apps/desk/window/LeadingEdge.hpp"

#include <algorithm>

#include <QApplication>
#include <QEvent>
#include <QFont>

namespace vemra::desk {

namespace {

/// A label in the quieter text colour, which stays readable when the user's colours change.
class QuietLabel : public QLabel {
 public:
  QuietLabel() { takeColour(); }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) takeColour();
  }

 private:
  void takeColour() {
    // The label's own palette already has the quiet colour; the application's palette has the
    // user's.
    const QColor quiet = inkOf(ui::ForegroundStyle::secondary, QApplication::palette());
    if (palette().color(QPalette::WindowText) == quiet) return;
    QPalette own = palette();
    own.setColor(QPalette::WindowText, quiet);
    own.setColor(QPalette::Text, quiet);  // used on a background in the page's colour
    setPalette(own);
  }
};

}  // namespace

QColor inkOf(ui::ForegroundStyle style, const QPalette& palette) {
  ui::Environment environment;
  environment.colorScheme = qt::colorSchemeOf(palette);
  return qt::Theme({}, palette, environment).text(style);
}

QLabel* makeLabel(const QString& text, TextRole role) {
  const bool isQuiet = role == TextRole::quiet || role == TextRole::heading;
  QLabel* label = isQuiet ? new QuietLabel : new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setText(text);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  label->setSizePolicy(policy);
  QFont font = label->font();
  switch (role) {
    case TextRole::title:
      font.setPointSizeF(font.pointSizeF() * 1.25);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::heading:
      font.setPointSizeF(font.pointSizeF() * 0.9);
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::strong:
      font.setWeight(QFont::DemiBold);
      break;
    case TextRole::body:
    case TextRole::quiet:
      break;
  }
  label->setFont(font);
  alignAtLeadingEdge(*label);
  return label;
}

namespace {

/// The first `most` UTF-16 units of a text, or one less where they would end inside a character.
QString start(const QString& text, qsizetype most) {
  if (text.size() <= most) return text;
  return text.left(text[most - 1].isHighSurrogate() ? most - 1 : most);
}

}  // namespace

QString onOneShortLine(const QString& text) {
  constexpr qsizetype most = 80;
  const QString line = start(text, most * 4).simplified();
  return line.size() > most ? start(line, most) + u'…' : line;
}

QString nameInMessage(const QString& name) {
  QString line = onOneShortLine(name);
  line.removeIf([](QChar c) {
    return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
  });
  return QChar(0x2068) + line + QChar(0x2069);
}

QString isolated(const QString& text) {
  const bool isMirrored = QGuiApplication::layoutDirection() == Qt::RightToLeft;
  const auto isOfOtherDirection = [&](char32_t c) {
    const QChar::Direction direction = QChar::direction(c);
    const bool isLeftToRight = direction == QChar::DirL;
    const bool isRightToLeft = direction == QChar::DirR || direction == QChar::DirAL;
    return isMirrored ? isLeftToRight : isRightToLeft;
  };
  const QList<uint> characters = text.toUcs4();
  if (std::ranges::none_of(characters, isOfOtherDirection)) return text;
  // Qt takes the direction of a paragraph that begins with an isolate from the isolate's content.
  const QString mark = QChar(isMirrored ? 0x200f : 0x200e);
  return mark + QChar(0x2068) + text + QChar(0x2069);
}

QString asButtonTitle(QString text) {
  return text.replace(u'&', QStringLiteral("&&"));
}

QString asToolTip(const QString& text) {
  return "<p style=\"white-space:pre-wrap\">" + text.toHtmlEscaped() + "</p>";
}

}  // namespace vemra::desk
