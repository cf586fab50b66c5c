#pragma once

#include "apps/desk/window/PlainText.hpp"

#include <cstddef>
#include <functional>

#include <QString>
#include <QStringList>
#include <QWidget>

class QPushButton;
class QVBoxLayout;

/// \file
/// What may be longer than a window can lay out at once, shown piece by piece.

namespace vemra::desk {

/// How much of a text is laid out at once: so many characters as a reader counts them (grapheme
/// clusters, UAX #29), and so many UTF-16 units.
constexpr qsizetype mostCharactersAtOnce = 1000;
constexpr qsizetype mostUnitsAtOnce = 2000;
/// A character of more units than this is cut: the time to lay out its combining marks grows with
/// the square of their number. Unicode's own limit for text streams is 30 marks (UAX #15).
constexpr qsizetype mostUnitsOfACharacter = 100;
/// How many entries of a list are shown at once.
constexpr std::size_t mostEntriesAtOnce = 20;

/// Where the piece of `text` that begins at `from` ends: at the end of the text, else behind a blank
/// near the bounds, else between two characters. Only a character beyond its bound is cut itself, and
/// then never a surrogate pair.
qsizetype endOfPiece(const QString& text, qsizetype from);

/// The first piece of a text, with an ellipsis for the rest.
QString firstPiece(const QString& text);

/// A first piece, and a button "Show more" below it as long as there are more.
///
/// A pane is made at once of what the reader can see soon, whatever the store holds.
class Pieces : public QWidget {
  Q_OBJECT

 public:
  /// Adds the widgets of the next piece to the end of a column; false when that was the last one.
  using AddNext = std::function<bool(QVBoxLayout& column)>;

  /// - Parameter what: what there is more of, for a reader who hears the button without its place.
  Pieces(const QString& what, AddNext addNext, QWidget* parent = nullptr);

  /// What there is more of, told from all others that stand in the same `Pieces`: it finds what was
  /// shown when a pane is made anew. `what` until it is set.
  void setKey(const QString& key) { key_ = key; }
  /// The keys of the `Pieces` that it stands in, from the outermost, and its own.
  QStringList path() const;
  /// How many pieces are shown.
  int shown() const { return shown_; }
  /// Shows further pieces until there are so many, or no more.
  void showUpTo(int count);
  QPushButton& more() const { return *more_; }

 private:
  void showNext();

  AddNext addNext_;
  QString key_;
  int shown_ = 0;
  bool hasMore_ = true;
  QVBoxLayout* pieces_;
  QPushButton* more_;
};

/// Adds a text to a column, of a long one the first piece. Adds nothing for an empty text.
void addText(QVBoxLayout& column, const QString& text, TextRole role);

/// Adds the entries 0 to `count` of a list to a column, of a long one the first few.
///
/// - Parameter add: adds entry `index` to the column that it is given; kept as long as the pieces.
/// - Returns: the pieces of a long list, which the column owns; nullptr for a short one.
Pieces* addEntries(QVBoxLayout& column, const QString& what, std::size_t count,
                   std::function<void(QVBoxLayout& column, std::size_t index)> add);

}  // namespace vemra::desk
