#pragma once

#include "VemraPlatform/ui/View.hpp"
#include "VemraQt/ViewWidget.hpp"
#include "tests/VemraQt/ActiveWindow.hpp"

#include <string>

#include <gtest/gtest.h>

namespace vemra::qttest {

/// The value of a choice.
struct Choice {
  int value = 0;
  friend std::string caseName(const Choice& choice) { return std::to_string(choice.value); }
};

/// A page in a window with the focus.
class ShownWidget : public ::testing::Test {
 protected:
  ShownWidget() {
    widget.setEnvironment({});
    widget.resize(300, 400);
    widget.show();
    activate(widget);
  }

  qt::ViewWidget widget;
};

/// The same, and one control of each kind for it.
class ShownPage : public ShownWidget {
 protected:
  /// The actions of the controls.
  virtual void act(const std::string&) {}

  ui::View button(ui::ButtonStyle style) {
    return ui::Button(ui::verbatim("Button"), [this] { act("press"); })
        .buttonStyle(style)
        .accessibilityIdentifier("control");
  }
  ui::View picker() {
    return ui::Picker("Place",
                      ui::Binding<Choice>([this] { return Choice{place}; },
                                          [this](const Choice& chosen) {
                                            place = chosen.value;
                                            act("choose " + caseName(chosen));
                                          }),
                      {ui::Text("Alpha").tag(Choice{0}), ui::Text("Beta").tag(Choice{1}),
                       ui::Text("Gamma").tag(Choice{2}), ui::Text("Delta").tag(Choice{3}),
                       ui::Text("Gimel").tag(Choice{4})})
        .accessibilityIdentifier("control");
  }
  ui::View field() {
    return ui::TextField("Note", ui::Binding<std::string>([this] { return note; },
                                                          [this](const std::string& text) {
                                                            note = text;
                                                            act("write " + text);
                                                          }))
        .accessibilityIdentifier("control");
  }

  int place = 2;
  std::string note;
};

}  // namespace vemra::qttest
