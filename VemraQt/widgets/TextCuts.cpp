#include "VemraQt/widgets/TextCuts.hpp"

#include <algorithm>
#include <optional>

namespace vemra::qt {

namespace {

/// How far a search for a blank or for a letter goes.
constexpr qsizetype farthestSearch = endlessWord;

/// The mandatory breaks of Unicode Standard Annex #14.
bool mustBreak(QChar c) {
  const char16_t u = c.unicode();
  return (u >= 0x0A && u <= 0x0D) || u == 0x85 || u == 0x2028 || u == 0x2029;
}

bool continuesCharacter(QChar c) {
  return c.isMark() || c == QChar(0x200D);  // ZERO WIDTH JOINER
}

/// The nearest place at or before `at`, and behind `from`, that is between two characters.
qsizetype betweenCharacters(QStringView text, qsizetype from, qsizetype at) {
  qsizetype place = at;
  while (place > from + 1 && place > at - mostMarks && continuesCharacter(text[place])) --place;
  if (place <= from + 1 || continuesCharacter(text[place])) place = at;
  const bool inPair = text[place].isLowSurrogate() && text[place - 1].isHighSurrogate();
  return inPair ? place + 1 : place;
}

constexpr QChar leftToRightMark(0x200E), rightToLeftMark(0x200F), arabicLetterMark(0x061C);

/// The mark with the direction of the letter at `at`; nil without a letter.
std::optional<QChar> markOf(QStringView text, qsizetype at) {
  if (text[at].isLowSurrogate()) return std::nullopt;
  char32_t letter = text[at].unicode();
  if (text[at].isHighSurrogate() && at + 1 < text.size()) {
    letter = QChar::surrogateToUcs4(text[at], text[at + 1]);
  }
  switch (QChar::direction(letter)) {
    case QChar::DirL:
      return leftToRightMark;
    case QChar::DirR:
      return rightToLeftMark;
    case QChar::DirAL:
      return arabicLetterMark;
    default:
      return std::nullopt;
  }
}

/// The mark, unless the text has its direction anyway.
QChar inDirectionOf(QChar mark, bool rightToLeft) {
  return mark == (rightToLeft ? rightToLeftMark : leftToRightMark) ? QChar() : mark;
}

/// Whether a line may begin right before `place`, behind a blank; never between \r and \n.
bool beginsWord(QStringView text, qsizetype place) {
  if (text[place - 1] == u'\r' && text[place] == u'\n') return false;
  return text[place - 1].isSpace() && !continuesCharacter(text[place]);
}

}  // namespace

QString withLineSeparators(const QString& text) {
  if (std::none_of(text.begin(), text.end(), mustBreak)) return text;
  QString lines;
  lines.reserve(text.size());
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') continue;
    lines += mustBreak(text[i]) ? QChar(QChar::LineSeparator) : text[i];
  }
  return lines;
}

bool endsWithLineBreak(QStringView text, qsizetype end) {
  if (end <= 0 || !mustBreak(text[end - 1])) return false;
  return text[end - 1] != u'\r' || end == text.size() || text[end] != u'\n';
}

bool hasEndlessWord(QStringView text) {
  qsizetype start = 0;
  while (text.size() - start >= endlessWord) {
    qsizetype blank = start + endlessWord - 1;
    while (blank >= start && !text[blank].isSpace()) --blank;
    if (blank < start) return true;
    start = blank + 1;
  }
  return false;
}

Stretch stretchFrom(QStringView text, qsizetype from, qsizetype units) {
  const qsizetype limit = std::min(text.size(), from + units);
  qsizetype marks = 0;
  for (qsizetype i = from; i < limit; ++i) {
    marks = continuesCharacter(text[i]) ? marks + 1 : 0;
    if (marks > mostMarks) return {i, true};
  }
  if (limit == text.size()) return {limit, true};
  for (qsizetype i = limit; i > limit - farthestSearch && i > from + units / 2; --i) {
    if (text[i].isSpace() && !text[i - 1].isSpace()) return {i, false};
  }
  return {betweenCharacters(text, from, limit), false};
}

qsizetype lineStartBefore(QStringView text, qsizetype at) {
  if (at <= 0) return 0;
  if (at >= text.size()) at = text.size() - 1;
  qsizetype word = 0;
  for (qsizetype i = at; i > 0 && i > at - farthestSearch; --i) {
    if (endsWithLineBreak(text, i)) return i;
    if (word == 0 && beginsWord(text, i)) word = i;
  }
  return word > 0 ? word : betweenCharacters(text, 0, at);
}

QChar directionBefore(QStringView text, qsizetype at, bool rightToLeft) {
  for (qsizetype i = at; i > 0 && i > at - farthestSearch; --i) {
    if (const auto mark = markOf(text, i - 1)) return inDirectionOf(*mark, rightToLeft);
  }
  return {};
}

QChar directionAfter(QStringView text, qsizetype at, bool rightToLeft) {
  for (qsizetype i = at; i < text.size() && i < at + farthestSearch; ++i) {
    if (const auto mark = markOf(text, i)) return inDirectionOf(*mark, rightToLeft);
  }
  return {};
}

}  // namespace vemra::qt
