// The picker's widget: its choices, its menu, and the actions of clients.

#include "VemraQt/atspi/LaterQt.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <string>
#include <vector>

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The values of the choices.
struct Number {
  int value = 0;
  friend std::string caseName(const Number& number) { return std::to_string(number.value); }
};

class ChoiceBoxTest : public ::testing::Test {
 protected:
  ChoiceBoxTest() {
    widget.setEnvironment({});
    widget.resize(300, 400);
    pageOf(widget).onDeliver = [this](ui::NodeID, const ui::Event& event) {
      if (const auto* select = std::get_if<ui::Select>(&event))
        chosen.push_back(select->tag.name());
    };
    widget.show();
    widget.activateWindow();
    QApplication::setActiveWindow(&widget);
  }
  ~ChoiceBoxTest() override {
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  }

  using Choices = std::vector<std::pair<std::string, int>>;

  ui::View picker(const Choices& choices) {
    std::vector<ui::View> rows;
    for (const auto& [label, tag] : choices) {
      rows.push_back(ui::Text(ui::verbatim(label)).tag(Number{tag}));
    }
    return ui::Picker(
               "Title",
               ui::Binding<Number>([this] { return Number{selected}; },
                                   [this](const Number& number) { selected = number.value; }),
               ui::Children(std::move(rows)))
        .accessibilityIdentifier("picker");
  }
  void show(const Choices& choices) { widget.setRoot(picker(choices)); }

  qt::ChoiceBox& box() const { return *widget.viewport()->findChild<qt::ChoiceBox*>("picker"); }
  std::vector<std::string> items() const {
    std::vector<std::string> items;
    for (int i = 0; i < box().count(); ++i) items.push_back(box().itemText(i).toStdString());
    return items;
  }
  static QMenu* menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  QAccessibleInterface& element() const {
    return *QAccessible::accessibleInterface(identifiersOf(widget).find("picker").front());
  }

  int selected = 1;
  std::vector<std::string> chosen;
  qt::ViewWidget widget;
};

}  // namespace

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

TEST_F(ChoiceBoxTest, ShowMenuOpensItForAClientNearAndFar) {
  widget.setRoot(
      ui::VStack(ui::HorizontalAlignment::leading, 0,
                 {ui::sample::list(ui::sample::numbered(200)), picker({{"One", 1}, {"Two", 2}})}));
  ASSERT_FALSE(widget.viewport()->findChild<qt::ChoiceBox*>("picker"));
  ASSERT_TRUE(act(element(), QAccessibleActionInterface::showMenuAction()));
  ASSERT_TRUE(menu());
  EXPECT_EQ(menu()->actions().size(), 2);
  EXPECT_TRUE(box().hasFocus());
  EXPECT_FALSE(box().visibleRegion().isEmpty()) << "it is scrolled in";
  box().hidePopup();
  ASSERT_TRUE(act(element(), QAccessibleActionInterface::showMenuAction()));
  EXPECT_TRUE(menu());
}

TEST_F(ChoiceBoxTest, ShowMenuOfADisabledPickerDoesNothing) {
  widget.setRoot(picker({{"One", 1}, {"Two", 2}}).disabled(true));
  element().actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_FALSE(menu());
  EXPECT_TRUE(element().child(0)->state().disabled);
  auto* selection = dynamic_cast<qt::atspi::SelectionInterface*>(&element());
  EXPECT_FALSE(selection->select(element().child(1)));
  EXPECT_EQ(selected, 1);
}

