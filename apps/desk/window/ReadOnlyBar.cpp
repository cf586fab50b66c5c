#include "apps/desk/window/ReadOnlyBar.hpp"

#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/PlainText.hpp"

#include <QHBoxLayout>
#include <QPushButton>

namespace vemra::desk {

ReadOnlyBar::ReadOnlyBar(QWidget* parent)
    : AlertFrame(parent), label_(makeLabel({}, TextRole::body)) {
  setObjectName("desk.readOnly");
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(16, 8, 12, 8);
  row->addWidget(label_, 1);
  auto* again = new QPushButton(localized("Open for recording"));
  again->setObjectName("desk.readOnly.again");
  row->addWidget(again, 0, Qt::AlignTop);
  connect(again, &QPushButton::clicked, this, &ReadOnlyBar::tryAgainWanted);
  hide();
}

void ReadOnlyBar::show(const QString& reason) {
  QString message =
      localized("This store is open for reading only. Nothing can be recorded in it.");
  if (!reason.isEmpty()) message += '\n' + firstPiece(reason);
  label_->setText(message);
  announce(message);
}

}  // namespace vemra::desk
