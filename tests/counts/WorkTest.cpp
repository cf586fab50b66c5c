// The work of an event follows the changes and the visible rows, never the length of the list: it
// is the same for 10,000 people as for 100. It is counted, not timed, so that the result is the
// same on a busy machine.

#include "benchmarks/data/SampleResult.hpp"
#include "tests/Allocations.hpp"
#include "tests/counts/WorkScreen.hpp"

#include <algorithm>
#include <utility>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProxyStyle>
#include <gtest/gtest.h>

namespace bench = vemra::bench;
using namespace vemra::work;

namespace {

constexpr std::size_t few = 100;
constexpr std::size_t many = 10'000;
constexpr std::size_t choices = vemra::allGoalOutcomeValues.size();

void type(QLineEdit& field, char letter) {
  const QString text{QLatin1Char(letter)};
  QKeyEvent press(QEvent::KeyPress, Qt::Key_A + (letter - 'a'), Qt::NoModifier, text);
  QKeyEvent release(QEvent::KeyRelease, Qt::Key_A + (letter - 'a'), Qt::NoModifier, text);
  QApplication::sendEvent(&field, &press);
  QApplication::sendEvent(&field, &release);
}

/// Opens an editor and types until all data that are kept from the first time on exist.
void beginNote(WorkScreen& screen) {
  screen.press(bench::identifierOf(1, "outcome.start"));
  for (const char letter : {'a', 'b', 'c', 'd'}) type(screen.noteOf(1), letter);
}

/// Shows snapshots until a new one causes no first-time work.
void recordSome(WorkScreen& screen) {
  for (const std::size_t person : {1, 2, 1, 2}) {
    screen.recordOutcome(person);
    screen.costOf([&] { screen.show(); });
  }
}

/// The one with the fewest allocations of four equal events, because Qt sometimes allocates data
/// that it keeps.
template <class Cost>
Work leastOf(const Cost& cost) {
  Work least = cost();
  for (int again = 0; again < 3; ++again) {
    Work work = cost();
    const std::uint64_t allocations = std::exchange(work.allocations, least.allocations);
    EXPECT_TRUE(work == least) << work << "\nand before: " << least;
    least.allocations = std::min(allocations, least.allocations);
  }
  return least;
}

/// Where Qt makes widgets and caches glyphs, its own allocations differ from run to run.
Work butAllocations(Work work) {
  work.allocations = 0;
  return work;
}

template <class Measure>
void expectTheSame(const Measure& measure) {
  measure(few);  // what the program keeps from the first time on is there afterwards
  const Work small = measure(few);
  const Work large = measure(many);
  EXPECT_TRUE(small == large) << few << " people: " << small << '\n'
                              << many << " people: " << large;
}

}  // namespace

TEST(Work, CountsAllocations) {
#ifdef VEMRA_ALLOCATIONS_ARE_NOT_COUNTED
  GTEST_SKIP() << "the sanitizers count on their own operator new";
#endif
  const std::uint64_t before = vemra::testing::allocations();
  QObject object;  // allocates its private part, in Qt's own library
  const std::uint64_t one = vemra::testing::allocations() - before;
  EXPECT_EQ(one, 1U);
  constexpr std::align_val_t cacheLine{64};
  ::operator delete(::operator new(100, cacheLine), cacheLine);
  EXPECT_EQ(vemra::testing::allocations() - before, 2U) << "arrays of outcomes are aligned";
}

TEST(Work, OfTheFirstFrame) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    const Work work = butAllocations(screen.costSoFar());
    EXPECT_GT(work.rowsDescribed, 5U);
    EXPECT_LT(work.rowsDescribed, 40U) << "about a window full";
    EXPECT_LT(work.widgetsAlive, 150U);
    return work;
  });
}

TEST(Work, OfAKeyInAnOpenNote) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    beginNote(screen);
    QLineEdit& note = screen.noteOf(1);
    const Work work = leastOf([&] { return screen.costOf([&] { type(note, 'e'); }); });
    EXPECT_EQ(note.text(), "abcdeeee");
    EXPECT_EQ(work.rowsDescribed, choices) << "of the picker beside it, and no person";
    EXPECT_EQ(work.bodiesDescribed, 1U) << "the control whose note it is";
    EXPECT_EQ(work.nodesMade, 0U);
    EXPECT_EQ(work.patches, 1U) << "the field's text";
    return work;
  });
}

