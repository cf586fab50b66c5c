// The window from right to left: it is mirrored as a whole, and texts keep their own direction.

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/window/CloseQuestion.hpp"
#include "apps/desk/window/GoalRow.hpp"
#include "apps/desk/window/HelpBoxes.hpp"
#include "apps/desk/window/LeadingEdge.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "apps/desk/window/WholeTitles.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <memory>
#include <string>
#include <vector>

#include <QApplication>
#include <QFont>
#include <QImage>
#include <QLabel>
#include <QMessageBox>
#include <QPixmap>
#include <QPushButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextTable>
#include <QTranslator>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class RightToLeftTest : public OpenDesk {
 protected:
  RightToLeftTest() { installTranslations({"he"}); }
  ~RightToLeftTest() override {
    close();
    installTranslations({"en"});
    for (auto* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
      QCoreApplication::removeTranslator(translator);
      delete translator;
    }
  }

  /// A font without smoothing, whose glyphs look the same wherever they stand.
  static QFont plainFont() {
    QFont font;
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
  }
  static QString isolate(const QString& text, char16_t mark = 0x200f) {
    return QString(QChar(mark)) + QChar(0x2068) + text + QChar(0x2069);
  }
  /// Whether a label with that text reads from right to left.
  static bool readsFromRightToLeft(const QString& text) {
    return QTextDocument(text).firstBlock().textDirection() == Qt::RightToLeft;
  }

  /// The part of a picture that differs from its corner's colour.
  static QRect inkOf(const QImage& image) {
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) {
        if (image.pixel(x, y) != image.pixel(0, 0)) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
  }
  /// The picture of a widget in that direction, without the empty space around the ink.
  static QImage inkOf(QWidget& widget, Qt::LayoutDirection direction) {
    widget.setLayoutDirection(direction);
    const QImage image = widget.grab().toImage();
    return image.copy(inkOf(image));
  }
};

TEST_F(RightToLeftTest, ThePanesAreMirrored) {
  GoalStore::open(file).import({goal("g1", "Find a design lead")});
  open();
  press("vemra.goal.person.p1.show-source");
  const auto left = [&](const char* name) {
    const auto* widget = wait<QWidget>(name);
    return widget->mapTo(window.get(), QPoint(0, 0)).x();
  };
  const int row = left("vemra.goal.person.p1.show-source");
  EXPECT_GT(left("desk.goals"), row) << "the goals are at the right";
  EXPECT_LT(left("desk.side"), row) << "the details are at the left";
}

TEST_F(RightToLeftTest, ALabelBeginsAtTheLeadingEdgeWhateverDirectionItsTextHas) {
  for (const char* text : {"Reached out", "\u05e0\u05e8\u05e9\u05dd"}) {
    const std::unique_ptr<QLabel> label(makeLabel(text, TextRole::body));
    label->resize(300, 30);
    for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
      label->setLayoutDirection(direction);
      const QRect ink = inkOf(label->grab().toImage());
      EXPECT_EQ(ink.center().x() > 150, direction == Qt::RightToLeft) << text;
    }
  }
}

TEST_F(RightToLeftTest, ATitleOfAGoalKeepsItsOwnDirection) {
  GoalRow row;
  row.setFont(plainFont());
  row.setTitle("Meet Ada (again)!");
  row.resize(200, 60);
  EXPECT_EQ(inkOf(row, Qt::RightToLeft), inkOf(row, Qt::LeftToRight));
}

TEST_F(RightToLeftTest, EveryLineOfATitleBeginsAtTheLeadingEdge) {
  GoalRow row;
  row.setTitle("Find a design lead for the spring launch HH");
  row.resize(200, row.heightForWidth(200));
  row.setLayoutDirection(Qt::RightToLeft);
  const QImage image = row.grab().toImage();
  const int half = image.height() / 2;
  const QRect first = inkOf(image.copy(0, 0, 200, half));
  const QRect second = inkOf(image.copy(0, half, 200, half));
  ASSERT_GT(second.width(), 20) << "two lines";
  EXPECT_NEAR(first.right(), second.right(), 2);
}

TEST_F(RightToLeftTest, ADateBehindAnOutcomeIsInTheOrderOfTheLine) {
  GetGoalSnapshotResponse result = goal("g1", "Find a design lead", {outcome("o1", "p1", {})});
  std::vector<GoalOutcomeDTO> outcomes(result.outcomes.begin(), result.outcomes.end());
  outcomes[0].recordedAt = "2025-03-05T10:00:00Z";
  result.outcomes = outcomes;
  GoalStore::open(file).import({result});
  open();
  pressTitled(fromUTF8(*result.people[0].displayName));
  const QString label = fromUTF8(GoalOutcomeRecordingFormLogic::label(outcomes[0].value));
  EXPECT_TRUE(becomes([&] {
    return texts("desk.side").join("\n").contains(isolate(label) + ", ");
  })) << texts("desk.side").join("\n").toStdString();
}

