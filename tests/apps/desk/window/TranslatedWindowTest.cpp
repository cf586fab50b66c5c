// The window in each language that has a translation: no text of it has an English sentence in any
// of its states.

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/Localized.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/TranslationFiles.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <filesystem>
#include <string>

#include <QFile>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QRegularExpression>
#include <QTextEdit>
#include <QTranslator>
#include <QXmlStreamReader>

namespace vemra::desk {
namespace {

namespace fs = std::filesystem;

/// The English words that no other language has, and the English texts of a translation.
QRegularExpression english(const std::string& language) {
  QStringList expressions{"the",  "is",     "are",      "of",   "and",    "not",
                          "with", "cannot", "expected", "open", "close",  "goal",
                          "path", "try",    "for",      "to",   "nothing"};
  QFile file(QString::fromStdString(VEMRA_REPOSITORY "/apps/desk/window/translations/vemra_desk_" +
                                    language + ".ts"));
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  QXmlStreamReader xml(&file);
  QString source;
  while (!xml.atEnd()) {
    if (xml.readNext() != QXmlStreamReader::StartElement) continue;
    if (xml.name() == u"source") source = xml.readElementText();
    if (xml.name() != u"translation" || xml.readElementText() == source) continue;
    static const QRegularExpression gap("%[1-9]");
    for (const QString& piece : source.remove(u'&').split(gap)) {
      if (piece.count(u' ') > 0 && piece.size() > 8) {
        expressions.append(QRegularExpression::escape(piece.trimmed()));
      }
    }
  }
  EXPECT_GT(expressions.size(), 150);
  return QRegularExpression("(?<![\\w/.])(" + expressions.join('|') + ")(?!\\w)");
}

/// Every text of a window outside the screen, also those for assistive technology.
QStringList textsOf(const QWidget& root) {
  QStringList texts{root.windowTitle(), root.accessibleName(), root.accessibleDescription(),
                    root.toolTip()};
  if (const auto* label = qobject_cast<const QLabel*>(&root)) texts.append(label->text());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&root)) {
    texts.append(button->text());
  }
  if (const auto* field = qobject_cast<const QLineEdit*>(&root)) {
    texts.append(field->placeholderText());
  }
  if (const auto* text = qobject_cast<const QTextEdit*>(&root)) texts.append(text->toPlainText());
  if (const auto* box = qobject_cast<const QMessageBox*>(&root)) {
    texts << box->text() << box->informativeText();
  }
  for (const QAction* action : root.actions()) texts.append(action->text());
  if (const auto* dialog = qobject_cast<const QFileDialog*>(&root)) {
    return texts + dialog->nameFilters();  // the rest is Qt's
  }
  for (const QObject* child : root.children()) {
    const auto* widget = qobject_cast<const QWidget*>(child);
    if (!widget || qobject_cast<const qt::ViewWidget*>(widget)) continue;
    if (widget->isHidden() && !qobject_cast<const QMenu*>(widget)) continue;
    texts += textsOf(*widget);
  }
  return texts;
}

class TranslatedWindowTest : public OpenDesk, public ::testing::WithParamInterface<std::string> {
 protected:
  TranslatedWindowTest() { installTranslations({QString::fromStdString(GetParam())}); }
  ~TranslatedWindowTest() override {
    close();
    installTranslations({"en"});
    for (auto* translator : QCoreApplication::instance()->findChildren<QTranslator*>()) {
      QCoreApplication::removeTranslator(translator);
      delete translator;
    }
  }

