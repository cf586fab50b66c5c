// The focused control is removed during an event, and no element near it can have the focus.

#include "VemraPlatform/ui/View.hpp"
#include "tests/VemraPlatform/page/Once.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;

namespace {

using ui::sample::Line;

class FocusLost : public qttest::ShownWidget {};

}  // namespace

// The tests of the page itself state which control gets the focus when there is one.
TEST_F(FocusLost, AmongRowsWithoutControlsThePageItselfGetsTheFocus) {
  widget.setRoot(ui::sample::list(ui::sample::numbered(300), [](const Line& line) -> ui::View {
    if (line.id == "row150") return page::sample::Once{line.id};
    return ui::Text(ui::verbatim(line.id));
  }));
  QScrollBar& bar = *widget.verticalScrollBar();
  bar.setValue(bar.maximum() / 2);
  auto* button = widget.viewport()->findChild<QPushButton*>("row150");
  ASSERT_TRUE(button);
  button->setFocus();
  const int before = bar.value();
  button->click();
  EXPECT_FALSE(qttest::pageOf(widget).focusedNode());
  EXPECT_TRUE(widget.hasFocus());
  EXPECT_EQ(bar.value(), before) << "a search without a result moves nothing";
}

// Qt by itself would move it to the next widget of the window.
TEST(FocusLostInAWindow, ThePageItselfGetsTheFocusAndNotTheWidgetAfterIt) {
  QWidget window;
  window.resize(300, 200);
  QLineEdit before(&window);
  qt::ViewWidget page(&window);
  page.setGeometry(0, 40, 300, 100);
  QLineEdit after(&window);
  after.move(0, 150);
  page.setRoot(page::sample::Once{"only"});
  window.show();
  activate(window);
  auto* button = page.findChild<QPushButton*>("only");
  ASSERT_TRUE(button);
  button->setFocus();
  button->click();
  EXPECT_TRUE(page.hasFocus());
}
