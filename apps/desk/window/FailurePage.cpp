#include "apps/desk/window/FailurePage.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <QAccessible>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemra::desk {

FailurePage::FailurePage(QWidget* parent)
    : QWidget(parent), reason_(makeLabel({}, TextRole::body)) {
  setObjectName("desk.failure");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(40, 24, 40, 24);
  page->setSpacing(8);
  page->addWidget(makeLabel(localized("The goal could not be loaded"), TextRole::title));
  page->addWidget(reason_);
  page->addSpacing(10);
  auto* again = new QPushButton(localized("Try again"));
  again->setObjectName("desk.failure.again");
  connect(again, &QPushButton::clicked, this, &FailurePage::tryAgainWanted);
  page->addWidget(again, 0, Qt::AlignLeft);
  page->addStretch(1);
}

void FailurePage::setReason(const QString& whole) {
  const QString reason = firstPiece(whole);
  if (reason_->text() == reason) return;
  reason_->setText(reason);
  setAccessibleName(localized("The goal could not be loaded.") + ' ' + reason);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace vemra::desk
