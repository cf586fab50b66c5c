// One tree over the whole page: it contains every row and control, drawn or not, and all of them
// act.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;

namespace {

const std::string far = "vemra.goal.person.p4000";

/// The deletions that wait for the event loop's next turn.
void letGo() {
  QApplication::processEvents();
}

}  // namespace

TEST(AccessibleTree, HasEveryRowAndControlInTreeOrder) {
  WindowHost host(resultWith(300));
  std::vector<std::string> identifiers, expected;
  for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
    if (!identifier(*element).empty()) identifiers.push_back(identifier(*element));
  }
  for (int i = 0; i < 300; ++i) {
    const std::string prefix = "vemra.goal.person.p" + std::to_string(i);
    if (i % 2 == 0) expected.push_back(prefix + ".show-source");
    expected.push_back(prefix + ".outcome.start");
  }
  expected.emplace_back("vemra.goal.path.see-in-starfold");
  expected.emplace_back("vemra.goal.path.outcome.start");
  EXPECT_EQ(identifiers, expected);
}

namespace {

/// Checks the indexes and the parents of everything below; of a long list, of some rows.
void expectConsistent(QAccessibleInterface& holder) {
  for (int i = 0; i < holder.childCount(); i += i < 20 ? 1 : 37) {
    QAccessibleInterface* child = holder.child(i);
    ASSERT_TRUE(child);
    ASSERT_EQ(holder.indexOfChild(child), i) << name(*child);
    ASSERT_EQ(child->parent(), &holder) << name(*child);
    expectConsistent(*child);
  }
  EXPECT_EQ(holder.child(-1), nullptr);
  EXPECT_EQ(holder.child(holder.childCount()), nullptr);
}

}  // namespace

TEST(AccessibleTree, EveryIndexIsConsistent) {
  WindowHost host(resultWith(2000));
  host.press("vemra.goal.person.p2.outcome.start");
  expectConsistent(accessiblePage(host));
}

TEST(AccessibleTree, ARowIsAListItemNamedAfterItsFirstText) {
  WindowHost host(resultWith(100));
  QAccessibleInterface& page = accessiblePage(host);
  QAccessibleInterface& row = rowIn(page, 90);
  EXPECT_EQ(row.role(), QAccessible::ListItem);
  EXPECT_EQ(name(row), "Person Number 90");
  EXPECT_EQ(name(rowIn(page, 10)), "Unnamed person");
  std::vector<std::string> names;
  for (QAccessibleInterface* element : elementsBelow(row)) names.push_back(name(*element));
  EXPECT_THAT(names, ElementsAre("Person Number 90", "Email: Asked about design leads in March",
                                 "Show source", "Record outcome"));
}

TEST(AccessibleTree, ARowKnowsItsPlaceInTheWholeList) {
  WindowHost host(resultWith(3000));
  const auto& row = dynamic_cast<qt::AccessibleObject&>(rowIn(accessiblePage(host), 2000));
  const auto place = [&] {
    return row.objectAttributes()["posinset"].toStdString() + " of " +
           row.objectAttributes()["setsize"].toStdString();
  };
  EXPECT_EQ(place(), "2001 of 3000");
  host.erasePerson(10);
  EXPECT_EQ(place(), "2000 of 2999");
  host.change([](Result& result) { result.people = {}; });
  EXPECT_TRUE(row.objectAttributes().isEmpty()) << "the row is gone";
}

TEST(AccessibleTree, ASectionIsAGroupWithTheNameOfItsHeading) {
  WindowHost host(resultWith(3));
  QAccessibleInterface& page = accessiblePage(host);
  ASSERT_EQ(page.childCount(), 4);
  EXPECT_EQ(page.child(0)->role(), QAccessible::Heading);
  EXPECT_EQ(dynamic_cast<qt::AccessibleObject&>(*page.child(0)).objectAttributes()["level"], "1");
  for (const int place : {1, 2}) {
    QAccessibleInterface& section = *page.child(place);
    EXPECT_EQ(section.role(), QAccessible::Grouping);
    EXPECT_EQ(name(section), place == 1 ? "People worth considering" : "Supported path");
    EXPECT_EQ(section.child(0)->role(), QAccessible::Heading);
    EXPECT_EQ(name(*section.child(0)), name(section));
    EXPECT_EQ(dynamic_cast<qt::AccessibleObject&>(*section.child(0)).objectAttributes()["level"],
              "2");
    for (int i = 0; i < section.childCount(); ++i) {
      EXPECT_TRUE(section.rect().contains(section.child(i)->rect())) << i;
    }
  }
  EXPECT_EQ(page.child(1)->child(1)->role(), QAccessible::List);
  EXPECT_EQ(accessible(host, "vemra.goal.path.outcome.start")->parent(), page.child(2));
  EXPECT_EQ(page.child(3)->role(), QAccessible::StaticText) << "the footer is in no section";
}

