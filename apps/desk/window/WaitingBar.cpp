#include "apps/desk/window/WaitingBar.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <algorithm>

#include <QHBoxLayout>
#include <QPushButton>

namespace vemra::desk {
namespace {

constexpr std::size_t mostNamed = 3;

QString messageOf(const std::vector<WaitingNote>& waiting) {
  QStringList lines{waiting.size() == 1 ? localized("Not stored yet:")
                                        : localized("Not stored yet (%1):").arg(waiting.size())};
  for (std::size_t i = 0; i < std::min(mostNamed, waiting.size()); ++i) {
    lines.append(lineOf(waiting[i]));
  }
  if (waiting.size() > mostNamed) {
    lines.append(localized("and %1 more").arg(waiting.size() - mostNamed));
  }
  const auto reasoned = std::find_if(waiting.begin(), waiting.end(), [](const WaitingNote& note) {
    return !note.reason.isEmpty();
  });
  if (reasoned != waiting.end()) lines.append(reasoned->reason);
  const auto unkept = std::find_if(waiting.begin(), waiting.end(),
                                   [](const WaitingNote& note) { return !note.unkept.isEmpty(); });
  if (unkept != waiting.end()) {
    lines.append(localized("It would be lost if the program ended now.") + ' ' + unkept->unkept);
  }
  return lines.join('\n');
}

}  // namespace

QString lineOf(const WaitingNote& note) {
  return localized("“%1” for %2 (%3)")
      .arg(note.outcome, nameInMessage(note.subject), nameInMessage(note.goalTitle));
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
