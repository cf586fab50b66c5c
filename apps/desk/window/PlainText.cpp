#include "apps/desk/window/PlainText.hpp"

#include "apps/desk/window/LeadingEdge.hpp"

#include <algorithm>

#include <QFontMetrics>
#include <QGuiApplication>
#include <QWidget>

namespace vemra::desk {

int longestLine(const QWidget& widget) {
  constexpr int wideCharacters = 66;  // the average counts all letters alike, and texts do not
  return wideCharacters * widget.fontMetrics().averageCharWidth();
}

QLabel* makeLabel(const QString& text, TextRole role) {
  auto* label = new RoleLabel(text, role);
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

namespace {

/// The text without the characters that set a direction for what follows them.
QString withoutDirections(QString text) {
  text.removeIf([](QChar c) {
    return (c >= QChar(0x202a) && c <= QChar(0x202e)) || (c >= QChar(0x2066) && c <= QChar(0x2069));
  });
  return text;
}

}  // namespace

QString nameInMessage(const QString& name) {
  return QChar(0x2068) + withoutDirections(onOneShortLine(name)) + QChar(0x2069);
}

QString isolated(const QString& whole) {
  QString text = withoutDirections(whole);
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
