// Compares pictures of the screen with tests/expected/pictures/*.png. VEMRA_UPDATE_EXPECTED=1 in
// the environment rewrites them; look at them before you commit them.

#include "VemraQt/HighContrast.hpp"
#include "tests/RecordBuilders.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/Strings.hpp"
#include "tests/VemraQt/WindowHost.hpp"
#include "tests/VemraQt/pictures/PictureDifference.hpp"

#include <cstdlib>

#include <QApplication>
#include <QDir>
#include <QFontInfo>
#include <QPainter>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using pictures::differenceOf;

namespace {

/// One of each variant: nothing recorded, recorded, corrected with a note, no name, no source.
Result oneOfEach() {
  Result result;
  result.goal.title = "Find a design lead for the harbour project";
  result.goal.targetPersonRef = "p9";
  result.people = {
      build::person("p1", "Ada Lovelace", {"ev p1"},
                    GoalWhyDTO::evidence("Email", "Asked about design leads in March", "r")),
      build::person("p2", "Bo Nygaard", {}, GoalWhyDTO::sharedActivity(3, 1)),
      build::person("p3", "Ren\u00e9e Descartes-Villanueva", {"ev p3"}, GoalWhyDTO::connection(3)),
      build::person("p4"),
  };
  result.paths = {build::path({"p1", "p9"})};
  result.coverage.sources = {"Mail", "Calendar"};
  result.coverage.evidenceCount = 12;
  result.coverage.latestEvidenceAt = "2025-01-05T10:00:00Z";
  using enum GoalOutcomeSubjectKind;
  result.outcomes = {build::outcome("o p2", person, "p2", GoalOutcomeValue::reachedOut),
                     build::outcome("o p3", person, "p3", GoalOutcomeValue::notAFit,
                                    "Moved to Lisbon; would help from there in autumn", "o1")};
  return result;
}

class Pictures : public ::testing::Test {
 protected:
  void SetUp() override {
    QFont font("DejaVu Sans");
    font.setPixelSize(13);
    // Independent of the machine's own settings.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setStyleStrategy(
        QFont::StyleStrategy(QFont::PreferAntialias | QFont::NoSubpixelAntialias));
    ASSERT_TRUE(QFontInfo(font).exactMatch()) << "the font DejaVu Sans is missing";
    QApplication::setFont(font);
    QApplication::setCursorFlashTime(0);
  }

  /// The window, as high as its page.
  static QImage pictureOf(WindowHost& host) {
    for (int round = 0; round < 4; ++round) {
      host.widget.resize(host.widget.width(), host.widget.contentHeight());
    }
    return host.widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  static QString expectedFile(const char* name) {
    return QStringLiteral(VEMRA_REPOSITORY "/tests/expected/pictures/%1.png").arg(name);
  }

  static void expectPicture(const char* name, const QImage& actual) {
    const QString version = QString::fromLatin1(qVersion());
    if (!version.startsWith("6.4.")) GTEST_SKIP() << "the expected pictures are those of Qt 6.4";
    const QString file = expectedFile(name);
    const char* update = std::getenv("VEMRA_UPDATE_EXPECTED");
    if (update && *update == '1') {
      ASSERT_TRUE(actual.save(file)) << qPrintable(file) << " cannot be written";
      return;
    }
    const QImage expected(file);
    ASSERT_FALSE(expected.isNull())
        << qPrintable(file) << " is missing; VEMRA_UPDATE_EXPECTED=1 writes it";
    const auto difference = differenceOf(actual, expected);
    if (!difference) return;
    const QString folder = QStringLiteral(VEMRA_BINARY_DIR "/tests/pictures");
    QDir().mkpath(folder);
    const QString stem = folder + "/" + name;
    actual.save(stem + ".actual.png");
    difference->picture.save(stem + ".difference.png");
    ADD_FAILURE() << name << " looks different: " << qPrintable(difference->what)
                  << "\n  expected    " << qPrintable(file) << "\n  actual      "
                  << qPrintable(stem) << ".actual.png\n  difference  " << qPrintable(stem)
                  << ".difference.png\nVEMRA_UPDATE_EXPECTED=1 rewrites what is expected.";
  }
};

constexpr QSize pageSize(560, 640);

ui::Environment in(ui::ColorScheme scheme) {
  ui::Environment environment;
  environment.colorScheme = scheme;
  return environment;
}

}  // namespace

TEST_F(Pictures, Light) {
  WindowHost host(oneOfEach(), pageSize);
  expectPicture("light", pictureOf(host));
}

TEST_F(Pictures, Dark) {
  WindowHost host(oneOfEach(), pageSize);
  host.widget.setEnvironment(in(ui::ColorScheme::dark));
  expectPicture("dark", pictureOf(host));
}

TEST_F(Pictures, HighContrast) {
  AsBefore asBefore;
  QApplication::setPalette(qt::highContrastPalette());
  WindowHost host(oneOfEach(), pageSize);
  host.widget.setEnvironment(in(ui::ColorScheme::dark));
  host.press("vemra.goal.person.p3.outcome.correct");
  expectPicture("high-contrast", pictureOf(host));
}

