// An exception of a description or an action stops neither the page nor Qt, and is rethrown once.

#include "VemraQt/Picture.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/PageException.hpp"

#include <QTest>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

TEST_F(PageException, AFirstRootThatThrowsLeavesAShownWindow) {
  EXPECT_THAT(faultsOf([&] { widget.setRoot(rows("a", {.row = is("a3")})); }), IsEmpty())
      << "no row is wanted yet";
  EXPECT_THAT(faultsOf([&] { showWindow(); }), ElementsAre("row a3, later"))
      << "Qt shows a window in several steps, and an exception would break off in the middle";
  EXPECT_THAT(texts(), Contains("a2=0"));
  EXPECT_THAT(texts(), Contains("a4=0"));
  widget.hide();
  EXPECT_FALSE(widget.isVisible());
  EXPECT_THAT(faultsOf([&] { showWindow(); }), IsEmpty());
  EXPECT_TRUE(widget.isVisible());
  expectThePageGoesOn();
}

TEST_F(PageException, ARootThatThrowsIsReportedToTheHostsCall) {
  showWindow();
  for (const auto& [root, fault] : {std::pair(rows("a", {.row = is("a3")}), "row a3"),
                                    std::pair(rows("b", {.body = is("b3")}), "body b3"),
                                    std::pair(rows("c", {.tree = is("c3")}), "get")}) {
    EXPECT_THAT(faultsOf([&] { widget.setRoot(root); }), ElementsAre(fault));
    expectThePageGoesOn();
  }
}

TEST_F(PageException, ScrollingPastARowThatThrowsContinues) {
  widget.setRoot(rows("a", {.row = is("a299"), .body = is("a298")}));
  showWindow();
  EXPECT_THAT(faultsOf([&] { bar().setValue(bar().maximum()); }), ElementsAre("row a299, later"))
      << "of several exceptions, the first is rethrown";
  EXPECT_THAT(texts(), Contains("a297=0"));
  bar().setValue(0);
  EXPECT_THAT(texts(), Contains("a0=0"));
  expectThePageGoesOn();
}

TEST_F(PageException, WhenAllRowsThrowThePageCanBeScrolledBack) {
  const auto isFar = [](const std::string& id) { return id.size() == 4; };
  widget.setRoot(rows("a", {.row = isFar}));
  showWindow();
  EXPECT_THAT(faultsOf([&] { bar().setValue(bar().maximum()); }).size(), 1u);
  faultsOf([&] { bar().setValue(0); });
  EXPECT_THAT(texts(), Contains("a0=0"));
  expectThePageGoesOn();
}

TEST_F(PageException, ATreeThatIsRemovedDuringScrollingLeavesAnEmptyPage) {
  widget.setRoot(rows("a", {.tree = is("a299")}));
  showWindow();
  EXPECT_THAT(faultsOf([&] { bar().setValue(bar().maximum()); }), ElementsAre("get, later"));
  EXPECT_THAT(texts(), IsEmpty());
  EXPECT_EQ(widget.contentHeight(), 0);
  expectThePageGoesOn();
}

TEST_F(PageException, WhenOneListsRowsThrowTheOtherListGetsItsRows) {
  showWindow();
  widget.setRoot(ui::Group({rows("a", {}, 50), rows("b", {}, 50)}));
  const auto page = ui::Group({rows("x", {.row = is("x1")}, 3), rows("y", {.row = is("y1")}, 3)});
  EXPECT_THAT(faultsOf([&] {
                widget.hide();
                widget.setRoot(page);
                widget.show();
              }),
              ElementsAre("row x1, later"));
  for (const char* text : {"x0=0", "x2=0", "y0=0", "y2=0"}) EXPECT_THAT(texts(), Contains(text));
}

TEST_F(PageException, ARowThatThrowsWhenItWakesKeepsItsStateForTheNextRoot) {
  bool breaks = false;
  const auto page = [&] {
    return rows("a", {.row = [&](const std::string& id) { return breaks && id == "a0"; }});
  };
  widget.setRoot(page());
  showWindow();
  button("+")->click();
  EXPECT_THAT(texts(), Contains("a0=1"));
  bar().setValue(bar().maximum());
  breaks = true;
  EXPECT_THAT(faultsOf([&] { bar().setValue(0); }), ElementsAre("row a0, later"));
  EXPECT_THAT(texts(), Contains("a1=0"));
  breaks = false;
  widget.setRoot(page());
  EXPECT_THAT(texts(), Contains("a0=1"));
  expectThePageGoesOn();
}

