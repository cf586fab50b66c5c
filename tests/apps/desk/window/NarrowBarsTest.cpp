// The bars and questions of a narrow window with large text.

#include "apps/desk/window/CloseQuestion.hpp"
#include "apps/desk/window/FindBar.hpp"
#include "apps/desk/window/GoalsBar.hpp"
#include "apps/desk/window/HelpBoxes.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/WaitingBar.hpp"
#include "apps/desk/window/WholeTitles.hpp"
#include "tests/apps/TemporaryFolder.hpp"

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <iterator>
#include <regex>
#include <string>

#include <QApplication>
#include <QDialogButtonBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

QFont fontOf(double scale) {
  QFont font = QApplication::font();
  font.setPointSizeF(font.pointSizeF() * scale);
  return font;
}

/// The number of message boxes that the sources of the window make.
std::size_t boxesInSources() {
  static const std::regex made(R"rx(new QMessageBox\(|: QMessageBox\()rx");
  std::size_t count = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(VEMRA_REPOSITORY "/apps/desk/window")) {
    if (entry.path().extension() != ".cpp") continue;
    const std::string source = TemporaryFolder::readFile(entry.path().string());
    count += static_cast<std::size_t>(
        std::distance(std::sregex_iterator(source.begin(), source.end(), made), {}));
  }
  return count;
}

/// A window of 360 by 700 pixels with text of 200 % and a bar at its bottom.
class NarrowBarsTest : public ::testing::Test {
 protected:
  void show(QWidget& bar) {
    auto* column = new QVBoxLayout(&window);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QWidget, 1);
    column->addWidget(&bar);
    window.setFont(fontOf(2));
    window.resize(360, 700);
    window.show();
    bar.show();
    QApplication::processEvents();
    ASSERT_EQ(window.width(), 360);
  }

  static void expectWholeButtons(const QWidget& bar) {
    for (const auto* button : bar.findChildren<QPushButton*>()) {
      if (button->isHidden()) continue;
      EXPECT_GE(button->width(), button->sizeHint().width()) << button->text().toStdString();
      EXPECT_GE(button->height(), button->sizeHint().height()) << button->text().toStdString();
      EXPECT_TRUE(bar.rect().contains(button->geometry())) << button->text().toStdString();
    }
  }

  QWidget window;
};

TEST_F(NarrowBarsTest, TheFindBarKeepsItsButtonsWholeAndItsFieldWide) {
  auto* bar = new FindBar;
  show(*bar);
  bar->setResult("17 of 40", {});
  QApplication::processEvents();
  expectWholeButtons(*bar);
  const auto* result = bar->findChild<QLabel*>("desk.find.result");
  EXPECT_GE(result->width(), result->sizeHint().width());
  const auto* field = bar->findChild<QLineEdit*>();
  EXPECT_GE(field->width(), 10 * field->fontMetrics().averageCharWidth());
}

TEST_F(NarrowBarsTest, TheFieldOfAFindBarHasRoomForANameAtEveryWidthAndSizeOfText) {
  for (const double scale : {0.6, 1.0, 1.5, 2.0}) {
    FindBar bar;
    bar.setFont(fontOf(scale));
    bar.show();
    bar.setResult("1,234 of 12,345", {});
    const auto* field = bar.findChild<QLineEdit*>();
    for (int width = 360; width <= 1400; width += 20) {
      bar.resize(width, bar.sizeHint().height());
      QApplication::processEvents();
      const bool isOneLine = bar.findChild<QPushButton*>()->y() < field->geometry().bottom();
      const int characters = field->width() / field->fontMetrics().averageCharWidth();
      EXPECT_GE(characters, isOneLine ? 24 : 10) << scale << " at " << width;
    }
  }
}

TEST_F(NarrowBarsTest, AWideFindBarHasOneLine) {
  FindBar bar;
  bar.resize(1000, bar.sizeHint().height());
  bar.show();
  QApplication::processEvents();
  const int top = bar.findChild<QLineEdit*>()->geometry().center().y();
  for (const auto* button : bar.findChildren<QPushButton*>()) {
    EXPECT_LE(std::abs(button->geometry().center().y() - top), 1);
  }
}

