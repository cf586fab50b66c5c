// Random steps on a window that clients on the accessibility bus use meanwhile. Writes "ready",
// waits for a line on standard input, and carries out one long story; the actions of clients are
// also carried out on the screen without a window. While clients have done little, because the
// machine is busy with other things, the story goes on, up to four times as long. At the end writes
// the number of the clients' actions, or the disagreement.

#include "tests/VemraQt/monkey/Agreement.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <iostream>
#include <string>
#include <unistd.h>

#include <QApplication>
#include <QEventLoop>
#include <QFont>
#include <QSocketNotifier>

using namespace vemra::monkey;

namespace {

#ifdef VEMRA_ADDRESS_SANITIZER
constexpr std::size_t usualSteps = 1000;  // a client asks thirty times between two of these
#else
constexpr std::size_t usualSteps = 4000;
#endif
constexpr std::size_t wantedClientEvents = 40;  // monkey.py asks for 25
constexpr std::size_t stepsBetweenLooks = 4;
constexpr std::size_t stepsBetweenFullLooks = 250;

void waitForALine() {
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QEventLoop loop;
  QObject::connect(&input, &QSocketNotifier::activated, &loop, [&] {
    char bytes[64];
    if (read(STDIN_FILENO, bytes, sizeof bytes) >= 0) loop.quit();
  });
  std::cout << "ready" << std::endl;
  loop.exec();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  QApplication::setStyle("fusion");
  QApplication application(argumentCount, arguments);
  application.setApplicationName("monkey_on_the_bus");
  application.setQuitOnLastWindowClosed(false);
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  QApplication::setFont(font);
  const std::size_t count = argumentCount > 1 ? std::stoul(arguments[1]) : usualSteps;
  const std::uint64_t seed = argumentCount > 2 ? std::stoull(arguments[2]) : 1;
  const Story story = randomStory(seed, 4 * count, 40);
  std::size_t step = 0;
  try {
    Twins twins(story.people);
    twins.expectClients();
    waitForALine();
    const auto goesOn = [&] {
      return step < count ||
             (step < story.steps.size() && twins.clientEvents() < wantedClientEvents);
    };
    for (; goesOn(); ++step) {
      twins.perform(story.steps[step]);
      if (step % stepsBetweenLooks == 0) expectAgreement(twins);
      if (step % stepsBetweenFullLooks == 0) expectAgreementEverywhere(twins);
      twins.turn();
    }
    expectAgreementEverywhere(twins);
    std::cout << "agreed " << twins.clientEvents() << std::endl;
  } catch (const std::exception& error) {
    std::cout << "seed " << seed << ", step " << step << ": " << error.what() << std::endl;
    return 1;
  }
  return 0;
}
