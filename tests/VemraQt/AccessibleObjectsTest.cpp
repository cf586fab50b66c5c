// The answers of an object while its element is drawn, while it is not drawn, and after it has been
// removed.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <memory>
#include <string>

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QScrollBar>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const QString pressAction = QAccessibleActionInterface::pressAction();
const QString setFocusAction = QAccessibleActionInterface::setFocusAction();
const QString showMenuAction = QAccessibleActionInterface::showMenuAction();

/// The value of a choice.
struct Letter {
  std::string value;
  friend const std::string& caseName(const Letter& letter) { return letter.value; }
};

class AccessibleObjectsTest : public ShownWidget {
 protected:
  AccessibleObjectsTest() { widget.setObjectName("the.page"); }

  /// A text, a button, a picker and a field, whose actions change values that the test reads.
  ui::View controls(const std::string& prefix = "") {
    return ui::VStack(
        ui::HorizontalAlignment::leading, 4,
        {ui::Text(ui::verbatim(prefix + "text")).accessibilityIdentifier(prefix + "text"),
         ui::Button(ui::verbatim(prefix + "button"), [this] { done += "press "; })
             .accessibilityIdentifier(prefix + "button"),
         ui::Picker("Picker",
                    ui::Binding<Letter>([] { return Letter{"a"}; },
                                        [this](const Letter&) { done += "choose "; }),
                    {ui::Text("A").tag(Letter{"a"}), ui::Text("B").tag(Letter{"b"})})
             .accessibilityIdentifier(prefix + "picker"),
         ui::TextField("Field",
                       ui::Binding<std::string>([] { return std::string("note"); },
                                                [this](const std::string&) { done += "write "; }))
             .accessibilityIdentifier(prefix + "field")});
  }

  QAccessibleInterface& page() { return *QAccessible::queryAccessibleInterface(&widget); }
  qt::IdentifierSearch& identifiers() { return identifiersOf(widget); }
  QAccessibleInterface* find(const std::string& identifier) {
    const auto found = identifiers().find(QString::fromStdString(identifier));
    return found.isEmpty() ? nullptr : QAccessible::accessibleInterface(found.front());
  }

  std::string done;
};

}  // namespace

TEST_F(AccessibleObjectsTest, ThePageItselfHasTheIdentifierOfItsWidget) {
  widget.setRoot(ui::Text("text"));
  const QAccessible::Id id = QAccessible::uniqueId(&page());
  EXPECT_EQ(identifiers().identifier(id), "the.page");
  widget.setObjectName("");
  EXPECT_EQ(identifiers().identifier(id), "");
  EXPECT_FALSE(identifiers().identifier(id).isNull())
      << "the object is known, and has no identifier";
  EXPECT_EQ(identifiers().identifier(QAccessible::uniqueId(page().child(0))), "");
  EXPECT_FALSE(identifiers().identifier(QAccessible::uniqueId(page().child(0))).isNull());
  qt::ViewWidget other;
  other.setRoot(ui::Text("text"));
  QAccessibleInterface* elsewhere = QAccessible::queryAccessibleInterface(&other);
  EXPECT_TRUE(identifiers().identifier(QAccessible::uniqueId(elsewhere)).isNull());
  EXPECT_TRUE(identifiers().identifier(QAccessible::uniqueId(elsewhere->child(0))).isNull());
  EXPECT_TRUE(identifiers().identifier(0).isNull());
}

TEST_F(AccessibleObjectsTest, ThePageIsAWindowOnlyWhenItIsOne) {
  EXPECT_EQ(page().role(), QAccessible::Window);
  QMainWindow window;
  auto* inside = new qt::ViewWidget;
  window.setCentralWidget(inside);
  const QAccessibleInterface* pane = QAccessible::queryAccessibleInterface(inside);
  EXPECT_EQ(pane->role(), QAccessible::Client) << "nothing to read";
  inside->setAccessibleName("Contacts");
  EXPECT_EQ(pane->role(), QAccessible::Form);
}

