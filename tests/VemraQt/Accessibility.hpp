#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <string>
#include <vector>

#include <QAccessible>

/// \file
/// Reads a window as assistive technology does, within the process.

namespace vemra::qttest {

/// The accessible object of a window's page.
QAccessibleInterface& accessiblePage(const WindowHost& host);

/// The first list of a page or of an element below; nullptr when there is none.
QAccessibleInterface* listIn(QAccessibleInterface& element);
/// A row of that list. A page without a list is an error of the test.
QAccessibleInterface& rowIn(QAccessibleInterface& element, int index);

/// The element with that identifier, drawn or not; nullptr when there is none.
QAccessibleInterface* accessible(const WindowHost& host, const std::string& identifier);

/// Runs the action of that name; false when the element has none.
bool act(QAccessibleInterface& element, const QString& action);
inline bool press(QAccessibleInterface& element) {
  return act(element, QAccessibleActionInterface::pressAction());
}

std::string name(const QAccessibleInterface& element);
std::string identifier(const QAccessibleInterface& element);

/// The elements below `element`, in tree order.
std::vector<QAccessibleInterface*> elementsBelow(QAccessibleInterface& element);

/// Whether an event is about one of a page's own objects, which have no QObject. Qt 6.11 names no
/// QObject either in the event of a widget that is half destroyed, but its interface knows it.
bool isOfAnElement(const QAccessibleEvent& event);

/// Records, while it lives, the announcements of a page's elements: "created Ada", "focus Outcome",
/// "name …", "describes …", "state …", "value …", "shows …", "hides …", "typed in …", "destroyed
/// …".
class Listener {
 public:
  Listener();
  ~Listener();
  std::vector<std::string> heard() const;
};

}  // namespace vemra::qttest
