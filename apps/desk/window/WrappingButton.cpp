#include "apps/desk/window/WrappingButton.hpp"

#include <algorithm>

#include <QScopedValueRollback>
#include <QStyleOptionButton>

namespace vemra::desk {
namespace {

/// As a button measures its title.
int widthOf(const QString& text, const QFontMetrics& metrics) {
  return metrics.size(Qt::TextShowMnemonic, text).width();
}

/// The title with line breaks at blanks, so that no line is wider than `room` unless it is a single
/// word.
QStringList linesOf(const QString& title, const QFontMetrics& metrics, int room) {
  QStringList lines;
  for (const QString& word : title.split(u' ', Qt::SkipEmptyParts)) {
    const QString longer = lines.isEmpty() ? word : lines.constLast() + u' ' + word;
    if (lines.isEmpty() || widthOf(longer, metrics) > room) {
      lines.append(word);
    } else {
      lines.last() = longer;
    }
  }
  return lines;
}

}  // namespace

WrappingButton::WrappingButton(const QString& title, QSize air, QWidget* parent)
    : QPushButton(title, parent), air_(air) {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

QSize WrappingButton::sizeHint() const {
  const QScopedValueRollback<bool> inside(isMeasured_, true);
  return QPushButton::sizeHint() + air_;
}

int WrappingButton::roomBesideTitle() const {
  return sizeHint().width() - air_.width() - widthOf(text(), fontMetrics());
}

QSize WrappingButton::minimumSizeHint() const {
  int widest = 0;
  for (const QString& word : text().split(u' ')) {
    widest = std::max(widest, widthOf(word, fontMetrics()));
  }
  return {widest + roomBesideTitle(), sizeHint().height()};
}

int WrappingButton::heightForWidth(int width) const {
  const qsizetype lines = linesOf(text(), fontMetrics(), width - roomBesideTitle()).size();
  const int more = std::max(0, static_cast<int>(lines) - 1);
  return sizeHint().height() + more * fontMetrics().lineSpacing();
}

void WrappingButton::initStyleOption(QStyleOptionButton* option) const {
  QPushButton::initStyleOption(option);
  if (isMeasured_) return;
  option->text = linesOf(text(), fontMetrics(), width() - roomBesideTitle()).join(u'\n');
}

}  // namespace vemra::desk
