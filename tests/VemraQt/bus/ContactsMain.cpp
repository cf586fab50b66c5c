// The list with an editor of docs/views.md in a window, for a client on the accessibility bus.
// Writes each contact that the list reports to standard output, and ends with its standard input.

#include "VemraQt/ViewWidget.hpp"
#include "tests/VemraQt/bus/Contacts.hpp"  // made from the page

#include <iostream>
#include <unistd.h>
#include <vector>

#include <QApplication>
#include <QSocketNotifier>

int main(int argumentCount, char** arguments) {
  QApplication::setStyle("fusion");
  QApplication application(argumentCount, arguments);
  application.setApplicationName("contacts_on_the_bus");
  vemra::qt::ViewWidget widget;
  std::vector<Contact> contacts{{1, "Bo"}, {2, "Mai"}};
  Keep keep;
  const auto show = [&] { widget.setRoot(ContactList{contacts, keep}); };
  keep = [&](const Contact& changed) {
    for (Contact& each : contacts) {
      if (each.number == changed.number) each = changed;
    }
    std::cout << "kept " << changed.number << ' ' << changed.name << std::endl;
    show();
  };
  show();
  widget.setWindowTitle("Contacts");
  widget.resize(400, 300);
  widget.show();
  QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
  QObject::connect(&input, &QSocketNotifier::activated, [] { QApplication::quit(); });
  std::cout << "ready" << std::endl;
  return application.exec();
}
