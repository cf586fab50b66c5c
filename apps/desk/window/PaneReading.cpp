#include "apps/desk/window/PaneReading.hpp"

#include "apps/desk/window/Pieces.hpp"

#include <algorithm>
#include <cstdlib>

#include <QLabel>
#include <QPushButton>

namespace vemra::desk {
namespace {

QStringList textsOf(const QList<QLabel*>& labels) {
  QStringList texts;
  for (const QLabel* label : labels) texts.append(label->text());
  return texts;
}

/// Counts the equal texts from there on in that direction, up to a limit.
int equalNeighbours(const QStringList& before, qsizetype place, const QStringList& after,
                    qsizetype candidate, int direction) {
  constexpr int most = 32;
  const auto isIn = [](const QStringList& texts, qsizetype i) {
    return i >= 0 && i < texts.size();
  };
  int equal = 0;
  while (equal < most) {
    place += direction;
    candidate += direction;
    if (!isIn(before, place) || !isIn(after, candidate)) break;
    if (before[place] != after[candidate]) break;
    ++equal;
  }
  return equal;
}

/// The index in `after` of the text at `place` in `before`; -1 when `after` does not contain it. Of
/// several equal texts, the one with the most equal neighbours; of those, the one nearest to
/// `place`.
qsizetype placeIn(const QStringList& after, const QStringList& before, qsizetype place) {
  qsizetype found = -1;
  int most = -1;
  for (qsizetype i = after.indexOf(before[place]); i >= 0;
       i = after.indexOf(before[place], i + 1)) {
    const int equal =
        equalNeighbours(before, place, after, i, -1) + equalNeighbours(before, place, after, i, 1);
    const bool isNearer = std::abs(i - place) < std::abs(found - place);
    if (equal < most || (equal == most && !isNearer)) continue;
    found = i;
    most = equal;
  }
  return found;
}

}  // namespace

PaneReading::PaneReading(const QWidget& content) {
  const QWidget* focus = content.window()->focusWidget();
  for (const auto* pieces : content.findChildren<Pieces*>()) {
    opened_.push_back({pieces->path(), pieces->shown(), &pieces->more() == focus});
  }
  const auto labels = content.findChildren<QLabel*>();
  texts_ = textsOf(labels);
  for (qsizetype i = 0; i < labels.size(); ++i) {
    const QLabel& label = *labels[i];
    const int length = static_cast<int>(label.selectedText().size());
    if (length == 0 && &label != focus) continue;
    marked_.push_back({i, label.selectionStart(), length, &label == focus});
  }
}

QWidget* PaneReading::restore(QWidget& content) {
  QWidget* focus = reopen(content);
  if (marked_.empty()) return focus;
  const auto labels = content.findChildren<QLabel*>();
  const QStringList texts = textsOf(labels);
  for (const Marked& marked : marked_) {
    const qsizetype place = placeIn(texts, texts_, marked.label);
    if (place < 0) continue;
    if (marked.length > 0) labels[place]->setSelection(marked.start, marked.length);
    if (marked.hasFocus) focus = labels[place];
  }
  return focus;
}

QWidget* PaneReading::reopen(QWidget& content) {
  QWidget* focus = nullptr;
  QList<Pieces*> done;
  for (bool hasNew = true; hasNew;) {  // opened pieces may contain others
    hasNew = false;
    for (auto* pieces : content.findChildren<Pieces*>()) {
      if (done.contains(pieces)) continue;
      done.append(pieces);
      hasNew = true;
      const auto opened = std::ranges::find(opened_, pieces->path(), &Opened::path);
      if (opened == opened_.end()) continue;
      pieces->showUpTo(opened->shown);
      if (opened->hasFocus) focus = &pieces->more();
      opened_.erase(opened);  // with two equal keys, each entry restores one
    }
  }
  return focus;
}

}  // namespace vemra::desk