TEST_F(ChoiceBoxTest, IsAComboBoxWithItsChoicesForAClient) {
  show({{"One", 1}, {"Two", 2}});
  QAccessibleInterface& picker = element();
  const QAccessible::State state = picker.state();
  EXPECT_TRUE(state.hasPopup && state.expandable && state.collapsed);
  EXPECT_EQ(picker.childCount(), 2);
  EXPECT_EQ(picker.child(-1), nullptr);
  EXPECT_EQ(picker.child(2), nullptr);
  QAccessibleInterface& two = *picker.child(1);
  EXPECT_EQ(picker.indexOfChild(&two), 1);
  EXPECT_EQ(picker.indexOfChild(&picker), -1);
  EXPECT_EQ(name(two), "Two");
  EXPECT_EQ(two.text(QAccessible::Value), "");
  EXPECT_EQ(identifier(two), "");
  EXPECT_EQ(two.parent(), &picker);
  EXPECT_EQ(two.rect(), picker.rect());
  EXPECT_TRUE(two.state().offscreen && two.state().selectable);
  EXPECT_FALSE(two.state().selected);
  EXPECT_THAT(two.actionInterface()->actionNames(),
              ElementsAre(QAccessibleActionInterface::pressAction()));
  two.actionInterface()->doAction("nothing");
  EXPECT_EQ(selected, 1);
  auto* selection = dynamic_cast<qt::atspi::SelectionInterface*>(&picker);
  EXPECT_EQ(selection->selectedItemCount(), 1);
  EXPECT_THAT(selection->selectedItems(), ElementsAre(picker.child(0)));
  EXPECT_FALSE(selection->select(&picker)) << "not one of its choices";
  EXPECT_TRUE(selection->select(&two));
  EXPECT_EQ(selected, 2);
  show({{"One", 1}, {"Two", 2}});
  EXPECT_TRUE(two.state().selected);
  EXPECT_FALSE(selection->unselect(&two) || selection->selectAll() || selection->clear())
      << "there is always one choice";
  EXPECT_EQ(selected, 2);
  EXPECT_THAT(picker.actionInterface()->actionNames(),
              ElementsAre(QAccessibleActionInterface::showMenuAction(),
                          QAccessibleActionInterface::setFocusAction()));
  show({{"One", 1}});
  EXPECT_EQ(name(two), "") << "a removed choice";
  EXPECT_TRUE(two.state().disabled);
  two.actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(selected, 2);
}

TEST_F(ChoiceBoxTest, ItsChoiceIsReadOnlyTextForAClient) {
  show({{"One two", 1}, {"Three", 2}});
  QAccessibleTextInterface& text = *element().textInterface();
  EXPECT_EQ(text.characterCount(), 7);
  EXPECT_EQ(text.text(0, 3), "One");
  EXPECT_EQ(text.text(4, -1), "two");
  EXPECT_EQ(text.text(-5, 100), "One two");
  EXPECT_EQ(text.text(5, 2), "") << "from behind its end";
  int start = 9, end = 9;
  EXPECT_EQ(text.attributes(2, &start, &end), "");
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 7);
  start = end = 9;
  text.selection(0, &start, &end);
  EXPECT_EQ(start, 0);
  EXPECT_EQ(end, 0);
  EXPECT_EQ(text.selectionCount(), 0);
  EXPECT_EQ(text.cursorPosition(), 0);
  const QRect whole = element().rect();
  EXPECT_EQ(text.characterRect(0).topLeft(), whole.topLeft());
  EXPECT_EQ(text.characterRect(0).size(), QSize(whole.width() / 7, whole.height()));
  EXPECT_EQ(text.characterRect(3).left(), whole.left() + whole.width() * 3 / 7);
  EXPECT_EQ(text.characterRect(-1), text.characterRect(0));
  EXPECT_EQ(text.characterRect(70), text.characterRect(7));
  EXPECT_EQ(text.offsetAtPoint(whole.topLeft()), 0);
  EXPECT_EQ(text.offsetAtPoint(whole.bottomRight()), 6);
  EXPECT_EQ(text.offsetAtPoint(text.characterRect(3).center()), 3);
  EXPECT_EQ(text.offsetAtPoint(whole.topLeft() - QPoint(1, 0)), -1);
  selected = 5;
  show({{"One two", 1}});
  EXPECT_EQ(text.characterCount(), 0);
  EXPECT_EQ(text.characterRect(0), whole) << "without characters, the extents of the whole text";
}
