// A person's typing in a field of the window, compared with a model of a line edit.

#include "VemraPlatform/page/WindowedTree.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"
#include "tests/VemraQt/WindowHost.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <array>

#include <QApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextBoundaryFinder>

namespace vemra::monkey {

using ui::ElementKind;

namespace {

/// A second implementation of a line edit's rules.
struct Line {
  QString text;
  int cursor = 0;
  int selectionStart = -1, selectionEnd = -1;

  explicit Line(const QLineEdit& field)
      : text(field.text()),
        cursor(field.cursorPosition()),
        selectionStart(field.selectionStart()),
        selectionEnd(field.selectionEnd()) {}

  bool removeSelected() {
    if (selectionStart < 0) return false;
    text.remove(selectionStart, selectionEnd - selectionStart);
    cursor = selectionStart;
    selectionStart = -1;
    return true;
  }
  void insert(const QString& what) {
    removeSelected();
    text.insert(cursor, what);
  }
  void backspace() {
    if (removeSelected() || cursor == 0) return;
    const bool isPair = cursor > 1 && text[cursor - 1].isLowSurrogate();
    text.remove(cursor - (isPair ? 2 : 1), isPair ? 2 : 1);
  }
  void remove() {
    if (removeSelected() || cursor == text.size()) return;
    QTextBoundaryFinder characters(QTextBoundaryFinder::Grapheme, text);
    characters.setPosition(cursor);
    text.remove(cursor, static_cast<int>(characters.toNextBoundary()) - cursor);
  }
};

void commit(QWidget& widget, const QString& text) {
  QInputMethodEvent event;
  event.setCommitString(text);
  QApplication::sendEvent(&widget, &event);
}

}  // namespace

void Twins::type(const Step& step) {
  const auto place = drawControl({step.act, step.a, step.b, 1}, ElementKind::textField);
  if (!place) return;
  const page::Node* leaf = nodeAt(*place);
  qt::ElementWidget* lent = leaf ? widgetOf(*leaf) : nullptr;
  auto* field = lent ? qobject_cast<QLineEdit*>(&lent->widget()) : nullptr;
  if (!field) return;
  if (!field->hasFocus()) {
    const auto point = qttest::seenPoint(*field);
    if (point && step.c % 2) {
      QTest::mouseClick(field, Qt::LeftButton, {}, *point);
    } else {
      field->setFocus(Qt::OtherFocusReason);
    }
    if (widget.focusWidget() != field) throw Disagreement("a field does not take the keyboard");
  }
  static const std::array<QString, 10> texts{
      QStringLiteral("x"),
      QStringLiteral(" "),
      QStringLiteral("\u00e9"),
      QStringLiteral("e\u0301"),
      QStringLiteral("\U0001F600"),
      QStringLiteral("\u05d3\u05e0"),
      QStringLiteral("two\nlines"),
      QStringLiteral("&<b>%1"),
      QStringLiteral("\u3000"),
      QStringLiteral("a rather long text, as one pastes it from somewhere else at times"),
  };
  Line line(*field);
  const Qt::KeyboardModifiers shift = step.c % 3 == 0 ? Qt::ShiftModifier : Qt::NoModifier;
  switch (step.c % 14) {
    case 0:
      line.backspace();
      QTest::keyClick(field, Qt::Key_Backspace);
      break;
    case 1:
      line.remove();
      QTest::keyClick(field, Qt::Key_Delete);
      break;
    case 2:
      QTest::keyClick(field, Qt::Key_Left, shift);
      break;
    case 3:
      QTest::keyClick(field, Qt::Key_Right, shift);
      break;
    case 4:
      QTest::keyClick(field, Qt::Key_Home, shift);
      break;
    case 5:
      QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
      break;
    case 6:
      QTest::keyClick(field, step.a % 2 ? Qt::Key_Return : Qt::Key_Enter);
      deliver(*place, ui::Submit{});
      break;
    case 7:
    case 8:
    case 9:
      line.insert(texts[step.a % texts.size()]);
      commit(*field, texts[step.a % texts.size()]);
      break;
    default: {
      const char letter = static_cast<char>('a' + step.a % 26);
      line.insert(QString(QLatin1Char(letter)));
      QTest::keyClick(field, letter);
    }
  }
  if (field->text() != line.text) {
    throw Disagreement("the field has \"" + field->text().toStdString() + "\" where \"" +
                       line.text.toStdString() + "\" was typed");
  }
  deliver(*place, ui::EditText{line.text.toStdString()});
}

}  // namespace vemra::monkey