TEST(AccessibleTree, AStackIsASectionOnlyWithContentBehindItsHeadline) {
  const auto text = [](const char* words) { return ui::Text(ui::verbatim(words)); };
  const auto stack = [](ui::Children children) {
    return ui::VStack(ui::HorizontalAlignment::leading, 0, std::move(children));
  };
  qt::ViewWidget widget;
  widget.resize(300, 300);
  widget.setEnvironment({});
  widget.setRoot(
      stack({stack({text("alone").font(ui::Font::headline)}), stack({text("plain"), text("below")}),
             stack({stack({text("outer").font(ui::Font::headline),
                           stack({text("inner").font(ui::Font::headline), text("x")})}),
                    text("behind")})}));
  widget.show();
  std::vector<std::string> groups;
  for (QAccessibleInterface* below :
       elementsBelow(*QAccessible::queryAccessibleInterface(&widget))) {
    if (below->role() != QAccessible::Grouping) continue;
    groups.push_back(
        name(*below) + " in " +
        (below->parent()->role() == QAccessible::Grouping ? name(*below->parent()) : "the page"));
  }
  EXPECT_THAT(groups, ElementsAre("outer in the page", "inner in outer"));
}

TEST(AccessibleTree, AButtonIsDescribedByTheTextsBesideItAndItsRowOrSection) {
  WindowHost host(resultWith(4));
  host.change([](Result& result) { result.outcomes = {correctedOutcome("p2", "by phone")}; });
  const auto described = [&](const std::string& element) {
    return accessible(host, element)->text(QAccessible::Description).toStdString();
  };
  EXPECT_EQ(described("vemra.goal.person.p2.outcome.correct"),
            "Reached out \u00b7 corrected, Person Number 2");
  EXPECT_EQ(described("vemra.goal.person.p2.show-source"), "") << "it stands alone in its line";
  EXPECT_EQ(described("vemra.goal.path.see-in-starfold"), "");
  host.press("vemra.goal.path.outcome.start");
  EXPECT_EQ(described("vemra.goal.path.outcome.save"), "") << "no text is beside it";
}

TEST(AccessibleTree, TheDescriptionInASectionEndsWithTheSectionsName) {
  qt::ViewWidget widget;
  widget.resize(300, 300);
  widget.setEnvironment({});
  const auto text = [](const char* words) { return ui::Text(ui::verbatim(words)); };
  widget.setRoot(ui::VStack(
      ui::HorizontalAlignment::leading, 0,
      {text("Supported path").font(ui::Font::headline),
       ui::HStack(ui::VerticalAlignment::center, 0,
                  {text("Helped"), ui::Group({text(" ")}), ui::Button("Correct", [] {})})}));
  widget.show();
  for (QAccessibleInterface* below :
       elementsBelow(*QAccessible::queryAccessibleInterface(&widget))) {
    if (below->role() != QAccessible::Button) continue;
    EXPECT_EQ(below->text(QAccessible::Description).toStdString(), "Helped, Supported path");
  }
}

TEST(AccessibleTree, ALabelsCharactersHaveTheExtentsOfTheirDrawing) {
  WindowHost host(resultWith(3));
  QAccessibleInterface& title = *accessiblePage(host).child(0);
  QAccessibleTextInterface* text = title.textInterface();
  ASSERT_TRUE(text);
  EXPECT_EQ(text->text(0, 4), "Find");
  const QRect first = text->characterRect(0), second = text->characterRect(1);
  EXPECT_EQ(first.left(), title.rect().left());
  EXPECT_GT(first.width(), second.width()) << "an F is wider than an i";
  EXPECT_EQ(text->offsetAtPoint(second.center()), 1);
}

TEST(AccessibleTree, ANotesCharactersHaveTheExtentsOfTheirDrawing) {
  WindowHost host(resultWith(3));
  host.press("vemra.goal.person.p1.outcome.start");
  const std::string identifier = "vemra.goal.person.p1.outcome.note";
  QAccessibleInterface& note = *accessible(host, identifier);
  note.editableTextInterface()->insertText(0, "iiiiWWWW");
  QAccessibleTextInterface* text = note.textInterface();
  const QRect narrow = text->characterRect(1), wide = text->characterRect(6);
  EXPECT_GT(wide.width(), 2 * narrow.width());
  EXPECT_TRUE(note.rect().contains(narrow) && note.rect().contains(wide));
  EXPECT_LT(text->characterRect(7).right(), note.rect().center().x())
      << "a short text is at the beginning of the field";
  EXPECT_EQ(text->offsetAtPoint(wide.center()), 6);
}

