// vemra-bench-desk PEOPLE: from "Save" in the window of vemra-desk until the recorded outcome is shown.
//
// The store is a new file in the folder for temporary files, with one goal of so many people. A person
// in view gets an outcome, ten times, each time another person: the press of "Save" starts the clock,
// and the end of the frame in which the outcome stands in the row stops it. By then the outcome is
// stored durably, the goal has been loaded from the store again, and the window shows it. Between two
// saves SQLite alone writes one row durably into a file beside the store.

#include "VemraPlatform/task/Start.hpp"
#include "apps/desk/store/GoalStore.hpp"
#include "apps/desk/store/StoreEngine.hpp"
#include "apps/desk/window/DeskWindow.hpp"
#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/desk/BareTransaction.hpp"
#include "benchmarks/frames/FrameClock.hpp"

#include <algorithm>
#include <chrono>
#include <functional>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <QAbstractButton>
#include <QTemporaryDir>

using namespace vemra;

namespace {

constexpr std::size_t wantedSaves = 10;
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

double timed(bench::FrameClock& clock, QWidget& window, const std::function<void()>& act,
             const std::string& untilShown) {
  const auto time = clock.timeToFrame(act, [&] { return button(window, untilShown) != nullptr; });
  if (!time) throw std::runtime_error(untilShown + " did not come");
  return time->count();
}

void measure(bench::FrameClock& clock, std::size_t people) {
  const QTemporaryDir folder;
  const std::string file = folder.filePath("goals.sqlite").toStdString();
  desk::GoalStore::open(file).import({bench::sampleResult({.people = people})});
  const bench::BareTransaction bare(folder.filePath("bare.sqlite").toStdString());

  auto engine = std::make_shared<desk::StoreEngine>(file);
  desk::DeskWindow window(engine, "g1");
  window.resize(900, 1600);
  const double opened = timed(
      clock, window, [&] { window.show(); }, bench::identifierOf(0, "outcome.start"));

  std::vector<double> saves;
  std::vector<double> bareTimes;
  for (std::size_t person = 0; saves.size() < wantedSaves; ++person) {
    if (person > mostInView) throw std::runtime_error("too few people are in view");
    auto* start = button(window, bench::identifierOf(person, "outcome.start"));
    if (start == nullptr) continue;  // has an outcome already
    start->click();
    clock.settle();
    bareTimes.push_back(bare.run());
    auto* save = button(window, bench::identifierOf(person, "outcome.save"));
    if (save == nullptr) throw std::runtime_error("no editor is open");
    saves.push_back(timed(
        clock, window, [&] { save->click(); }, bench::identifierOf(person, "outcome.correct")));
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
  std::cout << "opened.first\t" << opened << "\nsaved.first\t" << saves.front() << '\n';
  saves.erase(saves.begin());
  print("saved", saves);
  print("recorded", records);
  print("loaded", loads);
  print("bare", bareTimes);
  engine->finish();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount < 2) {
    std::cerr << "usage: vemra-bench-desk PEOPLE\n";
    return 1;
  }
  qputenv("QT_QPA_PLATFORM", "offscreen");
  bench::FrameClock clock(argumentCount, arguments);
  try {
    measure(clock, std::stoul(arguments[1]));
  } catch (const std::exception& error) {
    std::cerr << "vemra-bench-desk: " << error.what() << '\n';
    return 1;
  }
  return std::cout.flush() ? 0 : 1;
}
