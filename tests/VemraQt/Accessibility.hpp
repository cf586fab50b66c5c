#pragma once

#include "tests/VemraQt/WindowHost.hpp"

#include <string>
#include <vector>

#include <QAccessible>

/// \file
/// Looking at a window the way assistive technology does, within the process.

namespace vemra::qttest {

/// The page of a window as assistive technology sees it.
QAccessibleInterface& accessiblePage(const WindowHost& host);

/// The element with that identifier, drawn or not; nullptr when there is none.
QAccessibleInterface* accessible(const WindowHost& host, const std::string& identifier);

/// Does what the action of that name does; false when the element has none.
bool act(QAccessibleInterface& element, const QString& action);
inline bool press(QAccessibleInterface& element) {
  return act(element, QAccessibleActionInterface::pressAction());
}

std::string name(const QAccessibleInterface& element);
std::string identifier(const QAccessibleInterface& element);

/// The elements below, in tree order, those of `element` first, then theirs in turn.
std::vector<QAccessibleInterface*> elementsBelow(QAccessibleInterface& element);

/// While it lives, what is announced of a page's elements is written down: "created Ada",
/// "focus Outcome", "name …", "state …", "value …", "shows …", "hides …", "typed in …", "destroyed …".
class Listener {
 public:
  Listener();
  ~Listener();
  std::vector<std::string> heard() const;
};

}  // namespace vemra::qttest
