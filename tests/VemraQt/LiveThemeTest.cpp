// Themes that change while the page is in use.

#include "VemraQt/HighContrast.hpp"
#include "VemraQt/Picture.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QWidget>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

QColor pageColor(const qt::ViewWidget& widget) {
  return const_cast<qt::ViewWidget&>(widget).grab().toImage().pixelColor(3, 3);
}

}  // namespace

TEST(LiveTheme, TheEnvironmentsColourSchemeIsShown) {
  WindowHost host(resultWith(3));
  EXPECT_EQ(pageColor(host.widget), QApplication::palette().color(QPalette::Base));
  ui::Environment environment;
  environment.colorScheme = ui::ColorScheme::dark;
  host.widget.setEnvironment(environment);
  EXPECT_LT(pageColor(host.widget).lightness(), 60);
  environment.colorScheme = ui::ColorScheme::light;
  host.widget.setEnvironment(environment);
  EXPECT_GT(pageColor(host.widget).lightness(), 200);
}

TEST(LiveTheme, AnEnvironmentThatAnActionSetsTakesEffect) {
  qt::ViewWidget widget;
  ui::Environment dark;
  dark.colorScheme = ui::ColorScheme::dark;
  widget.setRoot(ui::Button("Dark", [&] { widget.setEnvironment(dark); }));
  widget.resize(200, 200);
  widget.show();
  QApplication::processEvents();
  ASSERT_GT(widget.palette().color(QPalette::Base).lightness(), 200);
  widget.findChild<QPushButton*>()->click();
  EXPECT_LT(widget.palette().color(QPalette::Base).lightness(), 60);
}

TEST(LiveTheme, AnEnvironmentThatTheGraphsOwnerSetsTakesEffect) {
  ui::ViewGraph graph;
  graph.setRoot(ui::Text("x"));
  qt::ViewWidget widget(graph);
  ui::Environment environment;
  environment.colorScheme = ui::ColorScheme::dark;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  graph.setEnvironment(environment);
  EXPECT_LT(widget.palette().color(QPalette::Base).lightness(), 60);
  EXPECT_EQ(widget.layoutDirection(), Qt::RightToLeft);
  EXPECT_GT(pageOf(widget).theme().text(ui::ForegroundStyle::primary).lightness(), 200);
}

TEST(LiveTheme, AWindowThatFollowsTheSystemTurnsDarkAndHighContrastWithIt) {
  AsBefore asBefore;
  qt::ViewWidget widget;
  WindowHost host(resultWith(3));
  widget.setRoot(host.view());
  widget.resize(400, 400);
  widget.show();
  QApplication::setPalette(qt::highContrastPalette());
  QApplication::processEvents();
  EXPECT_EQ(widget.environment().colorScheme, ui::ColorScheme::dark);
  EXPECT_EQ(pageColor(widget), QColor(Qt::black));
  EXPECT_EQ(pageOf(widget).theme().text(ui::ForegroundStyle::primary), QColor(Qt::white));
  EXPECT_EQ(pageOf(widget).theme().link(), QColor(Qt::yellow));
  QApplication::setPalette(asBefore.palette);
  QApplication::processEvents();
  EXPECT_EQ(widget.environment().colorScheme, ui::ColorScheme::light);
  EXPECT_GT(pageColor(widget).lightness(), 200);
}

TEST(LiveTheme, ADarkViewInALightWindowTurnsHighContrastWithTheSystem) {
  AsBefore asBefore;
  ui::ViewGraph graph;
  graph.setRoot(ui::Text("x"));
  QWidget window;
  qt::ViewWidget widget(graph, &window);
  window.show();
  ui::Environment environment;
  environment.colorScheme = ui::ColorScheme::dark;
  graph.setEnvironment(environment);
  QApplication::setPalette(qt::highContrastPalette());
  QApplication::processEvents();
  EXPECT_EQ(pageColor(widget), QColor(Qt::black));
  EXPECT_EQ(pageOf(widget).theme().link(), QColor(Qt::yellow));
  QApplication::setPalette(asBefore.palette);
  QApplication::processEvents();
  EXPECT_GT(pageColor(widget).lightness(), 0) << "dark, as the environment wants";
  EXPECT_LT(pageColor(widget).lightness(), 60);
}

TEST(LiveTheme, TheSystemsDirectionIsFollowed) {
  WindowHost host(resultWith(3));
  qt::ViewWidget following;
  following.setRoot(host.view());
  following.resize(400, 400);
  following.show();
  const auto place = [&] {
    const auto* name = following.findChild<QWidget*>("vemra.goal.person.p0.outcome.start");
    return name->mapTo(&following, name->rect().center()).x();
  };
  EXPECT_LT(place(), 200);
  QApplication::setLayoutDirection(Qt::RightToLeft);
  EXPECT_EQ(following.environment().layoutDirection, ui::LayoutDirection::rightToLeft);
  EXPECT_GT(place(), 200);
  EXPECT_EQ(host.widget.layoutDirection(), Qt::LeftToRight) << "the host has set another one";
  QApplication::setLayoutDirection(Qt::LeftToRight);
  EXPECT_LT(place(), 200);
}

TEST(LiveTheme, TheSystemsFontSizeIsFollowed) {
  AsBefore asBefore;
  WindowHost host(resultWith(3));
  const auto& button = host.get<QPushButton>("vemra.goal.person.p0.outcome.start");
  const int size = QFontInfo(button.font()).pixelSize();
  const int height = host.widget.contentHeight();
  QFont larger = QApplication::font();
  larger.setPixelSize(26);
  QApplication::setFont(larger);
  QApplication::processEvents();
  const auto& same = host.get<QPushButton>("vemra.goal.person.p0.outcome.start");
  EXPECT_EQ(QFontInfo(same.font()).pixelSize(), 2 * size);
  EXPECT_GT(host.widget.contentHeight(), height * 5 / 4);
}

TEST(LiveTheme, TypedTextSurvivesEveryChangeOfLooks) {
  WindowHost host(resultWith(30));
  host.press("vemra.goal.person.p1.outcome.start");
  auto& note = host.get<QLineEdit>("vemra.goal.person.p1.outcome.note");
  note.setFocus();
  note.setText("typed");
  note.setCursorPosition(2);
  ui::Environment environment;
  for (double scale : {2.0, 1.0}) {
    environment.textScale = scale;
    environment.colorScheme = ui::ColorScheme::dark;
    environment.layoutDirection = ui::LayoutDirection::rightToLeft;
    host.widget.setEnvironment(environment);
    EXPECT_EQ(host.find("vemra.goal.person.p1.outcome.note"), &note);
    EXPECT_TRUE(note.hasFocus());
    EXPECT_EQ(note.text(), "typed");
    EXPECT_EQ(note.cursorPosition(), 2);
  }
}

TEST(LiveTheme, APictureIsMadeWithoutAWindow) {
  WindowHost host(resultWith(3));
  ui::Environment environment;
  const QImage image = qt::picture(host.view(), environment, QSize(480, 640));
  EXPECT_EQ(image.size(), QSize(480, 640));
  const QImage whole = qt::picture(host.view(), environment, QSize(480, 0));
  EXPECT_EQ(whole.width(), 480);
  EXPECT_GT(whole.height(), 300);
  ui::ViewGraph graph;
  graph.setRoot(host.view());
  EXPECT_EQ(qt::picture(graph, QSize(480, 0)).height(), whole.height());
}
