// Files that are dropped on the window, and goals that are exported to files.

#include "apps/desk/commands/Documents.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <csignal>
#include <filesystem>
#include <sys/resource.h>

#include <QDropEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

namespace vemra::desk {
namespace {

class FilesTest : public OpenDesk {
 protected:
  FilesTest() { GoalStore::open(file).import({goal("a", "First")}); }

  void openWindow() {
    open();
    wait<QAbstractButton>("vemra.goal.person.p1.outcome.start");
    qttest::activate(*window);
  }
  std::string document(const std::string& name, const std::string& goalID) const {
    return folder.write(name, documents::writeResult(goal(goalID, "Goal " + goalID)));
  }
  std::string otherStore() const {
    const std::string store = folder.file("other.sqlite");
    GoalStore::open(store).import({goal("o", "Other")});
    return store;
  }
  QString notice() const {
    becomes([&] { return find<QWidget>("desk.notice") != nullptr; });
    return texts("desk.notice").join(" ");
  }

  /// Drags data over the window and, if it accepts them, drops them. Returns whether it did.
  bool dropData(const QMimeData& data) const {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(window.get(), &enter);
    if (!enter.isAccepted()) return false;
    return answerToDrop(data, Qt::CopyAction, Qt::NoModifier) != Qt::IgnoreAction;
  }
  /// The action that the window answers to a drop; `IgnoreAction` when it refuses the drop.
  Qt::DropAction answerToDrop(const QMimeData& data, Qt::DropActions offered,
                              Qt::KeyboardModifiers modifiers) const {
    QDropEvent drop(QPointF(5, 5), offered, &data, Qt::LeftButton, modifiers);
    drop.ignore();
    QApplication::sendEvent(window.get(), &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
  }
  bool drop(const std::vector<std::string>& files) const {
    QMimeData data;
    setFiles(data, files);
    return dropData(data);
  }
  static void setFiles(QMimeData& data, const std::vector<std::string>& files) {
    QList<QUrl> urls;
    for (const std::string& each : files) {
      urls.append(QUrl::fromLocalFile(QString::fromStdString(each)));
    }
    data.setUrls(urls);
  }
};

class DroppedFilesTest : public FilesTest {};

TEST_F(DroppedFilesTest, SeveralDocumentsAreImportedTogether) {
  openWindow();
  EXPECT_TRUE(drop({document("c.json", "c"), document("d.json", "d")}));
  EXPECT_TRUE(becomes([&] { return shows("Goal c", "desk.goals"); }));
  EXPECT_TRUE(shows("Goal d", "desk.goals"));
  EXPECT_TRUE(notice().contains("Documents imported: 2."));
}

TEST_F(DroppedFilesTest, OneBadFileAmongThemImportsNothingAndIsNamed) {
  openWindow();
  EXPECT_TRUE(drop({document("c.json", "c"), folder.write("bad.json", "{")}));
  EXPECT_TRUE(notice().contains("bad.json")) << notice().toStdString();
  EXPECT_EQ(GoalStore::open(file).goals().size(), 1u);
}

TEST_F(DroppedFilesTest, AFolderIsNamedAndImportsNothing) {
  openWindow();
  std::filesystem::create_directory(folder.file("documents"));
  EXPECT_TRUE(drop({folder.file("documents")}));
  EXPECT_TRUE(notice().contains("Is a directory")) << notice().toStdString();
}

TEST_F(DroppedFilesTest, AStoreIsOpened) {
  openWindow();
  EXPECT_TRUE(drop({otherStore()}));
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
}

TEST_F(DroppedFilesTest, AStoreIsOpenedWhereNoneIsOpen) {
  window = std::make_unique<DeskWindow>(StoreOpening{file, nullptr, "x: is no store", false},
                                        std::nullopt);
  window->show();
  EXPECT_FALSE(drop({document("c.json", "c")})) << "there is no store to import it into";
  EXPECT_TRUE(drop({otherStore()}));
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
}

TEST_F(DroppedFilesTest, AStoreIsNotOpenedBeforeTheQuestionAboutAnOpenEditor) {
  openWindow();
  press("vemra.goal.person.p1.outcome.start");
  wait<QWidget>("vemra.goal.person.p1.outcome.note");
  EXPECT_TRUE(drop({otherStore()}));
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_FALSE(shows("Other", "desk.goals"));
  question->button(QMessageBox::Discard)->click();
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
}

TEST_F(DroppedFilesTest, TextsAndLinksToTheWebAreNotAccepted) {
  openWindow();
  QMimeData text;
  text.setText("/a/b.json");
  EXPECT_FALSE(dropData(text));
  QMimeData web;
  web.setUrls({QUrl("https://example.org/a.json")});
  EXPECT_FALSE(dropData(web));
}

TEST_F(DroppedFilesTest, ADropThatWouldMoveTheFileIsAnsweredWithACopy) {
  openWindow();
  QMimeData store;
  setFiles(store, {otherStore()});
  const Qt::DropActions both = Qt::CopyAction | Qt::MoveAction;
  QDragEnterEvent enter(QPoint(5, 5), both, &store, Qt::LeftButton, Qt::ShiftModifier);
  enter.setDropAction(Qt::MoveAction);
  enter.ignore();
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  EXPECT_EQ(enter.dropAction(), Qt::CopyAction);
  QDropEvent drop(QPointF(5, 5), both, &store, Qt::LeftButton, Qt::ShiftModifier);
  drop.setDropAction(Qt::MoveAction);
  drop.ignore();
  QApplication::sendEvent(window.get(), &drop);
  EXPECT_TRUE(drop.isAccepted());
  EXPECT_EQ(drop.dropAction(), Qt::CopyAction);
  EXPECT_TRUE(becomes([&] { return shows("Other", "desk.goals"); }));
}

TEST_F(DroppedFilesTest, ADropThatCanOnlyMoveTheFileIsRefused) {
  openWindow();
  QMimeData store;
  setFiles(store, {otherStore()});
  QDragEnterEvent enter(QPoint(5, 5), Qt::MoveAction, &store, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(window.get(), &enter);
  EXPECT_FALSE(enter.isAccepted());
  EXPECT_EQ(answerToDrop(store, Qt::MoveAction, Qt::NoModifier), Qt::IgnoreAction);
  pass(100);
  EXPECT_FALSE(shows("Other", "desk.goals"));
}

TEST_F(DroppedFilesTest, AStoreIsRefusedWhileDocumentsAreImported) {
  openWindow();
  ASSERT_TRUE(drop({document("c.json", "c")}));
  QMimeData store;
  setFiles(store, {otherStore()});
  EXPECT_EQ(answerToDrop(store, Qt::CopyAction, Qt::NoModifier), Qt::IgnoreAction);
  EXPECT_FALSE(drop({otherStore()}));
  EXPECT_TRUE(notice().contains("Documents imported: 1.")) << notice().toStdString();
  EXPECT_TRUE(becomes([&] { return shows("Goal c", "desk.goals"); }));
}

TEST_F(DroppedFilesTest, AStoreIsRefusedWhileAQuestionIsOpen) {
  openWindow();
  press("vemra.goal.person.p1.outcome.start");
  wait<QWidget>("vemra.goal.person.p1.outcome.note");
  window->close();
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  EXPECT_FALSE(drop({otherStore()}));
  QMimeData store;
  setFiles(store, {otherStore()});
  EXPECT_EQ(answerToDrop(store, Qt::CopyAction, Qt::NoModifier), Qt::IgnoreAction);
}

TEST_F(DroppedFilesTest, ADatabaseThatIsNoStoreKeepsTheOpenStoreAndItsEditors) {
  openWindow();
  press("vemra.goal.person.p1.outcome.start");
  wait<QWidget>("vemra.goal.person.p1.outcome.note");
  const std::string foreign = folder.file("foreign.sqlite");
  ASSERT_EQ(RawDatabase(foreign).run("CREATE TABLE songs (title TEXT)"), "");
  ASSERT_TRUE(drop({foreign}));
  auto* question = wait<QMessageBox>("desk.question");
  ASSERT_NE(question, nullptr);
  question->button(QMessageBox::Discard)->click();
  EXPECT_TRUE(notice().contains("foreign.sqlite")) << notice().toStdString();
  EXPECT_TRUE(shows("First", "desk.goals"));
  EXPECT_NE(find<QWidget>("vemra.goal.person.p1.outcome.note"), nullptr);
  EXPECT_EQ(find<QWidget>("desk.store"), nullptr);
}

TEST_F(DroppedFilesTest, AStoreIsOpenedAfterTheDropHasEnded) {
  openWindow();
  const std::shared_ptr<StoreEngine> before = window->engine();
  ASSERT_TRUE(drop({otherStore()}));
  EXPECT_EQ(window->engine(), before) << "opening may wait for a store that is locked";
  EXPECT_TRUE(becomes([&] { return window->engine() != before; }));
}

class ExportTest : public FilesTest {
 protected:
  std::string exported() { return documentText(GoalStore::open(file).result("a")); }
};

TEST_F(ExportTest, TheOpenGoalIsWrittenToANewFileAndOverAnExistingOne) {
  openWindow();
  const std::string target = folder.file("out.json");
  for (const char* before : {"", "something longer that was there before"}) {
    if (*before != '\0') folder.write("out.json", before);
    window->exportGoal(QString::fromStdString(target));
    EXPECT_TRUE(becomes([&] { return TemporaryFolder::readFile(target) == exported(); })) << before;
  }
  EXPECT_TRUE(notice().startsWith("The goal was exported to ")) << notice().toStdString();
}

TEST_F(ExportTest, AFolderThatIsNotThereIsReported) {
  openWindow();
  window->exportGoal(QString::fromStdString(folder.file("nowhere/out.json")));
  EXPECT_TRUE(notice().startsWith("The goal was not exported. ")) << notice().toStdString();
}

TEST_F(ExportTest, AnExportThatFailsKeepsTheExistingFile) {
  openWindow();
  const std::string target = folder.write("out.json", "before");
  const auto usual = std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  rlimit small = before;
  small.rlim_cur = 10;  // as on a disk that is full
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  window->exportGoal(QString::fromStdString(target));
  const bool isReported = becomes([&] { return find<QWidget>("desk.notice") != nullptr; });
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
  std::signal(SIGXFSZ, usual);
  EXPECT_TRUE(isReported);
  EXPECT_TRUE(notice().startsWith("The goal was not exported. ")) << notice().toStdString();
  EXPECT_EQ(TemporaryFolder::readFile(target), "before");
  int files = 0;
  for (const auto& each : std::filesystem::directory_iterator(folder.path())) {
    files += each.path().filename().string().starts_with("out.json") ? 1 : 0;
  }
  EXPECT_EQ(files, 1) << "no part of the new file is left";
}

}  // namespace
}  // namespace vemra::desk