TEST_F(AccessibleObjectsTest, ThePageIsNamedByItsFirstTitleUnlessTheHostNamesIt) {
  widget.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 4,
                            {ui::Text("quiet"), ui::Text("Contacts").font(ui::Font::title2),
                             ui::Text("Friends").font(ui::Font::headline)}));
  EXPECT_EQ(name(page()), "Contacts");
  widget.setAccessibleName("People");
  EXPECT_EQ(name(page()), "People");
}

TEST_F(AccessibleObjectsTest, AChoiceHasTheNameOfItsMenuItem) {
  const auto row = ui::HStack(ui::VerticalAlignment::center, 4, {ui::Text("B"), ui::Text("b")});
  widget.setRoot(ui::Picker("Picker",
                            ui::Binding<Letter>([] { return Letter{"b"}; }, [](const Letter&) {}),
                            {ui::Text("A").tag(Letter{"a"}), row.tag(Letter{"b"})})
                     .accessibilityIdentifier("picker"));
  EXPECT_EQ(name(*find("picker")->child(1)), "B");
  EXPECT_EQ(find("picker")->text(QAccessible::Value), "B");
}

TEST_F(AccessibleObjectsTest, ThePageOfADestroyedWidgetIsEmpty) {
  auto going = std::make_unique<qt::ViewWidget>();
  going->setRoot(controls());
  going->show();
  activate(*going);
  going->setFocus();
  const QAccessible::Id id =
      QAccessible::uniqueId(QAccessible::queryAccessibleInterface(going.get()));
  ASSERT_EQ(QAccessible::accessibleInterface(id)->childCount(), 4);
  bool isAsked = false;
  const auto asking = QObject::connect(qApp, &QApplication::focusChanged, [&] {
    QAccessibleInterface* page = QAccessible::accessibleInterface(id);
    if (!page) return;
    isAsked = true;
    EXPECT_EQ(page->childCount(), 0);
    EXPECT_EQ(page->child(0), nullptr);
    EXPECT_EQ(page->indexOfChild(page), -1);
    EXPECT_EQ(page->focusChild(), nullptr);
    EXPECT_EQ(page->childAt(0, 0), nullptr);
  });
  going.reset();
  QObject::disconnect(asking);
  EXPECT_TRUE(isAsked);
}

TEST_F(AccessibleObjectsTest, AnActionOnARemovedElementDoesNothing) {
  widget.setRoot(controls());
  QAccessibleInterface& button = *find("button");
  QAccessibleInterface& picker = *find("picker");
  QAccessibleInterface& field = *find("field");
  QAccessibleInterface& choice = *picker.child(1);
  QAccessibleActionInterface* const actions[] = {button.actionInterface(), picker.actionInterface(),
                                                 field.actionInterface(), choice.actionInterface()};
  QAccessibleEditableTextInterface* const editable = field.editableTextInterface();
  auto* selection = dynamic_cast<qt::atspi::SelectionInterface*>(&picker);
  for (auto* action : actions) ASSERT_TRUE(action);
  widget.setRoot(ui::Button("other", [this] { done += "other "; }));
  for (auto* action : actions) {
    for (const QString& name : {pressAction, setFocusAction, showMenuAction})
      action->doAction(name);
  }
  editable->insertText(0, "x");
  EXPECT_EQ(selection->selectedItemCount(), 0);
  EXPECT_FALSE(selection->select(&choice));
  EXPECT_EQ(done, "");
  EXPECT_FALSE(QApplication::activePopupWidget());
  for (QAccessibleInterface* gone : {&button, &picker, &field}) {
    const QAccessible::State state = gone->state();
    EXPECT_TRUE(state.invalid && state.disabled && state.invisible);
    EXPECT_FALSE(state.focusable || state.focused);
    EXPECT_EQ(name(*gone), "");
    EXPECT_EQ(identifier(*gone), "");
    EXPECT_TRUE(gone->rect().isNull());
    EXPECT_EQ(gone->childCount(), 0);
    EXPECT_FALSE(qt::AccessibleObject::living(QAccessible::uniqueId(gone)));
  }
}