  /// The translation of a text of the window, or of a pattern of `Reasons.hpp`.
  static QString own(const char* english) {
    const QString translated = QCoreApplication::translate("VemraDesk", english);
    EXPECT_NE(translated, english);
    return translated;
  }
  /// Fails when the window, in the state of that name, has an English text.
  void check(const std::string& state) const {
    QStringList texts = textsOf(*window);
    EXPECT_GT(texts.join("").size(), 20) << state;
    for (QString& text : texts) {
      text.remove(u'&');
      for (const GoalOutcomeValue value : allGoalOutcomeValues) {  // the screen's fixed texts
        text.remove(fromUTF8(GoalOutcomeRecordingFormLogic::label(value)));
      }
      const auto match = sentence.match(text);
      EXPECT_FALSE(match.hasMatch())
          << state << ": \"" << match.captured().toStdString() << "\" in: " << text.toStdString();
    }
  }
  void openWith(const GetGoalSnapshotResponse& result) {
    GoalStore::open(file).import({result});
    open();
    wait<QAbstractButton>("vemra.goal.person.p1.show-source");
  }
  bool isWaitingBecause(const char* reason) const {
    return becomes([&] { return texts("desk.waiting").join("\n").contains(own(reason)); });
  }
  MenuBar& menus() const { return *window->findChild<MenuBar*>(); }
  QString noticeOf(const QString& text) const {
    EXPECT_TRUE(becomes([&] { return texts("desk.notice").join("\n").contains(text); }))
        << texts("desk.notice").join("\n").toStdString();
    return texts("desk.notice").join("\n");
  }

  const QRegularExpression sentence = english(GetParam());
  const std::string person = "vemra.goal.person.p1";
};

TEST_P(TranslatedWindowTest, AStoreWithoutGoalsAndTheMenus) {
  GoalStore::open(file);
  open();
  wait<QWidget>("desk.welcome");
  check("welcome");
  EXPECT_EQ(menus().actions().constFirst()->text(), own("&File"));
}

TEST_P(TranslatedWindowTest, TheDetailsOfAPersonASourceAndAPath) {
  GetGoalSnapshotResponse result = goal("g1", "Ziel", {outcome("o1", "p1", {})});
  result.people = {build::person("p1", "Ada", {"ev9"}, GoalWhyDTO::connection(2))};
  result.paths = {build::path({"p0", "p1"})};
  openWith(result);
  for (const char* button :
       {"vemra.goal.person.p1.show-source", "vemra.goal.path.see-in-starfold"}) {
    press(button);
    wait<QWidget>("desk.side");
    pass(50);
    check(button);
  }
  for (auto* each : window->findChildren<QAbstractButton*>()) {
    if (each->text() == "Ada" && each->isVisible()) each->click();
  }
  EXPECT_TRUE(becomes([&] { return shows(own("Sources: %1").arg(1), "desk.side"); }));
  check("person");
}

TEST_P(TranslatedWindowTest, TheHelpAndTheDialogsForFiles) {
  openWith(goal("g1", "Ziel"));
  using Signal = void (MenuBar::*)();
  for (const Signal wanted :
       {&MenuBar::aboutWanted, &MenuBar::keyboardHelpWanted, &MenuBar::openStoreWanted,
        &MenuBar::importWanted, &MenuBar::exportWanted}) {
    Q_EMIT(menus().*wanted)();
    pass(20);
    ASSERT_FALSE(window->findChildren<QDialog*>().isEmpty());
    check(window->findChildren<QDialog*>().constFirst()->objectName().toStdString());
    for (auto* dialog : window->findChildren<QDialog*>()) delete dialog;
  }
}

TEST_P(TranslatedWindowTest, WhatIsWaitingAndTheQuestionsAboutIt) {
  patience = std::chrono::milliseconds(50);
  openWith(goal("g1", "Ziel"));
  RawDatabase other(file);
  ASSERT_EQ(other.run("BEGIN IMMEDIATE"), "");
  press(person + ".outcome.start");
  press(person + ".outcome.save");
  EXPECT_TRUE(isWaitingBecause("is in use by another program that does not let go of it"));
  check("waiting");
  press("desk.waiting.discard");
  check("discard");
  delete wait<QMessageBox>("desk.discard");
  window->close();
  check("close");
  press("desk.question.wait");
  wait<QMessageBox>("desk.wait");
  check("wait");
  ASSERT_EQ(other.run("ROLLBACK"), "");
  EXPECT_TRUE(becomes([&] { return !window->isVisible(); }));
}