TEST_F(RightToLeftTest, ANameInAPathKeepsItsOwnDirection) {
  for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
    PathGraph graph({"AAA......"});
    graph.resize(200, graph.heightForWidth(200));
    graph.setLayoutDirection(direction);
    const QImage image = graph.grab().toImage();
    const int star = 24;  // the width of the star and the space beside it, left out
    const QImage name = image.copy(direction == Qt::RightToLeft ? 0 : star, 0, image.width() - star,
                                   image.height());
    const QRect ink = inkOf(name);
    const auto heightAt = [&](int from) {
      return inkOf(name.copy(ink.left() + from, 0, ink.width() / 3, name.height())).height();
    };
    EXPECT_GT(heightAt(0), 2 * heightAt(ink.width() * 2 / 3)) << "the points are at the right";
  }
}

TEST_F(RightToLeftTest, AReasonIsASentenceFromRightToLeftWithItsFileIsolated) {
  const QString reason = localizedReason("/a/b.sqlite: is read-only");
  EXPECT_EQ(reason, isolate("/a/b.sqlite") +
                        ": \u05de\u05d5\u05d2\u05df \u05de\u05e4\u05e0\u05d9 "
                        "\u05db\u05ea\u05d9\u05d1\u05d4");
  EXPECT_TRUE(readsFromRightToLeft(reason));
  EXPECT_TRUE(localizedReason("b.json: /goal: line 2, column 7: expected an object; found \"c\"")
                  .contains(isolate("\"c\"")));
}

TEST_F(RightToLeftTest, TheTableOfKeysBeginsAtTheRight) {
  QWidget parent;
  showKeyboardHelp(parent);
  QApplication::processEvents();
  auto* text = parent.findChild<QTextEdit*>();
  ASSERT_NE(text, nullptr);
  const QTextFrame& frame = *text->document()->rootFrame();
  const auto* table = qobject_cast<const QTextTable*>(frame.childFrames().constFirst());
  ASSERT_NE(table, nullptr);
  const auto beginOf = [&](int row, int column) {
    return text->cursorRect(table->cellAt(row, column).firstCursorPosition()).center().x();
  };
  EXPECT_EQ(table->cellAt(0, 1).firstCursorPosition().block().text(), isolate("F6"));
  for (int row = 0; row < table->rows(); ++row) {
    EXPECT_GT(beginOf(row, 1), text->width() * 3 / 4) << row;
    EXPECT_LT(beginOf(row, 0), beginOf(row, 1) - 40) << row;
    EXPECT_GT(beginOf(row, 0), text->width() / 2) << row;
  }
}

TEST_F(RightToLeftTest, ANameInAQuestionBeginsAtTheLeadingEdge) {
  QWidget parent;
  CloseQuestion question(Leaving::closeWindow, {{"Ada"}, {}}, &parent);
  question.show();
  QApplication::processEvents();
  auto* names = question.findChild<QLabel*>("qt_msgbox_informativelabel");
  ASSERT_NE(names, nullptr);
  EXPECT_GT(inkOf(names->grab().toImage()).left(), names->width() / 2);
}

TEST_F(RightToLeftTest, NoTitleInABoxTouchesTheEdgeOfItsButton) {
  QMessageBox box;
  QPixmap icon(16, 16);
  icon.fill(Qt::red);
  QPushButton* button = box.addButton(QMessageBox::Cancel);
  button->setIcon(icon);  // as some desktops do
  keepTitlesWhole(box);
  button->resize(button->sizeHint());
  const QImage image = button->grab().toImage();
  const int last = image.width() - 1;
  for (int y = 6; y < image.height() - 6; ++y) {
    for (int x = 4; x < 8; ++x) {
      ASSERT_EQ(image.pixel(x, y), image.pixel(3, y));
      ASSERT_EQ(image.pixel(last - x, y), image.pixel(last - 3, y));
    }
  }
}

TEST_F(RightToLeftTest, OnlyTextsOfTheOtherDirectionAreIsolated) {
  EXPECT_EQ(isolated("Ada"), isolate("Ada"));
  EXPECT_EQ(isolated("\u05d0\u05d3\u05d4"), "\u05d0\u05d3\u05d4");
  EXPECT_EQ(isolated("12"), "12");
  EXPECT_EQ(isolated("A\u2069\u202eda"), isolate("Ada")) << "it cannot end its isolation";
  installTranslations({"en"});
  EXPECT_EQ(isolated("Ada"), "Ada");
  EXPECT_EQ(isolated("\u05d0\u05d3\u05d4"), isolate("\u05d0\u05d3\u05d4", 0x200e));
}

}  // namespace
}  // namespace vemra::desk
