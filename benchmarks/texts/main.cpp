// vemra-bench-texts: a page with one very long text, beside the same page without it.
//
// The first person has the text as a name, as the detail of a reason or as the note of an outcome.
// A line of the output has the kind of the text, its place, and the milliseconds of the first frame
// and of a wheel step (the median of eleven), for the page with and without it. With the arguments
// KIND and PLACE it measures that text alone.

#include "VemraGoalSurface/GoalResultView.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "benchmarks/data/SampleResult.hpp"
#include "benchmarks/frames/FrameClock.hpp"

#include <algorithm>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include <QScrollBar>

using namespace vemra;

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

std::string repeated(std::string_view text, std::size_t times) {
  std::string all;
  all.reserve(text.size() * times);
  for (std::size_t i = 0; i < times; ++i) all += text;
  return all;
}

struct LongText {
  const char* kind;
  std::string text;
};

std::vector<LongText> longTexts() {
  return {{"words-1M", repeated("design lead ", megabyte / 12)},
          {"words-10M", repeated("design lead ", 10 * megabyte / 12)},
          {"letters-1M", std::string(megabyte, 'x')},
          {"marks", "e" + repeated("\u0301", 1'000'000)},
          {"emoji", repeated("\U0001F600", 100'000)}};
}

GetGoalSnapshotResponse pageWith(const std::string& place, const std::string& text) {
  GetGoalSnapshotResponse result = bench::sampleResult({.people = 1'000});
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  if (place == "name") people[0].displayName = text;
  if (place == "reason") people[0].why = GoalWhyDTO::evidence("Email", text, "ev");
  result.people = std::move(people);
  if (place == "note") result = bench::withOneOutcomeMore(result, 0, text);
  return result;
}

struct Times {
  double firstFrame;
  double wheelStep;
};

Times timesOf(bench::FrameClock& clock, const GetGoalSnapshotResponse& result) {
  const GoalResultSnapshotV1 snapshot(result);
  qt::ViewWidget view;
  view.setEnvironment(ui::Environment());
  view.resize(480, 700);
  const auto timed = [&](const std::function<void()>& act) {
    const auto time = clock.timeToFrame(act);
    if (!time) throw std::runtime_error("there was no frame");
    return time->count();
  };
  Times times{};
  times.firstFrame = timed([&] {
    view.setRoot(GoalResultView(
        snapshot, [](const std::string&) {}, [](const std::string&) {},
        [](const GoalPathCandidateDTO&) {}, [](const GoalOutcomeRecordingInput&) {}));
    view.show();
  });
  std::vector<double> steps;
  for (int i = 0; i < 11; ++i) {
    QScrollBar& bar = *view.verticalScrollBar();
    steps.push_back(timed([&] { bar.setValue(bar.value() + 60); }));
  }
  std::ranges::sort(steps);
  times.wheelStep = steps[steps.size() / 2];
  return times;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const std::string onlyKind = argumentCount > 1 ? arguments[1] : "";
  const std::string onlyPlace = argumentCount > 2 ? arguments[2] : "";
  bench::FrameClock clock(argumentCount, arguments);
  try {
    timesOf(clock,
            pageWith("", ""));  // what the program keeps from the first time on is there then
    for (const LongText& text : longTexts()) {
      for (const char* place : {"name", "reason", "note"}) {
        if (!onlyKind.empty() && (onlyKind != text.kind || onlyPlace != place)) continue;
        const Times with = timesOf(clock, pageWith(place, text.text));
        const Times without = timesOf(clock, pageWith(place, "short"));
        std::cout << text.kind << '\t' << place << '\t' << with.firstFrame << '\t'
                  << without.firstFrame << '\t' << with.wheelStep << '\t' << without.wheelStep
                  << std::endl;
      }
    }
  } catch (const std::exception& error) {
    std::cerr << "vemra-bench-texts: " << error.what() << '\n';
    return 1;
  }
  return std::cout.flush() ? 0 : 1;
}