TEST_F(NarrowBarsTest, AWaitingBarKeepsItsButtonsAndItsMessageWhole) {
  auto* bar = new WaitingBar;
  show(*bar);
  bar->setWaiting({{"1",
                    "No action taken",
                    "Ada Lovelace",
                    "Find a design lead for the spring",
                    "goals.sqlite: is in use by another program, which does not release it",
                    {}}});
  QApplication::processEvents();
  expectWholeButtons(*bar);
  const auto* message = bar->findChild<QLabel*>();
  EXPECT_GE(message->height(), message->heightForWidth(message->width()));
}

TEST_F(NarrowBarsTest, AHiddenPageTakesNoRoomFromTheBars) {
  Pages pages;
  auto* small = new QWidget;
  auto* large = new QWidget;
  small->setMinimumSize(20, 30);
  large->setMinimumSize(400, 500);
  pages.addWidget(large);
  pages.showPage(*small);
  EXPECT_EQ(pages.minimumSizeHint(), QSize(20, 30));
  pages.showPage(*large);
  EXPECT_EQ(pages.minimumSizeHint(), QSize(400, 500));
}

TEST_F(NarrowBarsTest, EachBoxStacksTheButtonsThatItsScreenHasNoRoomFor) {
  const std::vector<WaitingNote> waiting{{"1", "Helped", "Ada", "Sail", {}, {}}};
  const std::vector<std::function<void()>> boxes{
      [&] {
        new CloseQuestion(Leaving::closeWindow, {{}, waiting}, &window);
      },
      [&] { new CloseWait(Leaving::openAnotherStore, WaitFor::everything, &window); },
      [&] { new DiscardQuestion(waiting, &window); },
      [&] { showAbout(window); },
  };
  EXPECT_EQ(boxes.size(), boxesInSources()) << "a box is missing here";
  const QFont before = QApplication::font();
  for (const double scale : {1.0, 16.0}) {
    for (std::size_t i = 0; i < boxes.size(); ++i) {
      QApplication::setFont(fontOf(scale));
      boxes[i]();
      QApplication::setFont(before);
      auto* box = window.findChild<QMessageBox*>();
      ASSERT_NE(box, nullptr);
      EXPECT_EQ(box->findChild<QDialogButtonBox*>()->orientation(),
                scale > 1 && box->buttons().size() > 1 ? Qt::Vertical : Qt::Horizontal)
          << box->objectName().toStdString();
      for (const QAbstractButton* button : box->buttons()) EXPECT_TRUE(button->icon().isNull());
      delete box;
    }
  }
}

/// A box that is shown is measured only on the test's screen of 800 pixels.
TEST(WidestBox, QtKeepsABoxNarrowerThanALargeScreen) {
  EXPECT_EQ(widestBox(800), 800);
  EXPECT_EQ(widestBox(1024), 1024);
  EXPECT_EQ(widestBox(1100), 620);
  EXPECT_EQ(widestBox(1280), 800);
  EXPECT_EQ(widestBox(1920), 1000);
}

/// The columns of a picture that differ from its background, in its first and second half.
std::pair<int, int> columnsWithInk(const QImage& image) {
  std::pair<int, int> ink{0, 0};
  for (int x = 4; x < image.width() - 4; ++x) {
    for (int y = 4; y < image.height() - 4; ++y) {
      if (image.pixel(x, y) == image.pixel(image.width() / 2, y)) continue;
      ++(x < image.width() / 2 ? ink.first : ink.second);
      break;
    }
  }
  return ink;
}

TEST_F(NarrowBarsTest, TheArrowOfTheWayToTheGoalsStandsAtTheLeadingEdge) {
  for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
    GoalsBar bar;
    bar.setLayoutDirection(direction);
    bar.show();
    auto* button = bar.findChild<QToolButton*>("desk.goals.show");
    button->clearFocus();
    button->setText(" ");  // only the arrow is left
    button->setFixedWidth(80);
    QApplication::processEvents();
    const auto [left, right] = columnsWithInk(button->grab().toImage());
    EXPECT_GT(direction == Qt::LeftToRight ? left : right, 0);
    EXPECT_EQ(direction == Qt::LeftToRight ? right : left, 0);
  }
}

}  // namespace
}  // namespace vemra::desk
