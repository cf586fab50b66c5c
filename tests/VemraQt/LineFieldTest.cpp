// The text field's widget: the events that it sends to its element, and its accessible object.

#include "VemraQt/widgets/LineField.hpp"
#include "tests/VemraPlatform/ui/Sample.hpp"
#include "tests/VemraQt/Accessibility.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <algorithm>
#include <string>
#include <variant>
#include <vector>

#include <QApplication>
#include <QTest>
#include <gmock/gmock.h>

using namespace vemra;
using namespace vemra::qttest;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class LineFieldTest : public ShownWidget {
 protected:
  LineFieldTest() {
    pageOf(widget).onDeliver = [this](ui::NodeID, const ui::Event& event) {
      if (const auto* edit = std::get_if<ui::EditText>(&event)) said.push_back(edit->text);
      if (std::holds_alternative<ui::Submit>(event)) said.emplace_back("submit");
    };
    show();
  }

  ui::View field(const std::string& id = "field", ui::Action submit = nullptr) {
    return ui::TextField("Note", ui::Binding<std::string>([this] { return text; },
                                                          [this](std::string edited) {
                                                            text = std::move(edited);
                                                            show();
                                                          }))
        .onSubmit(std::move(submit))
        .accessibilityIdentifier(id);
  }
  void show() { widget.setRoot(field().disabled(disabled)); }
  void showText(const std::string& other) {
    text = other;
    show();
  }

  qt::LineField& edit() const { return *widget.viewport()->findChild<qt::LineField*>("field"); }
  QAccessibleInterface& element() const {
    return *QAccessible::accessibleInterface(identifiersOf(widget).find("field").front());
  }

  std::string text;
  bool disabled = false;
  std::vector<std::string> said;
};

}  // namespace

TEST_F(LineFieldTest, SendsTheTypedTextAndNotTheShownText) {
  showText("shown");
  EXPECT_EQ(edit().text(), "shown");
  EXPECT_THAT(said, IsEmpty());
  edit().setFocus();
  QTest::keyClicks(&edit(), "!?");
  EXPECT_THAT(said, ElementsAre("shown!", "shown!?"));
  EXPECT_EQ(text, "shown!?");
}

TEST_F(LineFieldTest, ReturnIsSubmittedAndChangesNothing) {
  showText("note");
  QTest::keyClick(&edit(), Qt::Key_Return);
  QTest::keyClick(&edit(), Qt::Key_Enter);
  EXPECT_THAT(said, ElementsAre("submit", "submit"));
  EXPECT_EQ(edit().text(), "note");
}

