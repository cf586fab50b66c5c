// The commands of the window, from its menus and from dropped files.

#include "VemraQt/PageRows.hpp"
#include "VemraQt/StartOnMainThread.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/FindPeople.hpp"
#include "apps/desk/window/GoalList.hpp"
#include "apps/desk/window/HelpBoxes.hpp"
#include "apps/desk/window/ImportDialog.hpp"
#include "apps/desk/window/KeyInView.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/Pages.hpp"
#include "apps/desk/window/Panes.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/Reasons.hpp"
#include "apps/desk/window/SidePane.hpp"

#include <algorithm>
#include <exception>
#include <iterator>
#include <optional>
#include <utility>

#include <QApplication>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QSaveFile>
#include <QToolButton>
#include <QUrl>

namespace vemra::desk {
namespace {

/// The dropped files; none when the dropped data contain anything else.
QStringList droppedFiles(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    if (!url.isLocalFile()) return {};
    files.append(url.toLocalFile());
  }
  return files;
}

/// Whether a file begins as every SQLite database does.
bool isDatabase(const QString& file) {
  QFile opened(file);
  return QFileInfo(file).isFile() && opened.open(QIODevice::ReadOnly) &&
         opened.read(16) == QByteArray("SQLite format 3", 16);
}

/// The store among dropped files: a database that was dropped alone.
std::optional<QString> droppedStore(const QStringList& files) {
  if (files.size() != 1 || !isDatabase(files.constFirst())) return std::nullopt;
  return files.constFirst();
}

/// Accepts a drop as a copy, also where the source proposes to move the files: after a move it
/// would delete the file of the store that is now open.
void acceptCopy(QDropEvent& drop) {
  drop.setDropAction(Qt::CopyAction);
  drop.accept();
}

/// Gives the focus to the first control inside a page that takes it by the Tab key.
void focusFirstInside(QWidget& page) {
  for (QWidget* next = page.nextInFocusChain(); next != &page; next = next->nextInFocusChain()) {
    const bool takesFocus = next->focusPolicy() & Qt::TabFocus;
    if (takesFocus && page.isAncestorOf(next) && next->isVisible() && next->isEnabled()) {
      next->setFocus(Qt::ShortcutFocusReason);
      scrollIn(*next);
      return;
    }
  }
}

}  // namespace

void DeskWindow::connectMenus() {
  menus_ = new MenuBar(this);
  setMenuBar(menus_);
  setAcceptDrops(true);
  connect(menus_, &MenuBar::aboutToBeUsed, this, &DeskWindow::updateMenus);
  connect(menus_, &MenuBar::openStoreWanted, this, &DeskWindow::chooseStore);
  connect(menus_, &MenuBar::importWanted, this, &DeskWindow::chooseDocuments);
  connect(menus_, &MenuBar::exportWanted, this, &DeskWindow::chooseExport);
  connect(menus_, &MenuBar::closeWanted, this, &QWidget::close);
  connect(menus_, &MenuBar::quitWanted, qApp, &QApplication::closeAllWindows);
  connect(menus_, &MenuBar::findWanted, find_.get(), &FindPeople::open);
  connect(menus_, &MenuBar::findNextWanted, find_.get(), &FindPeople::next);
  connect(menus_, &MenuBar::findPreviousWanted, find_.get(), &FindPeople::previous);
  connect(menus_, &MenuBar::largerTextWanted, this, [this] {
    textSize_.enlarge();
    announceTextSize();
  });
  connect(menus_, &MenuBar::smallerTextWanted, this, [this] {
    textSize_.reduce();
    announceTextSize();
  });
  connect(menus_, &MenuBar::usualTextWanted, this, [this] {
    textSize_.reset();
    announceTextSize();
  });
  menus_->setColours(colourChoice_.colours());
  connect(menus_, &MenuBar::coloursWanted, &colourChoice_, &ColourChoice::choose);
  connect(menus_, &MenuBar::closeDetailsWanted, this, &DeskWindow::closeSide);
  connect(menus_, &MenuBar::nextGoalWanted, this, [this] { openNeighbour(1); });
  connect(menus_, &MenuBar::previousGoalWanted, this, [this] { openNeighbour(-1); });
  connect(menus_, &MenuBar::nextPaneWanted, this, [this] { focusPane(1); });
  connect(menus_, &MenuBar::previousPaneWanted, this, [this] { focusPane(-1); });
  connect(menus_, &MenuBar::keyboardHelpWanted, this, [this] { showKeyboardHelp(*this); });
  connect(menus_, &MenuBar::aboutWanted, this, [this] { showAbout(*this); });
}

void DeskWindow::announceTextSize() {
  const auto percent = static_cast<std::size_t>(textSize_.percent());
  if (isHeard()) announce(localized("Text size: %1 %").arg(localizedNumber(percent)));
}

void DeskWindow::updateMenus() {
  const bool hasStore = controller_ != nullptr;
  menus_->setUses({hasStore, mayImport(), hasStore && controller_->openGoalID().has_value(),
                   !side_->isHidden()});
}

