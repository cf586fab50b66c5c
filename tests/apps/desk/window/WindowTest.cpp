#include "VemraQt/ViewWidget.hpp"
#include "apps/desk/window/PathGraph.hpp"
#include "apps/documents/ResultWriter.hpp"
#include "tests/apps/desk/RawDatabase.hpp"
#include "tests/apps/desk/window/OpenDesk.hpp"

#include <csignal>

#include <QKeyEvent>
#include <QLineEdit>

namespace vemra::desk {
namespace {

class WindowTest : public OpenDesk {
 protected:
  void addSamples() const { GoalStore::open(file).import(sampleGoals()); }

  /// Another program writes the hop count that stops the screen into a goal.
  void plantSmallestHopCount(int goalNumber) const {
    EXPECT_EQ(RawDatabase(file).run("UPDATE people SET why_hop_count = -9223372036854775808 "
                                    "WHERE goal = " +
                                    std::to_string(goalNumber)),
              "");
  }
};

TEST_F(WindowTest, ANewStoreOffersTheSampleGoalsAndIsNotFilledUnasked) {
  open();
  ASSERT_NE(wait<QAbstractButton>("desk.addSampleGoals"), nullptr);
  pass(100);
  EXPECT_TRUE(GoalStore::open(file).goals().empty());
  press("desk.addSampleGoals");
  ASSERT_TRUE(becomes([&] { return shows("Find a design lead for the spring launch"); }));
  ASSERT_TRUE(becomes([&] { return shows("People worth considering"); }));
  EXPECT_EQ(GoalStore::open(file).goals().size(), 3u);
  EXPECT_EQ(find<QWidget>("desk.welcome"), nullptr);
}

TEST_F(WindowTest, AStoreWithGoalsOffersNothing) {
  addSamples();
  open();
  ASSERT_TRUE(becomes([&] { return shows("People worth considering"); }));
  EXPECT_EQ(find<QWidget>("desk.addSampleGoals"), nullptr);
}

TEST_F(WindowTest, OpensGoalsByPressAndByArrowKey) {
  addSamples();
  open();
  press("desk.goal.sample-sail-the-baltic");
  ASSERT_TRUE(becomes([&] { return shows("No source evidence yet."); }));
  auto* row = wait<QAbstractButton>("desk.goal.sample-sail-the-baltic");
  row->setFocus();
  QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
  QApplication::sendEvent(row, &down);
  ASSERT_TRUE(becomes([&] { return shows("No supported path to them yet."); }));
  EXPECT_TRUE(find<QAbstractButton>("desk.goal.sample-meet-the-curator")->isChecked());
}

TEST_F(WindowTest, APersonOpensBesideTheScreen) {
  addSamples();
  open();
  pressTitled("Søren Ångström");
  ASSERT_NE(wait<QWidget>("desk.side"), nullptr);
  for (const char* text : {"Søren Ångström", "Direct relationship evidence", "Sources: 1",
                           "He did write after all, and put Tomas in copy."}) {
    EXPECT_TRUE(becomes([&] { return shows(text, "desk.side"); }))
        << text << "\n"
        << texts("desk.side").join("\n").toStdString();
  }
  press("desk.side.close");
  EXPECT_EQ(find<QWidget>("desk.side"), nullptr);
}

TEST_F(WindowTest, ASourceOpensBesideTheScreen) {
  addSamples();
  open();
  press("vemra.goal.person.amara-okafor.show-source");
  EXPECT_TRUE(becomes([&] {
    return shows("Email", "desk.side") &&
           shows("Asked who is leading design for the launch", "desk.side");
  })) << texts("desk.side").join("\n").toStdString();
}

TEST_F(WindowTest, APathIsDrawnWithTheNamesOfItsPeople) {
  auto drawn = goal("g", "t");
  drawn.paths = {{{"p1", "nameless", "p9"}, GoalWhyDTO::nameMatch(), 0}};
  auto elsewhere = goal("x", "t");
  elsewhere.people = {{"p9", "Tomas <Lindqvist>", {}, {}}, {"p1", "Not here", {}, {}}};
  GoalStore::open(file).import({elsewhere, drawn});
  open("g");
  press("vemra.goal.path.see-in-starfold");
  auto* graph = wait<PathGraph>("desk.path");
  ASSERT_NE(graph, nullptr);
  EXPECT_EQ(graph->accessibleName(), "Path to Tomas <Lindqvist>");
  EXPECT_EQ(graph->accessibleDescription(), "Ada, then Unnamed person, then Tomas <Lindqvist>");
  EXPECT_GE(graph->height(), graph->heightForWidth(graph->width()));
}

TEST_F(WindowTest, SidePanesAreNeverInsideTheScreen) {
  addSamples();
  open();
  press("vemra.goal.path.see-in-starfold");
  auto* side = wait<QWidget>("desk.side");
  EXPECT_FALSE(window->screen().isAncestorOf(side));
  const QRect screen(window->screen().mapTo(window.get(), QPoint()), window->screen().size());
  const QRect beside(side->mapTo(window.get(), QPoint()), side->size());
  EXPECT_FALSE(screen.intersects(beside));
}

TEST_F(WindowTest, TheSidePaneFollowsRecordedOutcomes) {
  addSamples();
  open();
  pressTitled("Nguyễn Thị Mai");
  ASSERT_TRUE(becomes([&] { return shows("Nguyễn Thị Mai", "desk.side"); }));
  EXPECT_FALSE(shows("Recorded", "desk.side"));
  press("vemra.goal.person.nguyen-thi-mai.outcome.start");
  press("vemra.goal.person.nguyen-thi-mai.outcome.save");
  EXPECT_TRUE(becomes([&] { return shows("Recorded", "desk.side"); }));
}

// Each answer arrives after the user has opened another person or source.
TEST_F(WindowTest, ALateAnswerIsNotShown) {
  addSamples();
  open();
  const auto side = [&] { return find<QWidget>("desk.side"); };
  for (const char* asks :
       {"vemra.goal.person.amara-okafor.show-source", "vemra.goal.path.see-in-starfold"}) {
    wait<QAbstractButton>(asks);
    press(asks);
    find<QAbstractButton>("desk.goal.sample-sail-the-baltic")->click();
    ASSERT_TRUE(becomes([&] { return shows("No source evidence yet."); }));
    pass(200);
    EXPECT_EQ(side(), nullptr) << asks << " was answered in another goal";
    press("desk.goal.sample-design-lead");
    ASSERT_TRUE(becomes([&] { return shows("People worth considering"); }));
  }
  pressTitled("Amara Okafor");
  find<QAbstractButton>("desk.goal.sample-sail-the-baltic")->click();
  pass(200);
  EXPECT_EQ(side(), nullptr) << "the person was answered in another goal";
}

TEST_F(WindowTest, UnusualTextsAreShownLiterally) {
  auto odd = goal("<id>&", "<h1>Fish & chips</h1>\n[*]");
  odd.people = {{"p", "<i>&amp;</i> & Co", GoalWhyDTO::evidence("<b>", "&", "ev"), {"<ev>"}}};
  odd.paths = {{{"p"}, GoalWhyDTO::connection(INT64_MIN + 1), 0}};
  GoalStore::open(file).import({odd});
  open();
  const QString name = "<i>&amp;</i> & Co";
  press("vemra.goal.person.p.show-source");
  EXPECT_TRUE(becomes([&] { return shows(name, "desk.side"); }))
      << texts("desk.side").join("\n").toStdString();
  for (const auto* label : window->findChildren<QLabel*>()) {
    EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
  }
  auto* row = wait<QPushButton>("desk.goal.<id>&");
  EXPECT_EQ(row->accessibleName(), "<h1>Fish & chips</h1>\n[*]");
  EXPECT_EQ(row->text(), "<h1>Fish && chips</h1>\n[*]") << "one & for the eye";
}

TEST_F(WindowTest, ReasonsThatStopTheScreenDoNotStopThePane) {
  GoalStore::open(file).import({goal("g", "t"), goal("other", "t")});
  plantSmallestHopCount(2);
  open("g");
  pressTitled("Ada");
  EXPECT_TRUE(becomes([&] { return shows("Connected", "desk.side"); }));
}

TEST_F(WindowTest, AGoalThatNoScreenCanShowHasItsErrorInPlaceOfTheScreen) {
  GoalStore::open(file).import({goal("fatal", "t"), goal("fine", "t")});
  plantSmallestHopCount(1);
  open();  // the first goal is the one
  ASSERT_NE(wait<QWidget>("desk.failure"), nullptr);
  const QString reason = texts("desk.failure").join(" ");
  EXPECT_TRUE(reason.contains("the goal \"fatal\": /people/0/why/hopCount: expected"))
      << reason.toStdString();
  EXPECT_FALSE(window->screen().isVisible());
  EXPECT_EQ(find<QWidget>("desk.notice"), nullptr);

  press("desk.goal.fine");
  ASSERT_TRUE(becomes([&] { return shows("People worth considering"); }));
  EXPECT_EQ(find<QWidget>("desk.failure"), nullptr);
  press("desk.goal.fatal");
  ASSERT_NE(wait<QWidget>("desk.failure"), nullptr) << "the previous goal must not stand under it";
  EXPECT_FALSE(window->screen().isVisible());

  RawDatabase(file).run("UPDATE people SET why_hop_count = 2");
  press("desk.failure.again");
  ASSERT_TRUE(becomes([&] { return shows("People worth considering"); }));
  EXPECT_EQ(find<QWidget>("desk.failure"), nullptr);
}

TEST_F(WindowTest, AShownGoalStaysWhenItCannotBeLoadedAgain) {
  GoalStore::open(file).import({goal("g", "t")});
  open();
  press("vemra.goal.person.p1.outcome.start");
  wait<QLineEdit>("vemra.goal.person.p1.outcome.note")->setText("half a note");
  plantSmallestHopCount(1);
  ASSERT_TRUE(becomes(
      [&] { return texts("desk.notice").join(" ").contains("The goal could not be loaded."); }));
  EXPECT_EQ(find<QWidget>("desk.failure"), nullptr);
  EXPECT_EQ(wait<QLineEdit>("vemra.goal.person.p1.outcome.note")->text(), "half a note");
}

TEST_F(WindowTest, AStoreWithAChangedSchemaIsReported) {
  addSamples();
  RawDatabase(file).run("DROP TABLE coverage");
  open();
  ASSERT_NE(wait<QWidget>("desk.notice"), nullptr);
  EXPECT_TRUE(texts("desk.notice").join(" ").contains("the table \"coverage\" is missing"));
}

// The program itself, as a user starts it.
TEST_F(WindowTest, TheProgramShowsItselfQuietly) {
  addSamples();
  for (const char* runtimeFolder : {"", "/missing", folder.path().c_str()}) {
    Invocation invocation{{"--store", file, "--goal", "sample-design-lead"}};
    invocation.environment = {{"QT_QPA_PLATFORM", "offscreen"}};
    if (*runtimeFolder == '\0') {
      invocation.withoutVariables = {"XDG_RUNTIME_DIR"};
    } else {
      invocation.environment.emplace_back("XDG_RUNTIME_DIR", runtimeFolder);
    }
    Process process(vemraDesk, invocation);
    QThread::msleep(1500);
    process.kill(SIGTERM);
    const Ending ending = process.wait();
    EXPECT_EQ(ending.signal, SIGTERM) << "it must still have been running";
    EXPECT_EQ(ending.output, "");
    EXPECT_EQ(ending.diagnostics, "") << runtimeFolder;
  }
}

TEST_F(WindowTest, TheProgramRefusesAMissingGoal) {
  addSamples();
  for (const std::string& store : {file, folder.file("new")}) {
    Invocation invocation{{"--store", store, "--goal", "nope"}};
    invocation.environment = {{"QT_QPA_PLATFORM", "offscreen"}};
    const Ending ending = run(invocation);
    EXPECT_EQ(ending.exitCode, 2);
    EXPECT_EQ(ending.output, "");
    EXPECT_EQ(ending.diagnostics, store + ": has no goal with the id \"nope\"\n");
  }
  EXPECT_FALSE(std::filesystem::exists(folder.file("new")));
}

}  // namespace
}  // namespace vemra::desk
