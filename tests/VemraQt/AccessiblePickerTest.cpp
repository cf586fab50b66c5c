// A picker and its choices for clients of the accessible tree.

#include "VemraQt/atspi/LaterQt.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/ShownPicker.hpp"

#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;

namespace {

class AccessiblePickerTest : public ShownPicker {};

}  // namespace

TEST_F(AccessiblePickerTest, ShowMenuOpensItForAClientNearAndFar) {
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

TEST_F(AccessiblePickerTest, ShowMenuOfADisabledPickerDoesNothing) {
  widget.setRoot(picker({{"One", 1}, {"Two", 2}}).disabled(true));
  element().actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
  EXPECT_FALSE(menu());
  EXPECT_TRUE(element().child(0)->state().disabled);
  auto* selection = dynamic_cast<qt::atspi::SelectionInterface*>(&element());
  EXPECT_FALSE(selection->select(element().child(1)));
  EXPECT_EQ(selected, 1);
}

TEST_F(AccessiblePickerTest, IsAComboBoxWithItsChoicesForAClient) {
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
  EXPECT_TRUE(selection->isSelected(picker.child(0)) && !selection->isSelected(&two));
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

TEST_F(AccessiblePickerTest, ItsChoiceIsReadOnlyTextForAClient) {
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
