#include "VemraRecording/Call.hpp"
#include "apps/documents/SourceFile.hpp"
#include "tests/LineLengths.hpp"
#include "tests/Random.hpp"
#include "tests/apps/desk/window/RecordedDesk.hpp"
#include "tests/apps/inspect/Moments.hpp"

#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>

#include <QComboBox>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QScrollBar>
#include <QWheelEvent>

namespace vemra::desk {
namespace {

/// The use of a window by a person: clicks, keys and a wheel, with pauses in between.
///
/// A usual run has no pauses. With VEMRA_RECORD_USE=FOLDER the pauses are those of a person, a test
/// takes ten minutes, and the recording, the outlines and the calls are written into the folder:
/// so were those in tests/apps/inspect/recordings made.
class TenMinutesTest : public RecordedDesk {
 protected:
  void pause(int milliseconds) {
    if (folderToWrite() != nullptr) {
      pass(milliseconds + static_cast<int>(random_.below(static_cast<std::size_t>(milliseconds))));
    }
    QApplication::processEvents();
  }
  void read() { pause(13'000); }

  static const char* folderToWrite() { return std::getenv("VEMRA_RECORD_USE"); }

  QScrollBar& bar() const { return *window->screen().verticalScrollBar(); }

  void wheel(int notches) {
    QWidget& viewport = *window->screen().viewport();
    const QPointF middle = viewport.rect().center();
    for (int i = 0; i < std::abs(notches); ++i) {
      QWheelEvent event(middle, viewport.mapToGlobal(middle), {}, {0, notches > 0 ? -120 : 120},
                        Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
      QApplication::sendEvent(&viewport, &event);
      pause(150);
    }
  }

  /// Waits for the condition; `what` is for the message.
  static void need(const std::string& what, const std::function<bool()>& condition) {
    if (!becomes(condition)) throw std::runtime_error("never came: " + what);
  }

  /// Scrolls to a control of the screen that is not in view: to the end, and down from the top.
  template <class Widget>
  Widget& reach(const std::string& what, const std::function<Widget*()>& look) {
    const auto inView = [&]() -> Widget* {
      Widget* const widget = look();
      return widget != nullptr && !widget->visibleRegion().isEmpty() ? widget : nullptr;
    };
    if (inView() == nullptr) bar().setValue(0);
    need(what, [&] {
      if (inView() != nullptr) return true;
      if (bar().value() == bar().maximum()) bar().setValue(0);
      wheel(1);
      return false;
    });
    return *inView();
  }
  template <class Widget>
  Widget& reach(const std::string& name) {
    return reach<Widget>(name, [&] { return find<Widget>(name); });
  }

  void click(QWidget& widget) {
    const QPointF middle = widget.rect().center();
    for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      const bool isDown = type == QEvent::MouseButtonPress;
      QMouseEvent event(type, middle, widget.mapToGlobal(middle), Qt::LeftButton,
                        isDown ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
      QApplication::sendEvent(&widget, &event);
    }
    pause(2500);
  }
  void click(const std::string& name) { click(reach<QAbstractButton>(name)); }

  void key(QWidget& widget, Qt::Key key, const QString& text = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      QApplication::sendEvent(&widget, &event);
    }
    pause(180);
  }

  /// Types at the end of a note; '<' is the key that deletes to the left.
  void type(const std::string& control, const QString& text) {
    auto& note = reach<QLineEdit>(control + ".note");
    note.setFocus();
    note.end(false);
    for (const QChar letter : text) {
      if (letter == u'<') {
        key(note, Qt::Key_Backspace);
      } else {
        key(note, Qt::Key_unknown, letter);
      }
    }
    pause(1000);
  }

  /// Chooses with the arrow keys.
  void choose(const std::string& control, int steps) {
    auto& picker = reach<QComboBox>(control + ".picker");
    picker.setFocus();
    for (int i = 0; i < std::abs(steps); ++i) key(picker, steps > 0 ? Qt::Key_Down : Qt::Key_Up);
    pause(1000);
  }

  void save(const std::string& goalID, const std::string& control) {
    const auto stored = [&] { return GoalStore::open(file).outcomes(goalID); };
    const std::size_t before = stored().size();
    click(control + ".save");
    need("an outcome in the store", [&] { return stored().size() == before + 1; });
    const GoalOutcomeDTO made = stored()[before];
    calls_ +=
        recording::callText(recording::RecordOutcome{
            {made.subjectKind, made.subjectRef, made.value, made.note, made.correctsOutcomeID}}) +
        '\n';
    reach<QAbstractButton>(control + ".correct");
    moment();
  }

  void openPerson(const QString& title, const std::string& personRef) {
    click(reach<QAbstractButton>(title.toStdString(), [&]() -> QAbstractButton* {
      for (auto* button : window->screen().findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == title) return button;
      }
      return nullptr;
    }));
    calls_ += recording::callText(recording::OpenPerson{personRef}) + '\n';
    read();
  }

  bool showsText(const std::string& text) const {
    return outlineOf(graph()).find(text) != std::string::npos;
  }

  void openGoal(const std::string& id) {
    press("desk.goal." + id);
    need(titleOf_.at(id), [&] { return showsText(titleOf_.at(id)); });
    read();
    moment();
  }

  void importOver(const GetGoalSnapshotResponse& result, const std::string& newText) {
    importAsAnotherProgram(result);
    titleOf_[result.goal.id] = result.goal.title;
    need(newText, [&] { return showsText(newText); });
    moment();
    read();
  }

  /// Notes what the screen shows after so many steps of the recording.
  void moment() {
    const auto read = inspect::readCaseFile(recording, {});
    moments_ += inspect::momentText(read.steps.size(), outlineOf(graph()));
  }

  void use();

  /// Compares what the window showed and what it asked of the store with a replay.
  void expectSameReplay(bool isMasked) {
    const std::string text(documents::SourceFile(recording).text());
    if (const char* const folder = folderToWrite()) {
      const auto write = [&](const char* name, const std::string& content) {
        std::ofstream(std::string(folder) + name, std::ios::binary) << content;
      };
      write(isMasked ? "/masked.json" : "/plain.json", text);
      write("/moments.txt", moments_);
      write("/calls.txt", calls_);
    }
    const inspect::ReplayedUse replayed =
        inspect::replay(inspect::readCase(text, recording, {}), moments_);
    if (isMasked) {
      EXPECT_EQ(testing::lineLengths(replayed.moments), testing::lineLengths(moments_));
      EXPECT_EQ(testing::lineLengths(replayed.calls), testing::lineLengths(calls_));
    } else {
      EXPECT_EQ(replayed.moments, moments_);
      EXPECT_EQ(replayed.calls, calls_);
    }
  }

  std::map<std::string, std::string> titleOf_{
      {"sample-design-lead", "Find a design lead"},
      {"sample-sail-the-baltic", sampleGoals()[1].goal.title}};
  std::string moments_, calls_;
  testing::Random random_{7};
  QElapsedTimer clock_;
};

void TenMinutesTest::use() {
  const std::string lead = "sample-design-lead", sail = "sample-sail-the-baltic";
  const std::string path = "vemra.goal.path", amara = "vemra.goal.person.amara-okafor";
  const std::string maiOutcome = mai + ".outcome", tomasOutcome = tomas + ".outcome";
  clock_.start();
  need("the first goal", [&] { return shows("Amara Okafor"); });
  moment();
  read();
  wheel(8);
  read();
  wheel(-8);
  openPerson("Amara Okafor", "amara-okafor");
  click(amara + ".show-source");
  calls_ += recording::callText(recording::ShowEvidence{"mail-2291"}) + '\n';
  read();

  click(maiOutcome + ".start");
  choose(maiOutcome, 1);
  choose(maiOutcome, -2);
  type(maiOutcome, QString::fromUtf8("Nguyễn kommt aum<<m Freitag 😀 with two friends"));
  save(lead, maiOutcome);
  wheel(5);
  read();

  GetGoalSnapshotResponse changed = sampleGoals()[0];
  changed.goal.title = "Find a design lead for the summer launch";
  std::vector<GoalPersonCandidateDTO> people(changed.people.begin(), changed.people.end());
  people.insert(people.begin(), build::person("ines-prado", "Inês Prado", {"mail-77"},
                                              GoalWhyDTO::sharedActivity(2, 1)));
  changed.people = people;
  importOver(changed, "Inês Prado");
  openPerson(QString::fromUtf8("Inês Prado"), "ines-prado");
  click(path + ".see-in-starfold");
  calls_ += recording::callText(recording::FocusPathInStarfold{sampleGoals()[0].paths[0]}) + '\n';
  read();

  openGoal(sail);
  GetGoalSnapshotResponse sailing = sampleGoals()[1];
  sailing.people = {build::person("jonna", "Jonna"),
                    build::person("crew", std::nullopt, {"log-3"})};
  importOver(sailing, "Jonna");
  const std::string jonna = "vemra.goal.person.jonna.outcome";
  click(jonna + ".start");
  type(jonna, "Has a boat, asks again in M");
  openGoal(lead);

  click(tomasOutcome + ".start");
  choose(tomasOutcome, 5);
  type(tomasOutcome, "  late");
  key(reach<QLineEdit>(tomasOutcome + ".note"), Qt::Key_Return);
  read();
  type(tomasOutcome, " reply  ");
  save(lead, tomasOutcome);
  click(path + ".outcome.correct");
  choose(path + ".outcome", -1);
  click(path + ".outcome.cancel");
  click(path + ".outcome.correct");
  type(path + ".outcome", "They met, both were glad");
  save(lead, path + ".outcome");

  openGoal(sail);
  type(jonna, "ay or so");
  sailing.people = {build::person("crew", "The crew of the Albatros", {"log-3"}),
                    build::person("jonna", "Jonna"), build::person("kai", "Kai")};
  importOver(sailing, "Kai");
  type(jonna, ", with the crew");
  save(sail, jonna);
  click("vemra.goal.person.crew.show-source");
  calls_ += recording::callText(recording::ShowEvidence{"log-3"}) + '\n';
  read();
  sailing.goal.title = "Sail round Gotland";
  importOver(sailing, "Sail round Gotland");

  openGoal(lead);
  wheel(-20);
  read();
  wheel(12);
  click(amara + ".outcome.correct");
  type(amara + ".outcome", "<<<<<<, and answered.");
  save(lead, amara + ".outcome");
  openGoal(sail);
  click("vemra.goal.person.kai.outcome.start");
  type("vemra.goal.person.kai.outcome", "Wants to come al");
  moment();
  while (folderToWrite() != nullptr && clock_.elapsed() < 10 * 60 * 1000) {
    wheel(3);
    read();
    wheel(-3);
    read();
  }
}

TEST_F(TenMinutesTest, ReplaysToTheSameScreensAndTheSameCalls) {
  openAndRecord(false, 640);
  use();
  expectSameReplay(false);
}

TEST_F(TenMinutesTest, AMaskedOneReplaysToScreensOfTheSameForm) {
  openAndRecord(true, 640);
  use();
  expectSameReplay(true);
}

}  // namespace
}  // namespace vemra::desk
