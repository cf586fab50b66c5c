#include "apps/desk/window/WaitingBar.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QHBoxLayout>
#include <QPushButton>

namespace vemra::desk {
namespace {

/// The first lines of many.
QStringList firstOf(const QStringList& lines) {
  constexpr qsizetype mostNamed = 3;
  QStringList first = lines.mid(0, mostNamed);
  if (lines.size() > mostNamed) {
    first.append(localized("and %1 more").arg(lines.size() - mostNamed));
  }
  return first;
}

/// Whether all outcomes share that text.
bool isShared(const std::vector<WaitingNote>& waiting, QString WaitingNote::*text) {
  return std::ranges::all_of(
      waiting, [&](const WaitingNote& note) { return note.*text == waiting.front().*text; });
}

/// A reason stands at the end when it is that of every outcome; else each outcome's line has its
/// own.
QString messageOf(const std::vector<WaitingNote>& waiting) {
  QStringList lines;
  QStringList lost;
  const bool isOneReason = isShared(waiting, &WaitingNote::reason);
  const bool isOneLoss = isShared(waiting, &WaitingNote::unkept);
  for (const WaitingNote& note : waiting) {
    QString line = lineOf(note);
    if (!isOneLoss && !note.unkept.isEmpty()) {
      lost.append(localized("It would be lost if the program ended now: %1.").arg(line) + ' ' +
                  note.unkept);
    }
    if (!isOneReason && !note.reason.isEmpty()) line = localized("%1: %2").arg(line, note.reason);
    lines.append(line);
  }
  lines = firstOf(lines);
  lines.prepend(waiting.size() == 1 ? localized("Not stored yet:")
                                    : localized("Not stored yet (%1):").arg(waiting.size()));
  const WaitingNote& first = waiting.front();
  if (isOneReason && !first.reason.isEmpty()) lines.append(first.reason);
  if (isOneLoss && !first.unkept.isEmpty()) {
    lines.append(localized("It would be lost if the program ended now.") + ' ' + first.unkept);
  }
  return (lines + firstOf(lost)).join('\n');
}

}  // namespace

QString lineOf(const WaitingNote& note) {
  return localized("“%1” for %2 (%3)")
      .arg(isolated(note.outcome), nameInMessage(note.subject), nameInMessage(note.goalTitle));
}

WaitingBar::WaitingBar(QWidget* parent)
    : AlertFrame(parent), label_(makeLabel({}, TextRole::body)) {
  setObjectName("desk.waiting");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(16, 8, 12, 8);
  row->addWidget(label_, 1);
  auto* again = new QPushButton(localized("Try again"));
  again->setObjectName("desk.waiting.again");
  auto* discard = new QPushButton(localized("Discard…"));
  discard->setObjectName("desk.waiting.discard");
  row->addWidget(again, 0, Qt::AlignTop);
  row->addWidget(discard, 0, Qt::AlignTop);
  connect(again, &QPushButton::clicked, this, &WaitingBar::tryAgainWanted);
  connect(discard, &QPushButton::clicked, this, &WaitingBar::discardWanted);
  hide();
}

void WaitingBar::setWaiting(const std::vector<WaitingNote>& waiting) {
  if (waiting.empty()) {
    hide();
    return;
  }
  const QString message = firstPiece(messageOf(waiting));
  label_->setText(message);
  announce(message);
}

}  // namespace vemra::desk
