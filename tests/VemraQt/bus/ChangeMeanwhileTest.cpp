// A client or an observer may change anything while it is being notified.

#include "VemraPlatform/ui/View.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <QApplication>
#include <QScrollBar>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// While it lives, calls a function with each event of a page's own objects.
class Observer {
 public:
  explicit Observer(std::function<void(QAccessibleEvent&)> notice) {
    notice_ = std::move(notice);
    before_ = QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
      if (isOfAnElement(*event)) {
        notice_(*event);
      } else if (before_) {
        before_(event);
      }
    });
  }
  ~Observer() { QAccessible::installUpdateHandler(before_); }
  Observer(const Observer&) = delete;
  Observer& operator=(const Observer&) = delete;

 private:
  inline static std::function<void(QAccessibleEvent&)> notice_;
  inline static QAccessible::UpdateHandler before_ = nullptr;
};

class ChangeMeanwhile : public ::testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(QTest::qWaitFor([] { return QAccessible::isActive(); }))
        << "Qt notifies nothing without an accessibility bus";
    widget->setEnvironment({});
    widget->resize(300, 400);
    widget->show();
  }

  static ui::View rows(std::size_t count) { return ui::sample::list(ui::sample::numbered(count)); }
  static ui::View texts(const std::string& text, bool hasSecond) {
    return ui::Group({ui::Text(ui::verbatim(text)).id("a"),
                      ui::If(hasSecond, [&] { return ui::Text(ui::verbatim(text)).id("b"); })});
  }
  QAccessibleInterface& page() const {
    return *QAccessible::queryAccessibleInterface(widget.get());
  }
  /// The object that holds the rows of a list, or else the elements.
  QAccessibleInterface& holder() const {
    QAccessibleInterface* list = listIn(page());
    return list ? *list : page();
  }
  std::vector<std::string> names() const {
    std::vector<std::string> names;
    QAccessibleInterface& all = holder();
    for (int i = 0; i < all.childCount(); ++i) names.push_back(name(*all.child(i)));
    return names;
  }
  /// Reads the state of every object, like a client that wants to be notified of scrolling.
  void askForStates() const {
    for (QAccessibleInterface* element : elementsBelow(page())) (void)element->state();
  }
  static std::string nameOf(const QAccessibleEvent& event) {
    const QAccessibleInterface* about = event.accessibleInterface();
    return about ? name(*about) : "nothing";
  }
  QScrollBar& bar() const { return *widget->verticalScrollBar(); }

  std::unique_ptr<qt::ViewWidget> widget = std::make_unique<qt::ViewWidget>();
};

}  // namespace

TEST_F(ChangeMeanwhile, QuestionsDuringANotificationGetTheNewPage) {
  widget->setRoot(rows(3));
  ASSERT_EQ(names().size(), 3U);
  std::vector<std::vector<std::string>> answers;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() != QAccessible::ObjectCreated) return;
    askForStates();
    answers.push_back(names());
  });
  widget->setRoot(rows(5));
  const std::vector<std::string> all = {"row0", "row1", "row2", "row3", "row4"};
  EXPECT_THAT(answers, ElementsAre(all, all));
}

TEST_F(ChangeMeanwhile, ARootSetDuringANotificationIsShownAfterThePreviousOneIsAnnounced) {
  widget->setRoot(rows(3));
  ASSERT_EQ(names().size(), 3U);
  std::vector<std::string> heard;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() == QAccessible::ObjectDestroyed) heard.push_back("destroyed");
    if (event.type() != QAccessible::ObjectCreated) return;
    heard.push_back(nameOf(event));
    widget->setRoot(rows(3));
  });
  widget->setRoot(rows(6));
  EXPECT_THAT(heard, ElementsAre("row3", "row4", "row5", "destroyed", "destroyed", "destroyed"));
  EXPECT_EQ(names().size(), 3U);
  QApplication::processEvents();  // the dead objects are deleted
  EXPECT_THAT(names(), ElementsAre("row0", "row1", "row2"));
}

TEST_F(ChangeMeanwhile, NewNamesAreAllAnnouncedAlsoWhenARootIsSetMeanwhile) {
  widget->setRoot(texts("one", true));
  ASSERT_THAT(names(), ElementsAre("one", "one"));
  std::vector<std::string> heard;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() != QAccessible::NameChanged) return;
    heard.push_back(nameOf(event));
    widget->setRoot(texts("three", false));
  });
  widget->setRoot(texts("two", true));
  EXPECT_THAT(heard, ElementsAre("two", "two", "three"));
  EXPECT_THAT(names(), ElementsAre("three"));
}

// Scrolling happens outside of the graph's work, so a root that is set then is shown at once.
TEST_F(ChangeMeanwhile, ElementsRemovedBeforeTheirTurnAreNotAnnounced) {
  widget->setRoot(rows(300));
  askForStates();
  std::vector<std::string> heard;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() != QAccessible::ObjectHide) return;
    heard.push_back(nameOf(event));
    widget->setRoot(ui::Text("Else"));
  });
  bar().setValue(bar().maximum());
  EXPECT_EQ(heard.size(), 1U) << "all other rows are dead";
  EXPECT_THAT(names(), ElementsAre("Else"));
  QApplication::processEvents();
  EXPECT_THAT(names(), ElementsAre("Else"));
}

