// The mark that a note's field shows for a line break: as large as the text, and separate from its
// letters.

#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/WindowHost.hpp"
#include "tests/VemraQt/Writing.hpp"

#include <QApplication>
#include <QFontMetrics>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTest>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

class LineBreaks : public ::testing::Test {
 protected:
  void SetUp() override { QApplication::setFont(hardEdgedFont()); }

  static QImage inside(QLineEdit& note) {
    return note.grab(note.rect().adjusted(3, 3, -3, -3)).toImage();
  }

  static bool isEmptyColumn(const QImage& picture, int x) {
    const QRgb page = picture.pixel(0, 0);
    for (int y = 0; y < picture.height(); ++y) {
      if (picture.pixel(x, y) != page) return false;
    }
    return true;
  }

  /// The columns with drawn pixels, as [first, last], from the left.
  static std::vector<std::pair<int, int>> blocks(const QImage& picture) {
    std::vector<std::pair<int, int>> found;
    for (int x = 0; x < picture.width(); ++x) {
      if (isEmptyColumn(picture, x)) continue;
      if (found.empty() || found.back().second + 1 < x) found.push_back({x, x});
      found.back().second = x;
    }
    return found;
  }

  static int heightOf(const QImage& picture, std::pair<int, int> columns) {
    QRect place;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = columns.first; x <= columns.second; ++x) {
        if (picture.pixel(x, y) != picture.pixel(0, 0)) place |= QRect(x, y, 1, 1);
      }
    }
    return place.height();
  }

 private:
  AsBefore asBefore_;
};

}  // namespace

TEST_F(LineBreaks, TheMarkGrowsWithTheTextAndTouchesNoLetter) {
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    WindowHost host(resultWith(1));
    QLineEdit& note = noteWith(host, "H\nH", scale);
    const QImage picture = inside(note);
    const auto found = blocks(picture);
    ASSERT_EQ(found.size(), 3u) << "H, the mark and H, apart from each other, at " << scale;
    const int cap = QFontMetrics(note.font()).capHeight();
    const int width = found[1].second - found[1].first + 1;
    const int height = heightOf(picture, found[1]);
    EXPECT_GE(width, cap * 3 / 4) << "at " << scale;
    EXPECT_GE(height, cap * 3 / 4) << "at " << scale;
    EXPECT_LE(height, cap * 5 / 4) << "at " << scale;
    const int before = found[1].first - found[0].second - 1;
    const int after = found[2].first - found[1].second - 1;
    EXPECT_GE(before, std::max(1, cap / 9)) << "at " << scale;
    EXPECT_GE(after, std::max(1, cap / 9)) << "at " << scale;
  }
}

TEST_F(LineBreaks, EveryKindOfBreakIsMarkedAndABlankIsNot) {
  for (const QString& text : {QString("H\nH"), QString("H\rH"), QStringLiteral(u"H\u2028H"),
                              QStringLiteral(u"H\u2029H")}) {
    WindowHost host(resultWith(1));
    EXPECT_EQ(blocks(inside(noteWith(host, text, 1))).size(), 3u) << qPrintable(text);
  }
  WindowHost host(resultWith(1));
  EXPECT_EQ(blocks(inside(noteWith(host, "H H", 1))).size(), 2u);
}

TEST_F(LineBreaks, MarksFollowTheTextWhileItIsEdited) {
  WindowHost host(resultWith(1));
  QLineEdit& note = noteWith(host, "H\nH", 1);
  note.setFocus();
  note.setCursorPosition(0);
  QTest::keyClicks(&note, "HH");
  EXPECT_EQ(note.text(), "HHH\nH");
  EXPECT_EQ(note.cursorPosition(), 2);
  host.widget.setFocus();
  WindowHost fresh(resultWith(1));
  EXPECT_EQ(inside(note), inside(noteWith(fresh, "HHH\nH", 1)));
  EXPECT_EQ(blocks(inside(note)).size(), 5u) << "three letters, the mark, a letter";
  note.setFocus();
  note.setSelection(3, 1);
  QTest::keyClick(&note, Qt::Key_Delete);
  host.widget.setFocus();
  WindowHost joined(resultWith(1));
  EXPECT_EQ(inside(note), inside(noteWith(joined, "HHHH", 1))) << "the break leaves no gap";
  note.setFocus();
  QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(note.text(), "HHH\nH") << "undone";
  EXPECT_EQ(note.selectedText(), "\n");
}

TEST_F(LineBreaks, TextThatAnInputMethodComposesStaysUnchanged) {
  WindowHost host(resultWith(1));
  QLineEdit& note = noteWith(host, "H\nH", 1);
  note.setFocus();
  note.setCursorPosition(1);
  QInputMethodEvent composing("ka", {});
  QApplication::sendEvent(&note, &composing);
  EXPECT_EQ(note.text(), "H\nH");
  (void)inside(note);
  QInputMethodEvent done;
  done.setCommitString(QStringLiteral(u"\u304b"));
  QApplication::sendEvent(&note, &done);
  EXPECT_EQ(note.text(), QStringLiteral(u"H\u304b\nH"));
  EXPECT_EQ(note.cursorPosition(), 2);
  host.widget.setFocus();
  EXPECT_EQ(blocks(inside(note)).size(), 4u);
}
