// Letters typed in a closed picker.

#include "tests/VemraQt/Palettes.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <gtest/gtest.h>

using namespace vemra;
using namespace vemra::qttest;

namespace {

const std::string editor = "vemra.goal.person.p0.outcome";

class ChoiceLetters : public ::testing::Test {
 protected:
  ChoiceLetters() : host(resultWith(30)) {
    host.press(editor + ".start");
    picker = &host.get<QComboBox>(editor + ".picker");
    picker->setFocus();
  }

  std::string after(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(picker, key, modifiers);
    return picker->currentText().toStdString();
  }

  WindowHost host;
  QComboBox* picker = nullptr;
};

}  // namespace

TEST_F(ChoiceLetters, ALetterChoosesTheNextChoiceThatBeginsWithIt) {
  EXPECT_EQ(picker->currentText(), "Was useful");
  EXPECT_EQ(after(Qt::Key_H), "Helped");
  host.press(editor + ".save");
  EXPECT_EQ(host.log.back(), "record p0 helped nil nil");
}

TEST_F(ChoiceLetters, TheSameLetterGoesToTheNextChoiceAndStartsAgainAtTheFirst) {
  std::vector<std::string> beginning, chosen;
  for (int i = 0; i < picker->count(); ++i) {
    if (picker->itemText(i).startsWith('N')) beginning.push_back(picker->itemText(i).toStdString());
  }
  ASSERT_GE(beginning.size(), 2U);
  for (std::size_t i = 0; i < beginning.size(); ++i) chosen.push_back(after(Qt::Key_N));
  EXPECT_EQ(chosen, beginning);
  EXPECT_EQ(after(Qt::Key_N), beginning.front());
}

TEST_F(ChoiceLetters, ALetterMatchesInEitherCase) {
  EXPECT_EQ(after(Qt::Key_H, Qt::ShiftModifier), "Helped");
  QTest::keyClick(picker, 'w');
  EXPECT_EQ(picker->currentText(), "Was useful");
}

TEST_F(ChoiceLetters, ALetterThatNoOtherChoiceBeginsWithChangesNothing) {
  int activations = 0;
  QObject::connect(picker, &QComboBox::activated, [&] { ++activations; });
  EXPECT_EQ(after(Qt::Key_X), "Was useful");
  EXPECT_EQ(after(Qt::Key_W), "Was useful") << "it is the only one";
  EXPECT_EQ(after(Qt::Key_Escape), "Was useful");
  EXPECT_EQ(activations, 0);
}

TEST_F(ChoiceLetters, ACommandIsNotALetter) {
  for (const auto modifier : {Qt::ControlModifier, Qt::AltModifier, Qt::MetaModifier}) {
    EXPECT_EQ(after(Qt::Key_H, modifier), "Was useful") << modifier;
    QKeyEvent event(QEvent::KeyPress, Qt::Key_H, modifier, "h");
    QApplication::sendEvent(picker, &event);
    EXPECT_EQ(picker->currentText(), "Was useful") << modifier;
    EXPECT_FALSE(event.isAccepted()) << modifier << ": other handlers may use it";
  }
}

TEST_F(ChoiceLetters, NoKeyMakesAHiddenListOfTheChoices) {
  AsBefore asBefore;
  QComboBox plain;
  plain.addItem(QStringLiteral("choice"));
  if (plain.findChild<QAbstractItemView*>()) {
    GTEST_SKIP() << "this version of Qt makes the list together with the first choice";
  }
  const auto hidden = [&] { return picker->findChild<QAbstractItemView*>(); };
  EXPECT_EQ(hidden(), nullptr) << "at first";
  for (const int key : {+Qt::Key_H, +Qt::Key_X, +Qt::Key_Escape, +Qt::Key_Left, +Qt::Key_Down,
                        +Qt::Key_Up, +Qt::Key_Delete}) {
    QTest::keyClick(picker, static_cast<Qt::Key>(key));
    EXPECT_EQ(hidden(), nullptr) << "by key " << key;
  }
  QApplication::setStyle("windows");
  EXPECT_EQ(hidden(), nullptr) << "by another style";
  QFont larger = asBefore.font;
  larger.setPixelSize(26);
  QApplication::setFont(larger);
  QApplication::processEvents();
  EXPECT_EQ(hidden(), nullptr) << "by another font";
}
