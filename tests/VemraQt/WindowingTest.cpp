// Rows have widgets only near the viewport, which has no other visible effect.

#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/LongList.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <random>

#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;

namespace {

const std::string noteOfP1 = "vemra.goal.person.p1.outcome.note";

}  // namespace

TEST(Windowing, TheNumberOfWidgetsDoesNotDependOnTheLength) {
  std::vector<std::size_t> counts;
  for (std::size_t people : {10u, 100u, 10'000u, 100'000u}) {
    WindowHost host(resultWith(people));
    counts.push_back(host.widget.widgetCount());
    const std::uint64_t rowsAtFirst = host.widget.graph().work().rows;
    EXPECT_LT(rowsAtFirst, 40u);
    bar(host).setValue(bar(host).maximum());
    EXPECT_LT(host.widget.widgetCount(), 80u);
    EXPECT_LT(host.widget.graph().work().rows, rowsAtFirst + 60);
  }
  EXPECT_THAT(counts, ::testing::Each(counts.front())) << "at 10, 100, 10,000 and 100,000 people";
}

TEST(Windowing, TheEndIsReachable) {
  for (std::size_t people : {10u, 500u, 100'000u}) {
    WindowHost host(numbered(people));
    bar(host).setValue(bar(host).maximum());
    EXPECT_EQ(bar(host).value(), bar(host).maximum());
    EXPECT_THAT(host.visibleTexts(), Contains("Person Number " + std::to_string(people - 1)));
    EXPECT_THAT(host.visibleTexts().back(), ::testing::StartsWith("Based on 12"));
    const QRect last = [&] {
      QRect frame;
      page::forEachLeaf(*pageOf(host.widget).tree().root(), [&](const page::Node& leaf) {
        frame = pageOf(host.widget).frameOnPage(leaf);
      });
      return frame;
    }();
    EXPECT_EQ(last.bottom() + 1 + 24, host.widget.contentHeight());
    bar(host).setValue(0);
    EXPECT_EQ(host.visibleTexts().front(), "Find a design lead");
  }
}

TEST(Windowing, NoScrollPositionLeavesAGap) {
  WindowHost host(numbered(3000));
  std::mt19937 random(3);
  for (unsigned step = 0; step < 400; ++step) {
    const auto kind = random() % 4;
    if (kind == 0) {
      bar(host).setValue(static_cast<int>(random() % static_cast<unsigned>(bar(host).maximum())));
    } else if (kind == 1) {
      bar(host).triggerAction(QAbstractSlider::SliderPageStepAdd);
    } else {
      wheel(*host.widget.viewport(), kind == 2 ? -1 : 2);
    }
    const std::vector<int> people = peopleInView(host);
    ASSERT_FALSE(people.empty() && bar(host).value() < bar(host).maximum() - 800 &&
                 bar(host).value() > 200);
    for (std::size_t i = 1; i < people.size(); ++i) {
      ASSERT_EQ(people[i], people[i - 1] + 1) << "step " << step;
    }
    if (step % 20 == 0) expectNothingOverlaps(host);
  }
}

TEST(Windowing, AnOpenEditorKeepsAllOfItsStateAndTheFocusFarAway) {
  WindowHost host(numbered(5000));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QLineEdit>(noteOfP1);
  note.setFocus();
  QTest::keyClicks(&note, "half a sen");
  QTest::keyClick(&note, Qt::Key_Left);
  QTest::keyClick(&note, Qt::Key_Left, Qt::ShiftModifier);
  bar(host).setValue(bar(host).maximum());
  EXPECT_TRUE(note.visibleRegion().isEmpty());
  EXPECT_TRUE(note.hasFocus());
  bar(host).setValue(0);
  EXPECT_EQ(host.find(noteOfP1), &note);
  EXPECT_TRUE(note.hasFocus());
  EXPECT_EQ(note.cursorPosition(), 8);
  EXPECT_EQ(note.selectedText(), "e");
  QTest::keyClicks(&note, "x");
  EXPECT_EQ(note.text(), "half a sxn");
  QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(note.text(), "half a sen") << "the last typed text is undone first";
  while (note.isUndoAvailable()) QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(note.text(), "") << "the text before it is undone, too";
  host.press("vemra.goal.person.p1.outcome.save");
  EXPECT_EQ(host.log.back(), "record p1 wasUseful nil nil");
}

TEST(Windowing, AnEditorWithoutFocusKeepsAllOfItsStateAcrossTheList) {
  WindowHost host(numbered(5000));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QLineEdit>(noteOfP1);
  note.setFocus();
  QTest::keyClicks(&note, "kept words");
  QTest::keyClick(&note, Qt::Key_Backspace);
  host.widget.setFocus();
  note.setSelection(2, 3);
  const QPointer<QLineEdit> same = &note;
  for (const int far : {200'000, bar(host).maximum(), 20'000}) bar(host).setValue(far);
  EXPECT_TRUE(note.visibleRegion().isEmpty());
  bar(host).setValue(0);
  ASSERT_EQ(host.find(noteOfP1), same) << "another widget shows the note";
  EXPECT_EQ(note.text(), "kept word");
  EXPECT_EQ(note.selectionStart(), 2);
  EXPECT_EQ(note.selectedText(), "pt ");
  EXPECT_EQ(note.cursorPosition(), 5);
  ASSERT_TRUE(note.isUndoAvailable());
  note.setFocus();
  QTest::keyClick(&note, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(note.text(), "kept words");
}

TEST(Windowing, ManyOpenEditorsDoNotBecomeManyWidgets) {
  WindowHost host(numbered(400));
  for (int i = 0; i < 120; ++i) {
    const std::string start = "vemra.goal.person.p" + std::to_string(i) + ".outcome.start";
    for (int tries = 0; !host.find(start) && tries < 50; ++tries) {
      bar(host).setValue(bar(host).value() + 100);
    }
    host.press(start);
  }
  EXPECT_LT(host.widget.widgetCount(), 320u);
  bar(host).setValue(0);
  EXPECT_NE(host.find("vemra.goal.person.p0.outcome.note"), nullptr);
}

TEST(Windowing, TheScrollBarIsVisibleWhileThePageCanScroll) {
  WindowHost host(resultWith(6), QSize(720, 300));
  EXPECT_TRUE(host.widget.verticalScrollBar()->isVisible());
  host.widget.resize(720, 2000);  // every row is measured
  EXPECT_FALSE(host.widget.verticalScrollBar()->isVisible());
  host.widget.resize(720, host.widget.contentHeight());
  EXPECT_FALSE(host.widget.verticalScrollBar()->isVisible());
  EXPECT_EQ(host.widget.viewport()->width(), 720);
  host.widget.resize(720, host.widget.contentHeight() - 1);
  EXPECT_TRUE(host.widget.verticalScrollBar()->isVisible());
}

TEST(Windowing, AListHigherThanAWidgetCanBeEndsEarlier) {
  struct Endless final : ui::RowSource {
    std::size_t count() const override { return 200'000'000; }
    std::string_view key(std::size_t) const override { return "row"; }
    ui::View row(std::size_t) const override { return ui::Text(ui::verbatim("row")); }
  };
  qt::ViewWidget widget;
  widget.resize(300, 400);
  widget.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 0,
                            {ui::ForEach(std::make_shared<Endless>()),
                             ui::Text(ui::verbatim("foot")).accessibilityIdentifier("foot")}));
  widget.show();
  QScrollBar& scrollBar = *widget.verticalScrollBar();
  EXPECT_GE(widget.contentHeight(), 1 << 30);
  scrollBar.setValue(scrollBar.maximum());
  const auto* foot = widget.findChild<QWidget*>("foot");
  ASSERT_TRUE(foot);
  EXPECT_FALSE(foot->visibleRegion().isEmpty());
  EXPECT_LT(widget.widgetCount(), 100U);
}
