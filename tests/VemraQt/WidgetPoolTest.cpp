// The pool keeps widgets by the properties that are costly to change, and as many as a page needs.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/widgets/WidgetPool.hpp"

#include <vector>

#include <QApplication>
#include <QPointer>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qt;

namespace {

class WidgetPoolTest : public ::testing::Test {
 protected:
  WidgetPoolTest() { context.theme = Theme(QApplication::font(), QApplication::palette(), {}); }

  static ui::Element element(const ui::View& view) { return ui::Element(view, {}, {}); }

  QWidget page;
  PageContext context;
  WidgetPool pool{&page, context};
  const ui::Element text = element(ui::Text("text"));
};

}  // namespace

TEST_F(WidgetPoolTest, AReturnedWidgetIsUsedAgainTheLastOneFirst) {
  ElementWidget& one = pool.acquire(text);
  ElementWidget& other = pool.acquire(text);
  EXPECT_NE(&one, &other);
  EXPECT_EQ(pool.size(), 2u);
  pool.recycle(one);
  pool.recycle(other);
  EXPECT_EQ(pool.size(), 2u);
  EXPECT_EQ(&pool.acquire(element(ui::Text("another"))), &other);
  EXPECT_EQ(&pool.acquire(text), &one);
  EXPECT_EQ(pool.size(), 2u);
}

TEST_F(WidgetPoolTest, EveryShapeHasWidgetsOfItsOwn) {
  const std::vector<ui::Element> looks = {
      text,
      element(ui::Text("t").font(ui::Font::caption)),
      element(ui::Text("t").foregroundStyle(ui::ForegroundStyle::secondary)),
      element(ui::Button("t", [] {})),
      element(ui::Button("t", [] {}).buttonStyle(ui::ButtonStyle::plain)),
      element(ui::TextField(
          "t", ui::Binding<std::string>([] { return std::string(); }, [](const std::string&) {}))),
  };
  std::vector<ElementWidget*> widgets;
  for (const ui::Element& look : looks) widgets.push_back(&pool.acquire(look));
  for (ElementWidget* widget : widgets) pool.recycle(*widget);
  for (std::size_t i = 0; i < looks.size(); ++i)
    EXPECT_EQ(&pool.acquire(looks[i]), widgets[i]) << i;
  EXPECT_EQ(pool.size(), looks.size());
  const ui::Element quietButton =
      element(ui::Button("t", [] {}).foregroundStyle(ui::ForegroundStyle::secondary));
  pool.recycle(*widgets[3]);
  EXPECT_EQ(&pool.acquire(quietButton), widgets[3]) << "a button's colour is not its own";
  EXPECT_EQ(widgets[1]->widget().font(), context.theme.font(ui::Font::caption));
}

TEST_F(WidgetPoolTest, UnusedWidgetsAreHiddenOnlyAtTheEndOfThePass) {
  page.show();
  ElementWidget& one = pool.acquire(text);
  one.widget().show();
  pool.recycle(one);
  EXPECT_FALSE(one.widget().isHidden()) << "it may only move";
  pool.hideUnused();
  EXPECT_TRUE(one.widget().isHidden());
}

TEST_F(WidgetPoolTest, OfManyUnusedWidgetsTheOldestAreDeletedLater) {
  std::vector<ElementWidget*> widgets;
  for (int i = 0; i < 30; ++i) widgets.push_back(&pool.acquire(text));
  const QPointer<QWidget> oldest = &widgets.front()->widget();
  for (ElementWidget* widget : widgets) pool.recycle(*widget);
  EXPECT_EQ(pool.size(), 30u);
  pool.hideUnused();
  EXPECT_EQ(pool.size(), 24u);
  EXPECT_TRUE(oldest) << "the signal that is handled may be its own";
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_FALSE(oldest);
  for (std::size_t i = 30; i-- > 6;) EXPECT_EQ(&pool.acquire(text), widgets[i]);
  EXPECT_EQ(pool.size(), 24u);
}

TEST_F(WidgetPoolTest, AnotherFontReachesUnusedWidgetsToo) {
  ElementWidget& lent = pool.acquire(text);
  ElementWidget& resting = pool.acquire(text);
  pool.recycle(resting);
  ui::Environment environment;
  environment.textScale = 2;
  context.theme = Theme(QApplication::font(), QApplication::palette(), environment);
  pool.restyle();
  EXPECT_EQ(lent.widget().font(), context.theme.font(ui::Font::body));
  EXPECT_EQ(resting.widget().font(), context.theme.font(ui::Font::body));
}

TEST_F(WidgetPoolTest, AWidgetOfAnotherShapeIsReusedAndRestyled) {
  const ui::Element caption = element(ui::Text("t").font(ui::Font::caption));
  ElementWidget& one = pool.acquire(text);
  pool.changeKey(one, text);
  EXPECT_EQ(one.widget().font(), context.theme.font(ui::Font::body));
  pool.changeKey(one, caption);
  EXPECT_EQ(one.widget().font(), context.theme.font(ui::Font::caption));
  EXPECT_EQ(pool.size(), 1u);
  ui::Environment environment;
  environment.textScale = 2;
  context.theme = Theme(QApplication::font(), QApplication::palette(), environment);
  pool.restyle();
  EXPECT_EQ(one.widget().font(), context.theme.font(ui::Font::caption));
  pool.recycle(one);
  EXPECT_NE(&pool.acquire(text), &one);
  EXPECT_EQ(&pool.acquire(caption), &one);
}
