#pragma once

#include <QString>

/// \file
/// How a text is prepared for a layout: its line breaks, and the places where one that is too long
/// to be laid out at once may be cut. Positions count UTF-16 units.

namespace vemra::qt {

/// A text is laid out in stretches of about this many units. Laying out takes a time that grows
/// faster than the length.
constexpr qsizetype unitsAtOnce = 4096;
/// A character with more combining marks than this is cut into several lines: the time to lay out
/// its marks grows with the square of their number. Unicode's own limit for text streams is 30
/// marks (UAX #15).
constexpr qsizetype mostMarks = 100;
/// A text with a word of at least this many units breaks wherever a line is full.
constexpr qsizetype endlessWord = 2000;

/// The text with U+2028 for every line break: a text layout breaks lines only there.
QString withLineSeparators(const QString& text);

/// Whether a line break ends right before `end`; not between the two characters of one.
bool endsWithLineBreak(QStringView text, qsizetype end);

/// Whether a run of `endlessWord` or more units has no blank. It skips most of the text: the cost
/// is that of a few units in each `endlessWord`.
bool hasEndlessWord(QStringView text);

/// The end of a stretch that is laid out at once.
struct Stretch {
  qsizetype end;
  /// Whether a line ends there whatever follows; else the last line of the stretch may continue.
  bool endsLine;
};
/// The stretch that begins at `from`, with about `units` units: it ends behind a word if possible,
/// because a letter decides the reading direction of the blanks before it; never inside a surrogate
/// pair; and behind at most `mostMarks` marks of one character.
Stretch stretchFrom(QStringView text, qsizetype from, qsizetype units = unitsAtOnce);

/// A place at or before `at` where a line may begin, when the lines before it are not known: behind
/// a line break or a blank if there is one near, else between two characters.
qsizetype lineStartBefore(QStringView text, qsizetype at);

/// An invisible character that has the reading direction of the text before `at`; a null one where
/// that is the direction of the whole text, and makes no difference (UAX #9, W1 to W7 and N1).
QChar directionBefore(QStringView text, qsizetype at, bool rightToLeft);
/// The same for the text from `at` on.
QChar directionAfter(QStringView text, qsizetype at, bool rightToLeft);

}  // namespace vemra::qt
