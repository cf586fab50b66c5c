#include "apps/desk/window/Welcome.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <QPushButton>
#include <QVBoxLayout>

namespace vemra::desk {

Welcome::Welcome(QWidget* parent) : QWidget(parent) {
  setObjectName("desk.welcome");
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::Base);
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(40, 24, 40, 24);
  page->setSpacing(8);
  page->addStretch(2);
  for (QLabel* label :
       {makeLabel(localized("No goals yet"), TextRole::title),
        makeLabel(localized("Goals come from result documents. Import them, or drop them here."),
                  TextRole::quiet),
        makeLabel(localized("To look around first, add the sample goals. Nothing else is "
                            "changed."),
                  TextRole::quiet)}) {
    label->setAlignment(Qt::AlignHCenter);
    page->addWidget(label);
  }
  page->addSpacing(10);
  const auto addButton = [&](const QString& title, const char* name, void (Welcome::*wanted)()) {
    auto* button = new QPushButton(title);
    button->setObjectName(QLatin1String(name));
    button->setMinimumSize(button->sizeHint() + QSize(28, 8));
    connect(button, &QPushButton::clicked, this, wanted);
    page->addWidget(button, 0, Qt::AlignHCenter);
  };
  addButton(localized("Import…"), "desk.import", &Welcome::importWanted);
  addButton(localized("Add sample goals"), "desk.addSampleGoals", &Welcome::samplesWanted);
  page->addStretch(3);
}

}  // namespace vemra::desk
