// The picker's widget: its choices, its menu and its keys.

#include "tests/VemraQt/ShownPicker.hpp"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QImage>
#include <QMenu>
#include <QProxyStyle>
#include <QStyleOptionComboBox>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class ChoiceBoxTest : public ShownPicker {};

/// From right to left it mirrors the room for the text, and not the arrow.
class UnmirroredArrow : public QProxyStyle {
 public:
  UnmirroredArrow() : QProxyStyle("fusion") {}

  QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                       const QWidget* box) const override {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (combo == nullptr || part != SC_ComboBoxArrow) {
      return QProxyStyle::subControlRect(control, option, part, box);
    }
    QStyleOptionComboBox unmirrored(*combo);
    unmirrored.direction = Qt::LeftToRight;
    return QProxyStyle::subControlRect(control, &unmirrored, part, box);
  }
};

/// How many dark pixels the columns have from `first` on, the frame left out.
int darkPixels(const QImage& image, int first, int columns) {
  int count = 0;
  for (int x = first; x < first + columns; ++x) {
    for (int y = 6; y < image.height() - 6; ++y) count += qGray(image.pixel(x, y)) < 140 ? 1 : 0;
  }
  return count;
}

}  // namespace

TEST_F(ChoiceBoxTest, FromRightToLeftTheArrowIsAtTheLeftAlsoWhereAStyleDoesNotMirrorIt) {
  show({{"i", 1}, {"A much longer choice", 2}});
  UnmirroredArrow style;
  QStyle* before = box().style();
  box().setStyle(&style);
  box().setLayoutDirection(Qt::RightToLeft);
  const QImage image = box().grab().toImage();
  box().setStyle(before);
  constexpr int room = 24;  // of the arrow
  EXPECT_GT(darkPixels(image, 4, room), 0);
  EXPECT_EQ(darkPixels(image, room + 4, image.width() / 2 - room), 0);
}

TEST_F(ChoiceBoxTest, ItsChoicesFollowTheView) {
  show({{"One", 1}, {"Two", 2}});
  EXPECT_THAT(items(), ElementsAre("One", "Two"));
  EXPECT_EQ(box().currentIndex(), 0);
  show({{"Zero", 0}, {"One", 1}, {"Two", 2}});
  EXPECT_THAT(items(), ElementsAre("Zero", "One", "Two"));
  EXPECT_EQ(box().currentIndex(), 1);
  show({{"Zero", 0}, {"One", 1}, {"Deux", 2}});
  EXPECT_THAT(items(), ElementsAre("Zero", "One", "Deux")) << "one label is another";
  show({{"One", 1}});
  EXPECT_THAT(items(), ElementsAre("One"));
  EXPECT_EQ(box().currentIndex(), 0);
  EXPECT_THAT(chosen, IsEmpty()) << "no choice was made";
}

TEST_F(ChoiceBoxTest, ChoosingSelectsThePresentTagOfTheLabel) {
  show({{"One", 1}, {"Two", 2}});
  show({{"One", 7}, {"Two", 8}});
  Q_EMIT box().activated(1);
  EXPECT_EQ(selected, 8);
  Q_EMIT box().activated(2);
  Q_EMIT box().activated(-1);
  EXPECT_EQ(selected, 8) << "there is no such choice";
  EXPECT_EQ(chosen.size(), 1u);
}

TEST_F(ChoiceBoxTest, ASelectionWithoutAChoiceShowsNone) {
  selected = 5;
  show({{"One", 1}, {"Two", 2}});
  EXPECT_EQ(box().currentIndex(), -1);
  EXPECT_EQ(element().text(QAccessible::Value), "");
  selected = 2;
  show({{"One", 1}, {"Two", 2}});
  EXPECT_EQ(box().currentIndex(), 1);
}

TEST_F(ChoiceBoxTest, TheMenuShowsEveryChoiceLiterallyAndMarksTheCurrentOne) {
  show({{"A & B\tC", 0}, {"One", 1}});
  box().showPopup();
  ASSERT_TRUE(menu());
  const QList<QAction*> actions = menu()->actions();
  ASSERT_EQ(actions.size(), 2);
  EXPECT_EQ(actions[0]->text(), "A && B C");
  EXPECT_TRUE(actions[0]->isCheckable());
  EXPECT_FALSE(actions[0]->isChecked());
  EXPECT_TRUE(actions[1]->isChecked());
  EXPECT_EQ(menu()->activeAction(), actions[1]);
  EXPECT_GE(menu()->width(), box().width());
  EXPECT_EQ(menu()->font(), box().font());
  EXPECT_EQ(menu()->pos(), box().mapToGlobal(QPoint(0, box().height())));
}

TEST_F(ChoiceBoxTest, AChoiceInTheMenuActsOnceAndClosesTheMenu) {
  show({{"One", 1}, {"Two", 2}});
  box().showPopup();
  QMenu* const first = menu();
  ASSERT_TRUE(first);
  box().showPopup();
  EXPECT_EQ(menu(), first) << "one menu";
  first->actions()[1]->trigger();
  EXPECT_EQ(selected, 2);
  EXPECT_EQ(box().currentIndex(), 1);
  EXPECT_EQ(chosen.size(), 1u);
  box().hidePopup();
  EXPECT_FALSE(menu());
  box().showPopup();
  ASSERT_TRUE(menu()) << "it opens again";
  EXPECT_TRUE(menu()->actions()[1]->isChecked());
}

TEST_F(ChoiceBoxTest, WithoutChoicesThereIsNoMenu) {
  show({});
  box().showPopup();
  EXPECT_FALSE(menu());
  box().hidePopup();
}

