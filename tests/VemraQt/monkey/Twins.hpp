#pragma once

#include "VemraQt/ViewWidget.hpp"
#include "VemraTesting/Screen.hpp"
#include "tests/VemraQt/monkey/Source.hpp"
#include "tests/VemraQt/monkey/Step.hpp"

#include <cstddef>
#include <exception>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include <QAccessible>

class QLineEdit;

namespace vemra::qt {
class ChoiceBox;
class ElementWidget;
}  // namespace vemra::qt

namespace vemra::monkey {

/// The window and the screen without one differ, or the window breaks a rule.
class Disagreement : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// The place of a visible element: its row in the list of people and its number in that row; or,
/// outside the list, its number on the page.
struct Place {
  std::optional<std::size_t> row;
  std::size_t element = 0;
  friend bool operator==(const Place&, const Place&) = default;
};

/// One goal screen twice, each with a host of its own: in a real window, and without one. The
/// window gets a step as a person's input where that is possible, and the other screen gets the
/// equivalent event.
class Twins {
 public:
  explicit Twins(std::size_t people);

  /// Carries the step out on both; throws `Disagreement` when the window's direct answer is wrong.
  void perform(const Step& step);

  /// A turn of the event loop. The actions of a client in another process are also carried out on
  /// the other screen.
  void turn();
  /// The number of the clients' actions so far.
  std::size_t clientEvents() const { return clientEvents_; }
  /// From now on the keyboard focus may move by itself in a turn of the event loop.
  void expectClients() { hasClients_ = true; }

  /// \name The screen without a window @{
  using Element = testing::RenderedTree::Node;
  /// The list of people; nullptr when it is empty.
  const Element* people() const;
  std::size_t rowCount() const;
  /// The elements that can be seen, in tree order: of a row, or outside the list.
  std::vector<const Element*> elementsOf(std::optional<std::size_t> row) const;
  const Element* at(const Place& place) const;
  /// The next control that has the keyboard, in reading order and round the page.
  std::optional<Place> nextControl(std::optional<Place> from, bool forward) const;
  /// @}

  /// \name The window @{
  std::optional<Place> placeOf(const page::Node& leaf) const;
  std::optional<Place> focus() const;
  /// The elements near the viewport and those of open editors, in tree order.
  std::vector<const page::Node*> nearElements() const;
  /// The widget that shows the element; nullptr when it has none.
  qt::ElementWidget* widgetOf(const page::Node& leaf) const;
  /// @}

  qt::ViewWidget widget;
  testing::Screen screen;
  Host windowHost, screenHost;

 private:
  /// The state that a step must not change unless it moves the keyboard focus itself.
  struct Keyboard {
    ui::NodeID node;
    bool wasSeen = false;
    bool isField = false;
    std::string text;
    int cursor = 0, selectionStart = -1, selectionLength = 0;
  };

  void follow(ui::NodeID windowNode, const ui::Event& event);
  void press(const Step& step);
  void type(const Step& step);
  void write(const Step& step);
  void choose(const Step& step);
  void scroll(const Step& step);
  void tab(const Step& step);
  void surround(const Step& step);
  void changeBoth(const Step& step);
  void hold(const Step& step);
  void pressHeld(const Step& step);
  void chooseInMenu(qt::ChoiceBox& box, const Step& step, std::size_t index);

  Keyboard keyboard() const;
  void expectKept(const Keyboard& before) const;
  /// The control of that kind that the random numbers select: near the viewport, or anywhere.
  std::optional<Place> drawControl(const Step& step, ui::ElementKind kind) const;
  const page::Node* nodeAt(const Place& place) const;
  QAccessibleInterface* accessible(const Place& place) const;
  void deliver(const Place& place, ui::Event event);
  void expectFocusAt(const Place& pressed, const std::string& identifier) const;

  std::vector<std::pair<QAccessible::Id, std::string>> held_;
  bool isTurning_ = false, hasClients_ = false;
  std::size_t clientEvents_ = 0;
  std::exception_ptr clientError_;
};

/// The child at that place among its siblings; it must exist.
const Twins::Element& childAt(const Twins::Element& node, std::size_t index);

}  // namespace vemra::monkey
