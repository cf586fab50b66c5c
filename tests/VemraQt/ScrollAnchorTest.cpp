// The elements in view stay in place when rows above them are measured, added or changed.

#include "VemraQt/widgets/ElementWidget.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/VemraQt/HardScreen.hpp"
#include "tests/VemraQt/LongList.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"

#include <map>

#include <QApplication>
#include <QProxyStyle>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::Contains;

namespace {

/// The elements that are in view now and after a step of so many pixels, each with the top of its
/// widget in the viewport.
std::map<ui::NodeID, int> topsThatStay(const WindowHost& host, int step) {
  const int height = host.widget.viewport()->height();
  std::map<ui::NodeID, int> tops;
  page::forEachLeaf(*pageOf(host.widget).tree().root(), [&](const page::Node& leaf) {
    qt::ElementWidget* widget = pageOf(host.widget).shown(leaf).widget;
    if (!widget) return;
    const QRect frame = widget->widget().geometry();
    const auto isSeen = [&](int top) { return top > 8 && top + frame.height() < height - 8; };
    if (isSeen(frame.top()) && isSeen(frame.top() - step)) tops[leaf.id] = frame.top();
  });
  return tops;
}

/// Scrolls by equal steps; each step must move every element in view by exactly its length.
void expectEvenSteps(const WindowHost& host, int step) {
  for (int i = 0; i < 60; ++i) {
    const auto tops = topsThatStay(host, step);
    ASSERT_GE(tops.size(), 3U) << "step " << i;
    bar(host).setValue(bar(host).value() + step);
    for (const auto& [id, top] : tops) {
      const page::Node* leaf = pageOf(host.widget).tree().find(id);
      qt::ElementWidget* widget = leaf ? pageOf(host.widget).shown(*leaf).widget : nullptr;
      ASSERT_TRUE(widget) << "step " << i << " removed the element in view";
      ASSERT_EQ(widget->widget().y(), top - step) << "step " << i << ": " << called(*leaf);
    }
  }
}

/// A style that makes every row much higher.
class HighButtons final : public QProxyStyle {
 public:
  HighButtons() : QProxyStyle("fusion") {}

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_PushButton ? usual + QSize(0, 60) : usual;
  }
};

}  // namespace

TEST(ScrollAnchor, UpwardsPastRowsOfUnknownHeightEverythingMovesByTheStep) {
  WindowHost host(numberedUnevenly(2000));
  bar(host).setValue(70'000);
  const int first = peopleInView(host).front();
  expectEvenSteps(host, -53);
  EXPECT_LT(peopleInView(host).front(), first - 10) << "rows that were never in view have come in";
}

TEST(ScrollAnchor, DownwardsPastRowsOfUnknownHeightEverythingMovesByTheStep) {
  WindowHost host(numberedUnevenly(2000));
  bar(host).setValue(70'000);
  const int first = peopleInView(host).front();
  expectEvenSteps(host, 53);
  EXPECT_GT(peopleInView(host).front(), first + 10) << "rows that were never in view have come in";
}

TEST(ScrollAnchor, AJumpToTheEndEndsThereAlsoWhenThePageGrows) {
  Result result = numbered(500);
  People people(result.people.begin(), result.people.end());
  for (std::size_t i = 450; i < 500; ++i) *people[i].displayName += " " + std::string(150, 'W');
  result.people = people;
  WindowHost host(result);
  const int estimated = bar(host).maximum();
  bar(host).setValue(estimated);
  EXPECT_GT(bar(host).maximum(), estimated) << "the last rows are not higher than estimated";
  EXPECT_EQ(bar(host).value(), bar(host).maximum());
  EXPECT_THAT(peopleInView(host), Contains(499));
}

TEST(ScrollAnchor, PeopleAddedAboveDoNotMoveTheElementsInView) {
  WindowHost host(numbered(500));
  bar(host).setValue(20'000);
  const std::vector<std::string> before = host.visibleTexts();
  host.changePeople([](People& people) {
    for (int i = 0; i < 7; ++i) {
      people.insert(people.begin() + i * 3, build::person("fresh" + std::to_string(i), "Fresh"));
    }
  });
  EXPECT_EQ(host.visibleTexts(), before);
}

TEST(ScrollAnchor, ResizingKeepsTheSameRowInView) {
  WindowHost host(numbered(2000));
  bar(host).setValue(60'000);
  const int reading = peopleInView(host).at(1);
  for (const QSize size : {QSize(320, 800), QSize(1200, 500), QSize(400, 300), QSize(720, 800)}) {
    host.widget.resize(size);
    EXPECT_THAT(peopleInView(host), Contains(reading)) << size.width();
    expectNothingOverlaps(host);
  }
}

TEST(ScrollAnchor, ScalingKeepsTheSameRowInView) {
  WindowHost host(numbered(2000));
  bar(host).setValue(60'000);
  const int reading = peopleInView(host).at(1);
  for (double scale : {2.0, 3.0, 1.5, 1.0}) {
    ui::Environment environment;
    environment.textScale = scale;
    host.widget.setEnvironment(environment);
    EXPECT_THAT(peopleInView(host), Contains(reading)) << scale;
    expectNothingOverlaps(host);
  }
}

TEST(ScrollAnchor, AnotherStyleKeepsTheSameRowInView) {
  AsBefore asBefore;
  WindowHost host(numbered(2000));
  bar(host).setValue(60'000);
  const int reading = peopleInView(host).at(1);
  const int height = host.widget.contentHeight();
  const auto expectReading = [&](const char* style) {
    QApplication::processEvents();
    EXPECT_THAT(peopleInView(host), Contains(reading)) << style;
    expectNothingOverlaps(host);
  };
  QApplication::setStyle("windows");
  expectReading("windows");
  QApplication::setStyle(new HighButtons);
  expectReading("high buttons");
  EXPECT_GT(host.widget.contentHeight(), height * 5 / 4) << "the style's sizes take effect";
  QApplication::setStyle("fusion");
  expectReading("fusion");
  EXPECT_LT(host.widget.contentHeight(), height * 5 / 4);
}

TEST(ScrollAnchor, AnotherFontKeepsTheSameRowInView) {
  AsBefore asBefore;
  WindowHost host(numbered(2000));
  bar(host).setValue(60'000);
  const int reading = peopleInView(host).at(1);
  const int height = host.widget.contentHeight();
  for (const int size : {26, 18, 13}) {
    QFont font = asBefore.font;
    font.setPixelSize(size);
    QApplication::setFont(font);
    QApplication::processEvents();
    EXPECT_THAT(peopleInView(host), Contains(reading)) << size << " pixels";
    EXPECT_EQ(size > 13, host.widget.contentHeight() > height) << size << " pixels";
    expectNothingOverlaps(host);
  }
}