TEST_P(TranslatedWindowTest, TheQuestionAboutOpenEditors) {
  openWith(goal("g1", "Ziel"));
  press(person + ".outcome.start");
  window->close();
  wait<QMessageBox>("desk.question");
  check("drafts");
}

TEST_P(TranslatedWindowTest, AStoreThatCannotBeOpened) {
  folder.write("goals.sqlite", std::string(200, 'x'));
  window = std::make_unique<DeskWindow>(openStore(file), std::nullopt);
  window->show();
  EXPECT_TRUE(texts().join("\n").contains(own("is not an SQLite database")))
      << texts().join("\n").toStdString();
  check("store");
}

TEST_P(TranslatedWindowTest, AStoreForReadingOnly) {
  GoalStore::open(file).import({goal("g1", "Ziel")});
  StoreOpening opening = openStore(file, StoreUse::reading);
  opening.problem = file + ": is read-only";
  window = std::make_unique<DeskWindow>(std::move(opening), std::nullopt);
  window->show();
  press(person + ".outcome.start");
  press(person + ".outcome.save");
  EXPECT_TRUE(isWaitingBecause("is open for reading only"));
  check("read-only");
}

TEST_P(TranslatedWindowTest, TheNoticesAfterAnImportAndAnExport) {
  openWith(goal("g1", "Ziel"));
  const std::string bad = folder.write("bad.json", "{\"goal\": 1}");
  window->importDocuments({QString::fromStdString(bad)});
  noticeOf(own("expected %1; found %2").arg(own("an object"), ""));
  check("failed import");
  const std::string good = folder.write("good.json", documents::writeResult(goal("g2", "Zwei")));
  window->importDocuments({QString::fromStdString(good)});
  noticeOf(": 1");
  check("import");
  window->exportGoal(QString::fromStdString(folder.file("nowhere/x.json")));
  noticeOf("nowhere/x.json: ");
  check("failed export");
}

TEST_P(TranslatedWindowTest, AStoreThatHasMovedAndAGoalThatCannotBeLoaded) {
  openWith(goal("g1", "Ziel"));
  GoalStore::open(file).import({goal("g2", "Zwei")});
  ASSERT_EQ(RawDatabase(file).run("DELETE FROM coverage WHERE goal = 2"), "");
  press("desk.goal.g2");
  wait<QWidget>("desk.failure");
  check("failure");
  fs::remove(file);
  noticeOf(own("was moved or removed while it was open"));
  check("moved");
}

TEST_P(TranslatedWindowTest, QtsOwnTextsAreTranslatedWhereItsTranslationsAreInstalled) {
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (!QFile::exists(folder + "/qtbase_" + QString::fromStdString(GetParam()) + ".qm")) {
    GTEST_SKIP() << "no translations of Qt";
  }
  const QMessageBox box(QMessageBox::NoIcon, "", "", QMessageBox::Cancel);
  EXPECT_EQ(box.button(QMessageBox::Cancel)->text().remove(u'&'), own("Cancel"));
}

TEST_P(TranslatedWindowTest, TheNoticeOfARecordingThatHasEnded) {
  const std::string nowhere = folder.file("missing/case.json");
  GoalStore::open(file).import({goal("a", "Ziel")});
  engine = std::make_shared<StoreEngine>(file, patience);
  window = std::make_unique<DeskWindow>(StoreOpening{engine->file(), engine, {}, false},
                                        std::nullopt, RecordingWish{nowhere, false});
  window->show();
  const QString notice = noticeOf(own("No such file or directory"));
  EXPECT_TRUE(notice.contains("missing/case.json")) << notice.toStdString();
  check("recording");
}

INSTANTIATE_TEST_SUITE_P(, TranslatedWindowTest,
                         ::testing::ValuesIn(translatedLanguages("apps/desk/window/translations",
                                                                 "vemra_desk")),
                         [](const auto& language) { return language.param; });

}  // namespace
}  // namespace vemra::desk