TEST(Work, OfASnapshotWithOneOutcomeMore) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    recordSome(screen);
    const Work work = leastOf([&] {
      screen.recordOutcome(1);
      return screen.costOf([&] { screen.show(); });
    });
    EXPECT_EQ(work.patches, 1U) << "the label of that person's outcome";
    EXPECT_EQ(work.idPasses, 0U) << "no state exists, so no id need be read";
    return work;
  });
}

TEST(Work, OfASnapshotUnderAnOpenNote) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    recordSome(screen);
    screen.scrollToEnd();  // so that the pass over the ids goes past all of them
    screen.press(bench::identifierOf(people - 1, "outcome.start"));
    recordSome(screen);
    const Work work = leastOf([&] {
      screen.recordOutcome(1);
      return screen.costOf([&] { screen.show(); });
    });
    EXPECT_EQ(work.idPasses, 1U) << "where is the row with the note now?";
    return work;
  });
}

TEST(Work, OfOpeningAnEditor) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    beginNote(screen);
    screen.press(bench::identifierOf(1, "outcome.cancel"));
    const Work work = screen.costOf([&] { screen.press(bench::identifierOf(1, "outcome.start")); });
    EXPECT_EQ(work.bodiesDescribed, 1U);
    EXPECT_EQ(work.rowsDescribed, choices);
    return butAllocations(work);
  });
}

TEST(Work, OfAWheelStep) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    for (int step = 0; step < 6; ++step) screen.costOf([&] { screen.wheelDown(); });
    Work total;
    for (int step = 0; step < 6; ++step) {
      const Work work = screen.costOf([&] { screen.wheelDown(); });
      total.rowsDescribed += work.rowsDescribed;
      total.nodesMade += work.nodesMade;
      total.patches += work.patches;
      total.widgetsAlive = work.widgetsAlive;
    }
    EXPECT_GT(total.rowsDescribed, 0U) << "new rows came in";
    return total;
  });
}

TEST(Work, OfAJumpToTheEnd) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    const Work work = screen.costOf([&] { screen.scrollToEnd(); });
    EXPECT_GT(work.rowsDescribed, 5U);
    return butAllocations(work);
  });
}

/// Fusion, with a count of the buttons that it has measured.
class ButtonMeasures final : public QProxyStyle {
 public:
  ButtonMeasures() : QProxyStyle(QStringLiteral("fusion")) {}
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                         const QWidget* widget) const override {
    if (type == CT_PushButton) ++count;
    return QProxyStyle::sizeFromContents(type, option, size, widget);
  }
  mutable int count = 0;
};

// The same buttons stand in every row: their titles are shaped once.
TEST(Work, OfMeasuringTheButtonsOfNewRows) {
  ButtonMeasures style;
  WorkScreen screen(few);
  screen.setStyle(&style);
  screen.costOf([&] { screen.scrollToEnd(); });
  EXPECT_GT(style.count, 0);
  screen.costOf([&] { screen.scrollTo(200); });
  style.count = 0;
  EXPECT_GT(screen.costOf([&] { screen.scrollTo(2000); }).nodesMade, 0U);
  EXPECT_EQ(style.count, 0);
  screen.setStyle(nullptr);
}

TEST(Work, OfSearchingAnIdentifierThatIsMissing) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    screen.has(bench::identifierOf(1, "outcome.start"));  // makes what every search needs
    const Work work = screen.costOf([&] { EXPECT_FALSE(screen.has("vemra.goal.nobody")); });
    EXPECT_EQ(work.rowsDescribed, 0U) << "no row's id is in it";
    EXPECT_EQ(work.bodiesDescribed, 0U);
    EXPECT_EQ(work.nodesMade, 0U);
    return work;
  });
}

TEST(Work, OfSearchingAnIdentifierOfTheLastPerson) {
  expectTheSame([](std::size_t people) {
    WorkScreen screen(people);
    const std::string last = bench::identifierOf(people - 1, "outcome.start");
    const Work work = screen.costOf([&] { EXPECT_TRUE(screen.has(last)); });
    EXPECT_LE(work.rowsDescribed, 5U) << "p9, p99, p999, p9999";
    Work same;  // the last person of 10,000 has two more prefixes that are people
    same.widgetsAlive = work.widgetsAlive;
    return same;
  });
}
