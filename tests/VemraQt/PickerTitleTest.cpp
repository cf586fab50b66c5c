// The title of a picker in its widget: shown before the choice, unless it is hidden.

#include "tests/VemraQt/ShownPicker.hpp"

#include <string>

#include <QImage>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

class PickerTitleTest : public ShownPicker {
 protected:
  QImage picture() const { return box().grab().toImage(); }
  /// The part of the picture with the text, without the arrow at its end.
  QImage text() const { return picture().copy(0, 0, box().width() - 30, box().height()); }
  QImage pictureOf(const std::string& choice) {
    show({{choice, 1}});
    return picture();
  }
};

}  // namespace

TEST_F(PickerTitleTest, IsShownBeforeTheChoiceUnlessItIsHidden) {
  show({{"One", 1}});
  const QImage titled = text();
  EXPECT_EQ(box().currentText(), "One") << "the value for others is the choice alone";
  widget.setRoot(picker({{"Title: One", 1}}).labelsHidden());
  EXPECT_EQ(text().copy(titled.rect()), titled);
  widget.setRoot(picker({{"One", 1}}).labelsHidden());
  EXPECT_LT(text().width(), titled.width());
}

// The exclamation mark has no direction of its own: beside a title from left to right it would go
// to the right of the Hebrew letters.
TEST_F(PickerTitleTest, AChoiceFromRightToLeftKeepsItsDirection) {
  const std::string hebrew = "\u05d0\u05d1 5!";
  EXPECT_EQ(pictureOf(hebrew), pictureOf("\u2067" + hebrew + "\u2069"));
  EXPECT_NE(pictureOf(hebrew), pictureOf("\u2066" + hebrew + "\u2069"));
}
