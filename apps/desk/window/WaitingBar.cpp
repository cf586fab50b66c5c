#include "apps/desk/window/WaitingBar.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

namespace vemra::desk {
namespace {

constexpr qsizetype mostNamed = 3;

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
  lines = firstAndMore(lines, mostNamed);
  lines.prepend(waiting.size() == 1
                    ? localized("Not stored yet:")
                    : localized("Not stored yet (%1):").arg(localizedNumber(waiting.size())));
  const WaitingNote& first = waiting.front();
  if (isOneReason && !first.reason.isEmpty()) lines.append(first.reason);
  if (isOneLoss && !first.unkept.isEmpty()) {
    lines.append(localized("It would be lost if the program ended now.") + ' ' + first.unkept);
  }
  return (lines + firstAndMore(lost, mostNamed)).join('\n');
}

}  // namespace

WaitingBar::WaitingBar(QWidget* parent) : MessageFrame(MessageForm::bar, "desk.waiting", parent) {
  setNextTabStop(addButton(localized("Try again"), "desk.waiting.again", [this] {
    news_.expectReasons();
    Q_EMIT tryAgainWanted();
  }));
  addButton(localized("Discard…"), "desk.waiting.discard", [this] { Q_EMIT discardWanted(); });
}

void WaitingBar::setWaiting(const std::vector<WaitingNote>& waiting) {
  const QString news = news_.of(waiting);
  if (waiting.empty()) {
    dismiss();
  } else {
    setMessage(messageOf(waiting), news);
  }
}

void WaitingBar::forget() {
  news_.forget();
  dismiss();
}

}  // namespace vemra::desk