TEST_F(PageException, AnActionThatThrowsHasEndedAndItsButtonActsAgain) {
  struct Flaky {
    using State = Counter::State;
    ui::View body(const ui::LocalState<State>& state) const {
      if (state->count == 1) throw Fault("body at 1");
      return ui::Button(ui::verbatim("at " + std::to_string(state->count)), [state] {
        state.set(&State::count, state->count + 1);
        if (state->count == 3) throw Fault("action at 3");
      });
    }
  };
  widget.setRoot(Flaky{});
  showWindow();
  EXPECT_THAT(faultsOf([&] { button("at 0")->click(); }), ElementsAre("body at 1, later"));
  EXPECT_THAT(faultsOf([&] { button("at 0")->click(); }), IsEmpty());
  EXPECT_THAT(faultsOf([&] { button("at 2")->click(); }), ElementsAre("action at 3, later"));
  EXPECT_TRUE(button("at 3")) << "its earlier writes stay";
  expectThePageGoesOn();
}

TEST_F(PageException, AButtonWhoseActionThrewNoLongerCountsAsPressed) {
  const auto page = [](bool hasFaulty) {
    return ui::Group(
        {ui::If(hasFaulty, [] { return ui::Button("faulty", [] { throw Fault("action"); }); }),
         ui::Button("other", [] {})});
  };
  widget.setRoot(page(true));
  showWindow();
  faultsOf([&] { button("faulty")->click(); });
  widget.setRoot(page(false));
  ASSERT_TRUE(button("other"));
  EXPECT_FALSE(button("other")->hasFocus())
      << "no button counts as pressed, and no control lost the focus";
}

TEST_F(PageException, TabContinuesPastRowsThatThrow) {
  widget.setRoot(rows("a", {.row = is("a20"), .body = is("a30")}, 60));
  showWindow();
  ASSERT_TRUE(pageOf(widget).focusEnd(true));
  const Faults faults = faultsOf([&] {
    for (int i = 0; i < 57; ++i) QTest::keyClick(widget.focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(pageOf(widget).focusedNode());
    EXPECT_EQ(page::rowOf(pageOf(widget).focusedNode())->rowIndex, 59u);
  });
  EXPECT_THAT(faults, Contains("row a20, later"));
  faultsOf([&] {
    for (int i = 0; i < 57; ++i) QTest::keyClick(widget.focusWidget(), Qt::Key_Backtab);
  });
  EXPECT_EQ(page::rowOf(pageOf(widget).focusedNode())->rowIndex, 0u);
  expectThePageGoesOn();
}

TEST_F(PageException, AResizeThatBringsInARowThatThrowsContinues) {
  widget.setRoot(rows("a", {.row = is("a20")}));
  showWindow();
  EXPECT_THAT(faultsOf([&] { widget.resize(300, 1600); }), ElementsAre("row a20, later"));
  EXPECT_THAT(texts(), Contains("a19=0"));
  EXPECT_THAT(texts(), Contains("a21=0"));
  expectThePageGoesOn();
}

TEST_F(PageException, AnEnvironmentTakesEffectEvenIfABodyThrows) {
  struct LeftToRightOnly {
    ui::View body(const ui::Environment& environment) const {
      if (environment.layoutDirection == ui::LayoutDirection::rightToLeft) throw Fault("direction");
      return ui::Text("text");
    }
  };
  widget.setRoot(LeftToRightOnly{});
  showWindow();
  ui::Environment environment;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  EXPECT_THAT(faultsOf([&] { widget.setEnvironment(environment); }), ElementsAre("direction"));
  EXPECT_EQ(widget.layoutDirection(), Qt::RightToLeft);
  widget.setEnvironment({});
  EXPECT_EQ(widget.layoutDirection(), Qt::LeftToRight);
  expectThePageGoesOn();
}

TEST_F(PageException, ABodyThatThrowsAfterASystemChangeIsReportedToTheEventLoop) {
  bool breaks = false;
  widget.setRoot(ui::sample::Body{[&]() -> ui::View {
    if (breaks) throw Fault("body");
    return ui::Text("text");
  }});
  showWindow();
  breaks = true;
  EXPECT_THAT(faultsOf([&] {
                QEvent changed(QEvent::LocaleChange);
                QApplication::sendEvent(&widget, &changed);
              }),
              ElementsAre("body, later"));
  expectThePageGoesOn();
}

TEST_F(PageException, AssistiveTechnologyGetsAnEmptyRowForARowThatThrows) {
  widget.setRoot(rows("a", {.row = is("a200"), .body = is("a201")}));
  showWindow();
  QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&widget);
  EXPECT_THAT(faultsOf([&] {
                EXPECT_EQ(name(rowIn(page, 200)), "");
                EXPECT_EQ(rowIn(page, 200).childCount(), 0);
              }),
              ElementsAre("row a200, later"))
      << "no exception may be thrown into the bus";
  EXPECT_THAT(faultsOf([&] { EXPECT_EQ(name(rowIn(page, 201)), ""); }),
              ElementsAre("body a201, later"));
  EXPECT_EQ(name(rowIn(page, 202)), "a202=0");
  EXPECT_THAT(faultsOf([&] { identifiersOf(widget).find("nowhere"); }),
              Not(Contains(Not(::testing::EndsWith(", later")))));
  expectThePageGoesOn();
}

