#include "VemraQt/widgets/ChoiceBox.hpp"

#include "VemraQt/widgets/ControlStyle.hpp"
#include "VemraQt/widgets/StyleMetrics.hpp"

#include <algorithm>
#include <utility>

#include <QActionGroup>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QProxyStyle>
#include <QStyleOptionComboBox>
#include <QWheelEvent>

namespace vemra::qt {

namespace {

bool sameLabels(const QComboBox& box, const std::vector<Choice>& choices) {
  if (box.count() != static_cast<int>(choices.size())) return false;
  for (int i = 0; i < box.count(); ++i) {
    if (box.itemText(i) != choices[static_cast<std::size_t>(i)].label) return false;
  }
  return true;
}

QString literal(QString text) {
  return text.replace(u'&', QLatin1String("&&")).replace(u'\t', u' ');
}

/// Whether a key types a character rather than a command.
bool isTyped(const QKeyEvent& event) {
  const auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  const QString text = event.text();
  return !(event.modifiers() & commands) && !text.isEmpty() &&
         text.front().category() != QChar::Other_Control;
}

/// A menu whose Home and End keys go to the first and the last item. In Qt's own menus these keys
/// only scroll, and only menus that are too long for the screen. Its keys start from the chosen
/// item where none is highlighted: a pointer that leaves the menu takes the highlight with it.
class ChoiceMenu final : public QMenu {
 public:
  using QMenu::QMenu;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (!activeAction()) {
      for (QAction* action : actions()) {
        if (action->isChecked()) setActiveAction(action);
      }
    }
    if (event->key() == Qt::Key_Home) {
      setActiveAction(actions().front());
    } else if (event->key() == Qt::Key_End) {
      setActiveAction(actions().back());
    } else {
      QMenu::keyPressEvent(event);
    }
  }
};

/// A proxy of another style that makes the choices of a menu as large as `smallestTarget`.
class LargeChoices final : public QProxyStyle {
 public:
  explicit LargeChoices(const QString& style) : QProxyStyle(style) {}

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    const QSize usual = QProxyStyle::sizeFromContents(type, option, size, widget);
    return type == CT_MenuItem ? usual.expandedTo(QSize(0, smallestTarget)) : usual;
  }
};

}  // namespace

ChoiceBox::ChoiceBox(QWidget* parent, const PageContext& page)
    : QComboBox(parent), ElementWidget(page) {
  setFocusPolicy(Qt::ClickFocus);
  connect(this, &QComboBox::activated, this, [this](int index) { choose(index); });
}

void ChoiceBox::updateTo(const page::Node& leaf, const TextShape& shape) {
  choices_ = qt::choicesOf(leaf);
  // An open menu would show the previous choices.
  if (!sameLabels(*this, choices_)) {
    hidePopup();
    clear();
    for (const Choice& choice : choices_) addItem(choice.label);
  }
  const int index = currentChoice(leaf, choices_);
  if (currentIndex() != index) setCurrentIndex(index);
  if (!isEnabled()) hidePopup();
  if (menu_) {
    for (int i = 0; i < count(); ++i) menu_->actions()[i]->setChecked(i == index);
  }
  shape_ = shape;
  update();
}

void ChoiceBox::choose(int index) {
  if (!node() || index < 0 || index >= static_cast<int>(choices_.size())) return;
  deliver(ui::Select{ui::Tag(choices_[static_cast<std::size_t>(index)].tag)});
}

void ChoiceBox::showPopup() {
  if (menu_ || choices_.empty()) return;
  menu_ = new ChoiceMenu(this);
  menu_->setAttribute(Qt::WA_DeleteOnClose);
  auto* large = new LargeChoices(controlStyle(*this, theme()).name());
  large->setParent(menu_);
  menu_->setStyle(large);
  menu_->setFont(font());
  menu_->setPalette(theme().palette());  // a popup window does not inherit it from the page
  menu_->setMinimumWidth(width());
  auto* group = new QActionGroup(menu_);  // exclusive: marks of a choice, not of switches
  QAction* current = nullptr;
  for (int i = 0; i < count(); ++i) {
    QAction* action = group->addAction(menu_->addAction(literal(itemText(i))));
    action->setCheckable(true);
    action->setChecked(i == currentIndex());
    if (i == currentIndex()) current = action;
    connect(action, &QAction::triggered, this, [this, i] {
      setCurrentIndex(i);
      Q_EMIT activated(i);
    });
  }
  connect(menu_, &QMenu::aboutToHide, this, [this] {
    menu_ = nullptr;
    update();
  });
  const int x = layoutDirection() == Qt::RightToLeft ? width() - menu_->sizeHint().width() : 0;
  menu_->popup(mapToGlobal(QPoint(x, height())));
  if (current) menu_->setActiveAction(current);
}

