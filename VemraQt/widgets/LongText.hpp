#pragma once

#include "VemraQt/widgets/TextLines.hpp"

#include <memory>
#include <vector>

#include <QDeadlineTimer>
#include <QFont>
#include <QSize>
#include <QString>

namespace vemra::qt {

/// The lines of a text that is too long to be laid out at once.
///
///     LongText text(document, font, 480);   // lays out the beginning; the height is an estimate
///     text.layOut(top, bottom);             // lays out the part in view
///     while (!text.settle(QDeadlineTimer(4))) …  // in idle time: all lines, one part after another
///
/// The text consists of *parts* of about four thousand units. From the beginning of the text, each
/// part begins with the line that the previous one could not end, so that the lines are the same as
/// if the whole text had been laid out at once. A place far behind the known parts is laid out from
/// the nearest blank or line break; such lines are *provisional*, until the known parts reach them
/// (`settle`). All other text has an estimated height: the mean height of the known parts by
/// length.
///
/// Only parts near the last visible place keep their glyphs; of the others, the first unit, the
/// place and the height are known. A character with more than `mostMarks` marks is divided into
/// several lines.
///
/// Distances are pixels from the text's top; offsets count UTF-16 units. Main thread only.
class LongText {
 public:
  /// Texts of more units are long.
  static constexpr qsizetype shortest = 20'000;

  LongText(QString text, const QFont& font, int width);
  LongText(const LongText&) = delete;
  LongText& operator=(const LongText&) = delete;

  const QString& text() const { return text_; }
  const QFont& font() const { return breaking_.font; }
  int width() const { return breaking_.width; }

  /// The widest known line, and the known and the estimated heights.
  QSize size() const;
  int lineHeight() const { return lineHeight_; }
  /// Whether all lines are known, so that nothing is estimated.
  bool isSettled() const { return known_.back().end == text_.size(); }

  /// Lays out the lines from `top` to `bottom`. Returns whether the height of the text or the place
  /// of a line has changed: then the text in view may be elsewhere now (`topOf`), and the client
  /// calls again with its new place.
  bool layOut(int top, int bottom);
  /// Lays out the parts that are not known, in order: one, and more until the deadline. What it
  /// finds changes nothing before `adopt`. Returns whether all is found.
  bool settle(QDeadlineTimer deadline);
  /// Takes over what `settle` has found. Returns whether there was anything.
  bool adopt();

  /// The first unit of the line at that distance.
  qsizetype offsetAt(int y);
  /// The unit in the line at that distance whose character is nearest to `x`, a distance from the
  /// line's left edge.
  qsizetype offsetAt(int y, qreal x);
  /// The top of the line with that unit; estimated where the lines are not laid out.
  int topOf(qsizetype offset);

  /// One line and its place.
  struct PlacedLine {
    QTextLine line;
    int top;  ///< of the part; add the line's own `y`
  };
  /// The laid-out lines from `top` to `bottom`.
  std::vector<PlacedLine> linesBetween(int top, int bottom);
  /// The line with a unit, and the edges of the unit's character in it; lays it out if needed.
  struct PlacedCharacter {
    PlacedLine place;
    TextLines::Edges edges;
  };
  PlacedCharacter character(qsizetype offset);

 private:
  struct Part {
    qsizetype start = 0, end = 0;  ///< the units of its whole lines
    qsizetype limit = 0;           ///< the lines are those of the text before this unit
    int top = 0, height = 0, widest = 0;
    std::shared_ptr<TextLines> lines = nullptr;  ///< null: only the numbers are known
    int bottom() const { return top + height; }
  };

  Part partFrom(qsizetype start, int top, qsizetype limit) const;
  TextLines& keepLines(Part& part) const;
  TextLines& linesOf(const Part& part);
  void addKnown(Part part);
  void extendKnown();
  void dropReached();
  void moveProvisional();
  int estimated(qsizetype units) const;
  double heightOfAUnit() const;
  void beginProvisional(qsizetype offset);
  void prependProvisional();
  void appendProvisional();
  void keepLinesNear(int top, int bottom);
  Part* partWith(qsizetype offset);
  Part* partAt(int y);
  Part& guessedPart(qsizetype offset);
  int knownBottom() const { return known_.back().bottom(); }
  qsizetype knownEnd() const { return known_.back().end; }

  QString text_;
  LineBreaking breaking_;
  int lineHeight_ = 0;
  int widest_ = 0;
  std::vector<Part> known_;        ///< from the beginning, without gaps; never empty
  std::vector<Part> found_;        ///< the next known parts, not taken over yet
  std::vector<Part> provisional_;  ///< without gaps, somewhere behind the known ones
  Part asked_;                     ///< the last part away from the view that a client asked for
};

}  // namespace vemra::qt
