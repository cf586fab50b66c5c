#include "VemraTesting/Names.hpp"

#include <gtest/gtest.h>

namespace vemra::testing {

using namespace ui;

TEST(NamesTest, AreThoseThatDevelopersWrite) {
  EXPECT_EQ(name(TextStyle::title2), "title2");
  EXPECT_EQ(name(TextStyle::headline), "headline");
  EXPECT_EQ(name(TextStyle::body), "body");
  EXPECT_EQ(name(TextStyle::subheadline), "subheadline");
  EXPECT_EQ(name(TextStyle::caption), "caption");
  EXPECT_EQ(name(TextStyle::caption2), "caption2");
  EXPECT_EQ(name(FontWeight::regular), "regular");
  EXPECT_EQ(name(FontWeight::medium), "medium");
  EXPECT_EQ(name(FontWeight::semibold), "semibold");
  EXPECT_EQ(name(FontWeight::bold), "bold");
  EXPECT_EQ(name(ForegroundStyle::primary), "primary");
  EXPECT_EQ(name(ForegroundStyle::secondary), "secondary");
  EXPECT_EQ(name(ForegroundStyle::tertiary), "tertiary");
  EXPECT_EQ(name(Edges::all), "all");
  EXPECT_EQ(name(Edges::horizontal), "horizontal");
  EXPECT_EQ(name(Edges::vertical), "vertical");
  EXPECT_EQ(name(ButtonStyle::automatic), "automatic");
  EXPECT_EQ(name(ButtonStyle::plain), "plain");
  EXPECT_EQ(name(PickerStyle::menu), "menu");
  EXPECT_EQ(name(TextFieldStyle::roundedBorder), "roundedBorder");
  EXPECT_EQ(name(HorizontalAlignment::leading), "leading");
  EXPECT_EQ(name(HorizontalAlignment::center), "center");
  EXPECT_EQ(name(VerticalAlignment::top), "top");
  EXPECT_EQ(name(VerticalAlignment::center), "center");
}

}  // namespace vemra::testing
