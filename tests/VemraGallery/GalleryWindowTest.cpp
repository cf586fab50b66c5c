#include "VemraGallery/GalleryWindow.hpp"
#include "VemraQt/ViewWidget.hpp"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace vemra::gallery {
namespace {

class GalleryWindowTest : public ::testing::Test {
 protected:
  GalleryWindowTest() {
    gallery_.add(
        {"Cards", "Ada",
         ui::Text(ui::verbatim("Winter")).padding(20).accessibilityIdentifier("ada.name")});
    gallery_.add({"Cards", "Bo", ui::Text(ui::verbatim("Summer"))});
    gallery_.addLanguage({.name = "Deutsch", .locale = "de_DE"});
    window_ = std::make_unique<GalleryWindow>(gallery_);
    window_->setAttribute(Qt::WA_DontShowOnScreen);
    window_->show();
    QApplication::processEvents();
  }

  void choose(const char* name, int index) {
    window_->findChild<QComboBox*>(name)->setCurrentIndex(index);
  }
  QList<qt::ViewWidget*> views() const { return window_->findChildren<qt::ViewWidget*>(); }
  const ui::Environment& environment() const { return views().at(0)->graph().environment(); }
  QString found() const { return window_->findChild<QLabel*>("found")->text(); }

  Gallery gallery_{"Test"};
  std::unique_ptr<GalleryWindow> window_;
};

TEST_F(GalleryWindowTest, ShowsAllSpecimensSideBySide) {
  ASSERT_EQ(views().size(), 2);
  EXPECT_TRUE(views()[0]->isVisible());
  EXPECT_TRUE(views()[1]->isVisible());
  const QRect first(views()[0]->mapTo(window_.get(), QPoint()), views()[0]->size());
  const QRect second(views()[1]->mapTo(window_.get(), QPoint()), views()[1]->size());
  EXPECT_LT(first.right(), second.left());
  EXPECT_EQ(first.top(), second.top());
}

TEST_F(GalleryWindowTest, MakesEachViewAsHighAsItsPage) {
  const auto room = [&] { return views()[0]->viewport()->height(); };
  EXPECT_GE(room(), views()[0]->contentHeight());
  EXPECT_LT(room(), 100);
  choose("textSize", 3);
  EXPECT_GE(room(), views()[0]->contentHeight()) << "with larger text, too";
}

TEST_F(GalleryWindowTest, SwitchesLanguageColoursTextSizeDirectionAndWidth) {
  choose("language", 1);
  EXPECT_EQ(environment().locale, "de_DE");
  choose("colours", 1);
  EXPECT_EQ(environment().colorScheme, ui::ColorScheme::dark);
  choose("textSize", 2);
  EXPECT_EQ(environment().textScale, 2.0);
  choose("direction", 2);
  EXPECT_EQ(environment().layoutDirection, ui::LayoutDirection::rightToLeft);
  choose("width", 2);
  EXPECT_EQ(views().at(0)->width(), 720);
  EXPECT_EQ(environment().locale, "de_DE") << "one switch leaves the others";
}

TEST_F(GalleryWindowTest, HighContrastIsAnApplicationPaletteThatEndsWithTheWindow) {
  const QPalette before = QApplication::palette();
  choose("colours", 2);
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(Qt::black));
  window_.reset();
  EXPECT_EQ(QApplication::palette().color(QPalette::Window), before.color(QPalette::Window));
}

TEST_F(GalleryWindowTest, FindsByNameTextAndIdentifier) {
  auto* const search = window_->findChild<QLineEdit*>("search");
  EXPECT_EQ(found(), "2 of 2");
  for (const char* text : {"aDA", "winter", "ada.name"}) {
    search->setText(text);
    EXPECT_EQ(found(), "1 of 2") << text;
    EXPECT_TRUE(views()[0]->isVisible()) << text;
    EXPECT_FALSE(views()[1]->isVisible()) << text;
  }
  search->setText("nothing of the kind");
  EXPECT_EQ(found(), "0 of 2");
  search->clear();
  EXPECT_EQ(found(), "2 of 2");
}

}  // namespace
}  // namespace vemra::gallery
