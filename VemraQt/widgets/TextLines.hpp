#pragma once

#include <cstdint>
#include <vector>

#include <QFont>
#include <QString>
#include <QTextLayout>

namespace vemra::qt {

/// How a text is broken into lines.
struct LineBreaking {
  QFont font;
  int width = 1;  ///< at least one pixel
  /// Break words too, wherever a line is full.
  bool anywhere = false;
  /// The reading direction of the whole text.
  bool rightToLeft = false;
};

/// The lines of one part of a long text, laid out by Qt. Offsets are those of the whole text.
class TextLines {
 public:
  /// Lays out the units from `from` to `to`, in the reading direction that they have in the text.
  TextLines(QStringView text, qsizetype from, qsizetype to, const LineBreaking& breaking);

  int count() const { return layout_.lineCount(); }
  QTextLine line(int index) const { return layout_.lineAt(index); }
  /// The first unit of a line.
  qsizetype start(int index) const { return toWhole(line(index).textStart()); }
  /// The line with that unit; the first or the last one for a unit outside.
  int lineWith(qsizetype offset) const;
  /// From the first line's top to the top of that line, or to the end of the last one.
  int top(int index) const;
  /// The left and the right edge of a character in its line.
  struct Edges {
    qreal one, other;
  };
  Edges edges(qsizetype offset) const;
  /// The unit in that line at a distance from the line's left edge.
  qsizetype offsetAt(int line, qreal x) const;

  /// The number of units that were laid out by all objects, for tests.
  static std::int64_t unitsLaidOut() { return unitsLaidOut_; }

 private:
  qsizetype toWhole(int position) const;
  int fromWhole(qsizetype offset) const;

  qsizetype from_;
  int prefix_ = 0;            // a character before the part, for its reading direction
  std::vector<int> dropped_;  // where carriage returns before line feeds were left out
  QTextLayout layout_;
  inline static std::int64_t unitsLaidOut_ = 0;
};

}  // namespace vemra::qt