void ChoiceBox::hidePopup() {
  if (menu_) menu_->close();
}

namespace {

/// Draws the frame and the arrow. From right to left some styles mirror the room for the text and
/// not the arrow, so that it covers the text; then their picture from left to right is mirrored.
void drawMirrored(QPainter& painter, const QStyleOptionComboBox& option, const QComboBox& box,
                  QStyle& style) {
  const auto rectOf = [&](QStyle::SubControl part) {
    return style.subControlRect(QStyle::CC_ComboBox, &option, part, &box);
  };
  const QRect arrow = rectOf(QStyle::SC_ComboBoxArrow);
  const bool isAtTheRight = arrow.center().x() > box.rect().center().x();
  const bool coversText = isAtTheRight && arrow.intersects(rectOf(QStyle::SC_ComboBoxEditField));
  if (option.direction == Qt::LeftToRight || !coversText) {
    style.drawComplexControl(QStyle::CC_ComboBox, &option, &painter, &box);
    return;
  }
  QStyleOptionComboBox unmirrored(option);
  unmirrored.direction = Qt::LeftToRight;
  painter.save();
  painter.translate(box.width(), 0);
  painter.scale(-1, 1);
  style.drawComplexControl(QStyle::CC_ComboBox, &unmirrored, &painter, &box);
  painter.restore();
}

}  // namespace

QStyle& ChoiceBox::drawingStyle() const {
  QStyle& usual = controlStyle(*this, theme());
  QStyleOptionComboBox option;
  initStyleOption(&option);
  const QRect field =
      usual.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  return field.width() - 4 < shape_.size().width() ? fusionStyle() : usual;
}

void ChoiceBox::paintEvent(QPaintEvent*) {
  QStyle& drawing = drawingStyle();
  QPainter painter(this);
  QStyleOptionComboBox option;
  initStyleOption(&option);
  option.currentText.clear();
  frameIn(theme(), option);
  option.state &= ~QStyle::State_HasFocus;
  drawMirrored(painter, option, *this, drawing);
  strengthenFrame(painter, *this, drawing, theme());
  const QRect field =
      drawing.subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  painter.setPen(option.palette.color(QPalette::ButtonText));
  const int above = (height() - shape_.size().height()) / 2;
  shape_.draw(painter, QRect(field.x() + 2, above, field.width() - 4, shape_.size().height()),
              rect(), layoutDirection());
  if (hasFocus()) drawFocusRing(painter, rect(), theme(), RingAround::frame);
}

void ChoiceBox::wheelEvent(QWheelEvent* event) {
  event->ignore();
}

void ChoiceBox::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Home:
    case Qt::Key_End:
      if (event->modifiers() & Qt::ControlModifier) {
        event->ignore();  // these keys scroll the page
      } else if (scrollIn()) {
        moveTo(event->key() == Qt::Key_Home ? 0 : count() - 1);
      }
      return;
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (scrollIn()) showPopup();
      return;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_F4:
      if (scrollIn()) QComboBox::keyPressEvent(event);
      return;
    default:
      if (!isTyped(*event)) {
        event->ignore();  // for the page or the window
      } else if (scrollIn()) {
        chooseByPrefix(event->text());
      }
  }
}

/// Bypasses `QComboBox`, which would make its hidden item view only to set its font or style.
void ChoiceBox::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    QWidget::changeEvent(event);  // NOLINT(bugprone-parent-virtual-call): past the combo box
  } else {
    QComboBox::changeEvent(event);
  }
}

void ChoiceBox::chooseByPrefix(const QString& typed) {
  for (int i = 1; i <= count(); ++i) {
    const int index = (currentIndex() + i) % count();
    if (!itemText(index).startsWith(typed, Qt::CaseInsensitive)) continue;
    moveTo(index);
    return;
  }
}

void ChoiceBox::moveTo(int index) {
  if (index < 0 || index == currentIndex()) return;
  setCurrentIndex(index);
  Q_EMIT activated(index);
}

}  // namespace vemra::qt