TEST_F(ChoiceBoxTest, InARightToLeftLayoutTheMenuEndsAtTheRightEdgeOfTheBox) {
  ui::Environment environment;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  widget.setEnvironment(environment);
  show({{"A choice that is longer than the box is wide by a lot of words", 1}, {"Two", 2}});
  selected = 2;
  show({{"A choice that is longer than the box is wide by a lot of words", 1}, {"Two", 2}});
  box().showPopup();
  ASSERT_TRUE(menu());
  const int end = box().mapToGlobal(QPoint(box().width(), 0)).x();
  EXPECT_EQ(menu()->x(), std::max(0, end - menu()->sizeHint().width()));
}

TEST_F(ChoiceBoxTest, KeysOpenTheMenuOrGoFromChoiceToChoice) {
  show({{"One", 1}, {"Two", 2}, {"Three", 3}});
  for (const auto key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_F4}) {
    QTest::keyClick(&box(), key);
    EXPECT_TRUE(menu()) << key;
    box().hidePopup();
  }
  QTest::keyClick(&box(), Qt::Key_Down);
  EXPECT_EQ(selected, 2);
  QTest::keyClick(&box(), Qt::Key_Down);
  EXPECT_EQ(selected, 3);
  QTest::keyClick(&box(), Qt::Key_Up);
  EXPECT_EQ(selected, 2);
  for (const auto key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Escape, Qt::Key_Delete}) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(&box(), &event);
    EXPECT_FALSE(event.isAccepted()) << "the window may handle " << key;
  }
  EXPECT_EQ(selected, 2);
}

TEST_F(ChoiceBoxTest, HomeAndEndChooseTheFirstAndTheLastChoice) {
  show({{"Zero", 0}, {"One", 1}, {"Two", 2}});
  QTest::keyClick(&box(), Qt::Key_End);
  EXPECT_EQ(selected, 2);
  QTest::keyClick(&box(), Qt::Key_End);
  EXPECT_EQ(chosen.size(), 1u) << "it is chosen already";
  QTest::keyClick(&box(), Qt::Key_Home);
  EXPECT_EQ(selected, 0);
  show({});
  QTest::keyClick(&box(), Qt::Key_End);
  QTest::keyClick(&box(), Qt::Key_Home);
  EXPECT_EQ(chosen.size(), 2u) << "there is nothing to choose";
}

TEST_F(ChoiceBoxTest, HomeAndEndGoToTheEndsOfTheOpenMenu) {
  show({{"Zero", 0}, {"One", 1}, {"Two", 2}});
  box().showPopup();
  ASSERT_TRUE(menu());
  QTest::keyClick(menu(), Qt::Key_End);
  EXPECT_EQ(menu()->activeAction(), menu()->actions().back());
  QTest::keyClick(menu(), Qt::Key_Home);
  EXPECT_EQ(menu()->activeAction(), menu()->actions().front());
  EXPECT_THAT(chosen, IsEmpty());
  QTest::keyClick(menu(), Qt::Key_Return);
  EXPECT_EQ(selected, 0);
}

TEST_F(ChoiceBoxTest, TheMenuIsAGroupOfWhichOneIsChosen) {
  show({{"One", 1}, {"Two", 2}});
  box().showPopup();
  ASSERT_TRUE(menu());
  const QActionGroup* group = menu()->actions()[0]->actionGroup();
  ASSERT_TRUE(group) << "the marks are those of a choice, not of switches";
  EXPECT_TRUE(group->isExclusive());
  EXPECT_EQ(menu()->actions()[1]->actionGroup(), group);
  menu()->actions()[0]->trigger();
  EXPECT_EQ(selected, 1) << "the present choice stays";
}

TEST_F(ChoiceBoxTest, TheArrowsStartFromTheChoiceAlsoAfterThePointerHasLeftTheMenu) {
  show({{"One", 1}, {"Two", 2}, {"Three", 3}, {"Four", 4}});
  selected = 2;
  show({{"One", 1}, {"Two", 2}, {"Three", 3}, {"Four", 4}});
  box().showPopup();
  ASSERT_TRUE(menu());
  QTest::keyClick(menu(), Qt::Key_Escape);
  ASSERT_FALSE(menu());
  for (const auto& [key, expected] : {std::pair(Qt::Key_Down, 2), std::pair(Qt::Key_Up, 0)}) {
    box().showPopup();
    ASSERT_TRUE(menu());
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(menu(), &leave);
    QTest::keyClick(menu(), key);
    EXPECT_EQ(menu()->activeAction(), menu()->actions()[expected]);
    QTest::keyClick(menu(), Qt::Key_Escape);
  }
  box().showPopup();
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(menu(), &leave);
  QTest::keyClick(menu(), Qt::Key_Down);
  QTest::keyClick(menu(), Qt::Key_Return);
  EXPECT_EQ(selected, 3);
}

TEST_F(ChoiceBoxTest, AnOpenMenuFollowsTheView) {
  show({{"One", 1}, {"Two", 2}});
  box().showPopup();
  selected = 2;
  show({{"One", 1}, {"Two", 2}});
  ASSERT_TRUE(menu());
  EXPECT_FALSE(menu()->actions()[0]->isChecked());
  EXPECT_TRUE(menu()->actions()[1]->isChecked());
  show({{"One", 1}, {"Two", 2}, {"Three", 3}});
  EXPECT_FALSE(menu()) << "it showed other choices";
  box().showPopup();
  widget.setRoot(picker({{"One", 1}, {"Two", 2}, {"Three", 3}}).disabled(true));
  EXPECT_FALSE(menu()) << "nothing can be chosen any more";
}

TEST_F(ChoiceBoxTest, TakesTheFocusFromAClickAndFromThePageOnly) {
  show({{"One", 1}});
  EXPECT_EQ(box().focusPolicy(), Qt::ClickFocus);
}
