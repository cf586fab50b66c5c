#include "tests/VemraQt/monkey/Twins.hpp"

#include "tests/VemraQt/ActiveWindow.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/Strings.hpp"

#include <QApplication>
#include <QLineEdit>

namespace vemra::monkey {

Twins::Twins(std::size_t people)
    : screen(ui::View{}),
      windowHost(resultOf(people), [this] { widget.setRoot(windowHost.view()); }),
      screenHost(windowHost.result, [this] { screen.show(screenHost.view()); }) {
  qttest::pageOf(widget).onDeliver = [this](ui::NodeID node, const ui::Event& event) {
    if (isTurning_) follow(node, event);
  };
  widget.setEnvironment(ui::Environment{});
  widget.resize(640, 500);
  windowHost.show();
  screenHost.show();
  widget.show();
  qttest::activate(widget);
}

void Twins::deliver(const Place& place, ui::Event event) {
  if (const Element* element = at(place)) screen.graph().deliver(element->id, std::move(event));
}

Twins::Keyboard Twins::keyboard() const {
  Keyboard now;
  const page::Node* focused = qttest::pageOf(widget).focusedNode();
  if (!focused || !widgetOf(*focused)) return now;
  const QWidget& shown = widgetOf(*focused)->widget();
  now.node = focused->id;
  now.wasSeen = !shown.visibleRegion().isEmpty();
  if (auto* field = qobject_cast<const QLineEdit*>(&shown)) {
    now.isField = true;
    now.text = field->text().toStdString();
    now.cursor = field->cursorPosition();
    now.selectionStart = field->selectionStart();
    now.selectionLength = field->selectionLength();
  }
  return now;
}

/// The focused element keeps the focus while it exists; a field also keeps its cursor.
void Twins::expectKept(const Keyboard& before) const {
  if (!before.node) return;
  const ui::Node* still = widget.graph().find(before.node);
  const page::Node* focused = qttest::pageOf(widget).focusedNode();
  if (!still || !still->element.style().enabled) {
    if (before.wasSeen && !focused && nextControl(std::nullopt, true)) {
      throw Disagreement("what had the keyboard has gone, and nothing took it");
    }
    return;
  }
  if (!focused || focused->id != before.node) {
    throw Disagreement("the keyboard left " + std::string(still->element.shownLabel()) + " for " +
                       (focused ? std::string(focused->element.shownLabel()) : "nothing"));
  }
  if (!before.isField) return;
  const Keyboard after = keyboard();
  if (after.text != before.text || after.cursor != before.cursor ||
      after.selectionStart != before.selectionStart ||
      after.selectionLength != before.selectionLength) {
    throw Disagreement("the cursor moved from " + std::to_string(before.cursor) + " in \"" +
                       before.text + "\" to " + std::to_string(after.cursor) + " in \"" +
                       after.text + "\"");
  }
}

void Twins::perform(const Step& step) {
  const Keyboard before = keyboard();
  switch (step.act) {
    case Act::press:
      return press(step);
    case Act::type:
      return type(step);
    case Act::write:
      return write(step);
    case Act::choose:
      return choose(step);
    case Act::tab:
      return tab(step);
    case Act::hold:
      return hold(step);
    case Act::pressHeld:
      return pressHeld(step);
    case Act::scroll:
      scroll(step);
      break;
    case Act::resize:
      widget.resize(static_cast<int>(320 + step.a % 800), static_cast<int>(150 + step.b % 800));
      break;
    case Act::surround:
      surround(step);
      break;
    case Act::change:
      changeBoth(step);
      break;
    case Act::answer:
      windowHost.answer = screenHost.answer = static_cast<Answer>(step.a % 3);
      break;
    case Act::catchUp:
      windowHost.show();
      screenHost.show();
      break;
    case Act::turn:
      turn();
      if (hasClients_) return;
      break;
    case Act::away:
      widget.hide();
      changeBoth(step);
      widget.show();
      widget.activateWindow();  // which is complete after a turn
      break;
  }
  expectKept(before);
}

void Twins::turn() {
  isTurning_ = true;
  QApplication::processEvents();
  isTurning_ = false;
  if (clientError_) std::rethrow_exception(std::exchange(clientError_, nullptr));
}

void Twins::surround(const Step& step) {
  constexpr double scales[] = {1.0, 1.25, 1.5, 2.0, 3.0};
  ui::Environment environment = screen.graph().environment();
  switch (step.a % 4) {
    case 0:
      environment.textScale = scales[step.b % std::size(scales)];
      break;
    case 1:
      environment.layoutDirection =
          step.b % 2 ? ui::LayoutDirection::rightToLeft : ui::LayoutDirection::leftToRight;
      break;
    case 2:
      environment.colorScheme = step.b % 2 ? ui::ColorScheme::dark : ui::ColorScheme::light;
      break;
    default:
      if (step.b % 3 == 0) environment.strings = nullptr;
      if (step.b % 3 == 1) environment.strings = std::make_shared<qttest::HebrewStrings>();
      if (step.b % 3 == 2) environment.strings = std::make_shared<qttest::PseudoStrings>();
  }
  widget.setEnvironment(environment);
  screen.setEnvironment(environment);
}

void Twins::changeBoth(const Step& step) {
  const auto focused = focus();
  Result next = windowHost.result;
  change(next, step, focused ? focused->row : std::nullopt);
  windowHost.result = next;
  screenHost.result = std::move(next);
  windowHost.show();
  screenHost.show();
}

void Twins::hold(const Step& step) {
  const std::size_t row = step.a % (rowCount() + 1);
  const auto where = row < rowCount() ? std::optional(row) : std::nullopt;
  const auto elements = elementsOf(where);
  const Place place{where, step.b % elements.size()};
  QAccessibleInterface* object = accessible(place);
  if (!object) throw Disagreement("assistive technology misses an element");
  held_.emplace_back(QAccessible::uniqueId(object),
                     std::string(elements[place.element]->element.accessibilityIdentifier()));
  if (held_.size() > 20) held_.erase(held_.begin());
}

}  // namespace vemra::monkey
