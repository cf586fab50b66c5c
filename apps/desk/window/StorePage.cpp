#include "apps/desk/window/StorePage.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace vemra::desk {

StorePage::StorePage(QWidget* parent) : QWidget(parent), reason_(makeLabel({}, TextRole::body)) {
  setObjectName("desk.store");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(40, 24, 40, 24);
  page->setSpacing(8);
  page->addWidget(makeLabel(localized("This store cannot be opened"), TextRole::title));
  page->addWidget(reason_);
  page->addWidget(makeLabel(localized("Nothing in it was changed."), TextRole::quiet));
  page->addSpacing(10);
  auto* buttons = new QHBoxLayout;
  const auto add = [&](const QString& title, const char* name, void (StorePage::*wanted)()) {
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    connect(button, &QPushButton::clicked, this, wanted);
    buttons->addWidget(button);
    return button;
  };
  add(localized("Open another store…"), "desk.store.another", &StorePage::anotherWanted);
  read_ = add(localized("Open for reading only"), "desk.store.read", &StorePage::readingWanted);
  add(localized("Try again"), "desk.store.again", &StorePage::tryAgainWanted);
  buttons->addStretch(1);
  page->addLayout(buttons);
  page->addStretch(1);
}

void StorePage::setProblem(const StoreOpening& opening) {
  const QString reason = firstPiece(localizedReason(fromUTF8(opening.problem)));
  reason_->setText(reason);
  read_->setVisible(opening.mayBeRead);
  setAccessibleName(localized("This store cannot be opened") + ". " + reason);
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

}  // namespace vemra::desk
