// A person's input to the window, and the equivalent event for the other screen.

#include "VemraGoalSurface/model/GoalOutcomeRecording.hpp"
#include "VemraQt/accessibility/AccessibleElement.hpp"
#include "VemraQt/accessibility/AccessibleRow.hpp"
#include "VemraQt/widgets/ChoiceBox.hpp"
#include "tests/VemraQt/PageBehind.hpp"
#include "tests/VemraQt/WindowHost.hpp"
#include "tests/VemraQt/monkey/Agreement.hpp"
#include "tests/VemraQt/monkey/Twins.hpp"

#include <algorithm>
#include <cctype>

#include <QApplication>
#include <QMenu>
#include <QScrollBar>
#include <QTest>

namespace vemra::monkey {

using ui::ElementKind;

namespace {

bool endsWith(const std::string& text, std::string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

void act(QAccessibleInterface* object, const QString& action) {
  if (!object || !object->actionInterface()) {
    throw Disagreement("a control without actions for assistive technology");
  }
  object->actionInterface()->doAction(action);
}

/// Mostly one that some choice begins with, in either case.
char letterFor(const Step& step) {
  if (step.c % 8 == 0) return static_cast<char>('a' + step.a % 26);
  const std::string label = GoalOutcomeRecordingFormLogic::label(
      allGoalOutcomeValues[step.a % allGoalOutcomeValues.size()]);
  return static_cast<char>(step.c % 2 ? label.front() : std::tolower(label.front()));
}

/// The choice of a letter: the next outcome that begins with it; after the last one, the first.
std::optional<std::size_t> choiceByLetter(std::size_t current, char letter) {
  const std::size_t count = allGoalOutcomeValues.size();
  for (std::size_t index = (current + 1) % count; index != current; index = (index + 1) % count) {
    const std::string label = GoalOutcomeRecordingFormLogic::label(allGoalOutcomeValues[index]);
    if (std::tolower(label.front()) == std::tolower(letter)) return index;
  }
  return std::nullopt;
}

}  // namespace

void Twins::press(const Step& step) {
  const auto place = drawControl(step, ElementKind::button);
  if (!place) return;
  const Element& button = *at(*place);
  const std::string identifier(button.element.accessibilityIdentifier());
  const bool enabled = button.element.style().enabled;
  const page::Node* leaf = nodeAt(*place);
  qt::ElementWidget* lent = leaf ? widgetOf(*leaf) : nullptr;
  QWidget* shown = lent ? &lent->widget() : nullptr;
  const auto point = shown ? qttest::seenPoint(*shown) : std::nullopt;
  if (point && step.a % 3 == 0) {
    QTest::mouseClick(shown, Qt::LeftButton, {}, *point);
  } else if (point && enabled && step.a % 3 == 1) {
    shown->setFocus(Qt::TabFocusReason);
    QTest::keyClick(shown, step.b % 2 ? Qt::Key_Space : Qt::Key_Return);
  } else {
    act(accessible(*place), QAccessibleActionInterface::pressAction());
  }
  deliver(*place, ui::Press{});
  if (enabled) expectFocusAt(*place, identifier);
}

/// An opened editor gives the focus to its picker; a closed one leaves it at the place of the
/// button that opened it.
void Twins::expectFocusAt(const Place& pressed, const std::string& identifier) const {
  std::string prefix = identifier;
  std::vector<std::string> wanted;
  for (const char* end : {".start", ".correct", ".save", ".cancel"}) {
    if (!endsWith(identifier, end)) continue;
    prefix.resize(prefix.size() - std::string_view(end).size());
    const bool opens = end[1] == 's' ? end[2] == 't' : end[2] == 'o';
    wanted = opens ? std::vector{prefix + ".picker"}
                   : std::vector{prefix + ".start", prefix + ".correct"};
  }
  if (wanted.empty()) return;
  const auto focused = focus();
  const Element* element = focused ? at(*focused) : nullptr;
  // The host may have removed the person: then another person's control has the focus.
  const auto inRow = elementsOf(pressed.row);
  const bool isThere = std::ranges::any_of(inRow, [&](const Element* other) {
    return std::ranges::count(wanted, other->element.accessibilityIdentifier()) > 0;
  });
  if (!isThere || windowHost.answer == Answer::drops) {
    if (!focused && nextControl(std::nullopt, true)) {
      throw Disagreement("the keyboard got lost with " + identifier);
    }
    return;
  }
  const std::string found(element ? element->element.accessibilityIdentifier() : "nothing");
  if (!element || focused->row != pressed.row || std::ranges::count(wanted, found) == 0) {
    throw Disagreement("after " + identifier + " the keyboard is at " + found);
  }
}

void Twins::write(const Step& step) {
  const auto place = drawControl(step, ElementKind::textField);
  if (!place) return;
  QAccessibleInterface* object = accessible(*place);
  if (!object || !object->editableTextInterface()) {
    throw Disagreement("a field that assistive technology cannot write in");
  }
  const std::string text =
      step.a % 4 == 0 ? "" : (step.a % 4 == 1 ? " \n\t" : "note " + std::to_string(step.a));
  object->setText(QAccessible::Value, QString::fromStdString(text));
  deliver(*place, ui::EditText{text});
}

void Twins::choose(const Step& step) {
  const auto place = drawControl(step, ElementKind::picker);
  if (!place) return;
  const page::Node* leaf = nodeAt(*place);
  auto* box = leaf ? dynamic_cast<qt::ChoiceBox*>(widgetOf(*leaf)) : nullptr;
  const auto& values = allGoalOutcomeValues;
  const auto current = static_cast<std::size_t>(
      std::ranges::find(values, at(*place)->element.selection()->name(),
                        [](GoalOutcomeValue value) { return caseName(value); }) -
      values.begin());
  std::size_t chosen = step.a % values.size();
  if (box && qttest::seenPoint(*box) && step.b % 4 == 0) {
    // A menu is open while the result changes; when its person is removed, the menu closes.
    chooseInMenu(*box, step, chosen);
    return;
  }
  if (box && step.b % 4 == 2) {
    box->setFocus(Qt::TabFocusReason);
    const char letter = letterFor(step);
    QTest::keyClick(box, letter);
    const auto found = choiceByLetter(current, letter);
    if (!found) return;
    chosen = *found;
  } else if (box && step.b % 4 != 3) {
    box->setFocus(Qt::TabFocusReason);
    const bool down = step.a % 2;
    QTest::keyClick(box, down ? Qt::Key_Down : Qt::Key_Up);
    chosen = down ? std::min(current + 1, values.size() - 1) : current - (current > 0 ? 1 : 0);
  } else {
    QAccessibleInterface* picker = accessible(*place);
    if (picker->childCount() != static_cast<int>(values.size())) {
      throw Disagreement("a picker of " + std::to_string(picker->childCount()) + " choices");
    }
    act(picker->child(static_cast<int>(chosen)), QAccessibleActionInterface::pressAction());
  }
  deliver(*place, ui::Select{ui::Tag(values[chosen])});
}

void Twins::chooseInMenu(qt::ChoiceBox& box, const Step& step, std::size_t index) {
  const ui::NodeID node = box.node();
  QTest::keyClick(&box, Qt::Key_Space);
  auto* menu = box.findChild<QMenu*>();
  if (!menu || menu->actions().size() != static_cast<int>(allGoalOutcomeValues.size())) {
    throw Disagreement("a picker without a menu of its choices");
  }
  if (step.b % 8 == 0) changeBoth(step);
  const page::Node* still = qttest::pageOf(widget).tree().find(node);
  if (!still || widgetOf(*still) != &box) {
    if (QApplication::activePopupWidget()) throw Disagreement("the menu of a picker that has gone");
    return;
  }
  const Place place = *placeOf(*still);
  menu->setActiveAction(menu->actions().at(static_cast<int>(index)));
  QTest::keyClick(menu, Qt::Key_Return);
  deliver(place, ui::Select{ui::Tag(allGoalOutcomeValues[index])});
}

void Twins::scroll(const Step& step) {
  QScrollBar& bar = *widget.verticalScrollBar();
  switch (step.a % 8) {
    case 0:
      bar.setValue(static_cast<int>(static_cast<std::int64_t>(bar.maximum()) * step.b / 9999));
      break;
    case 1:
      bar.setValue(bar.maximum());
      break;
    case 2:
    case 3: {
      QWidget* focused = widget.focusWidget() ? widget.focusWidget() : &widget;
      QTest::keyClick(focused, step.b % 2 ? Qt::Key_PageDown : Qt::Key_PageUp);
      break;
    }
    default: {
      const auto near = nearElements();
      qt::ElementWidget* over = near.empty() ? nullptr : widgetOf(*near[step.c % near.size()]);
      QWidget& under = over ? over->widget() : *widget.viewport();
      qttest::wheel(under, static_cast<int>(step.b % 9) - 5);
    }
  }
}

void Twins::tab(const Step& step) {
  const bool forward = step.a % 4 != 0;
  const auto wanted = nextControl(focus(), forward);
  QWidget* focused = widget.focusWidget() ? widget.focusWidget() : &widget;
  QTest::keyClick(focused, forward ? Qt::Key_Tab : Qt::Key_Backtab,
                  forward ? Qt::NoModifier : Qt::ShiftModifier);
  const auto found = focus();
  if (found == wanted) return;
  const auto described = [&](const std::optional<Place>& place) {
    return place ? "element " + std::to_string(place->element) + " of row " +
                       (place->row ? std::to_string(*place->row) : "none")
                 : "nothing";
  };
  throw Disagreement((forward ? "Tab" : "Backtab") + std::string(" went to ") + described(found) +
                     ", not " + described(wanted));
}

/// An object that a client has kept for some time acts on its element, or does nothing when the
/// element has been removed.
void Twins::pressHeld(const Step& step) {
  if (held_.empty()) return;
  const auto& [id, identifier] = held_[step.a % held_.size()];
  QAccessibleInterface* object = QAccessible::accessibleInterface(id);
  if (!object) return;
  (void)object->text(QAccessible::Name);
  (void)object->rect();
  (void)object->state();
  (void)object->parent();
  auto* element = dynamic_cast<qt::AccessibleElement*>(object);
  const ui::Node* node = element ? element->node() : nullptr;
  if (!node) {
    if (object->actionInterface()) {
      object->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    }
    return;  // it must have no effect
  }
  if (node->element.kind() != ElementKind::button) return;
  const auto* row = dynamic_cast<const qt::AccessibleRow*>(element->parent());
  const auto outside = heardPage(*QAccessible::queryAccessibleInterface(&widget)).elements;
  const auto index =
      row ? row->indexOfChild(element) : std::ranges::find(outside, object) - outside.begin();
  const Place place{row ? std::optional(row->index) : std::nullopt,
                    static_cast<std::size_t>(index)};
  const Element* its = at(place);
  if (!its || !(its->element == node->element)) {
    throw Disagreement("a held object stands for another element");
  }
  act(object, QAccessibleActionInterface::pressAction());
  deliver(place, ui::Press{});
}

/// Carries out a client's actions on the window also on the other screen.
void Twins::follow(ui::NodeID windowNode, const ui::Event& event) {
  ++clientEvents_;
  const ui::Node* node = widget.graph().find(windowNode);
  if (!node) return;
  // The path from the root: for a row its index, else the place among its siblings.
  std::vector<std::size_t> steps;
  for (const ui::Node* place = node; place->parent; place = place->parent) {
    const auto& siblings = place->parent->children;
    steps.push_back(place->isRow ? place->rowIndex
                                 : static_cast<std::size_t>(std::ranges::find(siblings, place) -
                                                            siblings.begin()));
  }
  const Element* theirs = screen.tree().root();
  for (auto place = steps.rbegin(); place != steps.rend(); ++place) {
    if (*place >= theirs->childCount) {
      // Not through the event loop, which lets no exception pass.
      clientError_ = std::make_exception_ptr(Disagreement("a client acts on what is not there"));
      return;
    }
    theirs = &childAt(*theirs, *place);
  }
  screen.graph().deliver(theirs->id, event);
}

}  // namespace vemra::monkey