bool DeskWindow::mayImport() const {
  return engine_ && engine_->storeUse() == StoreUse::readingAndWriting && !importing_;
}

void DeskWindow::chooseDocuments() {
  if (!mayImport()) return;
  auto* dialog = new QFileDialog(this, localized("Import documents"));
  dialog->setObjectName("desk.chooseDocuments");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setFileMode(QFileDialog::ExistingFiles);
  dialog->setNameFilters({localized("Result documents (*.json)"), localized("All files (*)")});
  connect(dialog, &QFileDialog::filesSelected, this, &DeskWindow::importDocuments);
  dialog->open();
}

void DeskWindow::importDocuments(const QStringList& files) {
  if (files.isEmpty() || !mayImport()) return;
  importing_ = new ImportDialog(engine_, files, this);
  connect(importing_, &ImportDialog::ended, this, [this](const QString& message) {
    notice_->show(message);
    if (controller_) controller_->loadGoals();
  });
}

void DeskWindow::chooseExport() {
  if (!controller_ || !controller_->openGoalID()) return;
  auto* dialog = new QFileDialog(this, localized("Export the goal"));
  dialog->setObjectName("desk.chooseExport");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix("json");
  dialog->setNameFilters({localized("Result documents (*.json)"), localized("All files (*)")});
  connect(dialog, &QFileDialog::fileSelected, this, &DeskWindow::exportGoal);
  dialog->open();
}

void DeskWindow::exportGoal(const QString& file) {
  if (!controller_ || !controller_->openGoalID()) return;
  qt::startOnMainThread(
      *this, engine_->wholeResult(*controller_->openGoalID()), [this, file](auto result) {
        QString failure;
        try {
          if (!result.hasValue()) std::rethrow_exception(result.exception());
          QSaveFile out(file);
          const std::string text = documentText(std::move(result).take());
          // `commit` takes no notice when the buffer cannot be written, as on a full disk.
          const bool isWritten = out.open(QIODevice::WriteOnly) &&
                                 out.write(text.data(), static_cast<qint64>(text.size())) ==
                                     static_cast<qint64>(text.size()) &&
                                 out.flush() && out.commit();
          if (!isWritten) failure = localizedReason(file + ": " + out.errorString());
        } catch (const std::exception& error) {
          failure = reasonOf(error);
        }
        notice_->show(failure.isEmpty()
                          ? localized("The goal was exported to %1").arg(isolated(file))
                          : localized("The goal was not exported.") + ' ' + failure);
      });
}

void DeskWindow::openNeighbour(int step) {
  const std::optional<std::size_t> open = goals_->openIndex();
  if (!controller_ || !open) return;
  const auto index = static_cast<std::ptrdiff_t>(*open) + step;
  const auto count = static_cast<std::ptrdiff_t>(goals_->goals().size());
  if (index >= 0 && index < count) goals_->choose(static_cast<std::size_t>(index));
}

void DeskWindow::focusPane(int step) {
  const std::vector<Panes::Pane> panes = panes_->panes();
  const auto now = std::ranges::find_if(
      panes, [&](Panes::Pane pane) { return panes_->widget(pane).isAncestorOf(focusWidget()); });
  const auto count = static_cast<std::ptrdiff_t>(panes.size());
  const std::ptrdiff_t before = now == panes.end() ? (step > 0 ? -1 : 0) : now - panes.begin();
  const Panes::Pane pane = panes[static_cast<std::size_t>((before + step + count) % count)];
  if (screen().isAncestorOf(focusWidget())) {
    leftPlace_ = {&screen(),
                  qt::readingPlace(screen())};  // also where the page itself has the focus
  }
  panes_->bringToFront(pane);
  if (pane == Panes::Pane::goals) {
    goals_->focusRow(goals_->openIndex().value_or(0));
  } else if (pane == Panes::Pane::page && centre_->currentPage() == &screen()) {
    const PlaceInPage left = std::exchange(leftPlace_, {});
    if (left.page != &screen() || !qt::returnFocusTo(screen(), left.place)) {
      screen().setFocus(Qt::ShortcutFocusReason);
    }
  } else {
    focusFirstInside(panes_->widget(pane));
  }
}

bool DeskWindow::mayTake(const QDropEvent& drop) const {
  if (!(drop.possibleActions() & Qt::CopyAction)) return false;
  const QStringList files = droppedFiles(*drop.mimeData());
  if (droppedStore(files)) return !importing_ && !question_;
  return mayImport() && !files.isEmpty();
}

void DeskWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (mayTake(*event)) acceptCopy(*event);
}

void DeskWindow::dropEvent(QDropEvent* event) {
  if (!mayTake(*event)) {
    event->ignore();
    return;
  }
  acceptCopy(*event);
  const QStringList files = droppedFiles(*event->mimeData());
  if (const std::optional<QString> store = droppedStore(files)) {
    // The source of the drop waits for the end of this event; opening may wait for a locked store.
    QMetaObject::invokeMethod(
        this, [this, store = *store] { openInstead(store); }, Qt::QueuedConnection);
  } else {
    importDocuments(files);
  }
}

}  // namespace vemra::desk
