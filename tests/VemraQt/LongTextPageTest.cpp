// A page with a very long text: what is in view stays in place while the text is laid out.

#include "VemraQt/accessibility/AccessiblePage.hpp"
#include "VemraQt/page/Page.hpp"
#include "VemraQt/widgets/LongText.hpp"
#include "VemraQt/widgets/TextLines.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <memory>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QScrollBar>

using namespace vemra;
using namespace vemra::qttest;

namespace {

std::string shortLines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "a line\n";
  return text;
}

/// Each line is longer than the one before, so that every estimate of the height is wrong.
std::string growingLines() {
  std::string text;
  for (std::size_t i = 0; i < 3'000; ++i) text += std::string(i / 8, 'x') + "\n";
  return text;
}

/// Short lines, then long paragraphs: the mean height of the beginning misleads.
std::string unevenText() {
  std::string text;
  for (int i = 0; i < 12'000; ++i) text += "a\n";
  for (int i = 0; i < 60 * 250; ++i) text += i % 250 == 249 ? "design lead \n" : "design lead ";
  return text;
}

std::string words(std::size_t count) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) text += "word" + std::to_string(i) + " ";
  return text;
}

class LongTextPage : public ShownWidget {
 protected:
  void show(std::string text) {
    widget.setRoot(
        ui::VStack(ui::HorizontalAlignment::leading, 8,
                   {ui::Text("above"), ui::View(ui::Text(ui::verbatim(std::move(text)))).id("long"),
                    ui::Text("below")}));
  }
  qt::Page& page() { return qt::AccessiblePage::in(&widget)->tree().page(); }
  const page::Node& leaf() {
    const page::Node* found = nullptr;
    page::forEachLeaf(*page().tree().root(), [&](const page::Node& each) {
      if (page().shown(each).shape.parts()) found = &each;
    });
    EXPECT_TRUE(found);
    return *found;
  }
  qt::LongText& text() { return *page().shown(leaf()).shape.parts(); }
  QScrollBar& bar() { return *widget.verticalScrollBar(); }
  /// The character at the top of the viewport, and how far its line is above.
  std::pair<qsizetype, int> place() {
    const int y = page().scrollPosition() - page().frameOnPage(leaf()).top();
    const qsizetype offset = text().offsetAt(y);
    return {offset, y - text().topOf(offset)};
  }
  /// Where a character's line is in the viewport.
  int seenAt(qsizetype offset) {
    return page().frameOnPage(leaf()).top() + text().topOf(offset) - page().scrollPosition();
  }
  void settle() {
    for (QElapsedTimer time; !text().isSettled();) {
      if (!time.isValid()) time.start();
      ASSERT_LT(time.elapsed(), 60'000);
      QCoreApplication::processEvents();
    }
  }
};

}  // namespace

