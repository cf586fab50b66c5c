// The menus of the window and its keys.

#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/commands/Documents.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/window/Keys.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <QClipboard>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>
#include <QTextEdit>
#include <QTextTable>
#include <gmock/gmock.h>

namespace vemra::desk {
namespace {

class CommandsTest : public OpenDesk {
 protected:
  CommandsTest() { GoalStore::open(file).import({goal("a", "First"), goal("b", "Second")}); }
  ~CommandsTest() override { QApplication::setFont(usual); }

  void openWindow() {
    open();
    wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
    qttest::activate(*window);
  }
  /// The command of that title, in a menu that has been opened.
  QAction* command(const QString& menuTitle, const QString& title) const {
    for (QAction* menu : window->findChild<MenuBar*>()->actions()) {
      if (menu->text() != menuTitle) continue;
      Q_EMIT menu->menu()->aboutToShow();
      for (QAction* action : menu->menu()->actions()) {
        if (action->text() == title) return action;
      }
    }
    ADD_FAILURE() << "no command " << title.toStdString();
    return nullptr;
  }
  void choose(const QString& menu, const QString& title) const {
    if (QAction* action = command(menu, title)) action->trigger();
  }
  QString document(const std::string& name, const std::string& goalID) const {
    return QString::fromStdString(
        folder.write(name, documents::writeResult(goal(goalID, "Goal " + goalID))));
  }
  bool isOpen(const std::string& goalID) const {
    return becomes([&] {
      auto* row = find<QAbstractButton>("desk.goal." + goalID);
      return row != nullptr && row->isChecked();
    });
  }