TEST_F(ChangeMeanwhile, AnElementThatScrollsBackMeanwhileIsAnnouncedLastInItsPresentState) {
  widget->setRoot(rows(300));
  askForStates();
  std::map<std::string, bool> isShowing;
  bool isFirst = true;
  const Observer observer([&](QAccessibleEvent& event) {
    const bool hides = event.type() == QAccessible::ObjectHide;
    if (!hides && event.type() != QAccessible::ObjectShow) return;
    isShowing[nameOf(event)] = !hides;
    if (std::exchange(isFirst, false)) bar().setValue(0);
  });
  bar().setValue(bar().maximum());
  EXPECT_EQ(bar().value(), 0);
  for (int i = 0; i < holder().childCount(); ++i) {
    const auto last = isShowing.find(name(*holder().child(i)));
    if (last == isShowing.end()) continue;
    EXPECT_EQ(last->second, !holder().child(i)->state().offscreen) << last->first;
  }
}

TEST_F(ChangeMeanwhile, ARootMayBeSetWhileTheFocusIsAnnounced) {
  const auto button = [](const char* title) { return ui::Button(ui::verbatim(title), [] {}); };
  widget->setRoot(ui::Group({button("One"), button("Two")}));
  activate(*widget);
  askForStates();
  int focused = 0;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() != QAccessible::Focus) return;
    ++focused;
    widget->setRoot(ui::Text("Else"));
  });
  EXPECT_TRUE(act(*page().child(1), QAccessibleActionInterface::setFocusAction()));
  EXPECT_EQ(focused, 1);
  EXPECT_THAT(names(), ElementsAre("Else"));
}

TEST_F(ChangeMeanwhile, AnEventLoopThatRunsMeanwhileDoesNoHarm) {
  widget->setRoot(rows(6));
  askForStates();
  int heard = 0;
  const Observer observer([&](QAccessibleEvent&) {
    ++heard;
    QApplication::processEvents();  // deletes the objects of removed elements
    askForStates();
  });
  widget->setRoot(rows(3));
  EXPECT_GE(heard, 1);
  widget->setRoot(rows(300));
  bar().setValue(bar().maximum());
  widget->setRoot(ui::View());
  EXPECT_THAT(names(), IsEmpty());
}

TEST_F(ChangeMeanwhile, AWindowMayBeClosedMeanwhile) {
  widget->setRoot(rows(300));
  askForStates();
  widget->setAttribute(Qt::WA_DeleteOnClose);
  qt::ViewWidget* const page = widget.release();
  bool isDeleted = false;
  QObject::connect(page, &QObject::destroyed, [&] { isDeleted = true; });
  {
    const Observer observer([&](QAccessibleEvent&) { page->close(); });
    page->verticalScrollBar()->setValue(page->verticalScrollBar()->maximum());
    EXPECT_FALSE(page->isVisible());
    page->setRoot(rows(3));
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  EXPECT_TRUE(isDeleted);
}

TEST_F(ChangeMeanwhile, AnotherPageMayTakeTheGraphOver) {
  ui::ViewGraph graph;
  graph.setRoot(rows(20));
  qt::ViewWidget first(graph);
  first.resize(300, 400);
  first.show();
  for (QAccessibleInterface* element :
       elementsBelow(*QAccessible::queryAccessibleInterface(&first))) {
    (void)element->state();
  }
  std::unique_ptr<qt::ViewWidget> second;
  {
    const Observer observer([&](QAccessibleEvent&) {
      if (!second) second = std::make_unique<qt::ViewWidget>(graph);
    });
    graph.setRoot(rows(3));
  }
  ASSERT_TRUE(second);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&first)->childCount(), 0);
  EXPECT_EQ(listIn(*QAccessible::queryAccessibleInterface(second.get()))->childCount(), 3);
}

TEST_F(ChangeMeanwhile, AWidgetThatIsDestroyedMeanwhileStopsTheProcessWithItsReason) {
  widget->setRoot(rows(300));
  askForStates();
  const auto destroyMeanwhile = [this] {
    const Observer observer([this](QAccessibleEvent&) { widget.reset(); });
    bar().setValue(bar().maximum());
  };
  EXPECT_DEATH(destroyMeanwhile(),
               "a ViewWidget was destroyed while it notified assistive technology");
}

TEST_F(ChangeMeanwhile, UpToThirtyTwoChildrenAreAnnouncedOneByOne) {
  widget->setRoot(rows(2));
  EXPECT_EQ(holder().childCount(), 2);
  int created = 0;
  const Observer observer([&](QAccessibleEvent& event) {
    if (event.type() == QAccessible::ObjectCreated) ++created;
  });
  widget->setRoot(rows(2 + 32));
  EXPECT_EQ(created, 32);
  widget->setRoot(rows(2 + 32 + 33));
  EXPECT_EQ(created, 32) << "for more changes, clients read again";
}