TEST_F(Pictures, Narrow) {
  Result result = oneOfEach();
  result.outcomes = {build::outcome("o p3", GoalOutcomeSubjectKind::person, "p3",
                                    GoalOutcomeValue::notAFit, "Moved to Lisbon\nback in autumn")};
  WindowHost host(result, QSize(320, 640));
  host.press("vemra.goal.person.p3.outcome.correct");
  expectPicture("narrow", pictureOf(host));
}

TEST_F(Pictures, TwiceTheSize) {
  WindowHost host(oneOfEach(), pageSize);
  ui::Environment environment;
  environment.textScale = 2;
  host.widget.setEnvironment(environment);
  expectPicture("200-percent", pictureOf(host));
}

TEST_F(Pictures, RightToLeft) {
  Result result = oneOfEach();
  result.people = {
      build::person(
          "p1", "\u05d3\u05e0\u05d4 \u05db\u05d4\u05df", {"ev p1"},
          GoalWhyDTO::evidence(
              "\u05d3\u05d5\u05d0\u05f4\u05dc",
              "\u05e9\u05d0\u05dc\u05d4 \u05e2\u05dc \u05de\u05e2\u05e6\u05d1\u05d9\u05dd", "r")),
      build::person("p3", "Ada Lovelace", {"ev p3"}, GoalWhyDTO::connection(3)),
  };
  WindowHost host(result, pageSize);
  ui::Environment environment;
  environment.layoutDirection = ui::LayoutDirection::rightToLeft;
  environment.locale = "he_IL";
  environment.strings = std::make_shared<HebrewStrings>();
  host.widget.setEnvironment(environment);
  host.press("vemra.goal.path.outcome.start");
  expectPicture("right-to-left", pictureOf(host));
}

TEST_F(Pictures, EditorsOpen) {
  WindowHost host(oneOfEach(), pageSize);
  host.press("vemra.goal.person.p3.outcome.correct");
  host.press("vemra.goal.person.p1.outcome.start");
  expectPicture("editors-open", pictureOf(host));
}

TEST_F(Pictures, Empty) {
  Result result;
  result.goal.title = "Find a design lead for the harbour project";
  WindowHost host(result, QSize(560, 300));
  expectPicture("empty", pictureOf(host));
}

// Differences that the comparison accepts, and those that it refuses.

TEST_F(Pictures, ATextMovedByOnePixelIsADifference) {
  const QImage light(expectedFile("light"));
  ASSERT_FALSE(light.isNull());
  WindowHost host(oneOfEach(), pageSize);
  (void)pictureOf(host);
  int texts = 0;
  for (QWidget* child : host.widget.viewport()->findChildren<QWidget*>()) {
    if (!child->isVisible()) continue;
    const QRect place(child->mapTo(&host.widget, QPoint(0, 0)), child->size());
    for (const QPoint& step : {QPoint(1, 0), QPoint(0, 1)}) {
      QImage moved = light;
      QPainter(&moved).drawImage(place.topLeft(), light, place.translated(-step));
      EXPECT_TRUE(differenceOf(moved, light))
          << qPrintable(child->objectName()) << " at " << place.x() << ", " << place.y();
      ++texts;
    }
  }
  EXPECT_GT(texts, 30);
}

TEST_F(Pictures, AnotherColourIsADifference) {
  WindowHost host(oneOfEach(), pageSize);
  const QImage light = pictureOf(host);
  const qt::Theme& theme = pageOf(host.widget).theme();
  const QColor secondary = theme.text(ui::ForegroundStyle::secondary);
  const QColor tertiary = theme.text(ui::ForegroundStyle::tertiary);
  QImage recoloured = light;
  int pixels = 0;
  for (int y = 0; y < light.height(); ++y) {
    for (int x = 0; x < light.width(); ++x) {
      if (QColor(light.pixel(x, y)) != secondary) continue;
      recoloured.setPixelColor(x, y, tertiary);
      ++pixels;
    }
  }
  EXPECT_GT(pixels, 20);
  EXPECT_TRUE(differenceOf(recoloured, light));
}

TEST_F(Pictures, ARoundingDifferenceIsIgnored) {
  const QImage light(expectedFile("light"));
  ASSERT_FALSE(light.isNull());
  QImage rounded = light;
  for (int y = 0; y < light.height(); ++y) {
    for (int x = 0; x < light.width(); ++x) {
      const QColor colour(light.pixel(x, y));
      const int by = (x * 7 + y * 13) % 9 == 0 ? 3 : (x + y) % 2;
      rounded.setPixelColor(x, y,
                            QColor(std::abs(colour.red() - by), std::abs(colour.green() - by),
                                   std::abs(colour.blue() - by)));
    }
  }
  EXPECT_FALSE(differenceOf(rounded, light));
}