TEST_F(AccessibleObjectsTest, EveryElementHasTheActionsOfItsKind) {
  widget.setRoot(controls());
  EXPECT_FALSE(find("text")->actionInterface());
  EXPECT_THAT(find("button")->actionInterface()->actionNames(),
              ElementsAre(pressAction, setFocusAction));
  EXPECT_THAT(find("picker")->actionInterface()->actionNames(),
              ElementsAre(showMenuAction, setFocusAction));
  EXPECT_THAT(find("field")->actionInterface()->actionNames(), ElementsAre(setFocusAction));
  EXPECT_THAT(find("button")->actionInterface()->keyBindingsForAction(pressAction), IsEmpty());
  find("button")->actionInterface()->doAction(showMenuAction);
  find("picker")->actionInterface()->doAction(pressAction);
  find("field")->actionInterface()->doAction(pressAction);
  EXPECT_EQ(done, "");
  find("button")->actionInterface()->doAction(pressAction);
  EXPECT_EQ(done, "press ");
  find("field")->actionInterface()->doAction(setFocusAction);
  EXPECT_TRUE(find("field")->state().focused);
  EXPECT_FALSE(find("button")->state().focused);
  EXPECT_EQ(page().focusChild(), find("field"));
}

TEST_F(AccessibleObjectsTest, StatesFollowTheWindowAndTheElement) {
  widget.setRoot(ui::Group({controls(), controls("off ").disabled(true)}));
  EXPECT_TRUE(find("button")->state().focusable);
  EXPECT_FALSE(find("button")->state().disabled || find("button")->state().offscreen);
  EXPECT_FALSE(find("text")->state().focusable);
  EXPECT_TRUE(find("off button")->state().disabled);
  EXPECT_FALSE(find("off button")->state().focusable);
  find("off button")->actionInterface()->doAction(pressAction);
  EXPECT_EQ(done, "");
  QAccessibleInterface* const button = find("button");
  EXPECT_FALSE(button->state().invisible);
  widget.hide();
  EXPECT_TRUE(button->state().invisible);
  EXPECT_EQ(find("button"), nullptr) << "a hidden page is not searched";
}

TEST_F(AccessibleObjectsTest, IsFoundWhereItIsDrawn) {
  widget.setRoot(ui::Group({controls(), ui::sample::list(ui::sample::numbered(3))}));
  for (const char* drawn : {"text", "button", "picker", "field"}) {
    const QPoint middle = find(drawn)->rect().center();
    EXPECT_EQ(page().childAt(middle.x(), middle.y()), find(drawn)) << drawn;
  }
  EXPECT_EQ(page().child(4)->role(), QAccessible::List);
  QAccessibleInterface& row = rowIn(page(), 1);
  EXPECT_EQ(name(row), "row1");
  const QPoint inRow = row.child(0)->rect().center();
  EXPECT_EQ(page().childAt(inRow.x(), inRow.y()), page().child(4));
  EXPECT_EQ(page().child(4)->childAt(inRow.x(), inRow.y()), &row);
  EXPECT_EQ(row.childAt(inRow.x(), inRow.y()), row.child(0));
  EXPECT_EQ(row.childAt(inRow.x(), row.rect().bottom() + 50), nullptr);
  EXPECT_EQ(page().childAt(page().rect().right() - 1, page().rect().bottom() - 1), nullptr);
  EXPECT_EQ(page().childAt(page().rect().right() + 9, inRow.y()), nullptr);
}