TEST(AccessibleTree, RolesStatesAndValuesOfAnOpenEditor) {
  WindowHost host(resultWith(3));
  host.press("vemra.goal.person.p1.outcome.start");
  const std::string prefix = "vemra.goal.person.p1.outcome";
  QAccessibleInterface& picker = *accessible(host, prefix + ".picker");
  EXPECT_EQ(picker.role(), QAccessible::ComboBox);
  EXPECT_EQ(name(picker), "Outcome");
  EXPECT_EQ(picker.text(QAccessible::Value), "Was useful");
  EXPECT_EQ(picker.textInterface()->text(0, 100), "Was useful");
  EXPECT_EQ(picker.editableTextInterface(), nullptr);
  EXPECT_TRUE(picker.state().focused);
  ASSERT_EQ(picker.childCount(), 8);
  EXPECT_EQ(picker.child(0)->role(), QAccessible::ListItem);
  EXPECT_EQ(name(*picker.child(7)), "Something else");
  EXPECT_TRUE(picker.child(4)->state().selected);
  EXPECT_TRUE(press(*picker.child(7)));
  EXPECT_EQ(picker.text(QAccessible::Value), "Something else");
  EXPECT_EQ(host.get<QComboBox>(prefix + ".picker").currentText(), "Something else");
  EXPECT_TRUE(accessible(host, prefix + ".save")->state().disabled);
  QAccessibleInterface& note = *accessible(host, prefix + ".note");
  EXPECT_EQ(note.role(), QAccessible::EditableText);
  EXPECT_EQ(name(note), "Note (optional)");
  EXPECT_TRUE(note.state().editable);
  EXPECT_FALSE(note.state().multiLine);
  note.editableTextInterface()->insertText(0, "helo");
  note.editableTextInterface()->insertText(2, "l");
  note.editableTextInterface()->replaceText(0, 1, "H");
  EXPECT_EQ(note.textInterface()->text(0, -1), "Hello");
  EXPECT_EQ(note.textInterface()->characterCount(), 5);
  EXPECT_EQ(host.get<QLineEdit>(prefix + ".note").text(), "Hello");
  EXPECT_FALSE(accessible(host, prefix + ".save")->state().disabled);
  EXPECT_TRUE(press(*accessible(host, prefix + ".save")));
  EXPECT_THAT(host.log, ElementsAre("record p1 somethingElse Hello nil"));
}

TEST(AccessibleTree, AnElementThatIsNotDrawnLacksOnlyShowingAndActs) {
  WindowHost host(resultWith(5000));
  QAccessibleInterface& source = *accessible(host, far + ".show-source");
  EXPECT_EQ(host.find(far + ".show-source"), nullptr) << "it has no widget";
  EXPECT_TRUE(source.state().offscreen);
  EXPECT_FALSE(source.state().invisible);
  EXPECT_TRUE(source.state().focusable);
  EXPECT_FALSE(source.rect().isEmpty());
  EXPECT_GT(source.rect().y(), 200'000);
  EXPECT_TRUE(press(source));
  EXPECT_THAT(host.log, ElementsAre("evidence ev4000"));
  EXPECT_EQ(host.widget.verticalScrollBar()->value(), 0) << "pressing alone scrolls nowhere";
}

TEST(AccessibleTree, EveryRowContainsItsElementsInEitherDirection) {
  const std::vector<std::string> names{"Ada", "Bo", "Cleo"};
  const auto itself = [](const std::string& name) { return std::string_view(name); };
  const auto text = [](const std::string& name) { return ui::Text(ui::verbatim(name)); };
  for (const auto direction :
       {ui::LayoutDirection::leftToRight, ui::LayoutDirection::rightToLeft}) {
    qt::ViewWidget widget;
    widget.resize(400, 300);
    ui::Environment environment;
    environment.layoutDirection = direction;
    widget.setEnvironment(environment);
    // Beside a text, the rows are not in the middle of the page.
    const ui::View rows = ui::VStack(ui::HorizontalAlignment::leading, 4,
                                     {ui::ForEach(std::span(names), itself, text)});
    widget.setRoot(ui::HStack(ui::VerticalAlignment::top, 8, {text("beside"), rows}));
    widget.show();
    QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&widget);
    ASSERT_EQ(page.childCount(), 2);
    QAccessibleInterface& list = *page.child(1);
    ASSERT_EQ(list.childCount(), 3);
    for (int i = 0; i < 3; ++i) {
      QAccessibleInterface& row = *list.child(i);
      EXPECT_TRUE(row.rect().contains(row.child(0)->rect())) << name(row);
      EXPECT_FALSE(row.state().offscreen);
      const QPoint middle = row.child(0)->rect().center();
      EXPECT_EQ(page.childAt(middle.x(), middle.y()), &list);
      EXPECT_EQ(list.childAt(middle.x(), middle.y()), &row) << name(row);
    }
  }
}

