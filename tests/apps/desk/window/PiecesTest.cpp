// Very long texts and lists are shown piece by piece, and nothing of them is lost.

#include "apps/desk/window/Notice.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/desk/window/Pieces.hpp"
#include "apps/desk/window/SidePane.hpp"
#include "tests/apps/desk/window/Keys.hpp"

#include <string>
#include <vector>

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

const QString accent = QString::fromUtf8("\u0301");

/// The pieces of a text, in the order in which they are shown.
QStringList piecesOf(const QString& text) {
  QStringList pieces;
  for (qsizetype from = 0; from < text.size();) {
    const qsizetype end = endOfPiece(text, from);
    if (end <= from) return {"stands still"};
    pieces.append(text.mid(from, end - from));
    from = end;
  }
  return pieces;
}

/// A column in a window, as the pane has one.
class PiecesTest : public ::testing::Test {
 protected:
  PiecesTest() {
    window.resize(300, 600);
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
  }

  QStringList texts() const {
    QStringList texts;
    for (const auto* label : window.findChildren<QLabel*>()) texts.append(label->text());
    return texts;
  }
  std::vector<QPushButton*> mores() const {
    std::vector<QPushButton*> mores;
    for (auto* more : window.findChildren<QPushButton*>("desk.side.more")) {
      if (!more->isHidden()) mores.push_back(more);
    }
    return mores;
  }

  QWidget window;
  QVBoxLayout* column = new QVBoxLayout(&window);
};

TEST(TextPieces, ATextUpToTheBoundIsOnePiece) {
  EXPECT_EQ(endOfPiece(QString(), 0), 0);
  EXPECT_EQ(endOfPiece(QString(1000, u'w'), 0), 1000);
  EXPECT_EQ(endOfPiece(QString(1001, u'w'), 0), 1000);
  EXPECT_EQ(endOfPiece((u'e' + accent).repeated(1000), 0), 2000) << "1,000 characters";
  EXPECT_EQ(endOfPiece((u'e' + accent + accent).repeated(1000), 0), 3 * 666) << "2,000 units";
  EXPECT_EQ(endOfPiece(QString(1000, u'x') + QString(1001, u'w'), 1000), 2000);
  EXPECT_EQ(endOfPiece(QString(1000, u'x') + QString(1000, u'w'), 1000), 2000);
}

TEST(TextPieces, APieceCountsCharactersAsAReaderCountsThem) {
  const QString accented = (u'e' + accent).repeated(999) + "ff";
  EXPECT_EQ(endOfPiece(accented, 0), 2 * 999 + 1) << "1,000 characters, one of them a plain f";
  const QString pairs = QString::fromUtf8("\U0001F600").repeated(1001);
  EXPECT_EQ(endOfPiece(pairs, 0), 2000) << "1,000 characters";
}

TEST(TextPieces, APieceEndsBehindABlankWhereOneIsNear) {
  const QString near = QString(925, u'w') + ' ' + QString(500, u'w');
  EXPECT_EQ(endOfPiece(near, 0), 926);
  const QString far = QString(900, u'w') + ' ' + QString(500, u'w');
  EXPECT_EQ(endOfPiece(far, 0), 1000);
  EXPECT_EQ(endOfPiece(QString(999, u'w') + ' ' + QString(9, u'w'), 0), 1000);
}

