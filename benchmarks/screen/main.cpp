// vemra-bench-screen: one candidate, one size, one process.
//
//     vemra-bench-screen CANDIDATE MODE PEOPLE [STRAY OUTCOMES [FOLDER FOR PICTURES]]
//
// MODE is times, check (times too, and whether each measured frame was whole), first-frames, memory
// or serve (until standard input ends); for a profiler, profile (ten warm first frames) or
// repeat-MEASURE (one of the times, a thousand times over).

#include "benchmarks/screen/CandidateKinds.hpp"
#include "benchmarks/screen/Measurement.hpp"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <unistd.h>

#include <QFont>
#include <QSocketNotifier>

using namespace vemra::bench;

namespace {

void quitWithStandardInput(QSocketNotifier& input) {
  QObject::connect(&input, &QSocketNotifier::activated, &input, [] {
    char bytes[64];
    if (read(STDIN_FILENO, bytes, sizeof bytes) <= 0) QApplication::quit();
  });
}

void measure(Measurement& measurement, const std::string& mode, const std::string& pictures) {
  if (mode == "times") {
    measurement.times(pictures);
  } else if (mode == "check") {
    measurement.check(pictures);
  } else if (mode == "first-frames") {
    measurement.firstFrames();
  } else if (mode == "memory") {
    measurement.memory();
  } else if (mode == "profile") {
    measurement.repeatFirstFrames();
  } else if (mode.starts_with("repeat-")) {
    measurement.repeatOne(mode.substr(mode.find('-') + 1));
  } else if (mode == "serve") {
    QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    quitWithStandardInput(input);
    measurement.serve();
  } else {
    throw std::runtime_error("there is no mode " + mode);
  }
}

}  // namespace

int main(int argumentCount, char** arguments) {
  const std::vector<std::string> words(arguments + 1, arguments + argumentCount);
  const auto& kinds = candidateKinds();
  const auto kind =
      words.size() < 3 ? kinds.end() : std::ranges::find(kinds, words[0], &CandidateKind::name);
  if (kind == kinds.end()) {
    std::cerr << "usage: vemra-bench-screen CANDIDATE MODE PEOPLE [STRAY OUTCOMES [FOLDER]]\n";
    return 1;
  }
  // The same for all candidates: no display, one style, one font, no blinking, and updates at once
  // instead of up to five milliseconds later.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_QUICK_BACKEND", "software");
  qputenv("QT_QPA_UPDATE_IDLE_TIME", "0");
  qputenv("QT_SCALE_FACTOR", "1");
  QApplication::setStyle("fusion");
  FrameClock application(argumentCount, arguments);
  QApplication::setApplicationName("vemra-bench-screen");
  QApplication::setCursorFlashTime(0);
  QApplication::setWheelScrollLines(3);
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  QApplication::setFont(font);
  try {
    SampleSize size{.people = std::stoul(words[2])};
    if (words.size() > 3) size.strayOutcomes = std::stoul(words[3]);
    Measurement measurement(application, *kind, size);
    measure(measurement, words[1], words.size() > 4 ? words[4] : "");
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
