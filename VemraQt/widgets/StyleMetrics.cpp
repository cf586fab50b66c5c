#include "VemraQt/widgets/StyleMetrics.hpp"

#include "VemraQt/widgets/Choices.hpp"
#include "VemraQt/widgets/ControlStyle.hpp"
#include "VemraQt/widgets/ElementWidget.hpp"
#include "VemraQt/widgets/LongText.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include <QFontMetrics>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QWidget>

namespace vemra::qt {

namespace {

constexpr int fieldMargin = 6;
constexpr int fieldFrame = 2;
// A field is at most wide enough for a sentence, even on a wide screen.
constexpr int widestFieldInEms = 34;
// Beside other elements, a field stays wide enough for a short name.
constexpr int narrowestFieldInEms = 8;

/// The title of a picker as it is shown before the choice.
QString shownTitle(const ui::Element& picker) {
  const QString title = toQString(picker.shownLabel());
  return picker.labelsHidden() || title.isEmpty() ? QString() : title + QLatin1String(": ");
}

/// The choice after the title, isolated: it keeps its reading direction, and the title its own.
QString afterTitle(const QString& title, const QString& choice) {
  constexpr QChar firstStrongIsolate(0x2068), popDirectionalIsolate(0x2069);
  if (title.isEmpty()) return choice;
  return title + firstStrongIsolate + choice + popDirectionalIsolate;
}

bool haveSameLabel(const ui::Element& a, const ui::Element& b) {
  const std::string_view one = a.shownLabel(), other = b.shownLabel();
  return one.size() == other.size() && (one.data() == other.data() || one == other);
}

bool isBrokenFor(const TextShape& shape, const QFont& font, int width) {
  const LongText* const parts = shape.parts();
  return parts && parts->width() == std::max(1, width) && parts->font() == font;
}

/// For how many widths the lines of a long text are kept: a row of elements may measure a leaf alone
/// and then in the room that is left, and each row inside another adds a width.
constexpr std::size_t mostWidths = 4;

/// The titles of how many framed buttons are kept, and the longest of them in bytes.
constexpr std::size_t mostKnownButtons = 16;
constexpr std::size_t longestKnownTitle = 100;

/// Gives a long text that has been measured the lines for another width: those that it had before,
/// or new ones.
void changeWidth(ShownLeaf& shown, const QFont& font, int width) {
  std::vector<TextShape>& others = shown.otherWidths;
  const auto known = std::ranges::find_if(
      others, [&](const TextShape& shape) { return isBrokenFor(shape, font, width); });
  TextShape wanted;
  if (known != others.end()) {
    wanted = std::move(*known);
    others.erase(known);
  } else {
    wanted = TextShape::ofAnyLength(shown.shape.parts()->text(), font, width);
    if (others.size() + 1 == mostWidths) others.pop_back();
  }
  others.insert(others.begin(), std::exchange(shown.shape, std::move(wanted)));
}

/// Breaks the label of a text or button into lines. What is laid out of a long text stays while the
/// text and its font are the same.
void breakLines(const page::Node& leaf, ShownLeaf& shown, const QFont& font, int width) {
  if (shown.shape.parts() && haveSameLabel(*shown.longText, leaf.element)) {
    shown.longText = leaf.element;
    if (!isBrokenFor(shown.shape, font, width)) changeWidth(shown, font, width);
    shown.shape.parts()->adopt();
    return;
  }
  shown.otherWidths.clear();
  shown.shape = TextShape::ofAnyLength(toQString(leaf.element.shownLabel()), font, width);
  if (shown.shape.parts()) {
    shown.longText = leaf.element;
  } else {
    shown.longText.reset();
  }
}

template <class Option>
Option optionFor(const QWidget& page, const QFont& font) {
  Option option;
  option.initFrom(&page);
  option.fontMetrics = QFontMetrics(font);
  return option;
}

}  // namespace

page::Size StyleMetrics::measure(const page::Node& leaf, int width) {
  ShownLeaf& shown = leaves_.of(leaf);
  shown.stale = true;  // the widget still has the previous lines
  QSize size;
  switch (leaf.element.kind()) {
    case ui::ElementKind::button:
      size = button(leaf, shown, width);
      break;
    case ui::ElementKind::picker:
      size = picker(leaf, shown.shape, width);
      break;
    case ui::ElementKind::textField:
      size = field(leaf, shown.shape, width);
      break;
    default:
      size = text(leaf, shown, width);
  }
  return {size.width(), size.height()};
}

void StyleMetrics::restyle() {
  fonts_.clear();
  buttons_.clear();
  choices_.clear();
  choicesFont_ = QFont();
  widestChoice_ = 0;
}

const QFont& StyleMetrics::fontOf(const page::Node& leaf) {
  const ui::Font& wanted = leaf.element.style().font;
  const auto known = std::ranges::find(fonts_, wanted, &std::pair<ui::Font, QFont>::first);
  if (known != fonts_.end()) return known->second;
  return fonts_.emplace_back(wanted, theme_.font(wanted)).second;
}

QSize StyleMetrics::text(const page::Node& leaf, ShownLeaf& shown, int width) {
  breakLines(leaf, shown, fontOf(leaf), width);
  return shown.shape.size();
}

QSize StyleMetrics::button(const page::Node& leaf, ShownLeaf& shown, int width) {
  if (leaf.element.buttonStyle() != ui::ButtonStyle::plain) return knownButton(leaf, shown, width);
  breakLines(leaf, shown, fontOf(leaf), width);
  return shown.shape.size().expandedTo(QSize(smallestTarget, smallestTarget));
}

/// Measures a framed button, unless one with the same title has just been measured.
QSize StyleMetrics::knownButton(const page::Node& leaf, ShownLeaf& shown, int width) {
  const std::string_view title = leaf.element.shownLabel();
  if (title.size() > longestKnownTitle) return framedButton(leaf, shown, width);
  const ui::Font& font = leaf.element.style().font;
  const auto known = std::ranges::find_if(buttons_, [&](const Measured& button) {
    return button.width == width && button.title == title && button.font == font;
  });
  if (known != buttons_.end()) {
    std::rotate(buttons_.begin(), known, known + 1);
    shown.shape = buttons_.front().shape;
    shown.otherWidths.clear();
    shown.longText.reset();
    return buttons_.front().size;
  }
  const QSize size = framedButton(leaf, shown, width);
  if (buttons_.size() == mostKnownButtons) buttons_.pop_back();
  buttons_.insert(buttons_.begin(), {std::string(title), font, width, shown.shape, size});
  return size;
}

QSize StyleMetrics::framedButton(const page::Node& leaf, ShownLeaf& shown, int width) {
  TextShape& shape = shown.shape;
  const QFont& font = fontOf(leaf);
  auto option = optionFor<QStyleOptionButton>(page_, font);
  const auto framed = [&](QSize text) {
    return controlStyle(page_, theme_)
        .sizeFromContents(QStyle::CT_PushButton, &option, text, nullptr);
  };
  // The style's own margins, measured without the minimum width that it gives to short titles.
  const int frame = framed(QSize(1000, 20)).width() - 1000;
  // Some styles leave hardly any space beside a title.
  const int air = option.fontMetrics.height() / 2;
  breakLines(leaf, shown, font, width - frame - 2 * air);
  QSize size = framed(shape.size() + QSize(2 * air, 0));
  size.setHeight(std::max(size.height(), shape.size().height() + air));
  size = size.expandedTo(QSize(smallestTarget, smallestTarget));
  size.setWidth(std::min(size.width(), std::max(width, smallestTarget)));
  return size;
}

QSize StyleMetrics::picker(const page::Node& leaf, TextShape& shape, int width) {
  const QFont& font = fontOf(leaf);
  auto option = optionFor<QStyleOptionComboBox>(page_, font);
  const std::vector<Choice> choices = qt::choicesOf(leaf);
  // As wide as the widest choice, so that choosing moves no other element.
  const QString title = shownTitle(leaf.element);
  const int widest =
      widestOf(choices, font) + (title.isEmpty() ? 0 : QFontMetrics(font).horizontalAdvance(title));
  const auto framed = [&](QSize text) {
    return controlStyle(page_, theme_)
        .sizeFromContents(QStyle::CT_ComboBox, &option, text, nullptr);
  };
  const int frame = framed(QSize(1000, 20)).width() - 1000 + 8;
  const int current = currentChoice(leaf, choices);
  const QString shown = current < 0 ? QString() : choices[static_cast<std::size_t>(current)].label;
  shape =
      TextShape(afterTitle(title, shown), font, std::max(1, std::min(widest + 4, width - frame)));
  QSize size = framed(QSize(widest + 8, shape.size().height()));
  size.setHeight(std::max(size.height(), shape.size().height() + 8));
  size.setWidth(std::min(size.width(), std::max(width, smallestTarget)));
  return size.expandedTo(QSize(smallestTarget, smallestTarget));
}

int StyleMetrics::widestOf(const std::vector<Choice>& choices, const QFont& font) {
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

int StyleMetrics::narrowestField(const page::Node& leaf) {
  const QFontMetrics metrics(fontOf(leaf));
  return metrics.horizontalAdvance(u'm') * narrowestFieldInEms;
}

QSize StyleMetrics::field(const page::Node& leaf, TextShape& shape, int width) {
  const QFont& font = fontOf(leaf);
  const QFontMetrics metrics(font);
  const int wide = std::min(width, metrics.horizontalAdvance(u'm') * widestFieldInEms);
  auto option = optionFor<QStyleOptionFrame>(page_, font);
  option.lineWidth = page_.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, nullptr);
  shape = TextShape(toQString(leaf.element.shownLabel()), font, wide - 2 * fieldMargin - 4);
  const int lines = std::max(metrics.height(), shape.size().height());
  // High accents extend past a font's ascent.
  const QSize text(wide, lines + std::max(4, metrics.height() / 4));
  const QSize size = page_.style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, nullptr);
  // The field draws its own frame, also where the style adds no height for one.
  const int framed = text.height() + 2 * fieldFrame;
  return QSize(wide, std::max({size.height(), framed, smallestTarget}));
}

}  // namespace vemra::qt