TEST(TextPieces, ACharacterBeyondTheBoundIsCutButNoSurrogatePair) {
  const QString marks = u'x' + accent.repeated(20'000);
  const QStringList pieces = piecesOf(marks);
  EXPECT_EQ(pieces.join(QString()), marks);
  for (const QString& piece : pieces) EXPECT_LE(piece.size(), 100);
  EXPECT_EQ(endOfPiece("ab" + marks, 0), 2) << "the text before it is a piece of its own";
  EXPECT_EQ(endOfPiece(u'x' + accent.repeated(99), 0), 100) << "a character up to the bound";
  EXPECT_EQ(endOfPiece(u'x' + accent.repeated(100), 0), 100);
  const QString pairs = u'x' + QString::fromUtf8("\U000E0100").repeated(5'000);
  for (const QString& piece : piecesOf(pairs)) {
    EXPECT_FALSE(piece.front().isLowSurrogate());
    EXPECT_FALSE(piece.back().isHighSurrogate());
  }
}

TEST(TextPieces, NothingOfATextIsLost) {
  for (const QString& text :
       {QString("word ").repeated(40'000), QString("\n").repeated(5'000), QString(9'999, u'w'),
        QString::fromUtf8("\U0001F469\u200D\U0001F469\u200D\U0001F467").repeated(800)}) {
    EXPECT_EQ(piecesOf(text).join(QString()), text);
  }
}

TEST(TextPieces, TheFirstPieceAloneEndsInAnEllipsis) {
  EXPECT_EQ(firstPiece("short"), "short");
  EXPECT_EQ(firstPiece(QString(1001, u'w')), QString(1000, u'w') + u'…');
}

TEST_F(PiecesTest, AShortTextIsALabelAndAnEmptyOneNothing) {
  addText(*column, "", TextRole::body);
  EXPECT_EQ(column->count(), 0);
  addText(*column, QString(1000, u'w'), TextRole::body);
  EXPECT_EQ(texts(), QStringList(QString(1000, u'w')));
  EXPECT_TRUE(mores().empty());
}

TEST_F(PiecesTest, EveryPressShowsMoreOfALongText) {
  const QString text = QString(1000, u'a') + QString(1000, u'b') + QString(7, u'c');
  addText(*column, text, TextRole::body);
  EXPECT_EQ(texts(), QStringList(QString(1000, u'a')));
  ASSERT_EQ(mores().size(), 1u);
  mores()[0]->click();
  EXPECT_EQ(texts(), QStringList({QString(1000, u'a'), QString(1000, u'b')}));
  mores()[0]->click();
  EXPECT_EQ(texts().join(QString()), text);
  EXPECT_TRUE(mores().empty()) << "there is no more";
}

TEST_F(PiecesTest, AListUpToTheBoundIsShownWhole) {
  addEntries(*column, "the goals", 20, [](QVBoxLayout& list, std::size_t i) {
    addText(list, QString::number(i), TextRole::body);
  });
  EXPECT_EQ(texts().size(), 20);
  EXPECT_TRUE(mores().empty());
}

TEST_F(PiecesTest, ALongListMakesItsEntriesOnRequest) {
  std::vector<std::size_t> made;
  addEntries(*column, "the goals", 45, [&](QVBoxLayout& list, std::size_t i) {
    made.push_back(i);
    addText(list, QString::number(i), TextRole::body);
  });
  EXPECT_EQ(made.size(), 20u);
  mores().at(0)->click();
  EXPECT_EQ(made.size(), 40u);
  mores().at(0)->click();
  ASSERT_EQ(made.size(), 45u);
  EXPECT_TRUE(mores().empty());
  for (std::size_t i = 0; i < made.size(); ++i) EXPECT_EQ(made[i], i);
  EXPECT_EQ(texts().front(), "0");
  EXPECT_EQ(texts().back(), "44");
}

TEST_F(PiecesTest, TheButtonIsReachedByTabPressedByKeyAndHasAnAccessibleName) {
  addText(*column, QString(2500, u'w'), TextRole::body);
  QPushButton& more = *mores().at(0);
  more.setFocus(Qt::TabFocusReason);
  ASSERT_TRUE(more.hasFocus());
  EXPECT_TRUE(more.focusPolicy() & Qt::TabFocus);
  pressKey(more, Qt::Key_Space);
  EXPECT_EQ(texts().size(), 2);
  EXPECT_TRUE(more.hasFocus()) << "for the next piece";
  QAccessibleInterface* heard = QAccessible::queryAccessibleInterface(&more);
  EXPECT_EQ(heard->text(QAccessible::Name), "Show more of the text");
  EXPECT_EQ(heard->role(), QAccessible::Button);
}

TEST_F(PiecesTest, TabGoesThroughNewButtonsInReadingOrder) {
  addEntries(*column, "the goals", 25, [](QVBoxLayout& list, std::size_t i) {
    addText(list, QString(i == 3 || i == 22 ? 1500 : 1, u'w'), TextRole::body);
  });
  auto* last = new QPushButton("last");
  column->addWidget(last);
  ASSERT_EQ(mores().size(), 2u);
  const auto pressesTabFrom = [&](QWidget* from) {
    QApplication::processEvents();  // new widgets are shown in the next turn
    from->setFocus(Qt::TabFocusReason);
    pressKey(*from, Qt::Key_Tab);
    return window.focusWidget();
  };
  QPushButton* ofText = nullptr;
  QPushButton* ofList = nullptr;
  for (QPushButton* more : mores()) {
    (more->accessibleName() == "Show more of the goals" ? ofList : ofText) = more;
  }
  ASSERT_TRUE(ofText && ofList);
  EXPECT_EQ(pressesTabFrom(ofText), ofList);
  EXPECT_EQ(pressesTabFrom(ofList), last);
  ofList->setFocus(Qt::TabFocusReason);
  ofList->click();
  EXPECT_FALSE(ofList->isVisible());
  EXPECT_EQ(window.focusWidget(), last) << "the next control has the focus";
  QPushButton* inNewPiece = nullptr;
  for (QPushButton* more : mores()) {
    if (more != ofText) inNewPiece = more;
  }
  ASSERT_TRUE(inNewPiece);
  EXPECT_EQ(pressesTabFrom(ofText), inNewPiece);
  EXPECT_EQ(pressesTabFrom(inNewPiece), last);
}

class SidePanePiecesTest : public ::testing::Test {
 protected:
  SidePanePiecesTest() { pane.resize(290, 700); }

  QStringList texts() const {
    QStringList texts;
    for (const auto* label : pane.widget()->findChildren<QLabel*>()) texts.append(label->text());
    return texts;
  }
  /// Presses the first "Show more of …".
  bool showMore(const QString& what) const {
    for (auto* more : pane.findChildren<QPushButton*>("desk.side.more")) {
      if (more->isHidden() || more->accessibleName() != "Show more of " + what) continue;
      more->click();
      return true;
    }
    return false;
  }
  /// The amount that a pane lays out at once, for any content.
  void expectBounded() const {
    EXPECT_LT(texts().size(), 200);
    for (const QString& text : texts()) EXPECT_LE(text.size(), mostUnitsAtOnce + 1);
    EXPECT_LE(pane.accessibleName().size(), mostUnitsAtOnce + 50);
  }

  static std::vector<std::string> ids(std::size_t count) {
    std::vector<std::string> ids;
    for (std::size_t i = 0; i < count; ++i) ids.push_back("ev" + std::to_string(i));
    return ids;
  }

  SidePane pane;
};

TEST_F(SidePanePiecesTest, EveryTextOfAPersonIsShownInPieces) {
  const std::string longText = (u'x' + accent.repeated(20'000)).toStdString();
  PersonKnowledge person;
  person.personRef = longText;
  person.name = longText;
  person.goalsTowards = {longText};
  person.goalsWithPaths = {longText};
  person.suggestions = {
      {longText, "other" + longText, GoalWhyDTO::evidence(longText, longText, "ev"), {longText}}};
  GoalOutcomeDTO outcome;
  outcome.note = longText;
  person.outcomes = {{longText, outcome}};
  pane.showPerson(person);
  expectBounded();
  EXPECT_TRUE(showMore("the text"));
}

TEST_F(SidePanePiecesTest, EveryListOfAPersonIsShownInPieces) {
  PersonKnowledge person;
  person.suggestions.resize(300, {"goal", "Ada", GoalWhyDTO::connection(1), {"ev"}});
  person.goalsTowards.resize(300, "towards");
  person.goalsWithPaths.resize(300, "path");
  person.outcomes.resize(300, {"outcome", {}});
  pane.showPerson(person);
  expectBounded();
  EXPECT_EQ(texts().count("towards"), 20);
  EXPECT_EQ(texts().count("path"), 20);
  EXPECT_EQ(texts().count("goal"), 20);
  EXPECT_EQ(texts().count("outcome"), 20);
  EXPECT_TRUE(showMore("the outcomes"));
  EXPECT_EQ(texts().count("outcome"), 40);
  EXPECT_EQ(texts().count("goal"), 20) << "the others have as many as before";
}

TEST_F(SidePanePiecesTest, SourcesAreShownFiftyAtOnce) {
  PersonKnowledge person;
  person.suggestions = {{"goal", "Ada", GoalWhyDTO::nameMatch(), ids(50)}};
  pane.showPerson(person);
  EXPECT_FALSE(showMore("the sources"));
  person.suggestions[0].evidenceIDs = ids(120);
  pane.showPerson(person);
  const auto sources = [&] { return texts().filter("ev").join(" | "); };
  EXPECT_TRUE(sources().startsWith("Sources: ev0, ev1, ")) << sources().toStdString();
  EXPECT_TRUE(sources().endsWith("ev48, ev49")) << sources().toStdString();
  EXPECT_TRUE(showMore("the sources"));
  EXPECT_TRUE(sources().contains("ev49 | ev50, ")) << sources().toStdString();
  EXPECT_TRUE(showMore("the sources"));
  EXPECT_TRUE(sources().endsWith("ev119")) << sources().toStdString();
  EXPECT_FALSE(showMore("the sources"));
}

TEST_F(SidePanePiecesTest, AMillionSourcesAreShownAtOnce) {
  PersonKnowledge person;
  person.suggestions = {{"goal", "Ada", GoalWhyDTO::nameMatch(), ids(1'000'000)}};
  pane.showPerson(std::move(person));
  expectBounded();
}

TEST_F(SidePanePiecesTest, EverythingOfASourceIsShownInPieces) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = std::string(5'000, 'w');
  evidence.statements.resize(300, {"goal", "label", "detail"});
  evidence.people.resize(300, {"aim", "p", "Ada", 0, GoalWhyDTO::nameMatch()});
  pane.showEvidence(evidence);
  expectBounded();
  EXPECT_EQ(texts().count("detail"), 20);
  EXPECT_EQ(texts().count("Ada"), 20);
  EXPECT_TRUE(showMore("the statements"));
  EXPECT_EQ(texts().count("detail"), 40);
  EXPECT_TRUE(showMore("the people"));
  EXPECT_EQ(texts().count("Ada"), 40);
}

TEST_F(SidePanePiecesTest, ALongPathIsDrawnInPartsUnderTheNameOfItsLastPerson) {
  GoalPathCandidateDTO path;
  path.personRefs = ids(45);
  pane.showPath(path, {});
  const auto graphs = [&] { return pane.findChildren<PathGraph*>(); };
  ASSERT_EQ(graphs().size(), 1);
  EXPECT_EQ(graphs()[0]->accessibleName(), "Path to ev44");
  EXPECT_TRUE(graphs()[0]->accessibleDescription().endsWith("then ev19"));
  EXPECT_TRUE(showMore("the path"));
  EXPECT_TRUE(showMore("the path"));
  EXPECT_FALSE(showMore("the path"));
  ASSERT_EQ(graphs().size(), 3);
  EXPECT_EQ(graphs()[2]->accessibleDescription(),
            "ev40, then ev41, then ev42, then ev43, then ev44");
  path.personRefs = ids(20);
  pane.showPath(path, {});
  EXPECT_FALSE(showMore("the path"));
}

TEST(PathGraphPieces, OnlyTheBeginningOfAVeryLongNameIsShown) {
  const PathGraph graph({QString(3000, u'w'), "Bo"});
  EXPECT_EQ(graph.accessibleDescription(), QString(1000, u'w') + "…, then Bo");
}

TEST(NoticePieces, OnlyTheBeginningOfAVeryLongFailureIsShown) {
  Notice notice;
  notice.show(QString(3000, u'w'));
  EXPECT_EQ(notice.accessibleName(), QString(1000, u'w') + u'…');
  for (const auto* label : notice.findChildren<QLabel*>()) {
    EXPECT_EQ(label->text(), notice.accessibleName());
  }
}

}  // namespace
}  // namespace vemra::desk
