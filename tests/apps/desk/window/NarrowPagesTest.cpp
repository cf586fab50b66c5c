// The pages of a small window with large text: no text and no title of a button is cut.

#include "apps/desk/window/KeyboardHelp.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/StorePage.hpp"
#include "apps/desk/window/Welcome.hpp"
#include "apps/desk/window/WrappingButton.hpp"

#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QTextEdit>
#include <QTextTable>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

/// Shows what Qt hands to the style.
class SeenButton : public WrappingButton {
 public:
  using WrappingButton::WrappingButton;

  QStringList lines() const {
    QStyleOptionButton option;
    initStyleOption(&option);
    return option.text.split(u'\n');
  }
};

/// 360 by 460 pixels, the text at 214 %.
class NarrowPagesTest : public ::testing::Test {
 protected:
  NarrowPagesTest() {
    QFont font = QApplication::font();
    font.setPointSizeF(font.pointSizeF() * 2.14);
    pages.setFont(font);
    pages.resize(360, 460);
  }

  void show(QWidget& page) {
    pages.addScrolledPage(page);
    pages.showPage(page);
    pages.show();
    QApplication::processEvents();
    ASSERT_EQ(pages.width(), 360);
  }

  static void expectNothingCut(const QWidget& page) {
    for (const auto* label : page.findChildren<QLabel*>()) {
      EXPECT_GE(label->height(), label->heightForWidth(label->width()))
          << label->text().toStdString();
      EXPECT_TRUE(page.rect().contains(label->geometry())) << label->text().toStdString();
    }
    for (const auto* button : page.findChildren<QPushButton*>()) {
      EXPECT_GE(button->width(), button->minimumSizeHint().width()) << button->text().toStdString();
      EXPECT_GE(button->height(), button->heightForWidth(button->width()))
          << button->text().toStdString();
      EXPECT_TRUE(page.rect().contains(button->geometry())) << button->text().toStdString();
    }
    EXPECT_LE(page.width(), 360);
  }

  Pages pages;
};

TEST_F(NarrowPagesTest, TheEmptyPageScrolls) {
  auto* page = new Welcome;
  show(*page);
  expectNothingCut(*page);
  EXPECT_GT(page->height(), 460);
  EXPECT_TRUE(pages.findChild<QScrollArea*>()->verticalScrollBar()->isVisible());
  EXPECT_EQ(pages.currentPage(), page);
}

TEST_F(NarrowPagesTest, ThePageOfAStoreThatCannotBeOpenedScrolls) {
  auto* page = new StorePage;
  page->setProblem({"/a/rather/long/name/of/a/folder/goals.sqlite", nullptr,
                    "/a/rather/long/name/of/a/folder/goals.sqlite: is not an SQLite database",
                    true});
  show(*page);
  expectNothingCut(*page);
}

TEST_F(NarrowPagesTest, TheMeaningOfAKeyStandsBelowItWhereTwoColumnsHaveNoRoom) {
  const QFont before = QApplication::font();
  const auto columnsAt = [&](double scale) {
    QFont font = before;
    font.setPointSizeF(before.pointSizeF() * scale);
    QApplication::setFont(font);
    const KeyboardHelp help(&pages);
    QApplication::setFont(before);
    const auto* text = help.findChild<QTextEdit*>();
    const auto frames = text->document()->rootFrame()->childFrames();
    return qobject_cast<const QTextTable*>(frames.constFirst())->columns();
  };
  EXPECT_EQ(columnsAt(1), 2);
  EXPECT_EQ(columnsAt(4), 1) << "the screen has 800 pixels";
}

TEST_F(NarrowPagesTest, AButtonBreaksATitleThatIsWiderThanItAtBlanks) {
  SeenButton button("Open another store");
  const QSize whole = button.sizeHint();
  button.resize(whole);
  EXPECT_EQ(button.lines(), QStringList{"Open another store"});
  button.resize(whole.width() * 2 / 3, whole.height());
  EXPECT_GT(button.lines().size(), 1);
  EXPECT_EQ(button.lines().join(" "), "Open another store");
  EXPECT_GT(button.heightForWidth(button.width()), whole.height());
  EXPECT_EQ(button.sizeHint(), whole);
  EXPECT_EQ(button.text(), "Open another store") << "for assistive technology";
}

}  // namespace
}  // namespace vemra::desk
