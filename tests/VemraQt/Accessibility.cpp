#include "tests/VemraQt/Accessibility.hpp"

#include "VemraQt/accessibility/AccessibleObject.hpp"
#include "tests/VemraQt/PageBehind.hpp"

#include <map>
#include <stdexcept>
#include <utility>

namespace vemra::qttest {

QAccessibleInterface& accessiblePage(const WindowHost& host) {
  return *QAccessible::queryAccessibleInterface(const_cast<qt::ViewWidget*>(&host.widget));
}

QAccessibleInterface* listIn(QAccessibleInterface& element) {
  if (element.role() == QAccessible::List) return &element;
  for (int i = 0; i < element.childCount(); ++i) {
    QAccessibleInterface* child = element.child(i);
    const bool isHolder = child->role() == QAccessible::Grouping;
    if (!isHolder && child->role() != QAccessible::List) continue;
    if (QAccessibleInterface* list = listIn(*child)) return list;
  }
  return nullptr;
}

QAccessibleInterface& rowIn(QAccessibleInterface& element, int index) {
  QAccessibleInterface* list = listIn(element);
  QAccessibleInterface* row = list ? list->child(index) : nullptr;
  if (!row) throw std::out_of_range("no row " + std::to_string(index));
  return *row;
}

QAccessibleInterface* accessible(const WindowHost& host, const std::string& identifier) {
  const auto found = identifiersOf(host.widget).find(QString::fromStdString(identifier));
  return found.isEmpty() ? nullptr : QAccessible::accessibleInterface(found.front());
}

bool act(QAccessibleInterface& element, const QString& action) {
  QAccessibleActionInterface* actions = element.actionInterface();
  if (!actions || !actions->actionNames().contains(action)) return false;
  actions->doAction(action);
  return true;
}

std::string name(const QAccessibleInterface& element) {
  return element.text(QAccessible::Name).toStdString();
}

std::string identifier(const QAccessibleInterface& element) {
  return dynamic_cast<const qt::AccessibleObject&>(element).identifier().toStdString();
}

std::vector<QAccessibleInterface*> elementsBelow(QAccessibleInterface& element) {
  std::vector<QAccessibleInterface*> elements;
  for (int i = 0; i < element.childCount(); ++i) {
    QAccessibleInterface* child = element.child(i);
    elements.push_back(child);
    for (QAccessibleInterface* below : elementsBelow(*child)) elements.push_back(below);
  }
  return elements;
}

namespace {

std::vector<std::string> announcements;
QAccessible::UpdateHandler before = nullptr;

void writeDown(QAccessibleEvent* event) {
  if (!isOfAnElement(*event)) {
    if (before) before(event);
    return;
  }
  QAccessibleInterface* about = event->accessibleInterface();
  const std::string whom = about ? name(*about) : "nothing";
  static const std::map<QAccessible::Event, std::string> verbs{
      {QAccessible::ObjectCreated, "created "},
      {QAccessible::ObjectDestroyed, "destroyed "},
      {QAccessible::Focus, "focus "},
      {QAccessible::NameChanged, "name "},
      {QAccessible::DescriptionChanged, "describes "},
      {QAccessible::StateChanged, "state "},
      {QAccessible::ValueChanged, "value "},
      {QAccessible::ObjectShow, "shows "},
      {QAccessible::ObjectHide, "hides "},
      {QAccessible::TextInserted, "typed in "},
      {QAccessible::TextUpdated, "typed in "},
  };
  const auto verb = verbs.find(event->type());
  if (verb != verbs.end()) announcements.push_back(verb->second + whom);
}

}  // namespace

bool isOfAnElement(const QAccessibleEvent& event) {
  const QAccessibleInterface* about = event.accessibleInterface();
  return !event.object() && !(about && about->object());
}

Listener::Listener() {
  const qt::ViewWidget first;  // the first page of a process puts its handler behind this one
  announcements.clear();
  before = QAccessible::installUpdateHandler(writeDown);
}

Listener::~Listener() {
  QAccessible::installUpdateHandler(before);
}

std::vector<std::string> Listener::heard() const {
  return std::exchange(announcements, {});
}

}  // namespace vemra::qttest
