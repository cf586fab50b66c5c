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

/// The window and the screen without one have come to differ, or the window is not as it must be.
class Disagreement : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Where an element that can be seen stands: in which row of the list of people, as the how many-th
/// element of that row; or outside, as the how many-th of the page.
struct Place {
  std::optional<std::size_t> row;
  std::size_t element = 0;
  friend bool operator==(const Place&, const Place&) = default;
};

/// One goal screen twice, each with a host of its own: in a real window, and without one. A step
/// reaches the window as a person's input does, where that can be, and the other screen as what it
/// must amount to.
class Twins {
 public:
  explicit Twins(std::size_t people);

  /// Does the step to both; throws `Disagreement` where the window answers wrongly at once.
  void perform(const Step& step);

  /// A turn of the event loop. What a client in another process does to the window in it is done
  /// to the other screen, too.
  void turn();
  /// How much clients have done so far.
  std::size_t clientEvents() const { return clientEvents_; }
  /// From now on the keyboard may move by itself in a turn of the event loop.
  void expectClients() { hasClients_ = true; }

  /// \name The screen without a window @{
  using Element = testing::RenderedTree::Node;
  /// The list of people; nullptr when nobody is on it.
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
  /// What must be the same afterwards when a step does not move the keyboard by itself.
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
  /// A control of that kind that the figures point at: near the viewport, or anywhere.
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

/// The child at that place among its siblings; it must be there.
const Twins::Element& childAt(const Twins::Element& node, std::size_t index);

}  // namespace vemra::monkey
