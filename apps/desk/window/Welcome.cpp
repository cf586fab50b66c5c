#include "apps/desk/window/Welcome.hpp"

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
       {makeLabel("No goals yet", TextRole::title),
        makeLabel("Goals come from result documents: vemra-desk import DOC.json", TextRole::quiet),
        makeLabel("To look around first, add the sample goals. Nothing else is changed.",
                  TextRole::quiet)}) {
    label->setAlignment(Qt::AlignHCenter);
    page->addWidget(label);
  }
  page->addSpacing(10);
  auto* add = new QPushButton("Add sample goals");
  add->setObjectName("desk.addSampleGoals");
  add->setMinimumSize(add->sizeHint() + QSize(28, 8));
  connect(add, &QPushButton::clicked, this, &Welcome::samplesWanted);
  page->addWidget(add, 0, Qt::AlignHCenter);
  page->addStretch(3);
}

}  // namespace vemra::desk
