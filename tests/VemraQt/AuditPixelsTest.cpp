// Checks the visible page by its pixels: contrast, no cut text, the focus ring.

#include "VemraQt/Contrast.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "tests/VemraQt/HardScreen.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/Writing.hpp"

#include <map>
#include <set>

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionComboBox>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;
using ui::ElementKind;

namespace {

class AuditPixels : public ::testing::Test {
 protected:
  void SetUp() override { QApplication::setFont(hardEdgedFont()); }

 private:
  AsBefore asBefore_;
};

const std::string p0 = "vemra.goal.person.p0.outcome";

/// An element whose text is drawn but which is disabled: Save without a note.
void disableSave(WindowHost& host) {
  auto& picker = host.get<QComboBox>(p0 + ".picker");
  const int somethingElse = picker.findText(QStringLiteral("Something else"));
  ASSERT_GE(somethingElse, 0);
  picker.setCurrentIndex(somethingElse);
  Q_EMIT picker.activated(somethingElse);
  ASSERT_FALSE(host.get<QPushButton>(p0 + ".save").isEnabled());
}

/// The kinds of texts on a page, to check that the test has seen all of them.
std::string kindOf(const page::Node& leaf) {
  switch (leaf.element.kind()) {
    case ElementKind::button:
      if (leaf.element.buttonStyle() == ui::ButtonStyle::plain) return "link";
      return leaf.element.style().enabled ? "button" : "disabled button";
    case ElementKind::picker:
      return "picker";
    case ElementKind::textField:
      return leaf.element.text().empty() ? "placeholder" : "note";
    default:
      switch (leaf.element.style().foreground) {
        case ui::ForegroundStyle::primary:
          return "text";
        case ui::ForegroundStyle::secondary:
          return "secondary text";
        case ui::ForegroundStyle::tertiary:
          return "tertiary text";
      }
  }
  return "";
}

bool isFramed(const page::Node& leaf) {
  const std::string kind = kindOf(leaf);
  return kind != "link" && leaf.element.kind() != ElementKind::text;
}

/// The area of an element's picture that may contain its text, without the control's frame.
QRect insideOf(const page::Node& leaf, const QImage& picture) {
  return isFramed(leaf) ? picture.rect().adjusted(3, 3, -3, -3) : picture.rect();
}

/// The pixels of an element's lines when they are drawn with room on all sides.
int pixelsOf(const page::Node& leaf, const qt::TextShape& shape, Qt::LayoutDirection direction) {
  QImage canvas(shape.size() + QSize(200, 200), QImage::Format_RGB32);
  canvas.fill(Qt::white);
  QPainter painter(&canvas);
  painter.setPen(Qt::black);
  const bool isCentred = kindOf(leaf).ends_with("button");
  shape.draw(painter, QRect(QPoint(100, 100), shape.size()), canvas.rect(), direction,
             isCentred ? Qt::AlignHCenter : Qt::AlignLeading);
  painter.end();
  return writingIn(canvas, canvas.rect()).pixels;
}

/// Makes the window as high as its page, so that the whole page is visible at once.
void unroll(WindowHost& host) {
  for (int round = 0; round < 4; ++round) {
    host.widget.resize(host.widget.width(), host.widget.contentHeight());
  }
  QApplication::processEvents();
}

void withoutFocus(WindowHost& host) {
  host.widget.setFocus();
}

QImage pictureOf(const WindowHost& host) {
  return host.widget.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// A widget and its frame on the page.
QImage pictureOf(const WindowHost& host, const QWidget& control) {
  const QRect place(control.mapTo(host.widget.viewport(), QPoint()), control.size());
  return host.widget.viewport()->grab(place).toImage().convertToFormat(QImage::Format_RGB32);
}

/// Calls `visit` for every element with visible content, with the part of the page's picture inside
/// its frame.
template <class Visit>
void forEachWritten(WindowHost& host, Visit visit) {
  unroll(host);
  withoutFocus(host);
  const QImage page = pictureOf(host);
  forEachPlaced(host, [&](const page::Node& leaf) {
    if (called(leaf).empty()) return;
    visit(leaf, page.copy(pageOf(host.widget).frameOnPage(leaf)));
  });
}

/// The same for the enabled elements.
template <class Visit>
void forEachUsable(WindowHost& host, Visit visit) {
  forEachWritten(host, [&](const page::Node& leaf, const QImage& picture) {
    if (leaf.element.style().enabled) visit(leaf, picture);
  });
}

std::string hex(const QColor& color) {
  return color.name().toStdString();
}

}  // namespace

TEST_F(AuditPixels, EveryTextHasContrastWithItsBackgroundInEveryPalette) {
  for (const Colours& each : colours()) {
    const bool isHighContrast = std::string(each.name) == "high contrast";
    WindowHost host(resultWith(8));
    dress(host, each);
    makeItHard(host);
    std::map<std::string, int> audited;
    forEachUsable(host, [&](const page::Node& leaf, const QImage& picture) {
      const Writing writing = writingIn(picture, insideOf(leaf, picture));
      ++audited[kindOf(leaf)];
      EXPECT_GE(writing.pixels, 10) << each.name << ": " << called(leaf);
      EXPECT_GE(writing.contrast, isHighContrast ? 7 : 4.5)
          << each.name << ": " << kindOf(leaf) << " " << called(leaf) << " in " << hex(writing.ink);
    });
    for (const char* kind : {"text", "secondary text", "tertiary text", "link", "button", "picker",
                             "placeholder", "note"}) {
      EXPECT_GE(audited[kind], 1) << each.name << " has no " << kind;
    }
  }
}

TEST_F(AuditPixels, EveryFrameOfAControlHasContrastWithThePage) {
  for (const Colours& each : colours()) {
    WindowHost host(resultWith(8));
    dress(host, each);
    makeItHard(host);
    const QColor page = pictureOf(host).pixelColor(3, 3);
    std::set<std::string> audited;
    forEachUsable(host, [&](const page::Node& leaf, const QImage& picture) {
      if (!isFramed(leaf) || !audited.insert(kindOf(leaf)).second) return;
      // From the middle of each side, the strongest pixel of the outermost three.
      const int x = picture.width() / 2, y = picture.height() / 2;
      const int right = picture.width() - 1, bottom = picture.height() - 1;
      const QPoint sides[4][2] = {
          {{x, 0}, {0, 1}}, {{x, bottom}, {0, -1}}, {{0, y}, {1, 0}}, {{right, y}, {-1, 0}}};
      for (const auto& [from, step] : sides) {
        double best = 0;
        for (int i = 0; i < 3; ++i) {
          best = std::max(best, qt::contrast(picture.pixelColor(from + i * step), page));
        }
        EXPECT_GE(best, 3) << each.name << ": the side of " << kindOf(leaf) << " " << called(leaf)
                           << " at " << from.x() << ", " << from.y();
      }
    });
    EXPECT_EQ(audited, (std::set<std::string>{"button", "picker", "placeholder", "note"}))
        << each.name;
  }
}

TEST_F(AuditPixels, NoTextIsCutOffInAnyLook) {
  for (const Look& look : looks()) {
    WindowHost host(resultWith(8));
    dress(host, look);
    makeItHard(host);
    disableSave(host);
    const Qt::LayoutDirection direction = host.widget.layoutDirection();
    std::map<std::string, int> audited;
    forEachWritten(host, [&](const page::Node& leaf, const QImage&) {
      const std::string kind = kindOf(leaf);
      if (kind == "note") return;
      // Draws it alone, because high accents of one line may reach into the frame of another.
      const qt::ShownLeaf& shown = pageOf(host.widget).shown(leaf);
      const QImage alone = shown.widget->widget().grab().toImage();
      const Writing writing = writingIn(alone, insideOf(leaf, alone));
      ++audited[kind];
      EXPECT_EQ(writing.pixels, pixelsOf(leaf, shown.shape, direction))
          << look.name << ": " << kind << " " << called(leaf);
    });
    for (const char* kind : {"text", "secondary text", "tertiary text", "link", "button",
                             "disabled button", "picker", "placeholder"}) {
      EXPECT_GE(audited[kind], 1) << look.name << " has no " << kind;
    }
  }
}

TEST_F(AuditPixels, ThePickersLabelIsNotUnderItsArrow) {
  for (const Look& look : looks()) {
    WindowHost host(resultWith(1));
    dress(host, look);
    host.press(p0 + ".start");
    withoutFocus(host);
    auto& picker = host.get<qt::ChoiceBox>(p0 + ".picker");
    for (int choice = 0; choice < picker.count(); ++choice) {
      picker.setCurrentIndex(choice);
      Q_EMIT picker.activated(choice);
      QStyleOptionComboBox option;
      option.initFrom(&picker);
      option.subControls = QStyle::SC_All;
      const auto place = [&](QStyle::SubControl part) {
        return picker.drawingStyle().subControlRect(QStyle::CC_ComboBox, &option, part, &picker);
      };
      QRect arrow = place(QStyle::SC_ComboBoxArrow);
      const QRect field = place(QStyle::SC_ComboBoxEditField);
      const bool isAtTheRight = arrow.center().x() > picker.rect().center().x();
      if (picker.isRightToLeft() && isAtTheRight && arrow.intersects(field)) {
        // the picker mirrors it
        arrow.moveRight(picker.rect().right() - arrow.left());
      }
      const Writing label =
          writingIn(pictureOf(host, picker), picker.rect().adjusted(3, 3, -3, -3));
      ASSERT_GE(label.pixels, 10) << look.name;
      EXPECT_FALSE(label.place.intersects(arrow))
          << look.name << ": " << qPrintable(picker.currentText()) << " ends at "
          << label.place.right() << ", the arrow begins at " << arrow.left();
    }
  }
}

TEST_F(AuditPixels, TheNotesTextFitsItsFieldAtEveryScale) {
  const QString tall = QString::fromUtf8("\u00c5j\u1ea4g\u1ef5|");
  for (const double scale : {1.0, 1.5, 2.0, 3.0}) {
    WindowHost host(resultWith(1));
    QLineEdit& note = noteWith(host, tall, scale);
    const Writing writing = writingIn(pictureOf(host, note), note.rect().adjusted(1, 1, -1, -1));
    const qt::TextShape free(tall, note.font(), 10'000);
    QImage canvas(free.size() + QSize(200, 200), QImage::Format_RGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    painter.setPen(Qt::black);
    free.draw(painter, QRect(QPoint(100, 100), free.size()), canvas.rect(), Qt::LeftToRight);
    painter.end();
    const Writing whole = writingIn(canvas, canvas.rect());
    EXPECT_EQ(writing.pixels, whole.pixels)
        << "at " << scale << ": " << writing.place.height() << " of " << whole.place.height()
        << " rows, " << writing.place.width() << " of " << whole.place.width() << " columns";
  }
}

TEST_F(AuditPixels, TheFocusIsVisibleOnEveryKindOfControlInEveryPalette) {
  for (const Colours& each : colours()) {
    WindowHost host(resultWith(8));
    dress(host, each);
    makeItHard(host);
    unroll(host);
    std::set<std::string> audited;
    page::forEachLeaf(*pageOf(host.widget).tree().root(), [&](const page::Node& leaf) {
      const qt::ShownLeaf& shown = pageOf(host.widget).shown(leaf);
      if (!shown.widget || leaf.element.kind() == ElementKind::text) return;
      if (!leaf.element.style().enabled) return;
      QWidget& control = shown.widget->widget();
      withoutFocus(host);
      const QImage without = pictureOf(host, control);
      control.setFocus();
      ASSERT_TRUE(control.hasFocus()) << called(leaf);
      const QImage with = pictureOf(host, control);
      audited.insert(kindOf(leaf));
      // A line two pixels wide all around, except for the round corners, which had a clearly
      // different brightness before.
      const int around = 2 * 2 * (control.width() + control.height()) - 80;
      EXPECT_GE(changed(without, with, 3), around)
          << each.name << ": " << kindOf(leaf) << " " << called(leaf);
    });
    for (const char* kind : {"link", "button", "picker", "placeholder", "note"}) {
      EXPECT_TRUE(audited.contains(kind)) << each.name << " has no " << kind;
    }
  }
}
