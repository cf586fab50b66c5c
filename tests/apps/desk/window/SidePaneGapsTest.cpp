// The gaps between the parts of the pane beside the screen.

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "apps/desk/window/PlainText.hpp"
#include "apps/desk/window/SidePane.hpp"

#include <algorithm>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <gtest/gtest.h>

namespace vemra::desk {
namespace {

class SidePaneGapsTest : public ::testing::Test {
 protected:
  SidePaneGapsTest() { pane.resize(400, 900); }

  /// The gap between the label of that text and the label above it, in pixels.
  int gapAbove(const QString& text) const {
    QApplication::processEvents();
    QList<QLabel*> labels = pane.widget()->findChildren<QLabel*>();
    std::ranges::sort(labels, {}, [](const QLabel* label) { return label->y(); });
    const auto found = std::ranges::find(labels, text, &QLabel::text);
    if (found == labels.end() || found == labels.begin()) {
      ADD_FAILURE() << "nothing is above " << text.toStdString();
      return 0;
    }
    return (*found)->y() - (*std::prev(found))->geometry().bottom() - 1;
  }

  static constexpr int betweenLines = 4;
  static constexpr int betweenEntries = 10;
  static constexpr int aboveHeading = 18;
  static constexpr int aboveHeadingBehindAnEntry = 24;

  SidePane pane;
};

TEST_F(SidePaneGapsTest, KnowledgeOfAPersonIsShownInEntriesUnderHeadings) {
  PersonKnowledge person;
  person.personRef = "p1";
  person.suggestions = {{{"g1", "First"}, std::nullopt, GoalWhyDTO::nameMatch(), {"e1"}},
                        {{"g2", "Second"}, std::nullopt, GoalWhyDTO::nameMatch(), {"e2"}}};
  GoalOutcomeDTO noted;
  noted.note = "a note";
  GoalOutcomeDTO next;
  next.note = "another";
  person.outcomes = {{{"g1", "Goal one"}, noted}, {{"g2", "Goal two"}, next}};
  pane.showPerson(person);
  EXPECT_EQ(gapAbove("Sources: 1"), betweenLines);
  EXPECT_EQ(gapAbove("Worth considering for"), aboveHeading);
  EXPECT_EQ(gapAbove("Second"), betweenEntries);
  EXPECT_EQ(gapAbove("Recorded"), aboveHeadingBehindAnEntry);
  EXPECT_EQ(gapAbove("Goal one"), betweenLines);
}

TEST_F(SidePaneGapsTest, KnowledgeOfASourceIsShownInEntriesUnderHeadings) {
  EvidenceKnowledge evidence;
  evidence.evidenceID = "mail-1";
  evidence.statements = {{{"g1", "Goal"}, "Label", "Detail"},
                         {{"g2", "Other goal"}, "Second label", "Second"}};
  evidence.people = {{{"g1", "Goal"}, "p1", "Ada", 0, GoalWhyDTO::nameMatch()},
                     {{"g2", "Other goal"}, "p2", "Bo", 1, GoalWhyDTO::nameMatch()}};
  pane.showEvidence(evidence);
  EXPECT_EQ(gapAbove("What it says"), aboveHeading);
  EXPECT_EQ(gapAbove("Detail"), betweenLines);
  EXPECT_EQ(gapAbove("Second label"), betweenEntries);
  EXPECT_EQ(gapAbove("Whom it speaks for"), aboveHeadingBehindAnEntry);
  EXPECT_EQ(gapAbove("Bo"), betweenEntries);
}

TEST_F(SidePaneGapsTest, ATextInPiecesHasThePlaceOfAShortText) {
  PersonKnowledge person;
  person.personRef = "p1";
  GoalOutcomeDTO noted;
  noted.note = std::string(1500, 'w');
  person.outcomes = {{{"g", "The goal"}, noted}};
  pane.showPerson(person);
  QApplication::processEvents();
  const auto place = [&](const QWidget& widget) {
    return QRect(widget.mapTo(pane.widget(), QPoint()), widget.size());
  };
  const auto label = [&](const QString& start) {
    for (const auto* each : pane.widget()->findChildren<QLabel*>()) {
      if (each->text().startsWith(start)) return place(*each);
    }
    return QRect();
  };
  const auto& more = *pane.widget()->findChild<QPushButton*>("desk.side.more");
  const QRect piece = label("www");
  const QRect below = label("The goal");
  EXPECT_EQ(piece.left(), below.left());
  EXPECT_EQ(piece.right(), below.right());
  const QRect above = label(fromUTF8(GoalOutcomeRecordingFormLogic::label(noted.value)));
  EXPECT_EQ(piece.top() - above.bottom() - 1, betweenLines);
  EXPECT_EQ(place(more).top() - piece.bottom() - 1, betweenLines);
  EXPECT_EQ(below.top() - place(more).bottom() - 1, betweenLines);
}

TEST_F(SidePaneGapsTest, ATextOfManyLinesIsShownToItsEnd) {
  PersonKnowledge person;
  person.personRef = "p1";
  GoalOutcomeDTO noted;
  noted.note = QString("word and more ").repeated(70).toStdString();
  person.outcomes = {{{"g", "The goal"}, noted}};
  for (const auto& note : {*noted.note, std::string(900, 'w'), *noted.note + *noted.note}) {
    person.outcomes[0].outcome.note = note;
    pane.showPerson(person);
    QApplication::processEvents();
    for (const auto* each : pane.widget()->findChildren<QLabel*>()) {
      EXPECT_GE(each->height(), each->heightForWidth(each->width()))
          << each->text().left(20).toStdString();
    }
  }
}

// Otherwise a scroll area gives its content a background of its own.
TEST_F(SidePaneGapsTest, ThePaneHasTheBackgroundOfItsWindow) {
  pane.showPerson({});
  EXPECT_FALSE(pane.widget()->autoFillBackground());
  EXPECT_FALSE(pane.viewport()->autoFillBackground());
}

}  // namespace
}  // namespace vemra::desk
