#include "VemraQt/Picture.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"

#include <stdexcept>

#include <gtest/gtest.h>

using namespace vemra;
using ui::sample::list;

TEST(Picture, HasTheRequestedSize) {
  EXPECT_EQ(qt::picture(list(ui::sample::numbered(5)), {}, QSize(300, 200)).size(),
            QSize(300, 200));
  EXPECT_EQ(qt::picture(list(ui::sample::numbered(500)), {}, QSize(300, 200)).size(),
            QSize(300, 200));
}

TEST(Picture, WithoutAHeightIsAsHighAsThePage) {
  const int five = qt::picture(list(ui::sample::numbered(5)), {}, QSize(300, 0)).height();
  const int ten = qt::picture(list(ui::sample::numbered(10)), {}, QSize(300, 0)).height();
  EXPECT_EQ(ten, 2 * five);
  EXPECT_LT(ten, 600);
  EXPECT_GT(qt::picture(list(ui::sample::numbered(100)), {}, QSize(300, 0)).height(), 1200);
}

TEST(Picture, OfAPageHigherThanSixteenThousandPixelsEndsThere) {
  const QImage cut = qt::picture(list(ui::sample::numbered(3000)), {}, QSize(300, 0));
  EXPECT_EQ(cut.size(), QSize(300, 16'000));
  const QRect lastLines(0, 15'900, 300, 100);
  const QColor ground = cut.pixelColor(299, 15'999);
  bool isWritten = false;
  for (int y = lastLines.top(); y <= lastLines.bottom(); ++y) {
    for (int x = 0; x < 300; ++x) isWritten = isWritten || cut.pixelColor(x, y) != ground;
  }
  EXPECT_TRUE(isWritten) << "the page goes on to the end of the picture";
}

TEST(Picture, OfNothingIsOnePixelHigh) {
  EXPECT_EQ(qt::picture(ui::View(), {}, QSize(300, 0)).size(), QSize(300, 1));
}

TEST(Picture, OfAGraphOfTheCallerKeepsItsState) {
  ui::ViewGraph graph;
  graph.setRoot(ui::sample::Counter{});
  ui::sample::press(graph, "+");
  const QImage one = qt::picture(graph, QSize(300, 0));
  EXPECT_EQ(ui::sample::texts(graph.root()).front(), "counter=1");
  EXPECT_EQ(qt::picture(graph, QSize(300, 0)), one);
  ui::sample::press(graph, "+");
  EXPECT_NE(qt::picture(graph, QSize(300, 0)), one);
}

TEST(Picture, OfATreeThatCannotBeDescribedRethrowsTheBodysException) {
  bool fails = false;
  ui::ViewGraph graph;
  graph.setRoot(ui::sample::Body{[&]() -> ui::View {
    if (fails) throw std::runtime_error("no body");
    return ui::Text("x");
  }});
  fails = true;
  EXPECT_THROW(qt::picture(graph, QSize(300, 0)), std::runtime_error);
  EXPECT_TRUE(graph.root()) << "the tree keeps its content";
  fails = false;
  EXPECT_GT(qt::picture(graph, QSize(300, 0)).height(), 10);
}