TEST_F(PageException, AssistiveTechnologyContinuesWhenItsRequestRemovesTheTree) {
  widget.setRoot(rows("a", {.tree = is("a200")}));
  showWindow();
  QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&widget);
  EXPECT_EQ(listIn(page)->childCount(), 300);
  EXPECT_THAT(faultsOf([&] { EXPECT_EQ(name(rowIn(page, 200)), ""); }), ElementsAre("get, later"));
  EXPECT_EQ(page.childCount(), 0);
  expectThePageGoesOn();
  EXPECT_EQ(listIn(page)->childCount(), 300);
}

TEST_F(PageException, ARowWhoseIdCannotBeReadIsMissingForAssistiveTechnology) {
  bool breaks = false;
  const auto keyBreaks = [&](const std::string& id) { return breaks && id == "a200"; };
  widget.setRoot(rows("a", {.key = keyBreaks}));
  showWindow();
  QAccessibleInterface& page = *QAccessible::queryAccessibleInterface(&widget);
  EXPECT_EQ(name(rowIn(page, 199)), "a199=0");
  breaks = true;
  EXPECT_THAT(faultsOf([&] { EXPECT_EQ(listIn(page)->child(200), nullptr); }),
              ElementsAre("key a200, later"));
  EXPECT_THAT(faultsOf([&] { identifiersOf(widget).find("a1"); }), Contains("key a200, later"));
  faultsOf([&] { widget.setRoot(rows("a", {.key = keyBreaks})); });
  EXPECT_EQ(listIn(page)->childCount(), 300);
  EXPECT_EQ(name(rowIn(page, 199)), "a199=0");
  breaks = false;
  expectThePageGoesOn();
}

TEST_F(PageException, ANewListWhoseIdsCannotBeReadIsShownOnRequest) {
  bool breaks = false;
  const auto keyBreaks = [&](const std::string& id) { return breaks && id == "a200"; };
  widget.setRoot(rows("a", {.key = keyBreaks}));
  showWindow();
  breaks = true;
  EXPECT_THAT(faultsOf([&] { widget.setRoot(rows("a", {.key = keyBreaks}, 299)); }),
              ElementsAre("key a200"));
  EXPECT_THAT(texts(), Contains("a0=0"));
  breaks = false;
  bar().setValue(bar().maximum());
  EXPECT_THAT(texts(), Contains("a298=0"));
  expectThePageGoesOn();
}

TEST_F(PageException, AWindowForATreeThatThrowsIsMade) {
  ui::ViewGraph graph;
  bool breaks = false;
  graph.setRoot(ui::sample::Body{[&]() -> ui::View {
    if (breaks) throw Fault("body");
    return ui::Text("text");
  }});
  breaks = true;
  std::unique_ptr<qt::ViewWidget> other;
  EXPECT_THAT(faultsOf([&] { other = std::make_unique<qt::ViewWidget>(graph); }),
              ElementsAre("body, later"));
  ASSERT_TRUE(other);
  other->show();
  EXPECT_EQ(other->viewport()->findChild<QLabel*>()->text(), "text") << "its previous content";
}

TEST_F(PageException, APictureRethrowsToItsCaller) {
  EXPECT_THROW(qt::picture(rows("a", {.row = is("a3")}), {}, QSize(300, 0)), Fault);
  EXPECT_NO_THROW(qt::picture(rows("a"), {}, QSize(300, 0)));
  ui::ViewGraph graph;
  graph.setRoot(rows("a", {.row = is("a3")}));
  EXPECT_THROW(qt::picture(graph, QSize(300, 0)), Fault);
}

TEST_F(PageException, AnErrorOfADestroyedWindowIsDropped) {
  auto gone = std::make_unique<qt::ViewWidget>();
  gone->setRoot(rows("a", {.row = is("a3")}));
  gone->resize(300, 400);
  EXPECT_THAT(faultsOf([&] {
                gone->show();
                gone.reset();
              }),
              IsEmpty());
}
