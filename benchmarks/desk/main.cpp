// vemra-bench-desk PEOPLE [OUTCOMES [CORRECTIONS [GOALS]]]: from "Save" in the window of vemra-desk
// until the recorded outcome is shown.
//
// The store is a new file in the folder for temporary files, with one goal of PEOPLE people.
// Besides the sample's own outcomes, it has OUTCOMES about people who are not in the list, and
// CORRECTIONS of the outcome of one person who is; and other goals without people, GOALS in all. A
// person in view gets an outcome, eight times, each time another person: the press of "Save" starts
// the clock, and the end of the frame in which the outcome stands in the row stops it. By then the
// outcome is stored durably, the goal has been loaded from the store again, and the window shows
// it. Before each save SQLite alone writes one row durably into a file beside the store, and one
// outcome into a copy of the store, without this program's checks. At the end
// another connection records outcomes, and the engine loads the goal after each of them. Before
// that, letters are typed into the bar that finds people: a time ends with the frame that shows the
// letter.

#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "apps/desk/window/MenuBar.hpp"
#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/desk/BareTransaction.hpp"
#include "benchmarks/frames/FrameClock.hpp"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <QAbstractButton>
#include <QLineEdit>
#include <QTemporaryDir>

using namespace vemra;

namespace {

constexpr std::size_t wantedSaves = 8;
constexpr std::size_t mostInView = 20;

QAbstractButton* button(const QWidget& window, const std::string& name) {
  for (auto* found : window.findChildren<QAbstractButton*>(QString::fromStdString(name))) {
    if (found->isVisible()) return found;
  }
  return nullptr;
}

/// The median and the minimum: on a busy machine a waking thread may have to wait for a processor.
void print(const std::string& measure, std::vector<double> times) {
  std::ranges::sort(times);
  std::cout << measure << ".hot\t" << times[times.size() / 2] << '\n'
            << measure << ".least\t" << times.front() << '\n';
}

/// What the store holds.
struct Content {
  bench::SampleSize size;
  std::size_t corrections = 0;
  std::size_t goals = 1;
};

std::vector<GetGoalSnapshotResponse> resultsOf(const Content& content) {
  std::vector<GetGoalSnapshotResponse> results{bench::sampleResult(content.size)};
  std::vector<GoalOutcomeDTO> corrections;
  for (std::size_t i = 0; i < content.corrections; ++i) {
    GoalOutcomeDTO correction = results[0].outcomes.front();
    correction.correctsOutcomeID = i == 0 ? correction.id : "c" + std::to_string(i - 1);
    correction.id = "c" + std::to_string(i);
    corrections.push_back(std::move(correction));
  }
  results[0].outcomes = results[0].outcomes.appending(std::move(corrections));
  for (std::size_t i = 1; i < content.goals; ++i) {
    GetGoalSnapshotResponse other;
    other.goal.id = "other" + std::to_string(i);
    other.goal.title = "Goal Number " + std::to_string(i);
    results.push_back(std::move(other));
  }
  return results;
}

double timed(bench::FrameClock& clock, QWidget& window, const std::function<void()>& act,
             const std::string& untilShown) {
  const auto time = clock.timeToFrame(act, [&] { return button(window, untilShown) != nullptr; });
  if (!time) throw std::runtime_error(untilShown + " did not come");
  return time->count();
}

void measure(bench::FrameClock& clock, const Content& content) {
  const QTemporaryDir folder;
  const std::string file = folder.filePath("goals.sqlite").toStdString();
  desk::GoalStore::open(file).import(resultsOf(content));
  const auto bare = bench::BareTransaction::ofOneRow(folder.filePath("bare.sqlite").toStdString());
  const std::string copy = folder.filePath("copy.sqlite").toStdString();
  std::filesystem::copy_file(file, copy);
  const auto bareOutcome = bench::BareTransaction::ofAnOutcome(copy);

  auto engine = std::make_shared<desk::StoreEngine>(file);
  desk::DeskWindow window(engine, "g1");
  window.resize(900, 1600);
  const double opened = timed(
      clock, window, [&] { window.show(); }, bench::identifierOf(0, "outcome.start"));

  std::vector<double> saves;
  std::vector<double> bareTimes;
  std::vector<double> bareOutcomeTimes;
  std::vector<double> ratios;
  std::vector<double> outcomeRatios;
  for (std::size_t person = 0; saves.size() < wantedSaves; ++person) {
    if (person > mostInView) throw std::runtime_error("too few people are in view");
    auto* start = button(window, bench::identifierOf(person, "outcome.start"));
    if (start == nullptr) continue;  // has an outcome already
    start->click();
    clock.settle();
    bareTimes.push_back(bare.run());
    bareOutcomeTimes.push_back(bareOutcome.run());
    auto* save = button(window, bench::identifierOf(person, "outcome.save"));
    if (save == nullptr) throw std::runtime_error("no editor is open");
    saves.push_back(timed(
        clock, window, [&] { save->click(); }, bench::identifierOf(person, "outcome.correct")));
    ratios.push_back(saves.back() / bareTimes.back());
    outcomeRatios.push_back(saves.back() / bareOutcomeTimes.back());
  }
  std::vector<double> letters;
  Q_EMIT window.findChild<desk::MenuBar*>()->findWanted();
  clock.settle();
  auto* field = window.findChild<QLineEdit*>("desk.find.text");
  if (field == nullptr) throw std::runtime_error("there is no field to find people");
  for (const char* text : {"p", "pe", "per", "9", "99", "q", "qx", "\u00e9"}) {
    const auto time = clock.timeToFrame([&] { field->setText(QString::fromUtf8(text)); });
    if (!time) throw std::runtime_error("a typed letter did not show");
    letters.push_back(time->count());
  }
  std::vector<double> records;
  std::vector<double> loads;
  for (std::size_t i = 0; i < wantedSaves; ++i) {
    const auto start = std::chrono::steady_clock::now();
    task::wait(engine->record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}}));
    const auto middle = std::chrono::steady_clock::now();
    task::wait(engine->getGoalSnapshot("g1"));
    records.push_back(bench::Milliseconds(middle - start).count());
    loads.push_back(bench::Milliseconds(std::chrono::steady_clock::now() - middle).count());
  }
  desk::GoalStore other = desk::GoalStore::open(file);
  std::vector<double> changes;
  for (std::size_t i = 0; i < wantedSaves; ++i) {
    other.record("g1", {GoalOutcomeSubjectKind::path, {}, {}, {}, {}});
    const auto start = std::chrono::steady_clock::now();
    task::wait(engine->getGoalSnapshot("g1"));
    changes.push_back(bench::Milliseconds(std::chrono::steady_clock::now() - start).count());
  }
  std::cout << "opened.first\t" << opened << "\nsaved.first\t" << saves.front() << '\n';
  saves.erase(saves.begin());
  ratios.erase(ratios.begin());
  outcomeRatios.erase(outcomeRatios.begin());
  print("saved", saves);
  // Each save beside the transaction right before it: the speed of a shared disk changes by the
  // second.
  print("saved per transaction", ratios);
  print("saved per outcome's transaction", outcomeRatios);
  print("letter", letters);
  std::cout << "letter.most\t" << *std::ranges::max_element(letters) << '\n';
  print("recorded", records);
  print("loaded", loads);
  print("changed", changes);
  print("bare", bareTimes);
  print("bare outcome", bareOutcomeTimes);
  engine->finish();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 2) {
    std::cerr << "usage: vemra-bench-desk PEOPLE [OUTCOMES [CORRECTIONS [GOALS]]]\n";
    return 1;
  }
  const auto number = [&](int place, std::size_t absent) {
    return argumentCount > place ? std::stoul(arguments[place]) : absent;
  };
  qputenv("QT_QPA_PLATFORM", "offscreen");
  bench::FrameClock clock(argumentCount, arguments);
  try {
    measure(clock, {.size = {.people = number(1, 0), .strayOutcomes = number(2, 0)},
                    .corrections = number(3, 0),
                    .goals = number(4, 1)});
  } catch (const std::exception& error) {
    std::cerr << "vemra-bench-desk: " << error.what() << '\n';
    return 1;
  }
  return std::cout.flush() ? 0 : 1;
}
