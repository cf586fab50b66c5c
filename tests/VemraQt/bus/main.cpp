// The goal screen in a window, for a client on the accessibility bus. Writes the calls of the host
// to standard output, and reads the host's changes from standard input:
//
//     remove REF       the person leaves        insert REF     a new person comes first
//     shuffle          the order is reversed    scroll TO      the page scrolls, to pixels
//     rename REF NAME  a person's name          size W H       the window's size
//     call NAME        the page's name          focus ID       the host focuses an element
//     quit

#include "tests/RecordBuilders.hpp"
#include "tests/VemraQt/WindowHost.hpp"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>
#include <unistd.h>

#include <QApplication>
#include <QScrollBar>
#include <QSocketNotifier>

using namespace vemra;
using namespace vemra::qttest;

namespace {

void edit(Result& result, const std::string& what, const std::string& ref,
          const std::string& name) {
  std::vector<GoalPersonCandidateDTO> people(result.people.begin(), result.people.end());
  if (what == "remove") {
    std::erase_if(people, [&](const auto& person) { return person.personRef == ref; });
  } else if (what == "insert") {
    people.insert(people.begin(), build::person(ref, "New " + ref, {}, GoalWhyDTO::generic()));
  } else if (what == "rename") {
    std::ranges::find(people, ref, &GoalPersonCandidateDTO::personRef)->displayName = name;
  } else {
    std::ranges::reverse(people);
  }
  result.people = people;
}

void obey(WindowHost& host, const std::string& line) {
  std::istringstream words(line);
  std::string what, ref;
  words >> what;
  if (what == "quit") {
    QApplication::quit();
  } else if (what == "scroll") {
    int to = 0;
    words >> to;
    host.widget.verticalScrollBar()->setValue(to);
  } else if (what == "size") {
    int width = 0, height = 0;
    words >> width >> height;
    host.widget.resize(width, height);
  } else if (what == "call") {
    std::string name;
    std::getline(words >> std::ws, name);
    host.widget.setAccessibleName(QString::fromStdString(name));
  } else if (what == "focus") {
    words >> ref;
    if (!host.widget.focus(ref)) std::cout << "nothing to focus" << std::endl;
  } else {
    std::string name;
    std::getline(words >> ref >> std::ws, name);
    host.change([&](Result& result) { edit(result, what, ref, name); });
  }
  std::cout << "done " << line << std::endl;
}

}  // namespace

int main(int argumentCount, char** arguments) {
  QApplication::setStyle("fusion");
  QApplication application(argumentCount, arguments);
  application.setApplicationName("window_on_the_bus");
  QFont font("DejaVu Sans");
  font.setPixelSize(13);
  QApplication::setFont(font);
  WindowHost host(resultWith(argumentCount > 1 ? std::stoul(arguments[1]) : 200));
  host.onLog = [](const std::string& entry) { std::cout << entry << std::endl; };
  host.widget.setWindowTitle("Goal");
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  std::string pending;
  QObject::connect(&input, &QSocketNotifier::activated, [&] {
    char bytes[4096];
    const ssize_t count = read(STDIN_FILENO, bytes, sizeof bytes);
    if (count <= 0) {
      QApplication::quit();
      return;
    }
    pending.append(bytes, static_cast<std::size_t>(count));
    for (auto end = pending.find('\n'); end != std::string::npos; end = pending.find('\n')) {
      const std::string line = pending.substr(0, end);
      pending.erase(0, end + 1);
      obey(host, line);
    }
  });
  std::cout << "ready" << std::endl;
  return application.exec();
}
