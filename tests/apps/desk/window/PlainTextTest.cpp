#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Welcome.hpp"

#include <memory>

#include <QApplication>
#include <QImage>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

TEST(PlainText, ALabelShowsItsTextLiterallyAndWraps) {
  const std::unique_ptr<QLabel> label(makeLabel("<b>Ada</b> &amp; co", TextRole::body));
  EXPECT_EQ(label->text(), "<b>Ada</b> &amp; co");
  EXPECT_EQ(label->textFormat(), Qt::PlainText);
  EXPECT_TRUE(label->wordWrap());
  EXPECT_EQ(label->textInteractionFlags(), Qt::TextSelectableByMouse);
  EXPECT_EQ(label->sizePolicy().horizontalPolicy(), QSizePolicy::Ignored);
  EXPECT_EQ(label->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
  EXPECT_TRUE(label->sizePolicy().hasHeightForWidth());
}

TEST(PlainText, RolesAreSizesAndWeightsOfTheSystemFont) {
  const QFont system = QApplication::font("QLabel");
  const auto fontOf = [](TextRole role) {
    return std::unique_ptr<QLabel>(makeLabel("text", role))->font();
  };
  EXPECT_DOUBLE_EQ(fontOf(TextRole::title).pointSizeF(), system.pointSizeF() * 1.25);
  EXPECT_EQ(fontOf(TextRole::title).weight(), QFont::DemiBold);
  EXPECT_DOUBLE_EQ(fontOf(TextRole::heading).pointSizeF(), system.pointSizeF() * 0.9);
  EXPECT_EQ(fontOf(TextRole::heading).weight(), QFont::DemiBold);
  EXPECT_EQ(fontOf(TextRole::strong).pointSizeF(), system.pointSizeF());
  EXPECT_EQ(fontOf(TextRole::strong).weight(), QFont::DemiBold);
  for (const TextRole role : {TextRole::body, TextRole::quiet}) {
    EXPECT_EQ(fontOf(role).pointSizeF(), system.pointSizeF());
    EXPECT_EQ(fontOf(role).weight(), system.weight());
  }
}

TEST(PlainText, QuietRolesHaveTheQuieterColour) {
  const QPalette palette = QApplication::palette();
  const QColor quiet = inkOf(ui::ForegroundStyle::secondary, palette);
  EXPECT_NE(quiet, palette.color(QPalette::WindowText));
  const auto inkOfRole = [](TextRole role) {
    const std::unique_ptr<QLabel> label(makeLabel("text", role));
    EXPECT_EQ(label->palette().color(QPalette::Text), label->palette().color(QPalette::WindowText));
    return label->palette().color(QPalette::WindowText);
  };
  EXPECT_EQ(inkOfRole(TextRole::quiet), quiet);
  EXPECT_EQ(inkOfRole(TextRole::heading), quiet);
  for (const TextRole role : {TextRole::title, TextRole::strong, TextRole::body}) {
    EXPECT_EQ(inkOfRole(role), palette.color(QPalette::WindowText));
  }
}

TEST(PlainText, AShortLineEndsBehindAWholeCharacter) {
  const QString emoji = QString::fromUtf8("\U0001f600");
  const QString text = QString(79, 'a') + emoji + "b";
  EXPECT_EQ(onOneShortLine(text), QString(79, 'a') + u'…');
  EXPECT_EQ(onOneShortLine(QString(319, ' ') + emoji + "b"), "");
  EXPECT_EQ(onOneShortLine(QString(78, 'a') + emoji), QString(78, 'a') + emoji);
}

TEST(PlainText, ANameInAMessageIsIsolatedFromTheTextAroundIt) {
  EXPECT_EQ(nameInMessage("Ada\nB."), "\u2068Ada B.\u2069");
  EXPECT_EQ(nameInMessage("A\u2069\u202eda"), "\u2068Ada\u2069") << "and cannot end that early";
}

TEST(PlainText, ALabelBreaksAWordThatIsLongerThanALine) {
  const std::unique_ptr<QLabel> label(makeLabel(QString(200, 'w'), TextRole::body));
  const int line = label->heightForWidth(100'000);
  EXPECT_GT(label->heightForWidth(100), 5 * line);
  label->resize(100, label->heightForWidth(100));
  const QImage image = label->grab().toImage();
  const auto isBlank = [&](int x, int y) { return image.pixel(x, y) == image.pixel(99, 0); };
  bool isLastLineBlank = true;
  for (int x = 0; x < 20; ++x) {
    for (int y = image.height() - line; y < image.height(); ++y) {
      isLastLineBlank = isLastLineBlank && isBlank(x, y);
    }
  }
  EXPECT_FALSE(isLastLineBlank) << "it is drawn as it is measured";
}

TEST(PlainText, ATitleOfAButtonHasNoMnemonic) {
  EXPECT_EQ(asButtonTitle("Fish & chips && more"), "Fish && chips &&&& more");
}

TEST(PlainText, AToolTipIsEscapedAndKeepsItsLines) {
  EXPECT_EQ(asToolTip("<b>\n&"), "<p style=\"white-space:pre-wrap\">&lt;b&gt;\n&amp;</p>");
}

TEST(PlainText, TextsComeFromTheirBytes) {
  EXPECT_EQ(fromUTF8("S\u00f8ren"), QString::fromUtf8("S\u00f8ren"));
  EXPECT_EQ(fromUTF8(std::string_view("ab\0c", 4)).size(), 4);
}

TEST(Welcome, SaysHowToFillTheStoreAndOffersTheSamples) {
  Welcome welcome;
  welcome.resize(600, 400);
  QStringList texts;
  for (const auto* label : welcome.findChildren<QLabel*>()) {
    texts.append(label->text());
    EXPECT_EQ(label->alignment() & Qt::AlignHorizontal_Mask, Qt::AlignHCenter);
  }
  EXPECT_EQ(texts.size(), 3);
  EXPECT_EQ(texts.value(0), "No goals yet");
  EXPECT_TRUE(texts.value(1).contains("Import them, or drop them here."));
  EXPECT_EQ(welcome.objectName(), "desk.welcome");
  EXPECT_TRUE(welcome.autoFillBackground());
  EXPECT_EQ(welcome.backgroundRole(), QPalette::Base);
  int wanted = 0;
  QObject::connect(&welcome, &Welcome::samplesWanted, [&] { ++wanted; });
  auto* add = welcome.findChild<QPushButton*>("desk.addSampleGoals");
  ASSERT_TRUE(add);
  EXPECT_EQ(add->text(), "Add sample goals");
  EXPECT_EQ(add->sizeHint(), QPushButton(add->text()).sizeHint() + QSize(28, 8))
      << "the one thing to press";
  EXPECT_EQ(wanted, 0);
  add->click();
  EXPECT_EQ(wanted, 1);
}

}  // namespace
}  // namespace vemra::desk
