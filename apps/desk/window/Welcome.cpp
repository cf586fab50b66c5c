#include "apps/desk/window/Welcome.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/WrappingButton.hpp"

#include <QVBoxLayout>

namespace vemra::desk {

Welcome::Welcome(QWidget* parent) : QWidget(parent) {
  setObjectName("desk.welcome");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* page = new QVBoxLayout(this);
  page->setSpacing(8);
  page->addStretch(2);
  const QString title = localized("No goals yet");
  const QString import =
      localized("Goals come from result documents. Import them, or drop them here.");
  const QString samples =
      localized("To look around first, add the sample goals. Nothing else is changed.");
  for (QLabel* label : {makeLabel(title, TextRole::title), makeLabel(import, TextRole::quiet),
                        makeLabel(samples, TextRole::quiet)}) {
    label->setAlignment(Qt::AlignHCenter);
    page->addWidget(label);
  }
  page->addSpacing(10);
  // A screen reader that goes from control to control does not pass the texts above: it reads the
  // description of the button that gets the focus.
  const auto addButton = [&](const QString& label, const QString& description, const char* name,
                             void (Welcome::*wanted)()) {
    auto* button = new WrappingButton(label, QSize(28, 8));
    button->setObjectName(QLatin1String(name));
    button->setAccessibleDescription(description);
    button->setAutoDefault(true);  // otherwise Return presses it on some desktops only
    connect(button, &QPushButton::clicked, this, wanted);
    page->addWidget(button, 0, Qt::AlignHCenter);
  };
  addButton(localized("Import…"), title + QStringLiteral(". ") + import, "desk.import",
            &Welcome::importWanted);
  addButton(localized("Add sample goals"), samples, "desk.addSampleGoals", &Welcome::samplesWanted);
  page->addStretch(3);
}

void Welcome::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int beside = marginBesidePage(width());
  layout()->setContentsMargins(beside, 24, beside, 24);
}

}  // namespace vemra::desk
