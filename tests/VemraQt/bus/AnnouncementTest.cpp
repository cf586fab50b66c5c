// The events that a screen reader gets. Qt sends events only while a client may listen, so these
// tests run on a display with an accessibility bus.

#include "VemraPlatform/ui/View.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"

#include <algorithm>

#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class Announcements : public ::testing::Test {
 protected:
  /// Qt connects to the bus some turns of the event loop after it has started.
  void SetUp() override {
    ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }))
        << "there are no events without an accessibility bus";
  }
};

}  // namespace

TEST_F(Announcements, ReportChangedNamesValuesAndStates) {
  Listener listener;
  WindowHost host(resultWith(5));
  elementsBelow(accessiblePage(host));
  (void)listener.heard();
  host.press("vemra.goal.person.p1.outcome.start");
  EXPECT_THAT(listener.heard(),
              ElementsAre("destroyed ", "created Outcome", "created Note (optional)",
                          "created Save", "created Cancel", "focus Outcome"));
  auto& picker = host.get<QComboBox>("vemra.goal.person.p1.outcome.picker");
  for (int i = 0; i < 3; ++i) QTest::keyClick(&picker, Qt::Key_Down);
  EXPECT_THAT(listener.heard(),
              ElementsAre("value Outcome", "value Outcome", "value Outcome", "state Save"));
  auto& note = host.get<QLineEdit>("vemra.goal.person.p1.outcome.note");
  note.setFocus();
  QTest::keyClicks(&note, "a");
  EXPECT_THAT(listener.heard(),
              ElementsAre("focus Note (optional)", "typed in Note (optional)", "state Save"));
  host.change([](Result& result) { result.goal.title = "Another"; });
  EXPECT_THAT(listener.heard(), ElementsAre("name Another"));
}

