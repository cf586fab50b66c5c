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
/// Shows texts and lists that are too long to lay out at once, piece by piece.

namespace vemra::desk {

/// The length of a piece of text: at most this many characters as a reader counts them (grapheme
/// clusters, UAX #29), and at most this many UTF-16 units.
constexpr qsizetype mostCharactersAtOnce = 1000;
constexpr qsizetype mostUnitsAtOnce = 2000;
/// A character with more units than this is cut: the time to lay out its combining marks grows with
/// the square of their number. Unicode's own limit for text streams is 30 marks (UAX #15).
constexpr qsizetype mostUnitsOfACharacter = 100;
/// The number of list entries in a piece.
constexpr std::size_t mostEntriesAtOnce = 20;
/// The space on both sides of each text, where the focus ring of a link is.
constexpr int besideTexts = 4;

/// The end of the piece of `text` that begins at `from`: the end of the text, else behind a blank
/// near the limits, else between two characters. Only a character that exceeds its own limit is
/// cut, and then never inside a surrogate pair.
qsizetype endOfPiece(const QString& text, qsizetype from);

/// The first piece of a text, with an ellipsis for the omitted rest.
QString firstPiece(const QString& text);

/// A first piece, with a button "Show more" below it while there are further pieces.
///
/// A pane can be built at once, however much the store holds: it contains only the first pieces.
class Pieces : public QWidget {
  Q_OBJECT

 public:
  /// Adds the widgets of the next piece to the end of a column; false when that was the last piece.
  using AddNext = std::function<bool(QVBoxLayout& column)>;

  /// - Parameter what: names the content, so that the button's accessible name says what it shows.
  Pieces(const QString& what, AddNext addNext, QWidget* parent = nullptr);

  /// The key of these pieces, unique among all `Pieces` inside the same one; it identifies the
  /// opened pieces when a pane is rebuilt. The key is `what` until it is set.
  void setKey(const QString& key) { key_ = key; }
  /// The keys of the `Pieces` around this one, from the outermost, and its own key.
  QStringList path() const;
  /// The number of shown pieces.
  int shown() const { return shown_; }
  /// Shows further pieces until `count` are shown, or all.
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

/// Adds a text to a column; of a long text, the first piece. Adds nothing for an empty text.
void addText(QVBoxLayout& column, const QString& text, TextRole role);

/// Adds a link to a column; of a long text, the first piece.
///
/// - Parameter pressed: runs when the link is pressed; lives as long as the link.
void addLink(QVBoxLayout& column, const QString& text, TextRole role,
             std::function<void()> pressed);

/// Adds the entries 0 to `count` of a list to a column; of a long list, the first few.
///
/// - Parameter add: adds entry `index` to the given column; lives as long as the pieces.
/// - Returns: the pieces of a long list, which the column owns; nullptr for a short one.
Pieces* addEntries(QVBoxLayout& column, const QString& what, std::size_t count,
                   std::function<void(QVBoxLayout& column, std::size_t index)> add);

}  // namespace vemra::desk