TEST_F(LineFieldTest, ReturnThatIsHeldDownIsSubmittedOnce) {
  int submitted = 0;
  widget.setRoot(field("field", [&] { ++submitted; }));
  QKeyEvent first(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
  QKeyEvent again(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r", true);
  QApplication::sendEvent(&edit(), &first);
  QApplication::sendEvent(&edit(), &again);
  EXPECT_EQ(submitted, 1);
}

TEST_F(LineFieldTest, ReturnRunsTheSubmitActionWithTheTypedText) {
  std::vector<std::string> submitted;
  widget.setRoot(field("field", [&] { submitted.push_back(text); }));
  edit().setFocus();
  QTest::keyClicks(&edit(), "a");
  widget.setRoot(field("field", [&] { submitted.push_back(text + '!'); }));
  QTest::keyClick(&edit(), Qt::Key_Return);
  EXPECT_THAT(submitted, ElementsAre("a!")) << "of the last description";
}

TEST_F(LineFieldTest, AFieldWithASubmitActionHasItForAClientToo) {
  EXPECT_EQ(element().actionInterface()->actionNames(), QStringList("SetFocus"));
  EXPECT_FALSE(qttest::act(element(), "Submit"));
  bool submitted = false;
  widget.setRoot(field("field", [&] { submitted = true; }).disabled(true));
  EXPECT_EQ(element().actionInterface()->actionNames(), QStringList({"Submit", "SetFocus"}));
  act(element(), "Submit");
  EXPECT_FALSE(submitted) << "of a disabled field";
  widget.setRoot(field("field", [&] { submitted = true; }));
  act(element(), "Submit");
  EXPECT_TRUE(submitted);
}

TEST_F(LineFieldTest, TheCursorStaysInPlaceAndIsAtTheEndAtFirst) {
  showText("first");
  EXPECT_EQ(edit().cursorPosition(), 5);
  showText("the second");
  EXPECT_EQ(edit().cursorPosition(), 10) << "without the focus";
  edit().setFocus();
  edit().setCursorPosition(3);
  showText("the third one");
  EXPECT_EQ(edit().cursorPosition(), 3);
  edit().setSelection(0, 3);
  show();
  EXPECT_EQ(edit().selectedText(), "the") << "an equal text is not written";
}

TEST_F(LineFieldTest, TakesTextsOfAnyLength) {
  showText(std::string(100'000, 'w'));
  EXPECT_EQ(edit().text().size(), 100'000);
  EXPECT_EQ(edit().accessibleName(), "Note");
  EXPECT_FALSE(edit().hasFrame());
  EXPECT_EQ(edit().focusPolicy(), Qt::ClickFocus);
}

TEST_F(LineFieldTest, ThePlaceholderOfADisabledFieldIsFainter) {
  const auto ink = [&] {
    const QImage inside = edit().grab(edit().rect().adjusted(4, 4, -4, -4)).toImage();
    int darkest = 255;
    for (int y = 0; y < inside.height(); ++y) {
      for (int x = 0; x < inside.width(); ++x) {
        darkest = std::min(darkest, inside.pixelColor(x, y).lightness());
      }
    }
    return darkest;
  };
  const qt::Theme theme(QFont(), QApplication::palette(), {});
  const OtherWindow other;
  EXPECT_NEAR(ink(), theme.text(ui::ForegroundStyle::tertiary).lightness(), 8);
  disabled = true;
  show();
  EXPECT_NEAR(ink(), theme.disabledText().lightness(), 8);
}

TEST_F(LineFieldTest, TheNextElementHasNoUndoHistoryOfThePreviousElement) {
  edit().setFocus();
  QTest::keyClicks(&edit(), "secret");
  qt::LineField& first = edit();
  widget.setRoot(ui::View());
  said.clear();
  text = "next";
  widget.setRoot(ui::Group({ui::Text("x"), field()}));
  EXPECT_EQ(&edit(), &first) << "the same widget";
  EXPECT_FALSE(edit().isUndoAvailable());
  EXPECT_EQ(edit().text(), "next");
  EXPECT_THAT(said, IsEmpty());
}

TEST_F(LineFieldTest, IsEditableTextForAClient) {
  showText("one two");
  QAccessibleTextInterface& shown = *element().textInterface();
  QAccessibleEditableTextInterface& editable = *element().editableTextInterface();
  EXPECT_EQ(shown.characterCount(), 7);
  EXPECT_EQ(shown.cursorPosition(), 7);
  shown.setCursorPosition(3);
  EXPECT_EQ(edit().cursorPosition(), 3);
  EXPECT_EQ(shown.cursorPosition(), 3);
  EXPECT_EQ(shown.selectionCount(), 0);
  int start = 9, end = 9;
  shown.selection(0, &start, &end);
  EXPECT_EQ(start + end, 0);
  shown.addSelection(4, 7);
  EXPECT_EQ(edit().selectedText(), "two");
  EXPECT_EQ(shown.selectionCount(), 1);
  shown.selection(0, &start, &end);
  EXPECT_EQ(start, 4);
  EXPECT_EQ(end, 7);
  shown.setSelection(0, 0, 3);
  EXPECT_EQ(edit().selectedText(), "one");
  shown.removeSelection(0);
  EXPECT_FALSE(edit().hasSelectedText());
  editable.deleteText(3, 7);
  EXPECT_EQ(text, "one");
  editable.insertText(0, "[");
  EXPECT_EQ(text, "[one");
  editable.replaceText(1, -1, "two]");
  EXPECT_EQ(text, "[two]");
  editable.replaceText(3, 1, "_");
  EXPECT_EQ(text, "[tw_o]") << "an end before the start is the start";
  editable.insertText(100, "!");
  EXPECT_EQ(text, "[tw_o]!");
  editable.deleteText(-3, 2);
  EXPECT_EQ(text, "w_o]!");
  element().setText(QAccessible::Value, "whole");
  EXPECT_EQ(text, "whole");
  element().setText(QAccessible::Name, "name");
  EXPECT_EQ(text, "whole");
  EXPECT_EQ(element().text(QAccessible::Value), "whole");
  EXPECT_EQ(element().text(QAccessible::Name), "Note");
}

TEST_F(LineFieldTest, ADisabledFieldIsReadOnlyForAClient) {
  disabled = true;
  showText("note");
  const QAccessible::State state = element().state();
  EXPECT_FALSE(state.editable || state.focusable);
  EXPECT_TRUE(state.disabled && state.selectableText);
  element().editableTextInterface()->insertText(0, "x");
  EXPECT_EQ(text, "note");
  disabled = false;
  show();
  EXPECT_TRUE(element().state().editable && element().state().focusable);
}

TEST_F(LineFieldTest, WithoutAWidgetAClientCanStillReadAndEditIt) {
  text = "far";
  widget.setRoot(ui::VStack(ui::HorizontalAlignment::leading, 0,
                            {ui::sample::list(ui::sample::numbered(300)), field()}));
  for (const auto* other : widget.viewport()->findChildren<qt::LineField*>()) {
    ASSERT_FALSE(other->node());
  }
  QAccessibleTextInterface& shown = *element().textInterface();
  EXPECT_EQ(shown.text(0, -1), "far");
  EXPECT_EQ(shown.cursorPosition(), 3) << "at the end";
  shown.setCursorPosition(1);
  shown.setSelection(0, 0, 2);
  shown.removeSelection(0);
  EXPECT_EQ(shown.selectionCount(), 0);
  element().editableTextInterface()->insertText(3, " away");
  EXPECT_EQ(text, "far away");
}
