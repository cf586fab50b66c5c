#include "apps/desk/window/HelpBoxes.hpp"

#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/WholeTitles.hpp"

#include <QKeySequence>
#include <QMessageBox>
#include <QStringList>

namespace vemra::desk {
namespace {

void show(QWidget& parent, const char* name, const QString& title, const QString& text,
          const QString& more) {
  auto* box = new QMessageBox(QMessageBox::NoIcon, title, text, QMessageBox::Close, &parent);
  box->setObjectName(QLatin1String(name));
  box->setTextFormat(Qt::PlainText);
  box->setInformativeText(more);
  box->setAttribute(Qt::WA_DeleteOnClose);
  keepTitlesWhole(*box);
  box->open();
}

QString keys(const QKeySequence& sequence) {
  return isolated(sequence.toString(QKeySequence::NativeText));
}

}  // namespace

void showAbout(QWidget& parent) {
  show(parent, "desk.about", localized("About Vemra Desk"),
       localized("Vemra Desk %1").arg(fromUTF8(programVersion())),
       localized("Shows goals, the people who may help with them, and what came of it."));
}

void showKeyboardHelp(QWidget& parent) {
  const QStringList lines{
      localized("%1: the next pane; %2: the one before it")
          .arg(keys(Qt::Key_F6), keys(Qt::SHIFT | Qt::Key_F6)),
      localized("%1: the next goal; %2: the one before it")
          .arg(keys(Qt::CTRL | Qt::Key_PageDown), keys(Qt::CTRL | Qt::Key_PageUp)),
      localized("Up, Down, Home, End in the list: another goal"),
      localized("Tab: the next control; Space or Return: press it"),
      localized("%1: find people; %2, %3: the next one and the one before it")
          .arg(keys(QKeySequence::Find), keys(QKeySequence::FindNext),
               keys(QKeySequence::FindPrevious)),
      localized("%1: close the details").arg(keys(Qt::Key_Escape)),
      localized("%1: the menus").arg(keys(Qt::Key_F10)),
      localized("%1, %2, %3: larger, smaller and usual text")
          .arg(keys(Qt::CTRL | Qt::Key_Plus), keys(Qt::CTRL | Qt::Key_Minus),
               keys(Qt::CTRL | Qt::Key_0)),
  };
  show(parent, "desk.keyboard", localized("Keyboard"), localized("Keys of this window"),
       lines.join('\n'));
}

}  // namespace vemra::desk