TEST_F(AccessibleObjectsTest, ARowThatIsNotDrawnDividesItsExtentsAmongItsElements) {
  widget.setRoot(ui::sample::list(ui::sample::numbered(300), [](const ui::sample::Line& line) {
    return ui::View(ui::sample::Counter{line.id});
  }));
  QAccessibleInterface& row = rowIn(page(), 250);
  ASSERT_EQ(row.childCount(), 2);
  const QRect whole = row.rect();
  EXPECT_GT(whole.top(), widget.mapToGlobal(QPoint(0, 400)).y());
  EXPECT_EQ(row.child(0)->rect(), QRect(whole.topLeft(), QSize(whole.width(), whole.height() / 2)));
  EXPECT_EQ(row.child(1)->rect().top(), whole.top() + whole.height() / 2);
  EXPECT_TRUE(row.state().offscreen);
  EXPECT_TRUE(row.child(0)->state().offscreen);
  EXPECT_EQ(row.child(-1), nullptr);
  EXPECT_EQ(row.child(2), nullptr);
  EXPECT_EQ(row.indexOfChild(row.child(1)), 1);
  EXPECT_EQ(row.indexOfChild(&page()), -1);
  EXPECT_EQ(row.parent(), page().child(0));
  EXPECT_EQ(page().child(0)->indexOfChild(&row), 250);
  EXPECT_EQ(page().child(0)->child(300), nullptr);
  dynamic_cast<qt::AccessibleObject&>(row).scrollIn();
  EXPECT_FALSE(row.state().offscreen);
  EXPECT_FALSE(row.child(0)->state().offscreen);
}

TEST_F(AccessibleObjectsTest, ARowThatIsNotDrawnGivesEachOfItsElementsAtLeastALine) {
  widget.setRoot(ui::sample::list(ui::sample::numbered(300), [](const ui::sample::Line& line) {
    const std::size_t count = line.id == "row250" ? 200 : 1;
    return ui::Group(ui::Children(count, ui::Text(ui::verbatim(line.id))));
  }));
  QAccessibleInterface& row = rowIn(page(), 250);
  ASSERT_EQ(row.childCount(), 200);
  ASSERT_LT(row.rect().height(), 200) << "estimated by the rows that are drawn";
  EXPECT_EQ(row.child(0)->rect().height(), 1);
  EXPECT_EQ(row.child(1)->rect().top(), row.rect().top() + 1);
}

TEST_F(AccessibleObjectsTest, ARowIsNotNamedAfterAChoiceOrATypedText) {
  widget.setRoot(ui::sample::list({{"a"}}, [this](const ui::sample::Line&) -> ui::View {
    return ui::VStack(
        ui::HorizontalAlignment::leading, 0,
        {ui::TextField("Field", ui::Binding<std::string>([] { return std::string("note"); },
                                                         [](const std::string&) {})),
         controls()});
  }));
  EXPECT_EQ(name(*rowIn(page(), 0).child(0)), "Field");
  EXPECT_EQ(name(rowIn(page(), 0)), "text");
}

TEST_F(AccessibleObjectsTest, ARowIsNamedAfterItsFirstTextThatIsNotBlank) {
  const auto rows = [](const std::string& first, const std::string& second) {
    return ui::sample::list({{"a"}}, [first, second](const ui::sample::Line&) -> ui::View {
      return ui::VStack(ui::HorizontalAlignment::leading, 0,
                        {ui::Text(ui::verbatim(first)), ui::Text(ui::verbatim(second))})
          .accessibilityIdentifier("row");
    });
  };
  widget.setRoot(rows(" ", "second"));
  EXPECT_EQ(name(rowIn(page(), 0)), "second");
  EXPECT_EQ(rowIn(page(), 0).text(QAccessible::Value), "");
  EXPECT_EQ(identifier(rowIn(page(), 0)), "row");
  widget.setRoot(rows("first", "second"));
  EXPECT_EQ(name(rowIn(page(), 0)), "first");
  widget.setRoot(rows("", " "));
  EXPECT_EQ(name(rowIn(page(), 0)), "");
}

TEST_F(AccessibleObjectsTest, FindsAllElementsOfAnIdentifierAndNothingForAnEmptyIdentifier) {
  widget.setRoot(ui::Group({controls(), controls()}));
  EXPECT_EQ(identifiers().find("button").size(), 2);
  EXPECT_THAT(identifiers().find(""), IsEmpty());
  EXPECT_THAT(identifiers().find("butto"), IsEmpty());
}