TEST_F(LongTextPage, TheCharacterInViewStaysWhileTheTextIsLaidOut) {
  show(words(60'000));
  bar().setValue(bar().maximum() / 2);
  ASSERT_FALSE(text().isSettled());
  const qsizetype offset = text().offsetAt(page().scrollPosition() + 100);
  const int before = seenAt(offset);
  const int height = widget.contentHeight();
  settle();
  EXPECT_NEAR(seenAt(offset), before, text().lineHeight()) << "its line may begin elsewhere";
  EXPECT_NE(widget.contentHeight(), height);
  EXPECT_EQ(leaf().frame.height, text().size().height());
}

TEST_F(LongTextPage, ScrollingMovesTheTextByEachStep) {
  show(words(60'000));
  bar().setValue(bar().maximum() / 3);
  for (const int step : {53, -53}) {
    for (int i = 0; i < 200; ++i) {
      const qsizetype offset = place().first;
      const int before = seenAt(offset);
      bar().setValue(bar().value() + step);
      ASSERT_EQ(seenAt(offset), before - step) << "step " << i << " of " << step;
    }
  }
}

TEST_F(LongTextPage, AJumpInAnUnevenTextEndsAndEachStepUpMovesTheText) {
  show(unevenText());
  bar().setValue(bar().maximum() / 2);
  for (int i = 0; i < 200; ++i) {
    const qsizetype offset = text().offsetAt(page().scrollPosition() + 100);
    const int before = seenAt(offset);
    bar().setValue(bar().value() - 53);
    ASSERT_EQ(seenAt(offset), before + 53) << "step " << i;
  }
}

TEST_F(LongTextPage, AJumpToTheEndShowsTheEndOfTheText) {
  show(words(60'000));
  bar().setValue(bar().maximum());
  EXPECT_EQ(bar().value(), bar().maximum());
  const int below = page().frameOnPage(leaf()).bottom();
  EXPECT_EQ(seenAt(text().text().size() - 2) + text().lineHeight(),
            below + 1 - page().scrollPosition());
  settle();
  EXPECT_EQ(bar().value(), bar().maximum()) << "and stays there";
}

TEST_F(LongTextPage, AnotherWidthKeepsTheCharacterInView) {
  show(words(60'000));
  bar().setValue(bar().maximum() / 2);
  const qsizetype offset = place().first;
  widget.resize(200, 400);
  EXPECT_NEAR(seenAt(offset), 0, 3 * text().lineHeight());
  settle();
  EXPECT_NEAR(seenAt(offset), 0, 4 * text().lineHeight());
}

TEST_F(LongTextPage, AnEqualTextKeepsWhatIsLaidOut) {
  show(words(30'000));
  settle();
  const qt::LongText* const before = &text();
  show(words(30'000));
  EXPECT_EQ(&text(), before);
  show(words(30'001));
  EXPECT_NE(&text(), before);
  EXPECT_TRUE(text().text().endsWith(QStringLiteral("word30000 ")));
}

TEST_F(LongTextPage, AShortTextInItsPlaceHasNoParts) {
  show(words(30'000));
  bar().setValue(bar().maximum() / 2);
  show("short");
  EXPECT_EQ(bar().value(), 0);
  page::forEachLeaf(*page().tree().root(), [&](const page::Node& each) {
    EXPECT_FALSE(page().shown(each).shape.parts());
  });
}

TEST_F(LongTextPage, NothingRunsInIdleTimeWhenAllIsLaidOut) {
  show(words(30'000));
  EXPECT_TRUE(page().isLayingOutTexts());
  settle();
  QCoreApplication::processEvents();
  EXPECT_FALSE(page().isLayingOutTexts());
}

TEST_F(LongTextPage, ATextThatIsMeasuredForTwoWidthsIsLaidOutOnce) {
  std::string note;
  widget.setRoot(ui::HStack(
      ui::VerticalAlignment::top, 8,
      {ui::VStack(ui::HorizontalAlignment::leading, 8,
                  {ui::TextField("Note", ui::Binding<std::string>(
                                             [&] { return note; },
                                             [&](const std::string& text) { note = text; })),
                   ui::Text(ui::verbatim(shortLines(6'000)))}),
       ui::Button("Button", [] {})}));
  settle();
  QCoreApplication::processEvents();
  EXPECT_FALSE(page().isLayingOutTexts());
}

TEST_F(LongTextPage, ATextInARowInsideARowIsLaidOutOnce) {
  std::string note;
  const auto field = [&] {
    return ui::TextField("Note",
                         ui::Binding<std::string>([&] { return note; },
                                                  [&](const std::string& text) { note = text; }));
  };
  const auto row = [](ui::View first) {
    return ui::HStack(ui::VerticalAlignment::top, 8, {std::move(first), ui::Button("B", [] {})});
  };
  const auto column = [](ui::View first, ui::View second) {
    return ui::VStack(ui::HorizontalAlignment::leading, 8, {std::move(first), std::move(second)});
  };
  widget.setRoot(
      row(column(field(), row(column(field(), ui::Text(ui::verbatim(shortLines(6'000))))))));
  settle();
  QCoreApplication::processEvents();
  EXPECT_FALSE(page().isLayingOutTexts());
}

TEST_F(LongTextPage, AHiddenPageLaysOutNothingAndGoesOnWhenItIsShown) {
  show(words(60'000));
  widget.hide();
  const std::int64_t before = qt::TextLines::unitsLaidOut();
  for (QElapsedTimer time; !time.isValid() || time.elapsed() < 50;) {
    if (!time.isValid()) time.start();
    QCoreApplication::processEvents();
  }
  EXPECT_EQ(qt::TextLines::unitsLaidOut(), before);
  EXPECT_FALSE(page().isLayingOutTexts());
  widget.show();
  settle();
}

TEST_F(LongTextPage, TheCharacterInViewStaysWhileThePageIsHidden) {
  show(growingLines());
  bar().setValue(bar().maximum() / 2);
  const qsizetype offset = place().first;
  const int before = seenAt(offset);
  for (int turn = 0; turn < 10; ++turn) QCoreApplication::processEvents();
  ASSERT_FALSE(text().isSettled());
  widget.hide();
  widget.show();
  EXPECT_NEAR(seenAt(offset), before, text().lineHeight());
}

TEST_F(LongTextPage, AChangedButtonWithAnEqualLongTitleKeepsNoEarlierAction) {
  const std::string title = words(30'000);
  const auto showButton = [&](bool disabled, std::shared_ptr<int> captured) {
    widget.setRoot(
        ui::Button(ui::verbatim(title), [captured = std::move(captured)] {}).disabled(disabled));
  };
  auto first = std::make_shared<int>();
  const std::weak_ptr<int> watched = first;
  showButton(false, std::move(first));
  EXPECT_FALSE(watched.expired());
  showButton(true, std::make_shared<int>());
  EXPECT_TRUE(watched.expired());
}

TEST_F(LongTextPage, AClientFindsTheCharacterAtAPointWithoutAskingEachOne) {
  show(words(60'000));
  bar().setValue(bar().maximum() / 2);
  QAccessibleInterface* const root = QAccessible::queryAccessibleInterface(&widget);
  const QPoint inView = widget.viewport()->mapToGlobal(QPoint(60, 200));
  QAccessibleInterface* found = root;
  while (QAccessibleInterface* const child = found->childAt(inView.x(), inView.y())) found = child;
  QAccessibleTextInterface* const client = found->textInterface();
  ASSERT_TRUE(client);
  const std::int64_t before = qt::TextLines::unitsLaidOut();
  const int offset = client->offsetAtPoint(inView);
  EXPECT_LT(qt::TextLines::unitsLaidOut() - before, 60'000) << "each character was asked";
  ASSERT_GE(offset, 0);
  EXPECT_TRUE(client->characterRect(offset).contains(inView));
}
