// The focused control is removed during an event, and no element near it can have the focus.

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "tests/VemraPlatform/page/Once.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <functional>
#include <string>

#include <QApplication>
#include <QPushButton>
#include <QScrollBar>
#include <gtest/gtest.h>

using namespace vemra;

namespace {

using page::sample::Once;

ui::View button(const std::string& id) {
  return ui::Button(ui::verbatim(id), [] {}).accessibilityIdentifier(id);
}

/// Three hundred rows. The one in the middle has a button that disappears when it is pressed;
/// others have buttons where the test sets them.
class FocusLost : public ::testing::Test {
 protected:
  using Line = ui::sample::Line;

  FocusLost() {
    widget.setEnvironment({});
    widget.resize(300, 400);
    widget.show();
    widget.activateWindow();
    QApplication::setActiveWindow(&widget);
  }

  void show(const std::function<ui::View(const Line&)>& others) {
    widget.setRoot(ui::sample::list(ui::sample::numbered(300), [=](const Line& line) -> ui::View {
      return line.id == "row150" ? ui::View(Once{line.id}) : others(line);
    }));
    bar().setValue(bar().maximum() / 2);
    ASSERT_NE(find("row150"), nullptr);
    find("row150")->setFocus();
  }
  void press() { dynamic_cast<QPushButton&>(*find("row150")).click(); }

  QWidget* find(const std::string& identifier) const {
    return widget.viewport()->findChild<QWidget*>(QString::fromStdString(identifier));
  }
  std::string focused() const {
    const page::Node* const node = qttest::pageOf(widget).focusedNode();
    return node ? std::string(node->element.shownLabel()) : "nothing";
  }
  QScrollBar& bar() const { return *widget.verticalScrollBar(); }

  qt::ViewWidget widget;
};

ui::View textOf(const ui::sample::Line& line) {
  return ui::Text(ui::verbatim(line.id));
}

}  // namespace

TEST_F(FocusLost, AmongRowsWithoutControlsThePageItselfGetsTheFocus) {
  show(textOf);
  const int before = bar().value();
  press();
  EXPECT_EQ(focused(), "nothing");
  EXPECT_TRUE(widget.hasFocus());
  EXPECT_EQ(bar().value(), before) << "a search without a result moves nothing";
}

TEST_F(FocusLost, AmongRowsWithDisabledControlsThePageItselfGetsTheFocusToo) {
  show([](const Line& line) { return button(line.id).disabled(true); });
  press();
  EXPECT_EQ(focused(), "nothing");
  EXPECT_TRUE(widget.hasFocus());
}

TEST_F(FocusLost, AControlInARowFurtherDownGetsTheFocus) {
  show([](const Line& line) { return line.id == "row200" ? button(line.id) : textOf(line); });
  press();
  EXPECT_EQ(focused(), "row200");
}

TEST_F(FocusLost, WithoutAControlFurtherDownOneFurtherUpGetsTheFocus) {
  show([](const Line& line) { return line.id == "row100" ? button(line.id) : textOf(line); });
  press();
  EXPECT_EQ(focused(), "row100");
}
