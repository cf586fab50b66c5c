// A column shows long texts and lists piece by piece, and nothing of them is lost.

#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// A column in a window, as the pane has one.
class PiecesTest : public ::testing::Test {
 protected:
  PiecesTest() {
    window.resize(300, 600);
    window.show();
    qttest::activate(window);
  }

  QStringList texts() const {
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) texts.append(label->text());
    return texts;
  }
  std::vector<QPushButton*> mores() const {
    std::vector<QPushButton*> mores;
    for (auto* more : window.findChildren<QPushButton*>("desk.side.more")) {
      if (!more->isHidden()) mores.push_back(more);
    }
    return mores;
  }

  QWidget window;
  QVBoxLayout* column = new QVBoxLayout(&window);
};

TEST_F(PiecesTest, AShortTextIsALabelAndAnEmptyOneNothing) {
  addText(*column, "", TextRole::body);
  EXPECT_EQ(column->count(), 0);
  addText(*column, QString(1000, u'w'), TextRole::body);
  EXPECT_EQ(texts(), QStringList(QString(1000, u'w')));
  EXPECT_TRUE(mores().empty());
}

TEST_F(PiecesTest, EveryPressShowsMoreOfALongText) {
  const QString text = QString(1000, u'a') + QString(1000, u'b') + QString(7, u'c');
  addText(*column, text, TextRole::body);
  EXPECT_EQ(texts(), QStringList(QString(1000, u'a')));
  ASSERT_EQ(mores().size(), 1u);
  mores()[0]->click();
  EXPECT_EQ(texts(), QStringList({QString(1000, u'a'), QString(1000, u'b')}));
  mores()[0]->click();
  EXPECT_EQ(texts().join(QString()), text);
  EXPECT_TRUE(mores().empty()) << "there is no more";
}

TEST_F(PiecesTest, ReturnShowsMoreToo) {
  addText(*column, QString(1000, u'a') + QString(7, u'b'), TextRole::body);
  ASSERT_EQ(mores().size(), 1u);
  pressKey(*mores()[0], Qt::Key_Return);
  EXPECT_EQ(texts(), QStringList({QString(1000, u'a'), QString(7, u'b')}));
}

TEST_F(PiecesTest, AListUpToTheBoundIsShownWhole) {
  addEntries(*column, "the goals", 20, [](QVBoxLayout& list, std::size_t i) {
    addText(list, QString::number(i), TextRole::body);
  });
  EXPECT_EQ(texts().size(), 20);
  EXPECT_TRUE(mores().empty());
}

TEST_F(PiecesTest, ALongListMakesItsEntriesOnRequest) {
  std::vector<std::size_t> made;
  addEntries(*column, "the goals", 45, [&](QVBoxLayout& list, std::size_t i) {
    made.push_back(i);
    addText(list, QString::number(i), TextRole::body);
  });
  EXPECT_EQ(made.size(), 20u);
  mores().at(0)->click();
  EXPECT_EQ(made.size(), 40u);
  mores().at(0)->click();
  ASSERT_EQ(made.size(), 45u);
  EXPECT_TRUE(mores().empty());
  for (std::size_t i = 0; i < made.size(); ++i) EXPECT_EQ(made[i], i);
  EXPECT_EQ(texts().front(), "0");
  EXPECT_EQ(texts().back(), "44");
}

TEST_F(PiecesTest, TheButtonIsReachedByTabPressedByKeyAndHasAnAccessibleName) {
  addText(*column, QString(2500, u'w'), TextRole::body);
  QPushButton& more = *mores().at(0);
  more.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(more.hasFocus());
  EXPECT_TRUE(more.focusPolicy() & Qt::TabFocus);
  pressKey(more, Qt::Key_Space);
  EXPECT_EQ(texts().size(), 2);
  EXPECT_TRUE(more.hasFocus()) << "for the next piece";
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&more);
  EXPECT_EQ(heard->text(QAccessible::Name), "Show more of the text");
  EXPECT_EQ(heard->role(), QAccessible::Button);
}

TEST_F(PiecesTest, TabGoesThroughNewButtonsInReadingOrder) {
  addEntries(*column, "the goals", 25, [](QVBoxLayout& list, std::size_t i) {
    addText(list, QString(i == 3 || i == 22 ? 1500 : 1, u'w'), TextRole::body);
  });
  auto* last = new QPushButton("last");
  column->addWidget(last);
  ASSERT_EQ(mores().size(), 2u);
  const auto pressesTabFrom = [&](QWidget* from) {
    QApplication::processEvents();  // new widgets are shown in the next turn
    from->setFocus(Qt::TabFocusReason);
    pressKey(*from, Qt::Key_Tab);
    return window.focusWidget();
  };
  QPushButton* ofText = nullptr;
  QPushButton* ofList = nullptr;
  for (QPushButton* more : mores()) {
    (more->accessibleName() == "Show more of the goals" ? ofList : ofText) = more;
  }
  ASSERT_TRUE(ofText && ofList);
  EXPECT_EQ(pressesTabFrom(ofText), ofList);
  EXPECT_EQ(pressesTabFrom(ofList), last);
  ofList->setFocus(Qt::TabFocusReason);
  ofList->click();
  EXPECT_FALSE(ofList->isVisible());
  EXPECT_EQ(window.focusWidget(), last) << "the next control has the focus";
  QPushButton* inNewPiece = nullptr;
  for (QPushButton* more : mores()) {
    if (more != ofText) inNewPiece = more;
  }
  ASSERT_TRUE(inNewPiece);
  EXPECT_EQ(pressesTabFrom(ofText), inNewPiece);
  EXPECT_EQ(pressesTabFrom(inNewPiece), last);
}

TEST(PathGraphPieces, OnlyTheBeginningOfAVeryLongNameIsShown) {
  const PathGraph graph({QString(3000, u'w'), "Bo"});
  EXPECT_EQ(graph.accessibleDescription(), QString(1000, u'w') + "…, then Bo");
}

TEST(NoticePieces, OnlyTheBeginningOfAVeryLongFailureIsShown) {
  Notice notice;
  notice.show(QString(3000, u'w'));
  EXPECT_EQ(notice.accessibleName(), QString(1000, u'w') + u'…');
  for (const auto* label : notice.findChildren<QLabel*>()) {
    EXPECT_EQ(label->text(), notice.accessibleName());
  }
}

}  // namespace
}  // namespace vemra::desk
