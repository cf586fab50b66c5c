// Where the pieces of a long text end.

#include "apps/desk/window/Pieces.hpp"

#include <QString>
#include <QStringList>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

const QString accent = QString::fromUtf8("\u0301");

/// The pieces of a text, in the order in which they are shown.
QStringList piecesOf(const QString& text) {
  QStringList pieces;
  for (qsizetype from = 0; from < text.size();) {
    const qsizetype end = endOfPiece(text, from);
    if (end <= from) return {"stands still"};
    pieces.append(text.mid(from, end - from));
    from = end;
  }
  return pieces;
}

TEST(TextPieces, ATextUpToTheBoundIsOnePiece) {
  EXPECT_EQ(endOfPiece(QString(), 0), 0);
  EXPECT_EQ(endOfPiece(QString(1000, u'w'), 0), 1000);
  EXPECT_EQ(endOfPiece(QString(1001, u'w'), 0), 1000);
  EXPECT_EQ(endOfPiece((u'e' + accent).repeated(1000), 0), 2000) << "1,000 characters";
  EXPECT_EQ(endOfPiece((u'e' + accent + accent).repeated(1000), 0), 3 * 666) << "2,000 units";
  EXPECT_EQ(endOfPiece(QString(1000, u'x') + QString(1001, u'w'), 1000), 2000);
  EXPECT_EQ(endOfPiece(QString(1000, u'x') + QString(1000, u'w'), 1000), 2000);
}

TEST(TextPieces, APieceCountsCharactersAsAReaderCountsThem) {
  const QString accented = (u'e' + accent).repeated(999) + "ff";
  EXPECT_EQ(endOfPiece(accented, 0), 2 * 999 + 1) << "1,000 characters, one of them a plain f";
  const QString pairs = QString::fromUtf8("\U0001F600").repeated(1001);
  EXPECT_EQ(endOfPiece(pairs, 0), 2000) << "1,000 characters";
}

TEST(TextPieces, APieceEndsBehindABlankWhereOneIsNear) {
  const QString near = QString(925, u'w') + ' ' + QString(500, u'w');
  EXPECT_EQ(endOfPiece(near, 0), 926);
  const QString far = QString(900, u'w') + ' ' + QString(500, u'w');
  EXPECT_EQ(endOfPiece(far, 0), 1000);
  EXPECT_EQ(endOfPiece(QString(999, u'w') + ' ' + QString(9, u'w'), 0), 1000);
}

TEST(TextPieces, ACharacterBeyondTheBoundIsCutButNoSurrogatePair) {
  const QString marks = u'x' + accent.repeated(20'000);
  const QStringList pieces = piecesOf(marks);
  EXPECT_EQ(pieces.join(QString()), marks);
  for (const QString& piece : pieces) EXPECT_LE(piece.size(), 100);
  EXPECT_EQ(endOfPiece("ab" + marks, 0), 2) << "the text before it is a piece of its own";
  EXPECT_EQ(endOfPiece(u'x' + accent.repeated(99), 0), 100) << "a character up to the bound";
  EXPECT_EQ(endOfPiece(u'x' + accent.repeated(100), 0), 100);
  const QString pairs = u'x' + QString::fromUtf8("\U000E0100").repeated(5'000);
  for (const QString& piece : piecesOf(pairs)) {
    EXPECT_FALSE(piece.front().isLowSurrogate());
    EXPECT_FALSE(piece.back().isHighSurrogate());
  }
}

TEST(TextPieces, NothingOfATextIsLost) {
  for (const QString& text :
       {QString("word ").repeated(40'000), QString("\n").repeated(5'000), QString(9'999, u'w'),
        QString::fromUtf8("\U0001F469\u200D\U0001F469\u200D\U0001F467").repeated(800)}) {
    EXPECT_EQ(piecesOf(text).join(QString()), text);
  }
}

TEST(TextPieces, TheFirstPieceAloneEndsInAnEllipsis) {
  EXPECT_EQ(firstPiece("short"), "short");
  EXPECT_EQ(firstPiece(QString(1001, u'w')), QString(1000, u'w') + u'…');
}

}  // namespace
}  // namespace vemra::desk
