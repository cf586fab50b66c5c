// An element that keeps its identity keeps its widget, which gets the style of the new description.

#include "VemraQt/widgets/ChoiceBox.hpp"
#include "VemraQt/widgets/LineField.hpp"
#include "VemraQt/widgets/PushButton.hpp"
#include "VemraQt/widgets/TextLabel.hpp"
#include "tests/VemraQt/ShownPage.hpp"

#include <QFontInfo>
#include <QTest>
#include <gtest/gtest.h>

using namespace vemra;
using ui::ButtonStyle;
using ui::Font;

namespace {

class ChangedStyle : public qttest::ShownPage {
 protected:
  /// The widget of that class that shows an element.
  template <class Widget>
  Widget& shown() const {
    Widget* only = nullptr;
    for (auto* found : widget.viewport()->findChildren<Widget*>()) {
      if (!found->node()) continue;
      EXPECT_FALSE(only) << "more than one";
      only = found;
    }
    return *only;
  }
  /// A picture of the page on which the root was shown from the start.
  QImage pictureOf(const ui::View& root) const {
    qt::ViewWidget other;
    other.setEnvironment({});
    other.resize(widget.size());
    other.setRoot(root);
    other.show();
    return other.grab().toImage();
  }
};

}  // namespace

TEST_F(ChangedStyle, AButtonOfAnotherStyleKeepsItsWidgetAndLooksLikeANewOne) {
  for (const auto style : {ButtonStyle::automatic, ButtonStyle::plain, ButtonStyle::automatic}) {
    widget.setRoot(button(style));
    qt::PushButton& before = shown<qt::PushButton>();
    const auto other = style == ButtonStyle::plain ? ButtonStyle::automatic : ButtonStyle::plain;
    widget.setRoot(button(other));
    EXPECT_EQ(&shown<qt::PushButton>(), &before);
    EXPECT_EQ(widget.grab().toImage(), pictureOf(button(other)));
    EXPECT_EQ(before.cursor().shape(),
              other == ButtonStyle::plain ? Qt::PointingHandCursor : Qt::ArrowCursor);
  }
}

TEST_F(ChangedStyle, EveryKindOfElementShowsAnotherFont) {
  const auto page = [this](const Font& font) {
    return ui::VStack(ui::HorizontalAlignment::leading, 4,
                      {ui::Text("Text"), button(ButtonStyle::automatic), picker(), field()})
        .font(font);
  };
  widget.setRoot(page(Font::body));
  const QList<QWidget*> before = {&shown<qt::TextLabel>(), &shown<qt::PushButton>(),
                                  &shown<qt::ChoiceBox>(), &shown<qt::LineField>()};
  widget.setRoot(page(Font::title2));
  const QList<QWidget*> after = {&shown<qt::TextLabel>(), &shown<qt::PushButton>(),
                                 &shown<qt::ChoiceBox>(), &shown<qt::LineField>()};
  EXPECT_EQ(after, before);
  EXPECT_EQ(widget.grab().toImage(), pictureOf(page(Font::title2)));
  for (const QWidget* child : after) {
    EXPECT_GT(QFontInfo(child->font()).pixelSize(), QFontInfo(widget.font()).pixelSize());
  }
}

TEST_F(ChangedStyle, AFieldOfAnotherFontKeepsFocusCursorSelectionAndUndo) {
  widget.setRoot(field());
  auto& line = shown<qt::LineField>();
  line.setFocus();
  QTest::keyClicks(&line, "some words");
  line.setSelection(2, 3);
  widget.setRoot(field().font(Font::caption));
  ASSERT_EQ(&shown<qt::LineField>(), &line);
  EXPECT_TRUE(line.hasFocus());
  EXPECT_EQ(line.selectionStart(), 2);
  EXPECT_EQ(line.selectedText(), "me ");
  EXPECT_TRUE(line.isUndoAvailable());
  EXPECT_EQ(line.text(), "some words");
}

TEST_F(ChangedStyle, AnotherSystemFontReachesAnElementWhoseFontHasChanged) {
  widget.setRoot(ui::Text("Text"));
  widget.setRoot(ui::Text("Text").font(Font::title2));
  ui::Environment environment;
  environment.textScale = 2;
  widget.setEnvironment(environment);
  qt::ViewWidget other;
  other.setRoot(ui::Text("Text").font(Font::title2));
  other.setEnvironment(environment);
  other.show();
  EXPECT_EQ(shown<qt::TextLabel>().font(), other.viewport()->findChild<qt::TextLabel*>()->font());
}
