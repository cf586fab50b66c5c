#include "apps/desk/window/HelpBoxes.hpp"

#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/KeyboardHelp.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/WholeTitles.hpp"

#include <QMessageBox>

namespace vemra::desk {

void showAbout(QWidget& parent) {
  auto* box = new QMessageBox(QMessageBox::NoIcon, localized("About Vemra Desk"),
                              localized("Vemra Desk %1").arg(fromUTF8(programVersion())),
                              QMessageBox::Close, &parent);
  box->setObjectName("desk.about");
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(
      localized("Shows goals, the people who may help with them, and what came of it."));
  box->setAttribute(Qt::WA_DeleteOnClose);
  keepTitlesWhole(*box);
  box->open();
}

void showKeyboardHelp(QWidget& parent) {
  (new KeyboardHelp(&parent))->open();
}

}  // namespace vemra::desk