  const QFont usual = QApplication::font();
};

TEST_F(CommandsTest, TheMenusHaveThePlatformsKeys) {
  openWindow();
  const auto keys = [&](const char* menu, const char* title) {
    return command(menu, title)->shortcuts();
  };
  EXPECT_EQ(keys("&File", "&Open Store…"), QKeySequence::keyBindings(QKeySequence::Open));
  EXPECT_EQ(keys("&File", "&Close"), QKeySequence::keyBindings(QKeySequence::Close));
  EXPECT_EQ(keys("&File", "&Quit"), QList<QKeySequence>{QKeySequence("Ctrl+Q")});
  EXPECT_EQ(keys("&Edit", "&Copy"), QKeySequence::keyBindings(QKeySequence::Copy));
  EXPECT_TRUE(keys("&View", "&Larger Text").contains(QKeySequence("Ctrl++")));
  EXPECT_TRUE(keys("&Go", "Next P&ane").contains(QKeySequence("F6")));
  EXPECT_TRUE(keys("&Help", "&Keyboard").contains(QKeySequence("F1")));
  QStringList titles;
  for (const QAction* menu : window->findChild<MenuBar*>()->actions()) titles += menu->text();
  EXPECT_EQ(titles, (QStringList{"&File", "&Edit", "&View", "&Go", "&Help"}));
}

TEST_F(CommandsTest, NextOpensTheNextGoalAndStopsAtTheLastGoal) {
  openWindow();
  choose("&Go", "&Next Goal");
  EXPECT_TRUE(isOpen("b"));
  choose("&Go", "&Next Goal");
  EXPECT_TRUE(isOpen("b"));
  choose("&Go", "&Previous Goal");
  EXPECT_TRUE(isOpen("a"));
}

TEST_F(CommandsTest, F6ReturnsToTheControlOfThePageThatItLeft) {
  openWindow();
  auto* control = wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
  ASSERT_NE(control, nullptr);
  qttest::activate(*window);
  control->setFocus();
  choose("&Go", "Next P&ane");
  ASSERT_FALSE(window->screen().isAncestorOf(window->focusWidget()));
  choose("&Go", "Next P&ane");
  EXPECT_EQ(window->focusWidget(), control);
  choose("&Go", "Next P&ane");
  const QWidget* left = &window->screen();
  choose("&Go", "&Next Goal");
  ASSERT_TRUE(becomes([&] { return &window->screen() != left; }));
  choose("&Go", "Next P&ane");
  EXPECT_EQ(window->focusWidget(), &window->screen()) << "a place in another goal";
}

TEST_F(CommandsTest, F6ReturnsToThePageItselfWhenNoControlOfItHadTheFocusLast) {
  openWindow();
  wait<QAbstractButton>("vemra.goal.person.p1.outcome.start")->setFocus();
  choose("&Go", "Next P&ane");
  QWidget& page = *window->screen().viewport();
  QTest::mouseClick(&page, Qt::LeftButton, Qt::NoModifier, QPoint(3, page.height() - 3));
  ASSERT_EQ(window->focusWidget(), &window->screen());
  choose("&Go", "Next P&ane");
  ASSERT_FALSE(window->screen().isAncestorOf(window->focusWidget()));
  ASSERT_NE(window->focusWidget(), &window->screen());
  choose("&Go", "Next P&ane");
  EXPECT_EQ(window->focusWidget(), &window->screen());
}

TEST_F(CommandsTest, ThePanesAreVisitedInTheirOrder) {
  openWindow();
  pressTitled("Ada");
  auto* side = wait<QWidget>("desk.side");
  const auto paneWithFocus = [&]() -> std::string {
    const QWidget* focus = window->focusWidget();
    if (window->findChild<QWidget*>("desk.goals")->isAncestorOf(focus)) return "goals";
    if (window->screen().isAncestorOf(focus) || focus == &window->screen()) return "page";
    return side->isAncestorOf(focus) ? "details" : "none";
  };
  window->screen().setFocus();
  std::vector<std::string> visited{paneWithFocus()};
  for (int i = 0; i < 3; ++i) {
    choose("&Go", "Next P&ane");
    visited.push_back(paneWithFocus());
  }
  EXPECT_THAT(visited, ::testing::ElementsAre("page", "details", "goals", "page"));
  choose("&Go", "Previous Pan&e");
  EXPECT_EQ(paneWithFocus(), "goals");
}

TEST_F(CommandsTest, TheTextGrowsAndShrinksAndComesBack) {
  openWindow();
  const int height = window->screen().contentHeight();
  choose("&View", "&Larger Text");
  choose("&View", "&Larger Text");
  EXPECT_GT(QApplication::font().pointSizeF(), usual.pointSizeF());
  EXPECT_TRUE(becomes([&] { return window->screen().contentHeight() > height; }));
  choose("&View", "&Usual Text");
  EXPECT_EQ(QApplication::font().pointSizeF(), usual.pointSizeF());
  for (int i = 0; i < 20; ++i) choose("&View", "&Smaller Text");
  EXPECT_GT(QApplication::font().pointSizeF(), usual.pointSizeF() * 0.7);
}

TEST_F(CommandsTest, TheEditMenuActsOnTheTextWithTheFocus) {
  openWindow();
  EXPECT_FALSE(command("&Edit", "&Copy")->isEnabled());
  press("vemra.goal.person.p1.outcome.start");
  auto* note = wait<QLineEdit>("vemra.goal.person.p1.outcome.note");
  note->setFocus();
  QApplication::processEvents();
  note->insert("abc");
  EXPECT_FALSE(command("&Edit", "&Copy")->isEnabled()) << "nothing is selected";
  choose("&Edit", "Select &All");
  EXPECT_EQ(note->selectedText(), "abc");
  EXPECT_TRUE(command("&Edit", "&Copy")->isEnabled());
  choose("&Edit", "Cu&t");
  EXPECT_EQ(note->text(), "");
  choose("&Edit", "&Undo");
  EXPECT_EQ(note->text(), "abc");
}

TEST_F(CommandsTest, ImportingReportsTheImportedGoals) {
  openWindow();
  window->importDocuments({document("c.json", "c"), document("d.json", "d")});
  EXPECT_TRUE(becomes([&] { return shows("Goal c", "desk.goals"); }));
  EXPECT_TRUE(becomes([&] { return shows("Documents imported: 2.", "desk.notice"); }));
}

TEST_F(CommandsTest, AnImportThatFailsNamesTheDocumentAndImportsNothing) {
  openWindow();
  window->importDocuments(
      {document("c.json", "c"), QString::fromStdString(folder.write("bad.json", "{"))});
  EXPECT_TRUE(becomes([&] {
    return texts("desk.notice")
        .join(" ")
        .startsWith("Nothing was imported. " + QString::fromStdString(folder.path()));
  })) << texts("desk.notice").join(" ").toStdString();
  EXPECT_EQ(GoalStore::open(file).goals().size(), 2u);
}

TEST_F(CommandsTest, AnEmptyStoreOffersToImport) {
  file = folder.file("empty.sqlite");
  open();
  press("desk.import");
  auto* dialog = wait<QFileDialog>("desk.chooseDocuments");
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(dialog->fileMode(), QFileDialog::ExistingFiles);
}

TEST_F(CommandsTest, TheTitleOfTheWindowNamesTheGoal) {
  openWindow();
  EXPECT_EQ(window->windowTitle(), "First – Vemra Desk");
  choose("&Go", "&Next Goal");
  EXPECT_TRUE(becomes([&] { return window->windowTitle() == "Second – Vemra Desk"; }));
}

TEST_F(CommandsTest, AboutNamesTheVersion) {
  openWindow();
  choose("&Help", "&About Vemra Desk");
  auto* about = wait<QMessageBox>("desk.about");
  ASSERT_NE(about, nullptr);
  EXPECT_EQ(about->text(), "Vemra Desk " + QString::fromStdString(programVersion()));
}

TEST_F(CommandsTest, TheKeysAreInATableThatCanBeCopied) {
  openWindow();
  choose("&Help", "&Keyboard");
  auto* help = wait<QDialog>("desk.keyboard");
  ASSERT_NE(help, nullptr);
  auto* text = help->findChild<QTextEdit*>("desk.keyboard.table");
  ASSERT_EQ(text->document()->rootFrame()->childFrames().size(), 1);
  auto* table =
      qobject_cast<QTextTable*>(text->document()->rootFrame()->childFrames().constFirst());
  ASSERT_NE(table, nullptr);
  EXPECT_EQ(table->columns(), 2);
  const auto cell = [&](int row, int column) {
    const QTextTableCell found = table->cellAt(row, column);
    return found.firstCursorPosition().block().text();
  };
  EXPECT_EQ(cell(0, 0), "F6");
  EXPECT_EQ(cell(0, 1), "The next pane");
  EXPECT_FALSE(text->verticalScrollBar()->isVisible()) << "all of it has room";
  pressKey(*text, Qt::Key_A, Qt::ControlModifier);
  pressKey(*text, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().contains("F6"));
  EXPECT_TRUE(QApplication::clipboard()->text().contains("Usual text"));
}

TEST_F(CommandsTest, AWindowWithoutAStoreImportsAndExportsNothing) {
  window = std::make_unique<DeskWindow>(StoreOpening{file, nullptr, "x: is no store", false},
                                        std::nullopt);
  window->show();
  EXPECT_FALSE(command("&File", "&Import…")->isEnabled());
  EXPECT_FALSE(command("&File", "&Export Goal…")->isEnabled());
  EXPECT_TRUE(command("&File", "&Open Store…")->isEnabled());
  choose("&Go", "&Next Goal");
  choose("&Go", "Next P&ane");
  window->importDocuments({document("c.json", "c")});
  pass(100);
  EXPECT_EQ(GoalStore::open(file).goals().size(), 2u);
}

}  // namespace
}  // namespace vemra::desk