TEST(AccessibleTree, AnEditorOpenedFarAwayIsScrolledInWithTheFocus) {
  WindowHost host(resultWith(5000));
  EXPECT_TRUE(press(*accessible(host, far + ".outcome.start")));
  auto& picker = host.get<QComboBox>(far + ".outcome.picker");
  EXPECT_TRUE(picker.hasFocus());
  EXPECT_FALSE(picker.visibleRegion().isEmpty());
  letGo();
  EXPECT_FALSE(accessible(host, far + ".outcome.picker")->state().offscreen);
}

TEST(AccessibleTree, FocusingScrollsIn) {
  WindowHost host(resultWith(5000));
  QAccessibleInterface& start = *accessible(host, far + ".outcome.start");
  EXPECT_TRUE(act(start, QAccessibleActionInterface::setFocusAction()));
  EXPECT_TRUE(start.state().focused);
  EXPECT_FALSE(start.state().offscreen);
  EXPECT_EQ(host.widget.focusWidget()->objectName().toStdString(), far + ".outcome.start");
  host.widget.verticalScrollBar()->setValue(0);
  EXPECT_TRUE(start.state().offscreen);
  EXPECT_TRUE(start.state().focused);
}

TEST(AccessibleTree, AnObjectFollowsItsRow) {
  WindowHost host(resultWith(3000));
  QAccessibleInterface& page = accessiblePage(host);
  QAccessibleInterface& list = *listIn(page);
  QAccessibleInterface* row = list.child(2000);
  QAccessibleInterface* start = accessible(host, "vemra.goal.person.p2000.outcome.start");
  const QAccessible::Id id = QAccessible::uniqueId(start);
  host.erasePerson(10);
  host.erasePerson(2500);
  EXPECT_EQ(name(*row), "Person Number 2000");
  EXPECT_EQ(list.indexOfChild(row), 1999);
  EXPECT_EQ(list.child(1999), row);
  host.widget.verticalScrollBar()->setValue(host.widget.verticalScrollBar()->maximum() * 2 / 3);
  letGo();
  EXPECT_EQ(QAccessible::accessibleInterface(id), start);
  EXPECT_EQ(identifier(*start), "vemra.goal.person.p2000.outcome.start");
  EXPECT_EQ(row->indexOfChild(start), 3);
}

TEST(AccessibleTree, ObjectsOfARemovedRowAnswerEmptyAndAreDeleted) {
  WindowHost host(resultWith(3000));
  for (const int index : {1, 2000}) {
    const std::string ref = host.result.people[static_cast<std::size_t>(index)].personRef;
    QAccessibleInterface& list = *listIn(accessiblePage(host));
    QAccessibleInterface* row = list.child(index);
    QAccessibleInterface* start = accessible(host, "vemra.goal.person." + ref + ".outcome.start");
    const QAccessible::Id rowID = QAccessible::uniqueId(row);
    const QAccessible::Id startID = QAccessible::uniqueId(start);
    host.erasePerson(static_cast<std::size_t>(index));
    EXPECT_EQ(name(*start), "");
    EXPECT_TRUE(start->state().invalid);
    EXPECT_EQ(list.indexOfChild(row), -1);
    EXPECT_FALSE(press(*start));
    letGo();
    EXPECT_EQ(QAccessible::accessibleInterface(rowID), nullptr);
    EXPECT_EQ(QAccessible::accessibleInterface(startID), nullptr);
  }
}

TEST(AccessibleTree, EveryObjectIsDeletedWithTheWindow) {
  std::vector<QAccessible::Id> ids;
  {
    WindowHost host(resultWith(50));
    host.press("vemra.goal.person.p3.outcome.start");
    for (QAccessibleInterface* element : elementsBelow(accessiblePage(host))) {
      ids.push_back(QAccessible::uniqueId(element));
    }
    EXPECT_GT(ids.size(), 200u);
  }
  for (const QAccessible::Id id : ids) EXPECT_EQ(QAccessible::accessibleInterface(id), nullptr);
}
