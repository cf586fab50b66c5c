#include "VemraQt/StyleMetrics.hpp"

#include "VemraQt/widgets/ChoiceBox.hpp"

#include <algorithm>

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QWidget>

namespace vemra::qt {

namespace {

constexpr int fieldMargin = 6;
// A line for a note is wide enough for a sentence, not as wide as any screen.
constexpr int widestFieldInEms = 34;

template <class Option>
Option optionFor(const QWidget& page, const QFont& font) {
  Option option;
  option.initFrom(&page);
  option.fontMetrics = QFontMetrics(font);
  return option;
}

}  // namespace

QSize StyleMetrics::measure(RenderNode& leaf, int width) const {
  leaf.stale = true;  // its widget has the old lines
  switch (leaf.element.kind()) {
    case ui::ElementKind::button:
      return button(leaf, width);
    case ui::ElementKind::picker:
      return picker(leaf, width);
    case ui::ElementKind::textField:
      return field(leaf, width);
    default:
      leaf.shape = TextShape(toQString(leaf.element.shownLabel()),
                             looks_.font(leaf.element.style().font), width);
      return leaf.shape.size();
  }
}

QSize StyleMetrics::button(RenderNode& leaf, int width) const {
  const QString title = toQString(leaf.element.shownLabel());
  const QFont font = looks_.font(leaf.element.style().font);
  if (leaf.element.buttonStyle() == ui::ButtonStyle::plain) {
    leaf.shape = TextShape(title, font, width);
    return leaf.shape.size().expandedTo(QSize(smallestTarget, smallestTarget));
  }
  auto option = optionFor<QStyleOptionButton>(page_, font);
  const auto framed = [&](QSize text) {
    return page_.style()->sizeFromContents(QStyle::CT_PushButton, &option, text, nullptr);
  };
  // What the style adds, without the least width that it gives to short titles.
  const int frame = framed(QSize(1000, 20)).width() - 1000;
  // Some styles leave hardly any air beside a title.
  const int air = option.fontMetrics.height() / 2;
  leaf.shape = TextShape(title, font, width - frame - 2 * air);
  QSize size = framed(leaf.shape.size() + QSize(2 * air, 0));
  size.setHeight(std::max(size.height(), leaf.shape.size().height() + air));
  size = size.expandedTo(QSize(smallestTarget, smallestTarget));
  size.setWidth(std::min(size.width(), std::max(width, smallestTarget)));
  return size;
}

QSize StyleMetrics::picker(RenderNode& leaf, int width) const {
  const QFont font = looks_.font(leaf.element.style().font);
  auto option = optionFor<QStyleOptionComboBox>(page_, font);
  const std::vector<Choice> choices = choicesOf(leaf);
  // As wide as its widest choice, so that choosing moves nothing.
  const int widest = widestOf(choices, font);
  const auto framed = [&](QSize text) {
    return page_.style()->sizeFromContents(QStyle::CT_ComboBox, &option, text, nullptr);
  };
  const int frame = framed(QSize(1000, 20)).width() - 1000 + 8;
  const int current = currentChoice(leaf, choices);
  const QString shown = current < 0 ? QString() : choices[static_cast<std::size_t>(current)].label;
  leaf.shape = TextShape(shown, font, std::max(1, std::min(widest + 4, width - frame)));
  QSize size = framed(QSize(widest + 8, leaf.shape.size().height()));
  size.setHeight(std::max(size.height(), leaf.shape.size().height() + 8));
  size.setWidth(std::min(size.width(), std::max(width, smallestTarget)));
  return size.expandedTo(QSize(smallestTarget, smallestTarget));
}

int StyleMetrics::widestOf(const std::vector<Choice>& choices, const QFont& font) const {
  if (font != choicesFont_ || !std::ranges::equal(choices, choices_, {}, &Choice::label)) {
    const QFontMetrics metrics(font);
    choicesFont_ = font;
    choices_.clear();
    widestChoice_ = 0;
    for (const Choice& choice : choices) {
      choices_.append(choice.label);
      widestChoice_ = std::max(widestChoice_, metrics.horizontalAdvance(choice.label));
    }
  }
  return widestChoice_;
}

QSize StyleMetrics::field(RenderNode& leaf, int width) const {
  const QFont font = looks_.font(leaf.element.style().font);
  const QFontMetrics metrics(font);
  const int wide = std::min(width, metrics.horizontalAdvance(u'm') * widestFieldInEms);
  auto option = optionFor<QStyleOptionFrame>(page_, font);
  option.lineWidth = page_.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, nullptr);
  leaf.shape = TextShape(toQString(leaf.element.shownLabel()), font, wide - 2 * fieldMargin - 4);
  const int lines = std::max(metrics.height(), leaf.shape.size().height());
  // High accents reach past a font's ascent.
  const QSize text(wide, lines + std::max(4, metrics.height() / 4));
  const QSize size = page_.style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, nullptr);
  return QSize(wide, std::max(size.height(), smallestTarget));
}

}  // namespace vemra::qt