TEST_F(Announcements, ReportAddedAndRemovedRowsButNotScrolledRows) {
  Listener listener;
  WindowHost host(resultWith(500));
  elementsBelow(accessiblePage(host));
  (void)listener.heard();
  host.widget.verticalScrollBar()->setValue(10'000);
  host.widget.verticalScrollBar()->setValue(0);
  EXPECT_THAT(listener.heard(), IsEmpty());
  host.erasePerson(2);
  EXPECT_THAT(listener.heard(), Contains("destroyed "));
  host.changePeople(
      [](People& people) { people.insert(people.begin() + 1, build::person("fresh", "Fresh")); });
  EXPECT_THAT(listener.heard(), Contains("created Fresh"));
}

TEST_F(Announcements, IgnoreWidgetsThatAreReused) {
  Listener listener;
  WindowHost host(resultWith(2000));
  host.press("vemra.goal.person.p0.outcome.start");
  elementsBelow(rowIn(accessiblePage(host), 0));
  (void)listener.heard();
  for (int i = 0; i < 40; ++i) host.widget.verticalScrollBar()->setValue(i * 1700);
  EXPECT_THAT(listener.heard(), IsEmpty());
}

TEST_F(Announcements, ReportAnElementAddedBeforeAllOthers) {
  Listener listener;
  qt::ViewWidget widget;
  const auto show = [&](bool hasFirst) {
    widget.setRoot(ui::Group({ui::If(hasFirst, [] { return ui::Text(ui::verbatim("first")); }),
                              ui::Text(ui::verbatim("second"))}));
  };
  widget.setEnvironment({});
  widget.resize(300, 400);
  widget.show();
  show(false);
  elementsBelow(*QAccessible::queryAccessibleInterface(&widget));
  (void)listener.heard();
  show(true);
  EXPECT_THAT(listener.heard(), ElementsAre("created first"));
}

TEST_F(Announcements, ReportTheRowsNewNameToo) {
  Listener listener;
  qt::ViewWidget widget;
  widget.setEnvironment({});
  widget.resize(300, 400);
  widget.show();
  widget.setRoot(ui::sample::list(ui::sample::numbered(3), [](const ui::sample::Line& line) {
    return ui::View(ui::sample::Counter{line.id});
  }));
  QAccessibleInterface& row = rowIn(*QAccessible::queryAccessibleInterface(&widget), 1);
  ASSERT_EQ(name(row), "row1=0");
  ASSERT_EQ(elementsBelow(row).size(), 2u);
  (void)listener.heard();
  press(*row.child(1));  // a state of the row: the list has the same rows as before
  const auto heard = listener.heard();
  EXPECT_EQ(std::ranges::count(heard, "name row1=1"), 2) << "the text, and the row that it names";
}

TEST_F(Announcements, ReportElementsOutsideRowsToo) {
  Listener listener;
  WindowHost host(resultWith(1));
  elementsBelow(accessiblePage(host));
  (void)listener.heard();
  host.press("vemra.goal.path.outcome.start");
  EXPECT_THAT(listener.heard(),
              ElementsAre("destroyed ", "created Outcome", "created Note (optional)",
                          "created Save", "created Cancel", "focus Outcome"));
}

TEST_F(Announcements, ReportAListThatIsEmptiedAndFilled) {
  Listener listener;
  WindowHost host(resultWith(2));
  elementsBelow(accessiblePage(host));
  (void)listener.heard();
  const auto people = host.result.people;
  host.change([](Result& result) { result.people = {}; });
  const auto emptied = listener.heard();
  EXPECT_EQ(std::ranges::count(emptied, "destroyed "), 1) << "the list with its rows";
  EXPECT_EQ(listIn(accessiblePage(host)), nullptr);
  host.change([&](Result& result) { result.people = people; });
  EXPECT_THAT(listener.heard(), Contains("created ")) << "a list has no name";
  EXPECT_EQ(listIn(accessiblePage(host))->childCount(), 2);
}

TEST_F(Announcements, ReportATextThatAClientSets) {
  Listener listener;
  WindowHost host(resultWith(2));
  host.press("vemra.goal.person.p1.outcome.start");
  QAccessibleInterface* note = accessible(host, "vemra.goal.person.p1.outcome.note");
  (void)listener.heard();
  note->editableTextInterface()->insertText(0, "hello");
  EXPECT_THAT(listener.heard(), Contains("typed in Note (optional)"));
  note->editableTextInterface()->replaceText(0, 5, "hello");
  EXPECT_THAT(listener.heard(), IsEmpty()) << "nothing has changed";
}

TEST_F(Announcements, ReportNewNamesNearAndFarAway) {
  Listener listener;
  WindowHost host(resultWith(300));
  QAccessibleInterface& page = accessiblePage(host);
  for (const int row : {1, 1 + 150, 1 + 250}) elementsBelow(rowIn(page, row));
  for (const int row : {1, 1 + 150})
    (void)name(rowIn(page, row));  // of the third only the button's
  (void)listener.heard();
  host.changePeople([](People& people) {
    for (const std::size_t person : {1, 151, 251}) people[person].displayName = "Ada";
  });
  std::vector<std::string> heard;
  ASSERT_TRUE(QTest::qWaitFor([&] {
    for (std::string& one : listener.heard()) heard.push_back(std::move(one));
    return heard.size() >= 5;
  }));
  QTest::qWait(20);
  for (std::string& one : listener.heard()) heard.push_back(std::move(one));
  EXPECT_THAT(heard, ElementsAre("name Ada", "name Ada", "name Ada", "name Ada", "name Ada"));
  host.change([](Result& result) { result.coverage.evidenceCount = 99; });
  QTest::qWait(20);
  EXPECT_THAT(listener.heard(), IsEmpty()) << "no client knows the footer, and Ada is unchanged";
  host.changePeople([](People& people) { people[151].displayName = "Bo"; });
  QTest::qWait(20);
  EXPECT_THAT(listener.heard(), ElementsAre("name Bo", "name Bo")) << "nothing in view has changed";
}

TEST_F(Announcements, ReportScrollingInAndOutOnlyToClientsThatReadTheState) {
  Listener listener;
  WindowHost host(resultWith(300));
  QAccessibleInterface& page = accessiblePage(host);
  elementsBelow(page);
  QAccessibleInterface& near = rowIn(page, 1);
  QAccessibleInterface& far = rowIn(page, 1 + 150);
  EXPECT_FALSE(near.state().offscreen);
  EXPECT_FALSE(near.child(0)->state().offscreen);
  EXPECT_TRUE(far.state().offscreen);
  EXPECT_TRUE(far.child(0)->state().offscreen);
  (void)listener.heard();
  host.widget.verticalScrollBar()->setValue(host.widget.verticalScrollBar()->maximum());
  EXPECT_THAT(listener.heard(),
              ElementsAre("hides " + name(near), "hides " + name(*near.child(0))));
  act(*far.child(0), QAccessibleActionInterface::setFocusAction());
  EXPECT_THAT(listener.heard(), ElementsAre("shows " + name(far), "shows " + name(*far.child(0)),
                                            "focus " + name(*far.child(0))));
  EXPECT_FALSE(far.state().offscreen);
}

TEST_F(Announcements, ReportANewDescriptionOnceAndOnlyToClientsThatReadIt) {
  Listener listener;
  WindowHost host(resultWith(3));
  const std::string identifier = "vemra.goal.person.p1.outcome.";
  host.press(identifier + "start");
  host.press(identifier + "save");
  QAccessibleInterface* correct = accessible(host, identifier + "correct");
  (void)name(*correct);
  (void)listener.heard();
  const auto rename = [&](const char* to) {
    host.changePeople([&](People& people) { people[1].displayName = to; });
    QTest::qWait(20);
    std::vector<std::string> heard = listener.heard();
    std::erase_if(heard, [](const std::string& one) { return !one.starts_with("describes"); });
    return heard;
  };
  EXPECT_THAT(rename("Ada"), IsEmpty()) << "no client has read the description";
  EXPECT_EQ(correct->text(QAccessible::Description), "Was useful, Ada");
  EXPECT_THAT(rename("Bo"), ElementsAre("describes Correct"));
  EXPECT_THAT(rename("Bo"), IsEmpty());
  EXPECT_EQ(correct->text(QAccessible::Description), "Was useful, Bo");
}

TEST_F(Announcements, ReportNoFocusOnThePageWhileAMenuOfAMenuBarIsOpen) {
  Listener listener;
  WindowHost host(resultWith(2));
  elementsBelow(accessiblePage(host));
  auto& button = host.get<QWidget>("vemra.goal.person.p1.outcome.start");
  const auto reportedWith = [&](QMenu* menu) {
    if (menu) menu->popup(QPoint());
    (void)listener.heard();
    QAccessibleEvent event(&button, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
    const std::vector<std::string> heard = listener.heard();
    if (menu) menu->close();
    return heard;
  };
  QMenuBar bar;
  QMenu* ofTheBar = bar.addMenu("Menu");
  ofTheBar->addAction("Entry");
  EXPECT_THAT(reportedWith(ofTheBar), IsEmpty());
  QMenu* more = ofTheBar->addMenu("More");
  more->addAction("Entry");
  EXPECT_THAT(reportedWith(more), IsEmpty());
  EXPECT_THAT(reportedWith(nullptr), ElementsAre("focus Record outcome"));
  QMenu another;  // as that of a picker, which closes when the picker is disabled
  another.addAction("Entry");
  EXPECT_THAT(reportedWith(&another), ElementsAre("focus Record outcome"));
}
